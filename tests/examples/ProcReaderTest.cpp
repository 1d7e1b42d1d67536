// The reader of /proc on folders made for the purpose: odd names, ended processes, damaged files, reused pids.
#include <filesystem>
#include <fstream>

#include <examples/process_monitor/ProcReader.h>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace ProcessMonitor;

namespace
{

class ProcReaderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "ostrel-proc-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_root = pattern;
        Write("stat", "cpu  1 2 3\nbtime 1700000000\n");
        SetUptime(100);
    }
    void TearDown() override { std::filesystem::remove_all(m_root); }

    void Write(std::filesystem::path const& name, std::string const& text)
    {
        std::filesystem::create_directories((m_root / name).parent_path());
        std::ofstream(m_root / name, std::ios::binary) << text;
    }
    void SetUptime(double seconds) { Write("uptime", std::to_string(seconds) + " 0.0\n"); }
    void AddProcess(int pid, std::string const& name, int parentPid, int cpuTicks = 0, int startTicks = 0)
    {
        std::string const folder = std::to_string(pid);
        Write(folder + "/stat", folder + " (" + name + ") S " + std::to_string(parentPid) + " 1 1 0 -1 0 0 0 0 0 " +
                                    std::to_string(cpuTicks) + " 0 0 0 20 0 3 0 " + std::to_string(startTicks) +
                                    " 1000 25 0\n");
        Write(folder + "/status", "Name:\tx\nUid:\t4000000001\t4000000002\t4000000001\t4000000001\n");
        Write(folder + "/cmdline", std::string("/bin/tool\0--one\0two words\0", 26));
    }

    std::filesystem::path m_root;
};

TEST_F(ProcReaderTest, ReadsEveryField)
{
    AddProcess(42, "tool", 7);
    auto const processes = ProcReader(m_root).Read();
    ASSERT_EQ(processes.size(), 1U);
    ProcessInfo const& process = processes[0];
    EXPECT_EQ(process.pid, 42);
    EXPECT_EQ(process.parentPid, 7);
    EXPECT_EQ(process.name, "tool");
    EXPECT_EQ(process.user, "4000000002");
    EXPECT_EQ(process.state, "sleeping");
    EXPECT_EQ(process.commandLine, "/bin/tool --one two words");
    EXPECT_EQ(process.threads, 3);
    EXPECT_EQ(process.memoryKiB, 25 * (sysconf(_SC_PAGESIZE) / 1024));
    EXPECT_EQ(process.startTime, 1700000000);
}

TEST_F(ProcReaderTest, NamesMayHoldBlanksAndParentheses)
{
    AddProcess(1, "a (b) c) S 9", 5);
    auto const processes = ProcReader(m_root).Read();
    ASSERT_EQ(processes.size(), 1U);
    EXPECT_EQ(processes[0].name, "a (b) c) S 9");
    EXPECT_EQ(processes[0].parentPid, 5);
}

TEST_F(ProcReaderTest, AProcessThatVanishesWhileItIsReadIsGone)
{
    AddProcess(1, "stays", 0);
    std::filesystem::create_directories(m_root / "2"); // the folder was listed, its files are gone
    AddProcess(3, "half", 1);
    std::filesystem::remove(m_root / "3" / "status");
    auto const processes = ProcReader(m_root).Read();
    ASSERT_EQ(processes.size(), 1U);
    EXPECT_EQ(processes[0].name, "stays");
}

TEST_F(ProcReaderTest, DamagedStatLinesAreNoProcesses)
{
    for (char const* line : {"", "12", "12 (name", "12 )name( S 1", "12 (name) S", "12 (name) S 1 2 3"})
    {
        EXPECT_FALSE(ParseStatLine(line)) << line;
    }
}

TEST_F(ProcReaderTest, CpuIsCountedSinceTheReadBeforeAndAnewForAReusedPid)
{
    double const ticks = static_cast<double>(sysconf(_SC_CLK_TCK));
    AddProcess(1, "old", 0, static_cast<int>(ticks * 10), 0);
    ProcReader reader(m_root);
    EXPECT_NEAR(reader.Read()[0].cpuPercent, 10, 0.1); // ten seconds of work in a hundred

    SetUptime(102);
    AddProcess(1, "old", 0, static_cast<int>(ticks * 11), 0);
    EXPECT_NEAR(reader.Read()[0].cpuPercent, 50, 0.1); // one second of work in two

    SetUptime(104);
    AddProcess(1, "new", 0, static_cast<int>(ticks), static_cast<int>(ticks * 102));
    EXPECT_NEAR(reader.Read()[0].cpuPercent, 50, 0.1); // another process under the same pid
}

} // namespace
