/// @file
/// 32-bit tokens in place of addresses, for documented blocks that hold an address in 32 bits (rows, grids and objects
/// on the clipboard). Bytes that come from outside are never turned into pointers: a token that was never given, or
/// whose thing has died, or that stands for another kind of thing, resolves to nothing.
///
/// Whoever gives out tokens for a thing forgets it before the thing dies. Forgetting is nearly free while no token is
/// out.
#pragma once

#include <atomic>
#include <unordered_map>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Platform
{

/// What an address is the address of.
enum class TokenKind : BYTE
{
    Object, ///< a data object
    Row,    ///< a row of a grid
    Grid    ///< a grid
};

/// Any thread. That what Resolve returns stays alive while it is used is up to the caller.
class OSTREL_BASE_API TokenTable
{
public:
    /// The table of the process.
    [[nodiscard]] static TokenTable& Instance();

    /// The token of the address, the same each time until it is forgotten. Never 0, except for null.
    [[nodiscard]] DWORD Give(TokenKind kind, void const* address);
    /// The address, or null.
    [[nodiscard]] void* Resolve(TokenKind kind, DWORD token) const;
    /// Makes the address's tokens of every kind resolve to nothing. Unknown addresses are ignored.
    void Forget(void const* address);

private:
    struct Entry
    {
        TokenKind kind;
        void* address;
    };

    mutable Mutex m_lock;
    std::unordered_map<DWORD, Entry> m_entries OSTREL_GUARDED_BY(m_lock);
    std::unordered_multimap<void const*, DWORD> m_tokens OSTREL_GUARDED_BY(m_lock);
    DWORD m_lastToken OSTREL_GUARDED_BY(m_lock) = 0;
    std::atomic<std::size_t> m_count{0}; ///< entries, readable without the lock
};

} // namespace Ostrel::Platform
