// What the user does with the grid's window, message by message, and which part of the grid it concerns.
#pragma once

#include <ostrel/gui/edit/UserInputHelper.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridInput final : public CUserInputHelper
{
public:
    explicit GridInput(GridCore& core) noexcept : m_core(core) {}

private:
    LRESULT OnMouseMove(UINT keys, CPoint point) override;
    LRESULT OnLButtonDown(UINT keys, CPoint point) override;
    LRESULT OnLButtonUp(UINT keys, CPoint point) override;
    LRESULT OnLButtonDblClk(UINT keys, CPoint point) override;
    LRESULT OnMouseLeave() override;
    LRESULT OnCaptureChanged(HWND newOwner) override;
    LRESULT OnKeyDown(UINT key, UINT repeatCount, UINT flags) override;
    LRESULT OnSize(UINT kind, CSize client) override;
    LRESULT OnHScroll(UINT command, UINT position) override;
    LRESULT OnVScroll(UINT command, UINT position) override;
    LRESULT OnSetCursor(UINT hitTest) override;

    LRESULT Press(UINT keys, CPoint point, bool isDoubleClick);

    GridCore& m_core;
};
} // namespace Ostrel::GUI::Detail
