/// @file
/// What a tip says about a cell: a replaceable part of a grid.
#pragma once

#include <string>

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CGrid;
class CGridCell;

/// All operations run on the grid's thread.
class OSTREL_GUI_API ITooltip : public virtual IAutoDelete
{
public:
    /// Whether there is anything to say.
    [[nodiscard]] virtual bool CanShow(CGrid const& grid, CGridCell const& cell) const = 0;
    /// What to say, in UTF-8.
    virtual std::string GetText(CGrid const& grid, CGridCell const& cell) = 0;
};
} // namespace Ostrel::GUI
