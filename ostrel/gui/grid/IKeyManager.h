/// @file
/// What the keys do in a grid: a replaceable part.
#pragma once

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CGrid;

/// Receives the keys of a grid. All operations run on the grid's thread.
class OSTREL_GUI_API IKeyManager : public virtual IAutoDelete
{
public:
    ///@{
    /// A key went down, or up: its code (VK_...), how often it repeated, and the flags of the message. Nonzero when the
    /// key was handled; otherwise the grid goes on with its own processing.
    virtual int OnKeyDown(CGrid& grid, unsigned int key, unsigned int repeat, unsigned int flags) = 0;
    virtual int OnKeyUp(CGrid& grid, unsigned int key, unsigned int repeat, unsigned int flags) = 0;
    ///@}

    ///@{
    /// What the key does, with Shift and Ctrl held or not; also called by CGrid::NavigateUp and its siblings.
    virtual void NavigateKeyUp(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyDown(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyPageUp(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyPageDown(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyHome(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyEnd(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyLeft(CGrid& grid, bool shift, bool ctrl) = 0;
    virtual void NavigateKeyRight(CGrid& grid, bool shift, bool ctrl) = 0;
    ///@}

    ///@{
    /// What Escape, Enter, Ctrl+A, Ctrl+C, Ctrl+X and Ctrl+V do.
    virtual void OnEscape(CGrid& grid) = 0;
    virtual void OnReturn(CGrid& grid) = 0;
    virtual void OnSelectAll(CGrid& grid) = 0;
    virtual void OnCopySelection(CGrid& grid) = 0;
    virtual void OnCutSelection(CGrid& grid) = 0;
    virtual void OnPasteSelection(CGrid& grid) = 0;
    ///@}
};
} // namespace Ostrel::GUI
