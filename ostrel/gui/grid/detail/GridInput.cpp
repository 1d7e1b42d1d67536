#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridInput.h>

namespace Ostrel::GUI::Detail
{
namespace
{
bool IsKeyUp(int virtualKey)
{
    return GetKeyState(virtualKey) >= 0;
}
} // namespace

LRESULT GridInput::OnMouseMove(UINT /*keys*/, CPoint point)
{
    m_core.Mouse().OnMove(point);
    return 0;
}

LRESULT GridInput::Press(UINT keys, CPoint point, bool isDoubleClick)
{
    m_core.Grid().SetFocus();
    m_core.Grid().SetCapture();
    m_core.Mouse().OnLeftDown(point, keys, isDoubleClick);
    return 0;
}

LRESULT GridInput::OnLButtonDown(UINT keys, CPoint point)
{
    return Press(keys, point, false);
}

LRESULT GridInput::OnLButtonDblClk(UINT keys, CPoint point)
{
    return Press(keys, point, true);
}

LRESULT GridInput::OnLButtonUp(UINT keys, CPoint point)
{
    m_core.Mouse().OnLeftUp(point, keys);
    ReleaseCapture();
    return 0;
}

LRESULT GridInput::OnMouseLeave()
{
    m_core.Mouse().OnLeave();
    return 0;
}

LRESULT GridInput::OnCaptureChanged(HWND /*newOwner*/)
{
    m_core.Mouse().OnCaptureLost();
    return 0;
}

LRESULT GridInput::OnKeyDown(UINT key, UINT /*repeatCount*/, UINT /*flags*/)
{
    return IsKeyUp(VK_SHIFT) && IsKeyUp(VK_CONTROL) && m_core.Search().OnKeyDown(key) ? 1 : 0;
}

LRESULT GridInput::OnSize(UINT /*kind*/, CSize client)
{
    m_core.OnSize(client);
    return 0;
}

LRESULT GridInput::OnHScroll(UINT command, UINT position)
{
    m_core.Grid().SetFocus();
    m_core.Scroller().OnHorizontalScroll(static_cast<int>(command), static_cast<int>(position));
    return 0;
}

LRESULT GridInput::OnVScroll(UINT command, UINT position)
{
    m_core.Grid().SetFocus();
    m_core.Freeze().OnScroll(static_cast<int>(command));
    m_core.Scroller().OnVerticalScroll(static_cast<int>(command), static_cast<int>(position));
    return 0;
}

LRESULT GridInput::OnSetCursor(UINT hitTest)
{
    return hitTest == HTCLIENT && m_core.Mouse().OnSetCursor() ? TRUE : FALSE;
}
} // namespace Ostrel::GUI::Detail
