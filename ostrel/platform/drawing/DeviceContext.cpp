// The state of a device context, its fills, lines and shapes. Text and pictures have files of their own.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include <ostrel/platform/base/HandleTable.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/detail/PixelTarget.h>

using Ostrel::Platform::ClipRects;
using Ostrel::Platform::DrawTarget;
using Ostrel::Platform::HandleTable;
using Ostrel::Platform::PixelTarget;
using Ostrel::Platform::Region;
using Ostrel::Platform::Surface;

namespace
{

// Coordinates beyond this are of no use on any surface.
constexpr int kFarthest = 1 << 28;

int Near(std::int64_t coordinate) noexcept
{
    return static_cast<int>(std::clamp<std::int64_t>(coordinate, -kFarthest, kFarthest));
}

int NearSum(int a, int b) noexcept
{
    return Near(static_cast<std::int64_t>(a) + b);
}

CRect RectOf(int x, int y, int width, int height) noexcept
{
    return {x, y, NearSum(x, width), NearSum(y, height)};
}

HandleTable<CDC>& Handles()
{
    static auto* const table = new HandleTable<CDC>;
    return *table;
}

DWORD TokenOf(HDC handle) noexcept
{
    auto const value = reinterpret_cast<std::uintptr_t>(handle);
    return value <= 0xFFFFFFFFU ? static_cast<DWORD>(value) : 0;
}

template <class T>
T* Stock(int number)
{
    return static_cast<T*>(CGdiObject::FromHandle(GetStockObject(number)));
}

bool IsDotted(int penStyle) noexcept
{
    return penStyle == PS_DOT || penStyle == PS_ALTERNATE;
}

} // namespace

CDC::CDC()
{
    Reset(CPoint(0, 0), Region());
}

CDC::~CDC()
{
    DeleteDC();
}

BOOL CDC::CreateCompatibleDC(CDC const* /*like*/)
{
    Detach();
    m_isMemory = true;
    ShowBitmap(nullptr);
    return TRUE;
}

BOOL CDC::DeleteDC()
{
    if (m_handle != nullptr)
    {
        Handles().Remove(TokenOf(m_handle));
        m_handle = nullptr;
    }
    bool const had = m_target != nullptr;
    Detach();
    return had ? TRUE : FALSE;
}

HDC CDC::GetSafeHdc()
{
    if (m_handle == nullptr)
    {
        std::uintptr_t const token = Handles().Add(this);
        m_handle = reinterpret_cast<HDC>(token); // NOLINT(performance-no-int-to-ptr)
    }
    return m_handle;
}

CDC* CDC::FromHandle(HDC handle) noexcept
{
    return Handles().Find(TokenOf(handle));
}

void CDC::AttachSurface(Surface& surface, CPoint origin, Region const& visible)
{
    AttachTarget(std::make_unique<PixelTarget>(surface), origin, visible);
}

void CDC::AttachSurface(Surface& surface)
{
    AttachSurface(surface, CPoint(0, 0), Region(surface.Bounds()));
}

void CDC::AttachTarget(std::unique_ptr<DrawTarget> target, CPoint origin, Region const& visible)
{
    Detach();
    m_target = std::move(target);
    Region inside = visible;
    inside.Intersect(m_target != nullptr ? m_target->Bounds() : CRect());
    Reset(origin, inside);
}

void CDC::Detach()
{
    m_target.reset();
    m_isMemory = false;
    m_bitmap = nullptr;
    Reset(CPoint(0, 0), Region());
}

void CDC::Reset(CPoint origin, Region const& visible)
{
    m_origin = origin;
    m_visible = visible;
    m_saved.clear();
    m_state = State{};
    m_state.backColor = RGB(255, 255, 255);
    m_state.pen = Stock<CPen>(BLACK_PEN);
    m_state.brush = Stock<CBrush>(WHITE_BRUSH);
    m_state.brushColor = RGB(255, 255, 255);
    m_state.font = Stock<CFont>(DEFAULT_GUI_FONT);
    m_state.fontId = m_state.font->GetFontId();
    m_state.clip = visible;
}

// A memory context without a bitmap has one pixel, so that it can be asked and drawn on all the same.
void CDC::ShowBitmap(CBitmap* bitmap)
{
    std::shared_ptr<Surface> pixels = bitmap != nullptr ? bitmap->GetSurface() : nullptr;
    if (pixels == nullptr)
    {
        pixels = std::make_shared<Surface>(1, 1);
    }
    m_bitmap = bitmap;
    m_visible = Region(pixels->Bounds());
    m_state.clip = m_visible;
    m_target = std::make_unique<PixelTarget>(std::move(pixels));
}

int CDC::GetDeviceCaps(int index) const noexcept
{
    if (m_target == nullptr)
    {
        return 0;
    }
    switch (index)
    {
    case HORZRES:
        return m_target->Bounds().Width();
    case VERTRES:
        return m_target->Bounds().Height();
    case BITSPIXEL:
        return 32;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return m_target->PixelsPerInch();
    default:
        return 0;
    }
}

int CDC::SaveDC()
{
    m_saved.push_back(m_state);
    return static_cast<int>(m_saved.size());
}

BOOL CDC::RestoreDC(int saved)
{
    int const count = static_cast<int>(m_saved.size());
    int const number = saved < 0 ? count + 1 + saved : saved;
    if (number < 1 || number > count)
    {
        return FALSE;
    }
    m_state = std::move(m_saved[static_cast<std::size_t>(number - 1)]);
    m_saved.resize(static_cast<std::size_t>(number - 1));
    if (m_isMemory) // another bitmap may be selected by now
    {
        m_state.clip.Intersect(m_visible);
    }
    return TRUE;
}

CPen* CDC::SelectObject(CPen* pen)
{
    if (pen == nullptr)
    {
        return nullptr;
    }
    m_state.penStyle = pen->GetStyle();
    m_state.penWidth = pen->GetWidth();
    m_state.penColor = pen->GetColor();
    return std::exchange(m_state.pen, pen);
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    if (brush == nullptr)
    {
        return nullptr;
    }
    m_state.brushHollow = brush->IsHollow();
    m_state.brushColor = brush->GetColor();
    return std::exchange(m_state.brush, brush);
}

CFont* CDC::SelectObject(CFont* font)
{
    if (font == nullptr)
    {
        return nullptr;
    }
    m_state.fontId = font->GetFontId();
    return std::exchange(m_state.font, font);
}

// Null is what the first selection gave back; selecting it takes the bitmap out again.
CBitmap* CDC::SelectObject(CBitmap* bitmap)
{
    if (!m_isMemory)
    {
        return nullptr;
    }
    CBitmap* const previous = m_bitmap;
    ShowBitmap(bitmap);
    return previous;
}

CGdiObject* CDC::SelectObject(CGdiObject* object)
{
    if (auto* const pen = dynamic_cast<CPen*>(object))
    {
        return SelectObject(pen);
    }
    if (auto* const brush = dynamic_cast<CBrush*>(object))
    {
        return SelectObject(brush);
    }
    if (auto* const font = dynamic_cast<CFont*>(object))
    {
        return SelectObject(font);
    }
    if (auto* const bitmap = dynamic_cast<CBitmap*>(object))
    {
        return SelectObject(bitmap);
    }
    return nullptr;
}

HGDIOBJ CDC::SelectObject(HGDIOBJ handle)
{
    CGdiObject const* const previous = SelectObject(CGdiObject::FromHandle(handle));
    return previous != nullptr ? previous->GetSafeHandle() : nullptr;
}

CGdiObject* CDC::SelectStockObject(int number)
{
    return SelectObject(CGdiObject::FromHandle(GetStockObject(number)));
}

COLORREF CDC::SetTextColor(COLORREF color) noexcept
{
    return std::exchange(m_state.textColor, color);
}

COLORREF CDC::SetBkColor(COLORREF color) noexcept
{
    return std::exchange(m_state.backColor, color);
}

int CDC::SetBkMode(int mode) noexcept
{
    return std::exchange(m_state.backMode, mode);
}

int CDC::SetStretchBltMode(int mode) noexcept
{
    return std::exchange(m_state.stretchMode, mode);
}

CPoint CDC::SetViewportOrg(int x, int y) noexcept
{
    return std::exchange(m_state.viewport, CPoint(Near(x), Near(y)));
}

CPoint CDC::OffsetViewportOrg(int dx, int dy) noexcept
{
    return SetViewportOrg(NearSum(m_state.viewport.x, dx), NearSum(m_state.viewport.y, dy));
}

CPoint CDC::Shift() const noexcept
{
    return {NearSum(m_origin.x, m_state.viewport.x), NearSum(m_origin.y, m_state.viewport.y)};
}

CPoint CDC::ToTarget(POINT point) const noexcept
{
    CPoint const shift = Shift();
    return {NearSum(point.x, shift.x), NearSum(point.y, shift.y)};
}

CRect CDC::ToTarget(RECT const& rect) const noexcept
{
    return {ToTarget(POINT{rect.left, rect.top}), ToTarget(POINT{rect.right, rect.bottom})};
}

ClipRects CDC::ClipTo(CRect const& targetRect)
{
    m_clipScratch.clear();
    for (CRect const& allowed : Clip())
    {
        CRect const both = allowed & targetRect;
        if (!both.IsRectEmpty())
        {
            m_clipScratch.push_back(both);
        }
    }
    return m_clipScratch;
}

int CDC::IntersectClipRect(int left, int top, int right, int bottom)
{
    m_state.clip.Intersect(ToTarget(CRect(left, top, right, bottom)));
    return ChangedClip();
}

int CDC::IntersectClipRect(RECT const* rect)
{
    return rect != nullptr ? IntersectClipRect(rect->left, rect->top, rect->right, rect->bottom) : ERROR;
}

int CDC::ExcludeClipRect(int left, int top, int right, int bottom)
{
    m_state.clip.Subtract(ToTarget(CRect(left, top, right, bottom)));
    return ChangedClip();
}

int CDC::ExcludeClipRect(RECT const* rect)
{
    return rect != nullptr ? ExcludeClipRect(rect->left, rect->top, rect->right, rect->bottom) : ERROR;
}

int CDC::SelectClipRgn(CRgn* region)
{
    return SelectClipRgn(region, RGN_COPY);
}

int CDC::SelectClipRgn(CRgn* region, int mode)
{
    if (region == nullptr)
    {
        if (mode != RGN_COPY)
        {
            return ERROR;
        }
        m_state.clip = m_visible;
        return ChangedClip();
    }
    Region wanted = region->GetRegion();
    wanted.Intersect(CRect(-kFarthest, -kFarthest, kFarthest, kFarthest));
    wanted.Offset(m_origin.x, m_origin.y);
    switch (mode)
    {
    case RGN_AND:
        m_state.clip.Intersect(wanted);
        break;
    case RGN_OR:
        m_state.clip.Union(wanted);
        break;
    case RGN_XOR:
        m_state.clip.Xor(wanted);
        break;
    case RGN_DIFF:
        m_state.clip.Subtract(wanted);
        break;
    case RGN_COPY:
        m_state.clip = std::move(wanted);
        break;
    default:
        return ERROR;
    }
    m_state.clip.Intersect(m_visible);
    return ChangedClip();
}

int CDC::GetClipBox(RECT* box) const noexcept
{
    if (box == nullptr)
    {
        return ERROR;
    }
    CPoint const shift = Shift();
    *box = m_state.clip.IsEmpty() ? CRect() : m_state.clip.Bounds() - shift;
    return ChangedClip();
}

BOOL CDC::RectVisible(RECT const* rect) const noexcept
{
    return rect != nullptr && m_state.clip.Intersects(ToTarget(*rect)) ? TRUE : FALSE;
}

BOOL CDC::PtVisible(POINT point) const noexcept
{
    return m_state.clip.Contains(ToTarget(point)) ? TRUE : FALSE;
}

void CDC::FillSolidRect(RECT const* rect, COLORREF color)
{
    if (rect != nullptr && CanDraw())
    {
        m_target->Fill(ToTarget(*rect), color, Clip());
    }
}

void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF color)
{
    FillSolidRect(RectOf(x, y, width, height), color);
}

void CDC::FillRect(RECT const* rect, CBrush* brush)
{
    if (brush != nullptr && !brush->IsHollow())
    {
        FillSolidRect(rect, brush->GetColor());
    }
}

void CDC::FrameRect(RECT const* rect, CBrush* brush)
{
    if (brush != nullptr && !brush->IsHollow())
    {
        Draw3dRect(rect, brush->GetColor(), brush->GetColor());
    }
}

void CDC::InvertRect(RECT const* rect)
{
    if (rect != nullptr && CanDraw())
    {
        m_target->Invert(ToTarget(*rect), Clip());
    }
}

void CDC::BlendRect(RECT const& rect, COLORREF color, BYTE opacity)
{
    if (CanDraw() && opacity != 0)
    {
        m_target->Blend(ToTarget(rect), color, opacity, Clip());
    }
}

void CDC::Draw3dRect(RECT const* rect, COLORREF topLeft, COLORREF bottomRight)
{
    if (rect == nullptr || CRect(*rect).IsRectEmpty())
    {
        return;
    }
    FillSolidRect(CRect(rect->left, rect->top, rect->right - 1, rect->top + 1), topLeft);
    FillSolidRect(CRect(rect->left, rect->top, rect->left + 1, rect->bottom - 1), topLeft);
    FillSolidRect(CRect(rect->right - 1, rect->top, rect->right, rect->bottom), bottomRight);
    FillSolidRect(CRect(rect->left, rect->bottom - 1, rect->right, rect->bottom), bottomRight);
}

void CDC::Draw3dRect(int x, int y, int width, int height, COLORREF topLeft, COLORREF bottomRight)
{
    CRect const rect = RectOf(x, y, width, height);
    Draw3dRect(&rect, topLeft, bottomRight);
}

void CDC::DrawFocusRect(RECT const* rect)
{
    if (rect == nullptr || CRect(*rect).IsRectEmpty() || !CanDraw())
    {
        return;
    }
    CPoint const shift = Shift();
    int const phase = (shift.x + shift.y) & 1;
    CRect const frame = ToTarget(*rect);
    CRect const edges[] = {{frame.left, frame.top, frame.right, frame.top + 1},
                           {frame.left, frame.bottom - 1, frame.right, frame.bottom},
                           {frame.left, frame.top, frame.left + 1, frame.bottom},
                           {frame.right - 1, frame.top, frame.right, frame.bottom}};
    for (CRect const& edge : edges)
    {
        m_target->Dots(edge, phase, m_state.textColor, Clip());
    }
}

BOOL CDC::DrawEdge(RECT* rect, UINT edge, UINT flags)
{
    if (rect == nullptr)
    {
        return FALSE;
    }
    CRect place(*rect);
    bool const drawn = Ostrel::Platform::DrawSystemEdge(*this, place, edge, flags);
    *rect = place;
    return drawn ? TRUE : FALSE;
}

BOOL CDC::DrawFrameControl(RECT* rect, UINT type, UINT state)
{
    return rect != nullptr && Ostrel::Platform::DrawSystemControl(*this, *rect, type, state) ? TRUE : FALSE;
}

CPoint CDC::MoveTo(int x, int y) noexcept
{
    return std::exchange(m_state.position, CPoint(x, y));
}

BOOL CDC::LineTo(int x, int y)
{
    CPoint const from = MoveTo(x, y);
    Segment(from, CPoint(x, y));
    return TRUE;
}

BOOL CDC::Polyline(POINT const* points, int count)
{
    if (points == nullptr || count < 2)
    {
        return FALSE;
    }
    for (int i = 1; i < count; ++i)
    {
        Segment(points[i - 1], points[i]);
    }
    return TRUE;
}

// One-pixel lines along an axis are rectangles without the end point, whichever way they run.
void CDC::Segment(CPoint from, CPoint to)
{
    if (!CanDraw() || m_state.penStyle == PS_NULL || from == to)
    {
        return;
    }
    if (m_state.penWidth > 1 && !IsDotted(m_state.penStyle))
    {
        ThickSegment(ToTarget(from), ToTarget(to));
        return;
    }
    CPoint const a = ToTarget(from);
    CPoint const b = ToTarget(to);
    if (a.y == b.y)
    {
        StraightSegment(b.x > a.x ? CRect(a.x, a.y, b.x, a.y + 1) : CRect(b.x + 1, a.y, a.x + 1, a.y + 1), true, a);
    }
    else if (a.x == b.x)
    {
        StraightSegment(b.y > a.y ? CRect(a.x, a.y, a.x + 1, b.y) : CRect(a.x, b.y + 1, a.x + 1, a.y + 1), false, a);
    }
    else
    {
        m_target->Line(a, b, m_state.penColor, Clip());
    }
}

// The dots of a horizontal line are where the caller's x is even, whatever its y; of a vertical one the other way
// round.
void CDC::StraightSegment(CRect const& pixels, bool horizontal, CPoint start)
{
    if (!IsDotted(m_state.penStyle))
    {
        m_target->Fill(pixels, m_state.penColor, Clip());
        return;
    }
    CPoint const shift = Shift();
    int const phase = horizontal ? shift.x + start.y : shift.y + start.x;
    m_target->Dots(pixels, phase & 1, m_state.penColor, Clip());
}

void CDC::ThickSegment(CPoint from, CPoint to)
{
    double const dx = to.x - from.x;
    double const dy = to.y - from.y;
    double const half = m_state.penWidth / 2.0 / std::hypot(dx, dy);
    auto const corner = [&](CPoint point, double side)
    {
        return POINT{point.x + static_cast<LONG>(std::floor(0.5 - side * dy * half)),
                     point.y + static_cast<LONG>(std::floor(0.5 + side * dx * half))};
    };
    POINT const corners[] = {corner(from, 1), corner(to, 1), corner(to, -1), corner(from, -1)};
    m_target->Polygon(corners, DrawTarget::Corners::BetweenPixels, m_state.penColor, Clip());
}

BOOL CDC::Polygon(POINT const* points, int count)
{
    if (points == nullptr || count < 2)
    {
        return FALSE;
    }
    if (CanDraw() && !m_state.brushHollow)
    {
        std::vector<POINT> moved(static_cast<std::size_t>(count));
        std::transform(points, points + count, moved.begin(), [this](POINT point) { return ToTarget(point); });
        using Corners = DrawTarget::Corners;
        bool const hasOutline = m_state.penStyle != PS_NULL && m_state.penWidth == 1;
        m_target->Polygon(moved, hasOutline ? Corners::OnPixels : Corners::BetweenPixels, m_state.brushColor, Clip());
    }
    for (int i = 0; i < count; ++i)
    {
        Segment(points[i], points[(i + 1) % count]);
    }
    return TRUE;
}

BOOL CDC::Rectangle(int left, int top, int right, int bottom)
{
    CRect rect(left, top, right, bottom);
    rect.NormalizeRect();
    if (rect.IsRectEmpty())
    {
        return FALSE;
    }
    if (!m_state.brushHollow)
    {
        FillSolidRect(rect, m_state.brushColor);
    }
    POINT const corners[] = {{rect.left, rect.top},
                             {rect.right - 1, rect.top},
                             {rect.right - 1, rect.bottom - 1},
                             {rect.left, rect.bottom - 1},
                             {rect.left, rect.top}};
    return Polyline(corners, 5);
}

BOOL CDC::Rectangle(RECT const* rect)
{
    return rect != nullptr ? Rectangle(rect->left, rect->top, rect->right, rect->bottom) : FALSE;
}

CFont* CDC::GetCurrentFont() const noexcept
{
    return m_state.font;
}

CBitmap* CDC::GetCurrentBitmap() const noexcept
{
    return m_bitmap;
}
