#include <ostrel/platform/base/TokenTable.h>

namespace Ostrel::Platform
{

TokenTable& TokenTable::Instance()
{
    // Never destroyed: things may still be forgotten while the process ends.
    static TokenTable& table = *new TokenTable;
    return table;
}

DWORD TokenTable::Give(TokenKind kind, void const* address)
{
    if (address == nullptr)
    {
        return 0;
    }
    MutexLock const lock(m_lock);
    auto const [first, last] = m_tokens.equal_range(address);
    for (auto given = first; given != last; ++given)
    {
        if (m_entries.at(given->second).kind == kind)
        {
            return given->second;
        }
    }
    do
    {
        ++m_lastToken;
    } while (m_lastToken == 0 || m_entries.contains(m_lastToken));
    m_entries.emplace(m_lastToken, Entry{kind, const_cast<void*>(address)});
    m_tokens.emplace(address, m_lastToken);
    m_count.store(m_entries.size(), std::memory_order_relaxed);
    return m_lastToken;
}

void* TokenTable::Resolve(TokenKind kind, DWORD token) const
{
    MutexLock const lock(m_lock);
    auto const found = m_entries.find(token);
    return found != m_entries.end() && found->second.kind == kind ? found->second.address : nullptr;
}

void TokenTable::Forget(void const* address)
{
    if (m_count.load(std::memory_order_relaxed) == 0)
    {
        return;
    }
    MutexLock const lock(m_lock);
    auto const [first, last] = m_tokens.equal_range(address);
    for (auto given = first; given != last; ++given)
    {
        m_entries.erase(given->second);
    }
    m_tokens.erase(first, last);
    m_count.store(m_entries.size(), std::memory_order_relaxed);
}

} // namespace Ostrel::Platform
