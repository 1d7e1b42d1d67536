#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::Platform
{
namespace
{

constexpr UINT kAsk = WM_APP + 1;
constexpr UINT kCount = WM_APP + 2;
constexpr UINT kThrow = WM_APP + 3;
constexpr UINT kDestroy = WM_APP + 4;

/// A window without a native counterpart: never shown, it needs no display.
class Answerer : public CWnd
{
public:
    ~Answerer() override { DestroyWindow(); }
    void Make() { ASSERT_TRUE(CreateEx(0, nullptr, "", 0, CRect(0, 0, 1, 1), nullptr, 0)); }

    HWND peer = nullptr;
    std::atomic<int> count{0};
    int countLimit = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case kAsk:
            // Each level asks back until the depth is used up.
            return wParam == 0 ? 1 : 1 + ::SendMessage(peer, kAsk, wParam - 1, 0);
        case kCount:
            if (++count == countLimit)
            {
                PostQuitMessage(0);
            }
            return 0;
        case kThrow:
            throw std::runtime_error("from the other thread");
        case kDestroy:
            DestroyWindow();
            PostQuitMessage(0);
            return 5;
        default:
            return CWnd::WindowProc(message, wParam, lParam);
        }
    }
};

/// A thread with a window and a loop that runs until WM_QUIT.
class WindowThread
{
public:
    WindowThread()
    {
        std::promise<void> ready;
        std::future<void> const isReady = ready.get_future();
        m_thread = std::thread(
            [this, &ready]
            {
                window.Make();
                handle = window;
                ready.set_value();
                RunMessageLoop();
                window.DestroyWindow();
            });
        isReady.wait();
    }
    ~WindowThread() { Join(); }

    void Join()
    {
        if (m_thread.joinable())
        {
            PostThreadMessage(GetWindowThreadProcessId(handle), WM_NULL);
            ::PostMessage(handle, kDestroy);
            m_thread.join();
        }
    }

    Answerer window;
    HWND handle = nullptr;

private:
    std::thread m_thread;
};

TEST(CrossThreadTest, SendsNestBackAndForth)
{
    Answerer here;
    here.Make();
    WindowThread there;
    there.window.peer = here;
    here.peer = there.handle;
    EXPECT_EQ(::SendMessage(there.handle, kAsk, 9, 0), 10);
}

TEST(CrossThreadTest, TwoThreadsThatSendToEachOtherAtOnceBothGetAnswers)
{
    WindowThread a;
    WindowThread b;
    a.window.peer = b.handle;
    b.window.peer = a.handle;
    std::thread asksA([&] { EXPECT_EQ(::SendMessage(a.handle, kAsk, 200, 0), 201); });
    std::thread asksB([&] { EXPECT_EQ(::SendMessage(b.handle, kAsk, 200, 0), 201); });
    asksA.join();
    asksB.join();
}

TEST(CrossThreadTest, ExceptionsComeBackToTheSender)
{
    WindowThread there;
    EXPECT_THROW(::SendMessage(there.handle, kThrow, 0, 0), std::runtime_error);
    EXPECT_EQ(::SendMessage(there.handle, kAsk, 0, 0), 1) << "the receiver must have survived";
    EXPECT_THROW(CallOnWindowThread(there.handle, [] { throw std::logic_error("carried"); }), std::logic_error);
}

TEST(CrossThreadTest, CalledFunctionsRunOnTheWindowsThread)
{
    WindowThread there;
    DWORD ranOn = 0;
    EXPECT_TRUE(CallOnWindowThread(there.handle, [&] { ranOn = GetCurrentThreadId(); }));
    EXPECT_EQ(ranOn, GetWindowThreadProcessId(there.handle));
    EXPECT_NE(ranOn, GetCurrentThreadId());

    there.Join();
    EXPECT_FALSE(CallOnWindowThread(there.handle, [] { ADD_FAILURE() << "the window is dead"; }));
}

TEST(CrossThreadTest, DeadReceiversAnswerZero)
{
    WindowThread there;
    there.Join();
    EXPECT_FALSE(IsWindow(there.handle));
    EXPECT_EQ(::SendMessage(there.handle, kAsk, 0, 0), 0);
    EXPECT_FALSE(::PostMessage(there.handle, kCount));
    EXPECT_EQ(::SendMessage(nullptr, kAsk, 0, 0), 0);
}

// The receiver ends its window and its thread while senders wait in its queue: all of them must come back.
TEST(CrossThreadTest, SendersThatWaitForADyingThreadAreWoken)
{
    for (int round = 0; round < 20; ++round)
    {
        WindowThread there;
        std::vector<std::thread> senders;
        for (int number = 0; number < 3; ++number)
        {
            senders.emplace_back(
                [&]
                {
                    while (::SendMessage(there.handle, kAsk, 0, 0) == 1)
                    {}
                });
        }
        ::SendMessage(there.handle, kAsk, 0, 0);
        there.Join();
        for (std::thread& sender : senders)
        {
            sender.join();
        }
    }
}

// A thread that never looks at its messages again must not keep senders waiting for a window that it has ended.
TEST(CrossThreadTest, DestroyingAWindowAnswersWhatWasSentToIt)
{
    Answerer deaf;
    deaf.Make();
    HWND const handle = deaf;
    std::atomic<bool> asks{false};
    std::thread sender(
        [&]
        {
            asks = true;
            EXPECT_EQ(::SendMessage(handle, kAsk, 0, 0), 0);
        });
    while (!asks)
    {
        std::this_thread::yield();
    }
    deaf.DestroyWindow();
    sender.join();
}

TEST(CrossThreadTest, EveryPostedMessageArrivesOnceAndWakesTheReceiver)
{
    constexpr int kThreads = 4;
    constexpr int kEach = 5000;
    WindowThread there;
    there.window.countLimit = kThreads * kEach;
    std::vector<std::thread> posters;
    for (int number = 0; number < kThreads; ++number)
    {
        posters.emplace_back(
            [&]
            {
                for (int message = 0; message < kEach; ++message)
                {
                    EXPECT_TRUE(::PostMessage(there.handle, kCount));
                }
            });
    }
    for (std::thread& poster : posters)
    {
        poster.join();
    }
    there.Join();
    EXPECT_EQ(there.window.count, kThreads * kEach);
}

TEST(CrossThreadTest, WindowsOfOtherThreadsAreNotTouchedFromHere)
{
    WindowThread there;
    EXPECT_TRUE(IsWindow(there.handle));
    EXPECT_FALSE(DestroyWindow(there.handle));
    EXPECT_FALSE(MoveWindow(there.handle, 0, 0, 10, 10));
    EXPECT_EQ(CWnd::FromHandlePermanent(there.handle), nullptr);
}

TEST(CrossThreadTest, RegisteredNumbersAreTheSameEverywhere)
{
    UINT const here = RegisterWindowMessage("Ostrel.Test.Message");
    UINT there = 0;
    std::thread([&] { there = RegisterWindowMessage("Ostrel.Test.Message"); }).join();
    EXPECT_EQ(here, there);
    EXPECT_GE(here, 0xC000U);
    EXPECT_NE(here, RegisterWindowMessage("Ostrel.Test.Other"));
    EXPECT_EQ(RegisterWindowMessage(""), 0U);
}

} // namespace
} // namespace Ostrel::Platform
