#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <iterator>

#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::Platform
{

namespace
{

constexpr std::size_t kColorCount = 27;
using Palette = std::array<COLORREF, kColorCount>;

constexpr Palette MakeLight() noexcept
{
    Palette p{};
    p[COLOR_SCROLLBAR] = RGB(240, 241, 243);
    p[COLOR_BACKGROUND] = RGB(74, 84, 98);
    p[COLOR_ACTIVECAPTION] = RGB(225, 228, 233);
    p[COLOR_INACTIVECAPTION] = RGB(240, 241, 243);
    p[COLOR_MENU] = RGB(250, 250, 251);
    p[COLOR_WINDOW] = RGB(255, 255, 255);
    p[COLOR_WINDOWFRAME] = RGB(160, 166, 174);
    p[COLOR_MENUTEXT] = RGB(28, 32, 38);
    p[COLOR_WINDOWTEXT] = RGB(28, 32, 38);
    p[COLOR_CAPTIONTEXT] = RGB(28, 32, 38);
    p[COLOR_ACTIVEBORDER] = RGB(200, 204, 210);
    p[COLOR_INACTIVEBORDER] = RGB(218, 221, 226);
    p[COLOR_APPWORKSPACE] = RGB(225, 228, 233);
    p[COLOR_HIGHLIGHT] = RGB(38, 110, 217);
    p[COLOR_HIGHLIGHTTEXT] = RGB(255, 255, 255);
    p[COLOR_BTNFACE] = RGB(243, 244, 246);
    p[COLOR_BTNSHADOW] = RGB(166, 172, 181);
    p[COLOR_GRAYTEXT] = RGB(128, 135, 145);
    p[COLOR_BTNTEXT] = RGB(28, 32, 38);
    p[COLOR_INACTIVECAPTIONTEXT] = RGB(100, 107, 117);
    p[COLOR_BTNHIGHLIGHT] = RGB(255, 255, 255);
    p[COLOR_3DDKSHADOW] = RGB(146, 152, 161);
    p[COLOR_3DLIGHT] = RGB(228, 230, 234);
    p[COLOR_INFOTEXT] = RGB(28, 32, 38);
    p[COLOR_INFOBK] = RGB(255, 253, 240);
    p[COLOR_HOTLIGHT] = RGB(20, 88, 190);
    return p;
}

constexpr Palette MakeDark() noexcept
{
    Palette p{};
    p[COLOR_SCROLLBAR] = RGB(40, 43, 48);
    p[COLOR_BACKGROUND] = RGB(20, 22, 25);
    p[COLOR_ACTIVECAPTION] = RGB(52, 56, 62);
    p[COLOR_INACTIVECAPTION] = RGB(43, 46, 51);
    p[COLOR_MENU] = RGB(43, 46, 51);
    p[COLOR_WINDOW] = RGB(30, 32, 36);
    p[COLOR_WINDOWFRAME] = RGB(98, 104, 113);
    p[COLOR_MENUTEXT] = RGB(226, 229, 233);
    p[COLOR_WINDOWTEXT] = RGB(226, 229, 233);
    p[COLOR_CAPTIONTEXT] = RGB(226, 229, 233);
    p[COLOR_ACTIVEBORDER] = RGB(74, 79, 87);
    p[COLOR_INACTIVEBORDER] = RGB(60, 64, 71);
    p[COLOR_APPWORKSPACE] = RGB(24, 26, 29);
    p[COLOR_HIGHLIGHT] = RGB(52, 112, 204);
    p[COLOR_HIGHLIGHTTEXT] = RGB(255, 255, 255);
    p[COLOR_BTNFACE] = RGB(46, 49, 55);
    p[COLOR_BTNSHADOW] = RGB(96, 102, 112);
    p[COLOR_GRAYTEXT] = RGB(138, 145, 155);
    p[COLOR_BTNTEXT] = RGB(226, 229, 233);
    p[COLOR_INACTIVECAPTIONTEXT] = RGB(160, 166, 175);
    p[COLOR_BTNHIGHLIGHT] = RGB(62, 66, 74);
    p[COLOR_3DDKSHADOW] = RGB(12, 13, 15);
    p[COLOR_3DLIGHT] = RGB(58, 62, 69);
    p[COLOR_INFOTEXT] = RGB(226, 229, 233);
    p[COLOR_INFOBK] = RGB(54, 57, 63);
    p[COLOR_HOTLIGHT] = RGB(116, 168, 245);
    return p;
}

constexpr Palette kLight = MakeLight();
constexpr Palette kDark = MakeDark();

struct Look
{
    Look() { Load(kLight); }

    void Load(Palette const& palette) noexcept { std::ranges::copy(palette, colors.begin()); }

    std::array<std::atomic<COLORREF>, kColorCount> colors;
    std::atomic<ColorScheme> scheme{ColorScheme::Light};
    std::atomic<int> screenWidth{1920};
    std::atomic<int> screenHeight{1080};
};

Look& TheLook() noexcept
{
    static Look look;
    return look;
}

constexpr double kSmallestScale = 0.5;
constexpr double kLargestScale = 8;

struct Scale
{
    Scale()
    {
        char const* const wanted = std::getenv("OSTREL_SCALE"); // NOLINT(concurrency-mt-unsafe): before any change
        double const scale = wanted != nullptr ? std::strtod(wanted, nullptr) : 0;
        if (scale > 0) // NaN and nonsense are not
        {
            factor = std::clamp(scale, kSmallestScale, kLargestScale);
            isFixed = true;
        }
    }

    std::atomic<double> factor{1};
    bool isFixed = false;
};

Scale& TheScale() noexcept
{
    static Scale scale;
    return scale;
}

struct Metric
{
    int number;
    int designPixels;
};

// Sizes for scale 1.
constexpr Metric kMetrics[] = {{SM_CXVSCROLL, 15}, {SM_CYHSCROLL, 15},   {SM_CYCAPTION, 28},  {SM_CXBORDER, 1},
                               {SM_CYBORDER, 1},   {SM_CYVTHUMB, 24},    {SM_CXHTHUMB, 24},   {SM_CXICON, 32},
                               {SM_CYICON, 32},    {SM_CXCURSOR, 24},    {SM_CYCURSOR, 24},   {SM_CYVSCROLL, 15},
                               {SM_CXHSCROLL, 15}, {SM_CXDOUBLECLK, 4},  {SM_CYDOUBLECLK, 4}, {SM_CXEDGE, 2},
                               {SM_CYEDGE, 2},     {SM_CXSMICON, 16},    {SM_CYSMICON, 16},   {SM_CXDRAG, 4},
                               {SM_CYDRAG, 4},     {SM_CXMENUCHECK, 13}, {SM_CYMENUCHECK, 13}};

COLORREF Blended(COLORREF base, COLORREF over, int opacity) noexcept
{
    auto const channel = [&](int a, int b) { return (a * (255 - opacity) + b * opacity) / 255; };
    return RGB(channel(GetRValue(base), GetRValue(over)), channel(GetGValue(base), GetGValue(over)),
               channel(GetBValue(base), GetBValue(over)));
}

CRect CenteredSquare(CRect const& rect, int side) noexcept
{
    return {CPoint(rect.left + (rect.Width() - side) / 2, rect.top + (rect.Height() - side) / 2), CSize(side, side)};
}

// A rectangle whose corners lack a staircase of pixels: round enough at these sizes without smoothing.
void FillRounded(CDC& dc, CRect const& rect, int radius, COLORREF color)
{
    radius = std::min({radius, rect.Width() / 2, rect.Height() / 2});
    dc.FillSolidRect(CRect(rect.left, rect.top + radius, rect.right, rect.bottom - radius), color);
    for (int i = 0; i < radius; ++i)
    {
        double const fromCenter = radius - i - 0.5;
        int const inset = radius - static_cast<int>(std::lround(std::sqrt(radius * radius - fromCenter * fromCenter)));
        dc.FillSolidRect(CRect(rect.left + inset, rect.top + i, rect.right - inset, rect.top + i + 1), color);
        dc.FillSolidRect(CRect(rect.left + inset, rect.bottom - 1 - i, rect.right - inset, rect.bottom - i), color);
    }
}

void FrameRounded(CDC& dc, CRect const& rect, int radius, COLORREF frame, COLORREF inside)
{
    int const border = Scaled(1);
    FillRounded(dc, rect, radius, frame);
    CRect inner(rect);
    inner.DeflateRect(border, border);
    FillRounded(dc, inner, std::max(0, radius - border), inside);
}

struct ControlColors
{
    COLORREF face;
    COLORREF frame;
    COLORREF mark;
};

ControlColors ColorsOf(PartState state, COLORREF plain) noexcept
{
    COLORREF const text = GetSysColor(COLOR_BTNTEXT);
    COLORREF const frame = GetSysColor(COLOR_WINDOWFRAME);
    COLORREF const accent = GetSysColor(COLOR_HIGHLIGHT);
    switch (state)
    {
    case PartState::Hot:
        return {Blended(plain, accent, 20), accent, text};
    case PartState::Pressed:
        return {Blended(plain, accent, 60), accent, text};
    case PartState::Disabled:
        return {Blended(plain, GetSysColor(COLOR_BTNFACE), 160), Blended(plain, frame, 110),
                GetSysColor(COLOR_GRAYTEXT)};
    case PartState::Normal:
        break;
    }
    return {plain, frame, text};
}

// The check mark: seven columns of a stroke that falls two steps and rises four.
void DrawCheckMark(CDC& dc, CRect const& box, COLORREF color)
{
    constexpr int kTops[] = {3, 4, 5, 4, 3, 2, 1};
    int const unit = std::max(1, box.Width() / 13);
    int const side = static_cast<int>(std::size(kTops)) * unit;
    CRect const place = CenteredSquare(box, side);
    for (int column = 0; column < side; ++column)
    {
        int const step = column / unit;
        int const within = column % unit;
        int const next = kTops[std::min<std::size_t>(static_cast<std::size_t>(step) + 1, std::size(kTops) - 1)];
        int const top = kTops[step] * unit + (next - kTops[step]) * within - unit;
        dc.FillSolidRect(
            CRect(place.left + column, place.top + top, place.left + column + 1, place.top + top + 3 * unit), color);
    }
}

PartState StateOf(UINT flags) noexcept
{
    if ((flags & DFCS_INACTIVE) != 0)
    {
        return PartState::Disabled;
    }
    if ((flags & DFCS_PUSHED) != 0)
    {
        return PartState::Pressed;
    }
    return (flags & DFCS_HOT) != 0 ? PartState::Hot : PartState::Normal;
}

ArrowDirection ArrowOf(UINT flags) noexcept
{
    switch (flags & 3U)
    {
    case DFCS_SCROLLUP:
        return ArrowDirection::Up;
    case DFCS_SCROLLLEFT:
        return ArrowDirection::Left;
    case DFCS_SCROLLRIGHT:
        return ArrowDirection::Right;
    default:
        return ArrowDirection::Down;
    }
}

struct EdgeColors
{
    COLORREF topLeft;
    COLORREF bottomRight;
};

EdgeColors OuterColors(UINT edge, UINT flags) noexcept
{
    if ((flags & BF_FLAT) != 0)
    {
        return {GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_BTNSHADOW)};
    }
    COLORREF const light =
        GetSysColor((edge & (BDR_RAISEDINNER | BDR_SUNKENINNER)) != 0 ? COLOR_3DLIGHT : COLOR_BTNHIGHLIGHT);
    return (edge & BDR_RAISEDOUTER) != 0 ? EdgeColors{light, GetSysColor(COLOR_3DDKSHADOW)}
                                         : EdgeColors{GetSysColor(COLOR_BTNSHADOW), light};
}

EdgeColors InnerColors(UINT edge, UINT flags) noexcept
{
    if ((flags & BF_FLAT) != 0)
    {
        return {GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNFACE)};
    }
    return (edge & BDR_RAISEDINNER) != 0 ? EdgeColors{GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW)}
                                         : EdgeColors{GetSysColor(COLOR_3DDKSHADOW), GetSysColor(COLOR_BTNHIGHLIGHT)};
}

// The chosen sides of a one-pixel edge, which is then taken off the rectangle.
void DrawSides(CDC& dc, CRect& rect, EdgeColors const& colors, UINT sides)
{
    CRect const outer = rect;
    if ((sides & BF_TOP) != 0)
    {
        dc.FillSolidRect(CRect(outer.left, outer.top, outer.right, outer.top + 1), colors.topLeft);
        ++rect.top;
    }
    if ((sides & BF_LEFT) != 0)
    {
        dc.FillSolidRect(CRect(outer.left, outer.top, outer.left + 1, outer.bottom), colors.topLeft);
        ++rect.left;
    }
    if ((sides & BF_BOTTOM) != 0)
    {
        dc.FillSolidRect(CRect(outer.left, outer.bottom - 1, outer.right, outer.bottom), colors.bottomRight);
        --rect.bottom;
    }
    if ((sides & BF_RIGHT) != 0)
    {
        dc.FillSolidRect(CRect(outer.right - 1, outer.top, outer.right, outer.bottom), colors.bottomRight);
        --rect.right;
    }
}

constexpr int kCheckDesignSize = 13;
constexpr int kCornerDesignRadius = 3;

} // namespace

bool IsSystemColor(int colorIndex) noexcept
{
    return colorIndex >= 0 && static_cast<std::size_t>(colorIndex) < kColorCount;
}

void SetColorScheme(ColorScheme scheme) noexcept
{
    TheLook().scheme = scheme;
    TheLook().Load(scheme == ColorScheme::Dark ? kDark : kLight);
}

ColorScheme GetColorScheme() noexcept
{
    return TheLook().scheme;
}

double GetScale() noexcept
{
    return TheScale().factor.load(std::memory_order_relaxed);
}

void SetScale(double scale) noexcept
{
    if (scale > 0)
    {
        TheScale().factor = std::clamp(scale, kSmallestScale, kLargestScale);
    }
}

bool IsScaleFixed() noexcept
{
    return TheScale().isFixed;
}

int Scaled(int designPixels) noexcept
{
    int const scaled = static_cast<int>(std::lround(designPixels * GetScale()));
    return designPixels > 0 ? std::max(scaled, 1) : scaled;
}

void SetScreenSize(CSize size) noexcept
{
    TheLook().screenWidth = size.cx;
    TheLook().screenHeight = size.cy;
}

void DrawScrollTrack(CDC& dc, CRect const& rect, PartState state)
{
    COLORREF const plain = GetSysColor(COLOR_SCROLLBAR);
    dc.FillSolidRect(rect, state == PartState::Pressed ? Blended(plain, GetSysColor(COLOR_WINDOWFRAME), 60) : plain);
}

void DrawScrollThumb(CDC& dc, CRect const& rect, bool vertical, PartState state)
{
    DrawScrollTrack(dc, rect, PartState::Normal);
    if (state == PartState::Disabled)
    {
        return;
    }
    COLORREF const strong = GetSysColor(COLOR_WINDOWTEXT);
    int const opacity = state == PartState::Pressed ? 150 : (state == PartState::Hot ? 110 : 70);
    CRect thumb(rect);
    int const margin = Scaled(3);
    thumb.DeflateRect(vertical ? margin : Scaled(1), vertical ? Scaled(1) : margin);
    FillRounded(dc, thumb, std::min(thumb.Width(), thumb.Height()) / 2,
                Blended(GetSysColor(COLOR_SCROLLBAR), strong, opacity));
}

void DrawScrollButton(CDC& dc, CRect const& rect, ArrowDirection direction, PartState state)
{
    COLORREF const track = GetSysColor(COLOR_SCROLLBAR);
    COLORREF const text = GetSysColor(COLOR_BTNTEXT);
    int const press = state == PartState::Pressed ? 60 : (state == PartState::Hot ? 25 : 0);
    dc.FillSolidRect(rect, Blended(track, text, press));
    DrawArrow(dc, rect, direction, Blended(track, text, state == PartState::Disabled ? 70 : 170));
}

void DrawScrollCorner(CDC& dc, CRect const& rect)
{
    dc.FillSolidRect(rect, GetSysColor(COLOR_SCROLLBAR));
}

// A chevron of two strokes of equal thickness, as wide as twice its depth less one; none where there is no room.
void DrawArrow(CDC& dc, CRect const& rect, ArrowDirection direction, COLORREF color)
{
    int const thickness = std::max(2, Scaled(3) / 2);
    int const room = std::min(rect.Width(), rect.Height());
    int const depth = std::min({Scaled(4), (room + 1) / 2, room - thickness + 1});
    bool const isVertical = direction == ArrowDirection::Up || direction == ArrowDirection::Down;
    bool const pointsBack = direction == ArrowDirection::Up || direction == ArrowDirection::Left;
    int const across = 2 * depth - 1;
    int const along = depth + thickness - 1;
    CPoint const start(rect.left + (rect.Width() - (isVertical ? across : along)) / 2,
                       rect.top + (rect.Height() - (isVertical ? along : across)) / 2);
    for (int i = 0; i < across; ++i)
    {
        int const fromTip = std::abs(i - (depth - 1));
        int const first = pointsBack ? fromTip : depth - 1 - fromTip;
        dc.FillSolidRect(isVertical ? CRect(CPoint(start.x + i, start.y + first), CSize(1, thickness))
                                    : CRect(CPoint(start.x + first, start.y + i), CSize(thickness, 1)),
                         color);
    }
}

void DrawPushButton(CDC& dc, CRect const& rect, PartState state, bool isDefault)
{
    bool const isDark = GetColorScheme() == ColorScheme::Dark;
    ControlColors colors = ColorsOf(state, GetSysColor(isDark ? COLOR_3DLIGHT : COLOR_WINDOW));
    if (isDefault && state != PartState::Disabled)
    {
        colors.frame = GetSysColor(COLOR_HIGHLIGHT);
    }
    FrameRounded(dc, rect, Scaled(kCornerDesignRadius), colors.frame, colors.face);
}

void DrawCheckBox(CDC& dc, CRect const& rect, PartState state, bool checked, bool mixed)
{
    CRect const box = CenteredSquare(rect, Scaled(kCheckDesignSize));
    ControlColors colors = ColorsOf(state, GetSysColor(COLOR_WINDOW));
    if ((checked || mixed) && state != PartState::Disabled)
    {
        COLORREF const accent = GetSysColor(COLOR_HIGHLIGHT);
        colors = {state == PartState::Pressed ? Blended(accent, GetSysColor(COLOR_WINDOWTEXT), 60) : accent, accent,
                  GetSysColor(COLOR_HIGHLIGHTTEXT)};
    }
    FrameRounded(dc, box, Scaled(2), colors.frame, colors.face);
    if (mixed)
    {
        CRect bar = CenteredSquare(box, Scaled(7));
        bar.DeflateRect(0, (bar.Height() - Scaled(2)) / 2);
        dc.FillSolidRect(bar, colors.mark);
    }
    else if (checked)
    {
        DrawCheckMark(dc, box, colors.mark);
    }
}

void DrawRadioButton(CDC& dc, CRect const& rect, PartState state, bool checked)
{
    int const size = Scaled(kCheckDesignSize);
    CRect const box = CenteredSquare(rect, size);
    ControlColors colors = ColorsOf(state, GetSysColor(COLOR_WINDOW));
    if (checked && state != PartState::Disabled)
    {
        colors = {GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT)};
    }
    FrameRounded(dc, box, size / 2, colors.frame, colors.face);
    if (checked)
    {
        int const dot = Scaled(5) | 1;
        FillRounded(dc, CenteredSquare(box, dot), dot / 2, colors.mark);
    }
}

void DrawFieldFrame(CDC& dc, CRect const& rect, bool focused)
{
    COLORREF const color = GetSysColor(focused ? COLOR_HIGHLIGHT : COLOR_WINDOWFRAME);
    CRect frame(rect);
    for (int i = 0; i < Scaled(1); ++i)
    {
        dc.Draw3dRect(&frame, color, color);
        frame.DeflateRect(1, 1);
    }
}

bool DrawSystemEdge(CDC& dc, CRect& rect, UINT edge, UINT flags)
{
    CRect inner(rect);
    if ((edge & (BDR_RAISEDOUTER | BDR_SUNKENOUTER)) != 0)
    {
        DrawSides(dc, inner, OuterColors(edge, flags), flags);
    }
    if ((edge & (BDR_RAISEDINNER | BDR_SUNKENINNER)) != 0)
    {
        DrawSides(dc, inner, InnerColors(edge, flags), flags);
    }
    if ((flags & BF_MIDDLE) != 0)
    {
        dc.FillSolidRect(inner, GetSysColor(COLOR_BTNFACE));
    }
    if ((flags & BF_ADJUST) != 0)
    {
        rect = inner;
    }
    return true;
}

bool DrawSystemControl(CDC& dc, CRect const& rect, UINT type, UINT state)
{
    PartState const part = StateOf(state);
    if (type == DFC_SCROLL)
    {
        ArrowDirection const direction = (state & 7U) == DFCS_SCROLLCOMBOBOX ? ArrowDirection::Down : ArrowOf(state);
        DrawScrollButton(dc, rect, direction, part);
        return true;
    }
    if (type != DFC_BUTTON)
    {
        return false;
    }
    bool const checked = (state & DFCS_CHECKED) != 0;
    if ((state & DFCS_BUTTONPUSH) != 0)
    {
        DrawPushButton(dc, rect, checked && part == PartState::Normal ? PartState::Pressed : part, false);
    }
    else if ((state & DFCS_BUTTONRADIO) != 0)
    {
        DrawRadioButton(dc, rect, part, checked);
    }
    else
    {
        bool const mixed = (state & DFCS_BUTTON3STATE) != 0 && checked;
        DrawCheckBox(dc, rect, part, checked, mixed);
    }
    return true;
}

} // namespace Ostrel::Platform

using namespace Ostrel::Platform;

COLORREF GetSysColor(int colorIndex) noexcept
{
    return IsSystemColor(colorIndex)
               ? TheLook().colors[static_cast<std::size_t>(colorIndex)].load(std::memory_order_relaxed)
               : 0;
}

BOOL SetSysColors(int count, int const* colorIndices, COLORREF const* colors) noexcept
{
    if (count < 0 || colorIndices == nullptr || colors == nullptr ||
        !std::all_of(colorIndices, colorIndices + count, IsSystemColor))
    {
        return FALSE;
    }
    for (int i = 0; i < count; ++i)
    {
        TheLook().colors[static_cast<std::size_t>(colorIndices[i])] = colors[i];
    }
    return TRUE;
}

int GetSystemMetrics(int metric) noexcept
{
    if (metric == SM_CXSCREEN)
    {
        return TheLook().screenWidth;
    }
    if (metric == SM_CYSCREEN)
    {
        return TheLook().screenHeight;
    }
    auto const* const found = std::ranges::find(kMetrics, metric, &Metric::number);
    return found != std::end(kMetrics) ? Scaled(found->designPixels) : 0;
}
