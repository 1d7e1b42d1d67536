#include <thread>

#include "WindowTest.h"

namespace Ostrel::Platform
{
namespace
{

constexpr UINT kPosted = WM_APP + 1;

class MessageOrderTest : public WindowTest
{
protected:
    MessageOrderTest()
    {
        window.MakeTopLevel({0, 0, 200, 100});
        ProcessPending();
    }

    HookedWnd window;
    MSG fetched{};
};

TEST_F(MessageOrderTest, ServesPostedThenInputThenTimersThenPaint)
{
    std::string log;
    MessageLog const noted(
        window, "", {{kPosted, "posted"}, {WM_MOUSEMOVE, "input"}, {WM_TIMER, "timer"}, {WM_PAINT, "paint"}}, log);

    window.Invalidate();
    window.SetTimer(1, 20);
    Clock::Advance(20);
    Screen().MovePointer({50, 50});
    window.PostMessage(kPosted);
    window.PostMessage(kPosted);
    ProcessPending();

    EXPECT_EQ(log, "posted posted input timer paint");
}

TEST_F(MessageOrderTest, QuitWaitsForPostedMessagesOnly)
{
    window.Invalidate();
    window.PostMessage(kPosted);
    PostQuitMessage(7);

    EXPECT_TRUE(GetMessage(&fetched));
    EXPECT_EQ(fetched.message, kPosted);
    EXPECT_FALSE(GetMessage(&fetched));
    EXPECT_EQ(fetched.wParam, 7U);
}

// What a thread posts to itself takes a shorter way than what others post.
TEST_F(MessageOrderTest, NothingOvertakesWhatAnotherThreadPostedBefore)
{
    std::vector<WPARAM> served;
    window.On(kPosted, [&](WPARAM wParam, LPARAM) { served.push_back(wParam); });
    HWND const target = window;
    for (WPARAM number = 0; number < 6; ++number)
    {
        auto const post = [=] { ::PostMessage(target, kPosted, number, 0); };
        number % 2 == 0 ? post() : std::thread(post).join();
    }
    ProcessPending();
    EXPECT_EQ(served, (std::vector<WPARAM>{0, 1, 2, 3, 4, 5}));
}

TEST_F(MessageOrderTest, MessagesThatPostTheirSuccessorsStayInOrder)
{
    WPARAM expected = 0;
    WPARAM next = 0;
    window.On(kPosted,
              [&](WPARAM wParam, LPARAM)
              {
                  EXPECT_EQ(wParam, expected++);
                  next < 1000 ? window.PostMessage(kPosted, next++) : FALSE;
              });
    while (next < 7)
    {
        window.PostMessage(kPosted, next++);
    }
    ProcessPending();
    EXPECT_EQ(expected, 1000U);
}

TEST_F(MessageOrderTest, WhatTheIdleHookPostsIsServedBeforeSleeping)
{
    SetIdleHook(
        [&]
        {
            window.PostMessage(kPosted);
            return false;
        });
    EXPECT_TRUE(GetMessage(&fetched));
    EXPECT_EQ(fetched.message, kPosted);
    SetIdleHook({});
}

TEST_F(MessageOrderTest, FilterLeavesOtherMessagesInTheirOrder)
{
    for (UINT const number : {kPosted, kPosted + 1, kPosted + 2, kPosted + 1})
    {
        window.PostMessage(number);
    }

    std::vector<UINT> taken;
    while (PeekMessage(&fetched, nullptr, kPosted + 1, kPosted + 1, PM_REMOVE))
    {
        taken.push_back(fetched.message);
    }
    EXPECT_TRUE(PeekMessage(&fetched, nullptr, 0, 0, PM_NOREMOVE));
    while (PeekMessage(&fetched, window, kPosted, kPosted + 9, PM_REMOVE))
    {
        taken.push_back(fetched.message);
    }
    EXPECT_EQ(taken, (std::vector<UINT>{kPosted + 1, kPosted + 1, kPosted, kPosted + 2}));
}

// Each posted message costs a millisecond and posts its successor: without turns nothing else would ever be served.
TEST_F(MessageOrderTest, InputTimersAndPaintGetTheirTurnUnderAFlood)
{
    std::int64_t const begin = Clock::Milliseconds();
    std::vector<std::pair<UINT, std::int64_t>> served;
    int left = 200;
    window.hook = [&](UINT message, WPARAM, LPARAM, LRESULT&)
    {
        if (message == kPosted && --left > 0)
        {
            Clock::Advance(1);
            window.PostMessage(kPosted);
        }
        if (message == WM_MOUSEMOVE || message == WM_TIMER || message == WM_PAINT)
        {
            served.emplace_back(message, Clock::Milliseconds() - begin);
        }
        return false;
    };

    window.PostMessage(kPosted);
    window.SetTimer(1, 10);
    Screen().MovePointer({50, 50});
    window.Invalidate();
    ProcessPending();

    ASSERT_GE(served.size(), 3U);
    std::int64_t last = 0;
    for (auto const& [message, at] : served)
    {
        EXPECT_LE(at - last, 17) << "message " << message;
        last = at;
    }
    auto const whenFirst = [&](UINT wanted)
    {
        return std::find_if(served.begin(), served.end(), [wanted](auto const& entry) { return entry.first == wanted; })
            ->second;
    };
    EXPECT_LE(whenFirst(WM_MOUSEMOVE), 5);
    EXPECT_LE(whenFirst(WM_PAINT), 17);
    EXPECT_GE(last, 180) << "the timer must go on through the whole flood";
    EXPECT_EQ(left, 0);
}

TEST_F(MessageOrderTest, TimersFireInDueOrderAndOnceForMissedTicks)
{
    std::string log;
    std::int64_t const begin = Clock::Milliseconds();
    window.On(WM_TIMER, [&](WPARAM wParam, LPARAM)
              { log += std::to_string(wParam) + "@" + std::to_string(Clock::Milliseconds() - begin) + " "; });
    window.SetTimer(1, 25);
    window.SetTimer(2, 3); // below the least period
    TurnClock(30);
    EXPECT_EQ(log, "2@10 2@20 1@25 2@30 ");

    log.clear();
    Clock::Advance(100);
    EXPECT_TRUE(PeekMessage(&fetched, nullptr, 0, 0, PM_NOREMOVE)); // a look does not use the tick up
    ProcessPending();
    EXPECT_EQ(log, "2@130 1@130 ");

    log.clear();
    Clock::Advance(30);
    window.KillTimer(1);
    window.KillTimer(2);
    ProcessPending();
    EXPECT_EQ(log, "");
}

TEST_F(MessageOrderTest, TimerProcedureIsCalledInsteadOfTheWindow)
{
    static int calls;
    calls = 0;
    SetTimer(nullptr, 0, 10,
             [](HWND owner, UINT, UINT_PTR id, DWORD)
             {
                 ++calls;
                 KillTimer(owner, id);
             });
    TurnClock(100);
    EXPECT_EQ(calls, 1);
}

TEST_F(MessageOrderTest, IdleHookRunsUntilItHasNothingToDo)
{
    int runs = 0;
    auto const before = SetIdleHook([&runs] { return ++runs < 3; });
    ProcessPending();
    SetIdleHook(before);
    EXPECT_EQ(runs, 3);
}

TEST_F(MessageOrderTest, ModalLoopEndsByItsConditionAndPassesQuitOn)
{
    int handled = 0;
    window.On(kPosted, [&](WPARAM, LPARAM) { ++handled; });
    window.PostMessage(kPosted);
    window.PostMessage(kPosted);
    EXPECT_TRUE(RunModalLoop([&] { return handled == 2; }));

    PostQuitMessage(3);
    EXPECT_FALSE(RunModalLoop([] { return false; }));
    EXPECT_EQ(RunMessageLoop(), 3);
}

} // namespace
} // namespace Ostrel::Platform
