/// @file
/// Enters a recursion protector for a scope.
#pragma once

#include <ostrel/common/thread/RecursionProtector.h>

namespace Ostrel::Common
{

/// Enters when it is made and leaves when its scope ends. The protector must outlive it.
class OSTREL_COMMON_API CRecursionChecker
{
public:
    /// Throws what Enter throws; nothing is left then.
    explicit CRecursionChecker(CRecursionProtector& protector) : m_protector(protector) { m_protector.Enter(); }
    /// Throws what Leave throws: somebody else left the section in between.
    ~CRecursionChecker() noexcept(false) { m_protector.Leave(); }
    CRecursionChecker(CRecursionChecker const&) = delete;
    CRecursionChecker& operator=(CRecursionChecker const&) = delete;

private:
    CRecursionProtector& m_protector;
};

} // namespace Ostrel::Common
