// The failures of threads come out, and those that hang are named.
#include <future>

#include <gtest/gtest.h>

#include <ostrel/testing/DriverError.h>
#include <ostrel/testing/Workers.h>

namespace Ostrel::Testing
{
namespace
{

TEST(WorkersTest, TheFirstFailureIsThrownAgain)
{
    Workers workers;
    workers.Add("good", [] {});
    workers.Add("bad", [] { throw std::out_of_range("bad"); });
    workers.Add("worse", [] { throw std::runtime_error("worse"); });
    EXPECT_THROW(workers.Run(), std::out_of_range);
}

TEST(WorkersTest, WorkersThatHangAreNamed)
{
    std::promise<void> release;
    std::shared_future<void> const released = release.get_future().share();
    Workers workers(std::chrono::milliseconds(30));
    workers.Add("good", [] {});
    workers.AddMany(2, "stuck", [released](int) { released.wait(); });
    workers.Start();
    try
    {
        workers.Join();
        ADD_FAILURE() << "no deadlock seen";
    }
    catch (DriverError const& error)
    {
        EXPECT_STREQ(error.what(), "workers have not ended after 30 ms: stuck 0, stuck 1");
    }
    EXPECT_FALSE(workers.AreDone());
    release.set_value();
}

} // namespace
} // namespace Ostrel::Testing
