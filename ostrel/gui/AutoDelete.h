/// @file
/// The question whether whoever holds a replaceable part also deletes it.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// The base of every part of a grid that an application may replace: header, filter, key manager, custom draw and the
/// rest.
class OSTREL_GUI_API IAutoDelete
{
public:
    IAutoDelete() = default;
    ///@{
    /// The interface has no state.
    IAutoDelete(IAutoDelete const&) = default;
    IAutoDelete& operator=(IAutoDelete const&) = default;
    ///@}
    virtual ~IAutoDelete() = default;

    /// True when the holder deletes the part as the holder itself is destroyed.
    [[nodiscard]] virtual bool AutoDelete() const = 0;
};

} // namespace Ostrel::GUI
