/// @file
/// Mouse and keyboard messages as calls.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI
{

/// Turns the messages of a window's user into calls of virtual operations. A class that handles such messages overrides
/// what it wants; everything else does nothing and answers 0. `keys` are the MK_ bits of the message, points are in
/// client coordinates.
class OSTREL_GUI_API CUserInputHelper
{
public:
    virtual ~CUserInputHelper() = default;

    /// Calls the operation that belongs to the message and returns its answer; 0 for any other message.
    LRESULT OnInput(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    CUserInputHelper() = default;
    ///@{
    /// Without state.
    CUserInputHelper(CUserInputHelper const&) = default;
    CUserInputHelper& operator=(CUserInputHelper const&) = default;
    ///@}

    ///@{
    /// A mouse message.
    virtual LRESULT OnMouseMove(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnLButtonDown(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnLButtonUp(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnLButtonDblClk(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnRButtonDown(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnRButtonUp(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnRButtonDblClk(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnMButtonDown(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnMButtonUp(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnMButtonDblClk(UINT /*keys*/, CPoint /*point*/) { return 0; }
    virtual LRESULT OnMouseHover(UINT /*keys*/, CPoint /*point*/) { return 0; }
    ///@}
    /// The pointer has left the window.
    virtual LRESULT OnMouseLeave() { return 0; }
    /// The capture goes to the window with this handle, null for none.
    virtual LRESULT OnCaptureChanged(HWND /*newOwner*/) { return 0; }

    ///@{
    /// A key by its VK_ code, with the repeat count and the flags of the message.
    virtual LRESULT OnKeyDown(UINT /*key*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    virtual LRESULT OnKeyUp(UINT /*key*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    virtual LRESULT OnSysKeyDown(UINT /*key*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    virtual LRESULT OnSysKeyUp(UINT /*key*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    ///@}
    ///@{
    /// A byte of a character.
    virtual LRESULT OnChar(UINT /*character*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    virtual LRESULT OnDeadChar(UINT /*character*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    virtual LRESULT OnSysChar(UINT /*character*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    virtual LRESULT OnSysDeadChar(UINT /*character*/, UINT /*repeatCount*/, UINT /*flags*/) { return 0; }
    ///@}

    /// The client area has a new size; `kind` is a SIZE_ value.
    virtual LRESULT OnSize(UINT /*kind*/, CSize /*client*/) { return 0; }
    ///@{
    /// A scroll command, SB_, with the low 16 bits of the thumb's place.
    virtual LRESULT OnHScroll(UINT /*command*/, UINT /*position*/) { return 0; }
    virtual LRESULT OnVScroll(UINT /*command*/, UINT /*position*/) { return 0; }
    ///@}
    /// The pointer wants a shape over a part of the window, HT_. Not 0 when the shape was set.
    virtual LRESULT OnSetCursor(UINT /*hitTest*/) { return 0; }

private:
    LRESULT OnMouse(UINT message, UINT keys, CPoint point);
    LRESULT OnKey(UINT message, UINT code, UINT repeatCount, UINT flags);
};

} // namespace Ostrel::GUI
