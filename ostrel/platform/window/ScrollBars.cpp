// The functions that set and ask the scroll bars of windows.
#include <algorithm>

#include <ostrel/platform/window/detail/ThreadState.h>

using namespace Ostrel::Platform;

namespace
{

/// Null for a dead window and for SB_CTL.
ScrollBar* BarOf(HWND handle, int which)
{
    Window* const window = FindWindowRecord(handle);
    return window != nullptr && (which == SB_HORZ || which == SB_VERT) ? &window->bars[which] : nullptr;
}

constexpr DWORD StyleOf(int which) noexcept
{
    return which == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
}

/// Keeps page and position inside the range.
void Settle(ScrollBar& bar) noexcept
{
    bar.maximum = std::max(bar.maximum, bar.minimum);
    std::int64_t const range = std::int64_t{bar.maximum} - bar.minimum + 1;
    bar.page = static_cast<UINT>(std::min<std::int64_t>(bar.page, range));
    bar.position = std::clamp(bar.position, bar.minimum, ScrollLimit(bar));
}

bool Apply(ScrollBar& bar, SCROLLINFO const& info) noexcept
{
    ScrollBar const before = bar;
    if ((info.fMask & SIF_RANGE) != 0)
    {
        bar.minimum = info.nMin;
        bar.maximum = info.nMax;
    }
    if ((info.fMask & SIF_PAGE) != 0)
    {
        bar.page = info.nPage;
    }
    if ((info.fMask & SIF_POS) != 0)
    {
        bar.position = info.nPos;
    }
    Settle(bar);
    return bar.minimum != before.minimum || bar.maximum != before.maximum || bar.page != before.page ||
           bar.position != before.position;
}

void Redraw(HWND handle)
{
    if (Window* const window = FindWindowRecord(handle))
    {
        ThreadState::Get().painter.InvalidateFrame(*window);
    }
}

/// A bar with nothing to scroll hides, or is greyed when asked to stay.
void UpdateShown(HWND handle, int which, UINT mask)
{
    ScrollBar& bar = *BarOf(handle, which);
    if ((mask & (SIF_RANGE | SIF_PAGE)) == 0)
    {
        return;
    }
    bool const isUseful = ScrollLimit(bar) > bar.minimum;
    bar.isGreyed = !isUseful && (mask & SIF_DISABLENOSCROLL) != 0;
    ShowScrollBar(handle, which, isUseful || bar.isGreyed);
}

} // namespace

int SetScrollInfo(HWND handle, int which, SCROLLINFO const* info, BOOL redraw)
{
    ScrollBar* bar = BarOf(handle, which);
    if (bar == nullptr || info == nullptr)
    {
        return 0;
    }
    bar->wasUsed = true;
    bool const changed = Apply(*bar, *info);
    int const position = bar->position;
    UpdateShown(handle, which, info->fMask);
    if (changed && redraw != FALSE)
    {
        Redraw(handle);
    }
    return position;
}

BOOL GetScrollInfo(HWND handle, int which, SCROLLINFO* info)
{
    ScrollBar const* const bar = BarOf(handle, which);
    if (bar == nullptr || info == nullptr || !bar->wasUsed)
    {
        return FALSE;
    }
    if ((info->fMask & SIF_RANGE) != 0)
    {
        info->nMin = bar->minimum;
        info->nMax = bar->maximum;
    }
    if ((info->fMask & SIF_PAGE) != 0)
    {
        info->nPage = bar->page;
    }
    if ((info->fMask & SIF_POS) != 0)
    {
        info->nPos = bar->position;
    }
    if ((info->fMask & SIF_TRACKPOS) != 0)
    {
        ScrollTracker const& tracker = ThreadState::Get().scrollTracker;
        info->nTrackPos = tracker.IsDragging(handle, which) ? tracker.TrackPosition() : bar->position;
    }
    return TRUE;
}

int SetScrollPos(HWND handle, int which, int position, BOOL redraw)
{
    int const before = GetScrollPos(handle, which);
    SCROLLINFO info;
    info.fMask = SIF_POS;
    info.nPos = position;
    SetScrollInfo(handle, which, &info, redraw);
    return before;
}

int GetScrollPos(HWND handle, int which)
{
    ScrollBar const* const bar = BarOf(handle, which);
    return bar != nullptr ? bar->position : 0;
}

BOOL SetScrollRange(HWND handle, int which, int minimum, int maximum, BOOL redraw)
{
    SCROLLINFO info;
    info.fMask = SIF_RANGE;
    info.nMin = minimum;
    info.nMax = maximum;
    SetScrollInfo(handle, which, &info, redraw);
    return BarOf(handle, which) != nullptr;
}

BOOL GetScrollRange(HWND handle, int which, int* minimum, int* maximum)
{
    ScrollBar const* const bar = BarOf(handle, which);
    if (bar == nullptr || minimum == nullptr || maximum == nullptr)
    {
        return FALSE;
    }
    *minimum = bar->minimum;
    *maximum = bar->maximum;
    return TRUE;
}

BOOL ShowScrollBar(HWND handle, int which, BOOL show)
{
    if (which == SB_BOTH)
    {
        BOOL const horizontal = ShowScrollBar(handle, SB_HORZ, show);
        return ShowScrollBar(handle, SB_VERT, show) != FALSE && horizontal != FALSE;
    }
    ScrollBar* const bar = BarOf(handle, which);
    if (bar == nullptr)
    {
        return FALSE;
    }
    Window& window = *FindWindowRecord(handle);
    if (window.HasStyle(StyleOf(which)) != (show != FALSE))
    {
        bar->wasUsed = true;
        window.style ^= StyleOf(which);
        SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }
    return TRUE;
}

BOOL EnableScrollBar(HWND handle, int which, UINT arrows)
{
    if (which == SB_BOTH)
    {
        BOOL const horizontal = EnableScrollBar(handle, SB_HORZ, arrows);
        return EnableScrollBar(handle, SB_VERT, arrows) != FALSE || horizontal != FALSE;
    }
    ScrollBar* const bar = BarOf(handle, which);
    bool const disable = arrows == ESB_DISABLE_BOTH;
    if (bar == nullptr || bar->isDisabled == disable)
    {
        return FALSE;
    }
    bar->isDisabled = disable;
    Redraw(handle);
    return TRUE;
}
