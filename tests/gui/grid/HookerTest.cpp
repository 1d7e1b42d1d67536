// Hookers: several watch one window, come and go while messages are on their way, and outlive it.
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/Hooker.h>
#include <ostrel/platform/window/FrameWnd.h>
#include <ostrel/testing/Driver.h>

namespace Ostrel::Testing
{
namespace
{
constexpr UINT kQuestion = WM_USER + 7;

std::string g_heard;

LRESULT AnswerQuestions(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == kQuestion)
    {
        g_heard += "window ";
        return static_cast<LRESULT>(wParam) + lParam;
    }
    return DefWindowProc(window, message, wParam, lParam);
}

class Watch : public GUI::CHooker
{
public:
    explicit Watch(std::string name) : m_name(std::move(name)) {}

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != kQuestion)
        {
            return CHooker::WindowProc(message, wParam, lParam);
        }
        g_heard += m_name + ' ';
        if (meanwhile)
        {
            meanwhile();
        }
        return keepsQuestions ? -1 : CHooker::WindowProc(message, wParam, lParam);
    }

    std::function<void()> meanwhile;
    bool keepsQuestions = false;

private:
    std::string m_name;
};

class HookerTest : public testing::Test
{
protected:
    HookerTest()
    {
        WNDCLASS windowClass;
        windowClass.lpszClassName = "HookerTest";
        windowClass.lpfnWndProc = &AnswerQuestions;
        RegisterClass(&windowClass);
        window = CreateWindowEx(0, "HookerTest", "", WS_POPUP, 0, 0, 10, 10, nullptr, 0);
    }
    ~HookerTest() override
    {
        if (IsWindow(window) != FALSE)
        {
            DestroyWindow(window);
        }
        UnregisterClass("HookerTest");
    }

    /// Who hears a question, and what comes back.
    std::string Ask()
    {
        g_heard.clear();
        LRESULT const answer = SendMessage(window, kQuestion, 40, 2);
        return g_heard + std::to_string(answer);
    }
    [[nodiscard]] bool IsHooked() const
    {
        return GetWindowLongPtr(window, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&AnswerQuestions);
    }

    Driver driver;
    HWND window = nullptr;
    Watch first{"first"};
    Watch second{"second"};
    Watch third{"third"};
};

TEST_F(HookerTest, TheLastToComeIsAskedFirst)
{
    EXPECT_EQ(Ask(), "window 42");
    EXPECT_TRUE(first.Hook(window));
    EXPECT_TRUE(second.Hook(window));
    EXPECT_TRUE(third.Hook(window));
    EXPECT_EQ(Ask(), "third second first window 42");
    second.keepsQuestions = true;
    EXPECT_EQ(Ask(), "third second -1");
    second.Unhook();
    EXPECT_EQ(Ask(), "third first window 42");
    third.Hook(window);
    EXPECT_EQ(Ask(), "third first window 42") << "once";
    first.Unhook();
    EXPECT_TRUE(IsHooked());
    third.Unhook();
    EXPECT_FALSE(IsHooked());
    EXPECT_EQ(Ask(), "window 42");
    EXPECT_EQ(third.GetHookedWindow(), nullptr);
    third.Unhook();
}

TEST_F(HookerTest, HookersComeAndGoInTheMiddleOfAMessage)
{
    auto passing = std::make_unique<Watch>("passing");
    first.Hook(window);
    passing->Hook(window);
    second.Hook(window);
    second.meanwhile = [&]()
    {
        passing.reset();
        third.Hook(window);
    };
    EXPECT_EQ(Ask(), "second first window 42") << "the newcomer hears of the next message";
    second.meanwhile = [&]() { second.Unhook(); };
    EXPECT_EQ(Ask(), "third second first window 42");
    EXPECT_EQ(Ask(), "third first window 42");
    third.meanwhile = [&]()
    {
        first.Unhook();
        third.Unhook();
    };
    EXPECT_EQ(Ask(), "third window 42");
    EXPECT_FALSE(IsHooked());
}

TEST_F(HookerTest, AHookerMayDieInItsOwnMessage)
{
    class Mortal : public GUI::CHooker
    {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message != kQuestion)
            {
                return CHooker::WindowProc(message, wParam, lParam);
            }
            delete this;
            return -1;
        }
    };
    first.Hook(window);
    (new Mortal)->Hook(window);
    EXPECT_EQ(Ask(), "-1");
    EXPECT_EQ(Ask(), "first window 42");
}

TEST_F(HookerTest, HookersOutliveTheirWindow)
{
    first.Hook(window);
    second.Hook(window);
    second.meanwhile = [&]()
    {
        DestroyWindow(window);
        first.Unhook();
    };
    EXPECT_EQ(Ask(), "second window 42") << "the procedure alone is called for a dead window";
    EXPECT_EQ(first.GetHookedWindow(), nullptr);
    EXPECT_EQ(second.GetHookedWindow(), nullptr);
    EXPECT_FALSE(first.Hook(window)) << "a stale handle";
    EXPECT_FALSE(first.Hook(nullptr));
    HWND const other = CreateWindowEx(0, "HookerTest", "", WS_POPUP, 0, 0, 10, 10, nullptr, 0);
    EXPECT_TRUE(first.Hook(other));
    DestroyWindow(other);
}

TEST_F(HookerTest, OutsideAMessageThereIsNothingToPassOn)
{
    EXPECT_EQ(first.CHooker::WindowProc(kQuestion, 1, 2), 0);
}
} // namespace
} // namespace Ostrel::Testing
