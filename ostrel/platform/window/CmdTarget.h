/// @file
/// The base of what takes commands.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Object.h>

/// What can be told of commands: windows.
class OSTREL_PLATFORM_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)
public:
    CCmdTarget() = default;
    CCmdTarget(CCmdTarget const&) = delete;
    CCmdTarget& operator=(CCmdTarget const&) = delete;
    ~CCmdTarget() override;
};
