/// @file
/// What all painting goes through.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include <ostrel/platform/base/String.h>
#include <ostrel/platform/drawing/Bitmap.h>
#include <ostrel/platform/drawing/Brush.h>
#include <ostrel/platform/drawing/DrawTarget.h>
#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/Pen.h>
#include <ostrel/platform/drawing/Rgn.h>

/// The device context: what all painting goes through. Coordinates are whole pixels; lines, frames and fills are never
/// smoothed. Between the caller's coordinates and those of the target lie the target's origin (a child window in the
/// back buffer of its top-level window) and the viewport origin.
///
///     CDC memory;
///     memory.CreateCompatibleDC(&dc);
///     CBitmap* before = memory.SelectObject(&bitmap);
///     memory.FillSolidRect(rect, RGB(255, 255, 255));
///     memory.SelectObject(before);
///
/// Selecting returns what was selected before (a stock object at first). What is selected is copied or shared, so the
/// objects need not outlive the context. A context without a target accepts every call and draws nothing. One thread.
class OSTREL_PLATFORM_API CDC
{
public:
    /// A context without a target.
    CDC();
    virtual ~CDC();
    CDC(CDC const&) = delete;
    CDC& operator=(CDC const&) = delete;

    /// Becomes a memory context with a target of one pixel, until a bitmap is selected. `like` may be null.
    BOOL CreateCompatibleDC(CDC const* like);
    /// Gives up target and handle.
    BOOL DeleteDC();

    /// A handle made on first use; it finds the context while that lives.
    [[nodiscard]] HDC GetSafeHdc();
    /// The context of a handle; null for a null, foreign or stale one.
    [[nodiscard]] static CDC* FromHandle(HDC handle) noexcept;

    /// Draws on a surface, which must stay, in its size, until Detach or the destructor: (0, 0) of the caller lies at
    /// `origin`, and only the pixels of `visible` (both in the surface's coordinates) can be touched. Everything else
    /// begins anew.
    void AttachSurface(Ostrel::Platform::Surface& surface, CPoint origin, Ostrel::Platform::Region const& visible);
    /// The same for the whole surface, with its own origin.
    void AttachSurface(Ostrel::Platform::Surface& surface);
    /// The same for any target; takes ownership.
    void AttachTarget(std::unique_ptr<Ostrel::Platform::DrawTarget> target, CPoint origin,
                      Ostrel::Platform::Region const& visible);
    /// Gives up the target.
    void Detach();
    /// What is drawn on; null without a target.
    [[nodiscard]] Ostrel::Platform::DrawTarget* GetTarget() const noexcept { return m_target.get(); }

    /// A property of the target: HORZRES and the like; 0 for an unknown one.
    [[nodiscard]] int GetDeviceCaps(int index) const noexcept;

    ///@{
    /// Keeps what is selected, attributes and clip, and puts it back. SaveDC returns a number for RestoreDC;
    /// RestoreDC(-1) undoes the last one. FALSE for a number never given.
    int SaveDC();
    BOOL RestoreDC(int saved);
    ///@}

    ///@{
    /// Selects an object and returns the one before. Null changes nothing and returns null, but for bitmaps: a memory
    /// context has none at first and null takes the bitmap out again. Other contexts take no bitmap.
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CFont* SelectObject(CFont* font);
    CBitmap* SelectObject(CBitmap* bitmap);
    CGdiObject* SelectObject(CGdiObject* object);
    HGDIOBJ SelectObject(HGDIOBJ handle);
    ///@}
    /// Regions become the clip; the result is the kind of region, as from SelectClipRgn.
    int SelectObject(CRgn* region) { return SelectClipRgn(region); }
    /// Selects an object of the system; see GetStockObject.
    CGdiObject* SelectStockObject(int number);
    ///@{
    /// The object that is selected; null for none.
    [[nodiscard]] CFont* GetCurrentFont() const noexcept;
    [[nodiscard]] CBitmap* GetCurrentBitmap() const noexcept;
    ///@}

    ///@{
    /// The colour of texts. Setting returns the previous one.
    COLORREF SetTextColor(COLORREF color) noexcept;
    [[nodiscard]] COLORREF GetTextColor() const noexcept { return m_state.textColor; }
    ///@}

    ///@{
    /// The colour behind texts in mode OPAQUE. Setting returns the previous one.
    COLORREF SetBkColor(COLORREF color) noexcept;
    [[nodiscard]] COLORREF GetBkColor() const noexcept { return m_state.backColor; }
    ///@}

    ///@{
    /// TRANSPARENT or OPAQUE. Setting returns the previous one.
    int SetBkMode(int mode) noexcept;
    [[nodiscard]] int GetBkMode() const noexcept { return m_state.backMode; }
    ///@}

    ///@{
    /// COLORONCOLOR or HALFTONE. Setting returns the previous one.
    int SetStretchBltMode(int mode) noexcept;
    [[nodiscard]] int GetStretchBltMode() const noexcept { return m_state.stretchMode; }
    ///@}

    ///@{
    /// Where the caller's (0, 0) lies, seen from the target's origin. Setting returns the previous place.
    CPoint SetViewportOrg(int x, int y) noexcept;
    CPoint SetViewportOrg(POINT origin) noexcept { return SetViewportOrg(origin.x, origin.y); }
    CPoint OffsetViewportOrg(int dx, int dy) noexcept;
    [[nodiscard]] CPoint GetViewportOrg() const noexcept { return m_state.viewport; }
    ///@}

    ///@{
    /// Narrows the clip to a rectangle, or takes one out of it. Returns the kind of the resulting region: NULLREGION,
    /// SIMPLEREGION, COMPLEXREGION.
    int IntersectClipRect(int left, int top, int right, int bottom);
    int IntersectClipRect(RECT const* rect);
    int ExcludeClipRect(int left, int top, int right, int bottom);
    int ExcludeClipRect(RECT const* rect);
    ///@}

    ///@{
    /// Makes a region the clip, or combines it with the clip (RGN_*). Null takes all restrictions back. Regions are in
    /// the target's coordinates less the target's origin. Returns the kind of the resulting region.
    int SelectClipRgn(CRgn* region);
    int SelectClipRgn(CRgn* region, int mode);
    ///@}
    /// Writes the bounds of what can be touched, in the caller's coordinates. Returns the kind of the clip.
    int GetClipBox(RECT* box) const noexcept;
    ///@{
    /// Whether a pixel of the rectangle, or the pixel, can be touched.
    [[nodiscard]] BOOL RectVisible(RECT const* rect) const noexcept;
    [[nodiscard]] BOOL PtVisible(POINT point) const noexcept;
    ///@}

    ///@{
    /// Gives the rectangle a colour. Nothing for null.
    void FillSolidRect(RECT const* rect, COLORREF color);
    void FillSolidRect(RECT const& rect, COLORREF color) { FillSolidRect(&rect, color); }
    void FillSolidRect(int x, int y, int width, int height, COLORREF color);
    ///@}
    /// Fills the rectangle with a brush. Nothing for null and hollow brushes.
    void FillRect(RECT const* rect, CBrush* brush);
    /// Draws a frame of one pixel inside the rectangle with a brush.
    void FrameRect(RECT const* rect, CBrush* brush);
    /// Inverts the colours of the rectangle.
    void InvertRect(RECT const* rect);
    /// Lays a colour over the rectangle; 0 changes nothing, 255 is a fill.
    void BlendRect(RECT const& rect, COLORREF color, BYTE opacity);
    ///@{
    /// A frame of one pixel: left and top edge in the first colour, right and bottom edge in the second.
    void Draw3dRect(RECT const* rect, COLORREF topLeft, COLORREF bottomRight);
    void Draw3dRect(int x, int y, int width, int height, COLORREF topLeft, COLORREF bottomRight);
    ///@}
    /// A dotted frame inside the rectangle.
    void DrawFocusRect(RECT const* rect);
    ///@{
    /// The system look's edges (EDGE_*, BF_*) and controls (DFC_*, DFCS_*).
    BOOL DrawEdge(RECT* rect, UINT edge, UINT flags);
    BOOL DrawFrameControl(RECT* rect, UINT type, UINT state);
    ///@}

    ///@{
    /// Where the next line begins. Moving returns the previous place.
    CPoint MoveTo(int x, int y) noexcept;
    CPoint MoveTo(POINT point) noexcept { return MoveTo(point.x, point.y); }
    [[nodiscard]] CPoint GetCurrentPosition() const noexcept { return m_state.position; }
    ///@}

    ///@{
    /// Draws lines with the pen from where the last ended, or from point to point. The end point is not drawn. A dotted
    /// pen sets every other pixel: on horizontal lines those with an even x, on vertical ones those with an even y,
    /// whatever the ends are, so that neighbouring pieces of a line join. Other lines are solid.
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Polyline(POINT const* points, int count);
    ///@}

    ///@{
    /// A shape: the inside with the brush, the outline with the pen.
    BOOL Polygon(POINT const* points, int count);
    BOOL Rectangle(int left, int top, int right, int bottom);
    BOOL Rectangle(RECT const* rect);
    ///@}

    ///@{
    /// Draws a text in the font, colour and background mode of the context. Returns the height of the text. Multi-line
    /// unless DT_SINGLELINE; `&` marks the next letter with a line under it unless DT_NOPREFIX. A length of -1 counts
    /// up to the terminating zero. DT_CALCRECT only fits the rectangle to the text (with DT_WORDBREAK below its width).
    int DrawText(LPCSTR text, int length, RECT* rect, UINT format);
    int DrawText(CString const& text, RECT* rect, UINT format);
    int DrawText(LPCSTR text, RECT* rect, UINT format) { return DrawText(text, -1, rect, format); }
    ///@}
    /// The same, but it only draws: DT_CALCRECT is ignored.
    int DrawText(std::string_view text, RECT const& rect, UINT format);
    ///@{
    /// Draws one line of text with its top left corner at a point.
    BOOL TextOut(int x, int y, LPCSTR text, int length);
    BOOL TextOut(int x, int y, CString const& text);
    ///@}

    ///@{
    /// The size of one line of text in pixels, as drawn.
    [[nodiscard]] CSize GetTextExtent(LPCSTR text, int length);
    [[nodiscard]] CSize GetTextExtent(CString const& text);
    ///@}
    /// The sizes of the font. FALSE for null.
    BOOL GetTextMetrics(TEXTMETRIC* metrics);

    ///@{
    /// One pixel. Each returns its colour, CLR_INVALID outside the clip.
    COLORREF SetPixel(int x, int y, COLORREF color);
    [[nodiscard]] COLORREF GetPixel(int x, int y) const noexcept;
    ///@}
    /// Copies a rectangle of another context. SRCCOPY only; PATCOPY and DSTINVERT need no source. Overlapping moves
    /// within one surface are right.
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD operation);
    /// Fills the rectangle with the brush (PATCOPY) or inverts it (DSTINVERT).
    BOOL PatBlt(int x, int y, int width, int height, DWORD operation);
    /// Copies and scales a rectangle of another context. Takes the nearest pixel, or averages in mode HALFTONE. FALSE
    /// for sizes below 1.
    BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                    int sourceHeight, DWORD operation);
    /// The same, leaving out the pixels that have the key's colour.
    BOOL TransparentBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                        int sourceHeight, COLORREF key);
    /// The same, mixed as `blend` says.
    BOOL AlphaBlend(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                    int sourceHeight, BLENDFUNCTION blend);
    /// Fills rectangles with colours that run from one corner to the other. Rectangles only (GRADIENT_FILL_RECT_H,
    /// GRADIENT_FILL_RECT_V).
    BOOL GradientFill(TRIVERTEX const* corners, unsigned cornerCount, GRADIENT_RECT const* rects, unsigned rectCount,
                      DWORD mode);
    /// A rectangle of a surface at a point, mixed as the mode says.
    void DrawSurface(Ostrel::Platform::Surface const& source, CRect const& from, CPoint to,
                     Ostrel::Platform::PictureMode const& mode);

private:
    struct State
    {
        CPen* pen = nullptr; ///< given back by the next selection, never read
        int penStyle = 0;
        int penWidth = 1;
        COLORREF penColor = 0;
        CBrush* brush = nullptr;
        bool brushHollow = false;
        COLORREF brushColor = 0;
        CFont* font = nullptr;
        Ostrel::Platform::FontId fontId = 0;
        COLORREF textColor = 0;
        COLORREF backColor = 0;
        int backMode = OPAQUE;
        int stretchMode = COLORONCOLOR;
        CPoint viewport;
        CPoint position;
        Ostrel::Platform::Region clip; ///< within what is visible, in the target's coordinates
    };

    void Reset(CPoint origin, Ostrel::Platform::Region const& visible);
    void ShowBitmap(CBitmap* bitmap);
    [[nodiscard]] CPoint Shift() const noexcept;
    /// In the target's coordinates; far outside ones are brought near, so that no arithmetic overflows.
    [[nodiscard]] CPoint ToTarget(POINT point) const noexcept;
    [[nodiscard]] CRect ToTarget(RECT const& rect) const noexcept;
    [[nodiscard]] Ostrel::Platform::ClipRects Clip() const noexcept { return m_state.clip.Rects(); }
    /// The clip within a rectangle; valid until the next call.
    [[nodiscard]] Ostrel::Platform::ClipRects ClipTo(CRect const& targetRect);
    [[nodiscard]] bool CanDraw() const noexcept { return m_target != nullptr && !m_state.clip.IsEmpty(); }
    int ChangedClip() const noexcept { return Ostrel::Platform::RegionKind(m_state.clip); }

    void StraightSegment(CRect const& pixels, bool horizontal, CPoint start);
    void Segment(CPoint from, CPoint to);
    void ThickSegment(CPoint from, CPoint to);
    [[nodiscard]] bool DrawPicture(CRect const& to, CDC* source, CRect const& from,
                                   Ostrel::Platform::PictureMode const& mode);

    struct TextParts;
    int DrawTextLines(TextParts const& parts, CRect const& rect, UINT format);
    void DrawTextLine(TextParts const& parts, std::string_view text, CRect const& box, int top, UINT format);
    [[nodiscard]] CSize MeasureLines(TextParts const& parts);

    std::unique_ptr<Ostrel::Platform::DrawTarget> m_target;
    Ostrel::Platform::Region m_visible;
    CPoint m_origin;
    State m_state;
    std::vector<State> m_saved;
    std::vector<CRect> m_clipScratch;
    bool m_isMemory = false;
    CBitmap* m_bitmap = nullptr;
    std::shared_ptr<Ostrel::Platform::Surface> m_pixels; ///< of the selected bitmap
    HDC m_handle = nullptr;
};
