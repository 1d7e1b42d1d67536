// Notices that a call came back around: a delegate asks the object behind it, which may be a delegate that asks the
// first one. Each thread has its own chain of the calls it is in, kept on its stack, so that nothing is locked.
#pragma once

namespace Ostrel::Common::detail
{

/// Enters one kind of call of one owner for a scope, unless the thread is in that call already. `Kind` is any type.
template <class Kind>
class CallScope
{
public:
    explicit CallScope(void const* owner) noexcept : m_owner(owner), m_outer(s_innermost)
    {
        for (CallScope const* scope = m_outer; scope != nullptr; scope = scope->m_outer)
        {
            m_entered = m_entered && scope->m_owner != owner;
        }
        s_innermost = this;
    }
    ~CallScope() { s_innermost = m_outer; }
    CallScope(CallScope const&) = delete;
    CallScope& operator=(CallScope const&) = delete;

    /// False when the call is a recursion.
    [[nodiscard]] bool Entered() const noexcept { return m_entered; }

private:
    static inline thread_local CallScope const* s_innermost = nullptr;

    void const* m_owner;
    CallScope const* m_outer;
    bool m_entered = true;
};

} // namespace Ostrel::Common::detail
