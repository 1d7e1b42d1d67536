#include <thread>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

namespace Ostrel::Common
{
namespace
{

template <class Call>
std::string MessageOf(Call const& call)
{
    try
    {
        call();
        return {};
    }
    catch (CRecursionProtector::CRecursionException const& exception)
    {
        return exception.what();
    }
}

template <class Call>
void OnAnotherThread(Call const& call)
{
    std::jthread(call).join();
}

TEST(RecursionProtectorTest, AdmitsOneLevel)
{
    CRecursionProtector protector;
    EXPECT_EQ(MessageOf([&] { protector.Leave(); }),
              "Leave() is called without Enter() calling in the recursion protector");
    protector.Enter();
    EXPECT_EQ(MessageOf([&] { protector.Enter(); }), "Recursion occurred");
    protector.Leave();
    EXPECT_EQ(MessageOf([&] { protector.Enter(); }), "");
}

TEST(RecursionProtectorTest, AThreadEntersOnceAndThreadsDoNotMeet)
{
    constexpr char const* kNotEntered = "Leave() function is called without enter in the recursion protector";
    CThreadRecursionProtector protector;
    protector.Enter();
    EXPECT_EQ(MessageOf([&] { protector.Enter(); }), "Recursion occurred");
    OnAnotherThread(
        [&]
        {
            EXPECT_EQ(MessageOf([&] { protector.Leave(); }), kNotEntered);
            protector.Enter();
            EXPECT_EQ(MessageOf([&] { protector.Enter(); }), "Recursion occurred");
            protector.Leave();
        });
    protector.Leave();
    EXPECT_EQ(MessageOf([&] { protector.Leave(); }), kNotEntered);
}

TEST(RecursionProtectorTest, ACheckerLeavesOnlyWhatItEntered)
{
    CRecursionProtector protector;
    {
        CRecursionChecker const outer(protector);
        EXPECT_EQ(MessageOf([&] { CRecursionChecker const inner(protector); }), "Recursion occurred");
        EXPECT_EQ(MessageOf([&] { CRecursionChecker const inner(protector); }), "Recursion occurred");
    }
    EXPECT_EQ(MessageOf([&] { CRecursionChecker const again(protector); }), "");
}

} // namespace
} // namespace Ostrel::Common
