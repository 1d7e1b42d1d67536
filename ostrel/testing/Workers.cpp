#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <exception>
#include <latch>
#include <optional>
#include <thread>

#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/testing/DriverError.h>
#include <ostrel/testing/Workers.h>
#include <ostrel/testing/detail/Alarm.h>
#include <ostrel/testing/detail/Pump.h>

namespace Ostrel::Testing
{

namespace
{

/// Takes the thread's idle hook off for a scope.
class HookOff
{
public:
    HookOff() : m_hook(Platform::SetIdleHook({})) {}
    HookOff(HookOff const&) = delete;
    HookOff& operator=(HookOff const&) = delete;
    ~HookOff() { Platform::SetIdleHook(std::move(m_hook)); }

private:
    std::function<bool()> m_hook;
};

[[noreturn]] void EndProgram(std::string const& report)
{
    std::fprintf(stderr, "ostrel: the thread of the windows hangs in a handler; %s\n", report.c_str());
    std::abort();
}

} // namespace

/// What the threads and their owner share.
struct Workers::Crew
{
    struct Member
    {
        std::string name;
        std::function<void()> work;
        std::exception_ptr failure; ///< written before isDone
        std::atomic<bool> isDone{false};
        std::thread thread; ///< the owner's
    };

    explicit Crew(std::chrono::milliseconds timeLimit) : limit(timeLimit), ownerThreadId(GetCurrentThreadId()) {}

    void Work(Member& member)
    {
        start->arrive_and_wait();
        try
        {
            member.work();
        }
        catch (...)
        {
            member.failure = std::current_exception();
        }
        member.isDone.store(true, std::memory_order_release);
        PostThreadMessage(ownerThreadId, WM_NULL, 0, 0);
    }

    [[nodiscard]] bool AreDone() const
    {
        return std::all_of(members.begin(), members.end(),
                           [](Member const& member) { return member.isDone.load(std::memory_order_acquire); });
    }

    /// "prices, readers 2" for those that have not ended.
    [[nodiscard]] std::string Hanging() const
    {
        std::string names;
        for (Member const& member : members)
        {
            if (!member.isDone.load(std::memory_order_acquire))
            {
                names += names.empty() ? member.name : ", " + member.name;
            }
        }
        return "workers have not ended after " + std::to_string(limit.count()) + " ms: " + names;
    }

    std::chrono::milliseconds const limit;
    DWORD const ownerThreadId;
    std::deque<Member> members; ///< a deque: the threads hold references
    std::optional<std::latch> start;
};

Workers::Workers(std::chrono::milliseconds limit) : m_crew(std::make_shared<Crew>(limit)) {}

Workers::~Workers()
{
    bool const haveEnded = TurnLoopUntilDone();
    for (Crew::Member& member : m_crew->members)
    {
        if (member.thread.joinable() && (haveEnded || member.isDone.load(std::memory_order_acquire)))
        {
            member.thread.join();
        }
        else if (member.thread.joinable())
        {
            member.thread.detach();
        }
    }
}

void Workers::Add(std::string name, std::function<void()> work)
{
    Crew::Member& member = m_crew->members.emplace_back();
    member.name = std::move(name);
    member.work = std::move(work);
}

void Workers::AddMany(int count, std::string const& name, std::function<void(int number)> const& work)
{
    for (int number = 0; number < count; ++number)
    {
        Add(name + ' ' + std::to_string(number), [work, number] { work(number); });
    }
}

void Workers::Start()
{
    m_crew->start.emplace(static_cast<std::ptrdiff_t>(m_crew->members.size()));
    for (Crew::Member& member : m_crew->members)
    {
        member.thread = std::thread([crew = m_crew, &member] { crew->Work(member); });
    }
}

void Workers::Join()
{
    if (!TurnLoopUntilDone())
    {
        throw DriverError(m_crew->Hanging());
    }
    for (Crew::Member& member : m_crew->members)
    {
        if (member.thread.joinable())
        {
            member.thread.join();
        }
    }
    for (Crew::Member const& member : m_crew->members)
    {
        if (member.failure != nullptr)
        {
            std::rethrow_exception(member.failure);
        }
    }
}

// The idle hook is for loops that wait in handlers; this one only waits for the threads.
bool Workers::TurnLoopUntilDone()
{
    if (!m_crew->start.has_value())
    {
        return true;
    }
    Detail::Alarm const alarm(m_crew->limit, [crew = m_crew] { EndProgram(crew->Hanging()); });
    std::optional<int> quitCode;
    while (!m_crew->AreDone() && !alarm.HasRung())
    {
        {
            HookOff const hookOff;
            WaitMessage();
        }
        std::optional<int> const newCode = Detail::HandleWhatIsThere();
        quitCode = newCode.has_value() ? newCode : quitCode;
    }
    if (quitCode.has_value())
    {
        PostQuitMessage(*quitCode);
    }
    return m_crew->AreDone();
}

bool Workers::AreDone() const
{
    return m_crew->AreDone();
}

} // namespace Ostrel::Testing
