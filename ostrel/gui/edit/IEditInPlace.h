/// @file
/// When a cell may be edited in place, with which control, and what happens at the end: a replaceable part of a grid.
#pragma once

#include <cstdint>
#include <utility>

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

class CWnd;

namespace Ostrel::GUI
{
class CColumn;
class CEditInPlaceContext;
class CGridCell;
class CGridItem;
class CPaintContext;

/// All operations run on the grid's thread.
class OSTREL_GUI_API IEditInPlace : public virtual IAutoDelete
{
public:
    /// What starts an edit.
    enum StartReason : std::uint32_t
    {
        LeftClick = 0,   ///< A left button press on the cell.
        DoubleClick = 1, ///< A left double click on it.
        Navigation = 2,  ///< The editor moves on from another cell.
    };
    /// What ends an edit. Those marked "applies" keep the value; with the others it is dropped.
    enum StopReason : std::uint32_t
    {
        NoReason = 0,          ///< The grid is being destroyed, or a program stops the edit.
        KeyReturn = 1,         ///< Enter. Applies.
        KeyEscape = 2,         ///< Esc.
        KeyUp = 3,             ///< The arrow up.
        KeyDown = 4,           ///< The arrow down.
        KeyLeft = 5,           ///< The arrow to the left.
        KeyRight = 6,          ///< The arrow to the right.
        KeyPageUp = 7,         ///< Page Up.
        KeyPageDown = 8,       ///< Page Down.
        KeyHome = 9,           ///< Home.
        KeyEnd = 10,           ///< End.
        KeyTab = 12,           ///< Tab.
        KeyShiftTab = 13,      ///< Shift+Tab.
        KeyCtrlTab = 14,       ///< Ctrl+Tab.
        WheelUp = 15,          ///< A notch of the wheel away from the user.
        WheelDown = 16,        ///< Towards the user.
        RightButtonDown = 17,  ///< In the control.
        LeftButtonDown = 18,   ///< In the control.
        LeftDoubleClick = 19,  ///< In the control. Applies.
        RightDoubleClick = 20, ///< In the control.
        ControlCommit = 21,    ///< The control reports a choice. Applies.
        ControlClose = 22,     ///< For controls of applications.
        FocusLost = 23,        ///< By the control.
        Toggle = 24,           ///< A click on a check box. Applies.
    };
    /// The cell where editing goes on; no item means that there is none.
    using NavigationTarget = std::pair<CGridItem*, CColumn const*>;

    /// Whether an edit of the cell may begin.
    [[nodiscard]] virtual bool CanBeginEdit(CEditInPlaceContext const& context, StartReason reason) const = 0;
    /// Puts the control over the cell. False when nothing is to be edited.
    virtual bool AttachControl(CEditInPlaceContext& context, StartReason reason) = 0;
    /// Whether the edit may end for that reason, or the control needs the key or click itself.
    [[nodiscard]] virtual bool CanStopEdit(CEditInPlaceContext const& context, StopReason reason) const = 0;
    /// Applies or drops what the control holds and destroys it. The control may be null.
    virtual void OnEndEdit(CEditInPlaceContext& context, StopReason reason, CWnd* control) = 0;
    /// Goes on in the next cell. False when there is none.
    virtual bool Navigate(CEditInPlaceContext& context, StopReason reason) = 0;

    /// Before a cell is painted: returns the flags of PaintFilter that the cell is painted with.
    virtual unsigned int PrePaintCell(CGridCell& cell, CPaintContext const& context, unsigned int flags) = 0;
    /// After that: draws what hints at the control.
    virtual void PostPaintCell(CGridCell& cell, CPaintContext const& context, unsigned int flags) = 0;
};
} // namespace Ostrel::GUI
