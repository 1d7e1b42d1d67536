#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>
#include <vector>

#include <unistd.h>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

namespace Ostrel::Common
{
namespace
{

struct Message
{
    CLog::Severity severity;
    long time;
    int threadId;
    std::string text;
};

class CRecorder final : public CLog::ILogger
{
public:
    void Log(CLog::Severity severity, long time, int threadId, std::string const& text) override
    {
        std::lock_guard const lock(m_lock);
        m_messages.push_back({severity, time, threadId, text});
        m_changed.notify_all();
    }
    /// What came since the last call, up to a message of that text, which is left out.
    std::vector<Message> TakeUntil(std::string const& text)
    {
        std::unique_lock lock(m_lock);
        m_changed.wait(lock, [&] { return !m_messages.empty() && m_messages.back().text == text; });
        m_messages.pop_back();
        return std::exchange(m_messages, {});
    }

private:
    std::mutex m_lock;
    std::condition_variable m_changed;
    std::vector<Message> m_messages;
};

/// Loggers cannot be removed, so it lives as long as the process.
CRecorder& AddRecorder()
{
    static CRecorder* const recorder = []
    {
        auto* const made = new CRecorder;
        CLog::AddLogger(nullptr);
        CLog::AddLogger(made);
        return made;
    }();
    return *recorder;
}

std::vector<Message> Written()
{
    CLog::Info("that is all");
    return AddRecorder().TakeUntil("that is all");
}

class TemporaryFile
{
public:
    explicit TemporaryFile(std::string const& name)
        : m_path(std::filesystem::temp_directory_path() / (name + std::to_string(getpid())))
    {}
    ~TemporaryFile() { std::filesystem::remove(m_path); }

    [[nodiscard]] std::string Path() const { return m_path.string(); }
    [[nodiscard]] std::string Bytes() const
    {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path m_path;
};

TEST(LogTest, AMessageComesWithItsThreadAndTime)
{
    AddRecorder();
    Platform::Clock::SetManual(0xFFFFFFFF);
    CLog::Info("number %d", 5);
    Platform::Clock::SetManual(7);
    CLog::Info(std::string("%s %.1f %c %lu"), "text", 1.5F, 'x', 7UL);
    Platform::Clock::SetRunning();
    std::vector<Message> const messages = Written();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].text, "number 5");
    EXPECT_EQ(messages[0].severity, 0);
    EXPECT_EQ(messages[0].time, -1); // 32 bits with a sign
    EXPECT_EQ(messages[0].threadId, static_cast<int>(GetCurrentThreadId()));
    EXPECT_EQ(messages[1].text, "text 1.5 x 7");
    EXPECT_EQ(messages[1].time, 7);
}

TEST(LogTest, AMessageOf512CharactersIsDropped)
{
    AddRecorder();
    CLog::Info("%s", std::string(511, 'a').c_str());
    CLog::Info("%s", std::string(512, 'b').c_str());
    CLog::Info(std::string(100'000, 'c'));
    std::vector<Message> const messages = Written();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].text, std::string(511, 'a'));
}

TEST(LogTest, EightWritersLoseNothingAndKeepTheirOrder)
{
    constexpr int kWriters = 8;
    constexpr int kMessages = 1000;
    AddRecorder();
    {
        std::vector<std::jthread> writers;
        for (int writer = 0; writer < kWriters; ++writer)
        {
            writers.emplace_back(
                [writer]
                {
                    for (int number = 0; number < kMessages; ++number)
                    {
                        CLog::Info("%d %d", writer, number);
                    }
                });
        }
    }
    std::map<int, int> next;
    for (Message const& message : Written())
    {
        std::istringstream text(message.text);
        int writer = -1;
        int number = -1;
        text >> writer >> number;
        ASSERT_EQ(number, next[writer]++) << "of writer " << writer;
    }
    for (int writer = 0; writer < kWriters; ++writer)
    {
        EXPECT_EQ(next[writer], kMessages) << "of writer " << writer;
    }
}

TEST(FileLoggerTest, WritesALineAMessage)
{
    TemporaryFile const file("ostrel-log-line-");
    {
        std::ofstream(file.Path()) << "what was there before";
        CFileLogger logger(file.Path(), true);
        logger.Log(CLog::InfoSeverity, 3'723'004, 4711, "some text");
        EXPECT_EQ(file.Bytes(), "0 01:02:03.004 4711 some text\r\n"); // flushed
        logger.Log(static_cast<CLog::Severity>(3), 93'784'005, 0, "");
        logger.Log(CLog::InfoSeverity, -1, 1'234'567, "a\nb");
    }
    EXPECT_EQ(file.Bytes(), "0 01:02:03.004 4711 some text\r\n"
                            "1 02:03:04.005 0 \r\n"
                            "-0 00:00:00.001 1234567 a\nb\r\n");
}

TEST(FileLoggerTest, IgnoresMessagesWithoutAFile)
{
    for (char const* const path : {"/no/such/folder/log", "", "/"})
    {
        CFileLogger logger(path, false);
        logger.Log(CLog::InfoSeverity, 0, 0, "lost");
    }
    if (std::filesystem::exists("/dev/full"))
    {
        CFileLogger full("/dev/full", false);
        full.Log(CLog::InfoSeverity, 0, 0, "lost");
        full.Log(CLog::InfoSeverity, 0, 0, "lost");
    }
}

TEST(FileLoggerTest, EveryLoggerGetsWhatIsWrittenAfterItWasAdded)
{
    TemporaryFile const firstFile("ostrel-log-first-");
    TemporaryFile const secondFile("ostrel-log-second-");
    static std::vector<std::unique_ptr<CFileLogger>> loggers; // they live as long as the process
    loggers.push_back(std::make_unique<CFileLogger>(firstFile.Path(), false));
    CLog::AddLogger(loggers.back().get());
    CLog::Info("one");
    loggers.push_back(std::make_unique<CFileLogger>(secondFile.Path(), false));
    CLog::AddLogger(loggers.back().get());
    auto* const last = new CRecorder; // behind the files, so that what it has seen is in them
    static std::unique_ptr<CRecorder> const kept(last);
    CLog::AddLogger(last);
    CLog::Info("two");
    last->TakeUntil("two");
    EXPECT_NE(firstFile.Bytes().find(" one\r\n"), std::string::npos);
    EXPECT_NE(firstFile.Bytes().find(" two\r\n"), std::string::npos);
    EXPECT_EQ(secondFile.Bytes().find(" one\r\n"), std::string::npos);
    EXPECT_NE(secondFile.Bytes().find(" two\r\n"), std::string::npos);
}

} // namespace
} // namespace Ostrel::Common
