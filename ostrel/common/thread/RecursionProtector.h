/// @file
/// Refuses to enter a section that is already entered. Meant for a notification that could come back around.
#pragma once

#include <ostrel/common/value/CommonException.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// Admits one level, whichever thread enters. Not locked: for a section that runs on one thread at a time.
class OSTREL_COMMON_API CRecursionProtector
{
public:
    /// The section is entered twice, or left without having been entered.
    class OSTREL_COMMON_API CRecursionException : public CommonException
    {
    public:
        using CommonException::CommonException; ///< With the message.
    };

    CRecursionProtector() noexcept = default;
    virtual ~CRecursionProtector();
    CRecursionProtector(CRecursionProtector const&) = delete;
    CRecursionProtector& operator=(CRecursionProtector const&) = delete;

    ///@{
    /// Marks the section as entered, and as left. Each throws CRecursionException and changes nothing when it is called
    /// out of turn: Enter inside the section, Leave outside.
    virtual void Enter();
    virtual void Leave();
    ///@}

private:
    int m_depth = 0;
};

} // namespace Ostrel::Common
