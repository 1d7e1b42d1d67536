/// @file
/// Threads that work on the program under test.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Testing
{

/// Threads that work on the program under test while the thread of the windows serves them.
///
///     Workers workers;
///     workers.Add("prices", [&] { for (int i = 0; i < 1000; ++i) red.SetPrice(i); });
///     workers.AddMany(3, "readers", [&](int) { grid.GetRowCount(ScrollableContext); });
///     workers.Run();
///
/// All workers start at the same moment. Run turns the message loop, so that calls into the grid are answered, until
/// all have ended, and then throws again what the first of them threw. When they have not ended within the limit (real
/// time) it throws a DriverError that names those that hang. When the thread of the windows itself hangs in a handler,
/// nobody is left to throw anything: some seconds later the program ends with that report on stderr.
class OSTREL_TESTING_API Workers
{
public:
    /// `limit`: the real time after which workers that have not ended count as hanging.
    explicit Workers(std::chrono::milliseconds limit = std::chrono::seconds(20));
    Workers(Workers const&) = delete;
    Workers& operator=(Workers const&) = delete;
    /// Waits as Join does, without throwing. Workers that hang even then are left to themselves.
    ~Workers();

    /// Adds a worker. Before Start.
    void Add(std::string name, std::function<void()> work);
    /// The same work for several, told their number from 0.
    void AddMany(int count, std::string const& name, std::function<void(int number)> const& work);

    /// Starts all workers at the same moment.
    void Start();
    /// Turns the loop until all have ended. Throws what the first of them threw, or DriverError.
    void Join();
    /// Start and Join.
    void Run()
    {
        Start();
        Join();
    }

    /// True when all have ended. Any thread.
    [[nodiscard]] bool AreDone() const;

private:
    struct Crew;

    [[nodiscard]] bool TurnLoopUntilDone();

    // Shared with the threads, since those that hang outlive this object.
    std::shared_ptr<Crew> m_crew;
};

} // namespace Ostrel::Testing
