/// @file
/// The window that shows a tip: a replaceable part of a grid.
#pragma once

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CGrid;
class CGridCell;
class ITooltip;

/// All operations run on the grid's thread.
class OSTREL_GUI_API ITooltipCtrl : public virtual IAutoDelete
{
public:
    /// Makes the window for a grid. False when that failed.
    virtual bool Attach(CGrid& grid) = 0;
    /// Takes leave of the grid: hides the tip and destroys the window.
    virtual void Detach() = 0;
    /// Shows the tip of a cell. False when there is none to show.
    virtual bool Activate(CGrid const& grid, CGridCell& cell) = 0;
    /// Hides it.
    virtual void Desactivate() = 0;
    /// What is asked for the text where the grid has no ITooltip of its own.
    [[nodiscard]] virtual ITooltip const& GetDefaultToolip() const = 0;
};
} // namespace Ostrel::GUI
