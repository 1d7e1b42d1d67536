#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include <ostrel/gui/grid/Hooker.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI
{

/// Who watches which window, for the whole process, and the calls that are on their way through the chains of a thread.
class CHooker::Chains
{
public:
    static Chains& Instance()
    {
        // Never destroyed: hookers with static storage may outlive anything that could be destroyed here.
        static auto* const chains = new Chains;
        return *chains;
    }

    bool Enter(HWND window, CHooker& hooker);
    void Leave(HWND window, CHooker& hooker);
    /// The hooker dies.
    static void Forget(CHooker const& hooker) noexcept;
    LRESULT PassOn(CHooker const& hooker, UINT message, WPARAM wParam, LPARAM lParam);

private:
    struct Chain
    {
        WNDPROC previous = nullptr;
        std::vector<CHooker*> hookers; ///< the first to be asked in front
    };
    /// A hooker's WindowProc at work. What comes next is kept up to date while hookers leave.
    struct Call
    {
        HWND window;
        CHooker* hooker;
        CHooker* next;
        WNDPROC previous;
        Call* outer;
    };
    class CallScope;

    static LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CallHooker(HWND window, CHooker* hooker, WNDPROC previous, UINT message, WPARAM wParam,
                              LPARAM lParam);
    static CHooker* Behind(Chain const& chain, CHooker const* hooker) noexcept;

    CHooker* First(HWND window, WNDPROC& previous);
    CHooker* Next(HWND window, CHooker const* hooker);
    void OnWindowGone(HWND window);

    Platform::Mutex m_lock;
    std::map<HWND, Chain> m_chains OSTREL_GUARDED_BY(m_lock);
    static thread_local Call* t_call;
};

thread_local CHooker::Chains::Call* CHooker::Chains::t_call = nullptr;

class CHooker::Chains::CallScope
{
public:
    CallScope(HWND window, CHooker* hooker, CHooker* next, WNDPROC previous) noexcept
        : m_call{window, hooker, next, previous, t_call}
    {
        t_call = &m_call;
    }
    CallScope(CallScope const&) = delete;
    CallScope& operator=(CallScope const&) = delete;
    ~CallScope() { t_call = m_call.outer; }

private:
    Call m_call;
};

CHooker* CHooker::Chains::Behind(Chain const& chain, CHooker const* hooker) noexcept
{
    auto const found = std::find(chain.hookers.begin(), chain.hookers.end(), hooker);
    return found != chain.hookers.end() && found + 1 != chain.hookers.end() ? *(found + 1) : nullptr;
}

bool CHooker::Chains::Enter(HWND window, CHooker& hooker)
{
    if (GetWindowLongPtr(window, GWLP_WNDPROC) == 0)
    {
        return false;
    }
    Platform::MutexLock const lock(m_lock);
    Chain& chain = m_chains[window];
    if (chain.hookers.empty())
    {
        chain.previous =
            reinterpret_cast<WNDPROC>(SetWindowLongPtr(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    chain.hookers.insert(chain.hookers.begin(), &hooker);
    return true;
}

void CHooker::Chains::Leave(HWND window, CHooker& hooker)
{
    Platform::MutexLock const lock(m_lock);
    auto const found = m_chains.find(window);
    if (found == m_chains.end())
    {
        return;
    }
    Chain& chain = found->second;
    CHooker* const next = Behind(chain, &hooker);
    for (Call* call = t_call; call != nullptr; call = call->outer)
    {
        if (call->window == window && call->next == &hooker)
        {
            call->next = next;
        }
    }
    std::erase(chain.hookers, &hooker);
    if (chain.hookers.empty())
    {
        SetWindowLongPtr(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(chain.previous));
        m_chains.erase(found);
    }
}

void CHooker::Chains::Forget(CHooker const& hooker) noexcept
{
    for (Call* call = t_call; call != nullptr; call = call->outer)
    {
        call->hooker = call->hooker == &hooker ? nullptr : call->hooker;
    }
}

CHooker* CHooker::Chains::First(HWND window, WNDPROC& previous)
{
    Platform::MutexLock const lock(m_lock);
    auto const found = m_chains.find(window);
    if (found == m_chains.end())
    {
        return nullptr;
    }
    previous = found->second.previous;
    return found->second.hookers.front();
}

CHooker* CHooker::Chains::Next(HWND window, CHooker const* hooker)
{
    Platform::MutexLock const lock(m_lock);
    auto const found = m_chains.find(window);
    return found != m_chains.end() ? Behind(found->second, hooker) : nullptr;
}

void CHooker::Chains::OnWindowGone(HWND window)
{
    for (Call* call = t_call; call != nullptr; call = call->outer)
    {
        call->next = call->window == window ? nullptr : call->next;
    }
    Platform::MutexLock const lock(m_lock);
    auto const found = m_chains.find(window);
    if (found == m_chains.end())
    {
        return;
    }
    for (CHooker* const hooker : found->second.hookers)
    {
        hooker->m_window = nullptr;
    }
    m_chains.erase(found);
}

LRESULT CHooker::Chains::CallHooker(HWND window, CHooker* hooker, WNDPROC previous, UINT message, WPARAM wParam,
                                    LPARAM lParam)
{
    if (hooker == nullptr)
    {
        return CallWindowProc(previous, window, message, wParam, lParam);
    }
    CallScope const scope(window, hooker, Instance().Next(window, hooker), previous);
    return hooker->WindowProc(message, wParam, lParam);
}

LRESULT CHooker::Chains::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    WNDPROC previous = nullptr;
    CHooker* const first = Instance().First(window, previous);
    LRESULT const result = CallHooker(window, first, previous, message, wParam, lParam);
    if (message == WM_NCDESTROY)
    {
        Instance().OnWindowGone(window);
    }
    return result;
}

// By the call that is on its way: the hooker itself, or those behind it, may have left the chain meanwhile.
LRESULT CHooker::Chains::PassOn(CHooker const& hooker, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (Call const* call = t_call; call != nullptr; call = call->outer)
    {
        if (call->hooker == &hooker)
        {
            return CallHooker(call->window, call->next, call->previous, message, wParam, lParam);
        }
    }
    return 0;
}

CHooker::~CHooker()
{
    Unhook();
    Chains::Forget(*this);
}

LRESULT CHooker::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return Chains::Instance().PassOn(*this, message, wParam, lParam);
}

bool CHooker::Hook(HWND window)
{
    Unhook();
    if (!Chains::Instance().Enter(window, *this))
    {
        return false;
    }
    m_window = window;
    return true;
}

void CHooker::Unhook()
{
    if (HWND const window = std::exchange(m_window, nullptr))
    {
        Chains::Instance().Leave(window, *this);
    }
}

} // namespace Ostrel::GUI
