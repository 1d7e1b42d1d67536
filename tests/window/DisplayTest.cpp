#include <cstdlib>
#include <thread>

#include "WindowTest.h"

namespace Ostrel::Platform
{
namespace
{

using DisplayTest = WindowTest;

/// Sets an environment variable (null: takes it away) for a scope.
class Environment
{
public:
    Environment(char const* name, char const* value) : m_name(name)
    {
        char const* const before = std::getenv(name);
        m_had = before != nullptr;
        m_before = m_had ? before : "";
        value != nullptr ? setenv(name, value, 1) : unsetenv(name);
    }
    Environment(Environment const&) = delete;
    Environment& operator=(Environment const&) = delete;
    ~Environment() { m_had ? setenv(m_name, m_before.c_str(), 1) : unsetenv(m_name); }

private:
    char const* m_name;
    bool m_had = false;
    std::string m_before;
};

TEST_F(DisplayTest, ALostServerEndsTheProgramWithAMessage)
{
    HookedWnd window;
    window.MakeTopLevel({0, 0, 100, 100});
    auto const lose = [this]
    {
        Screen().LoseServer("the cable was cut");
        ProcessPending();
    };
    EXPECT_EXIT(lose(), testing::ExitedWithCode(kExitDisplayLost), "server is gone: the cable was cut");
}

TEST_F(DisplayTest, WithoutAServerProgramsRunHeadlessAndSaySoOnce)
{
    Environment const noServer("DISPLAY", nullptr);
    {
        Environment const wish("OSTREL_DISPLAY", "headless");
        testing::internal::CaptureStderr();
        EXPECT_EQ(MakeDisplay()->Name(), "headless");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "who asks for it need not be told";
    }
    Environment const noWish("OSTREL_DISPLAY", nullptr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(MakeDisplay()->Name(), "headless");
    EXPECT_EQ(MakeDisplay()->Name(), "headless");
    std::string const said = testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("headless"), std::string::npos);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

TEST_F(DisplayTest, AServerThatIsAskedForAndMissingEndsTheProgram)
{
    Environment const noServer("DISPLAY", nullptr);
    Environment const wish("OSTREL_DISPLAY", "x11");
    EXPECT_EXIT(static_cast<void>(MakeDisplay()), testing::ExitedWithCode(kExitDisplayLost), "OSTREL_DISPLAY=x11");
}

TEST_F(DisplayTest, EachThreadHasItsOwnScreen)
{
    constexpr int kThreads = 3;
    std::vector<COLORREF> seen(kThreads);
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number)
    {
        threads.emplace_back(
            [&seen, number]
            {
                SetThreadDisplay(std::make_unique<HeadlessDisplay>());
                HookedWnd window;
                window.color = RGB(number * 50, 100, 0);
                window.MakeTopLevel({10, 10, 110, 110});
                ProcessPending();
                seen[static_cast<std::size_t>(number)] = HeadlessDisplay::OfThread().ColorAt({50, 50});
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(seen, (std::vector<COLORREF>{RGB(0, 100, 0), RGB(50, 100, 0), RGB(100, 100, 0)}));
    EXPECT_TRUE(Screen().Windows().empty());
}

TEST_F(DisplayTest, TheClipboardIsSharedByTheProcess)
{
    Screen().SetClipboardText("from here", {});
    std::optional<std::string> text;
    std::thread([&] { text = HeadlessDisplay().ClipboardText(); }).join();
    EXPECT_EQ(text, "from here");
}

} // namespace
} // namespace Ostrel::Platform
