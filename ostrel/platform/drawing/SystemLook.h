/// @file
/// The look of the system, in one place: its colours, its sizes and the drawing of standard control parts. A flat, calm
/// look in a light and a dark set; raised only where a raised edge is asked for.
///
/// Every size is for the current scale factor: ask for it, do not write it down. All of it may be read from any thread;
/// colours and scale change for the whole process at once, and open windows must then be painted anew.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/drawing/DrawingTypes.h>

class CDC;
class CBrush;

///@{
/// The number of a system colour, for GetSysColor.
inline constexpr int COLOR_SCROLLBAR = 0;
inline constexpr int COLOR_BACKGROUND = 1;
inline constexpr int COLOR_ACTIVECAPTION = 2;
inline constexpr int COLOR_INACTIVECAPTION = 3;
inline constexpr int COLOR_MENU = 4;
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWFRAME = 6;
inline constexpr int COLOR_MENUTEXT = 7;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_CAPTIONTEXT = 9;
inline constexpr int COLOR_ACTIVEBORDER = 10;
inline constexpr int COLOR_INACTIVEBORDER = 11;
inline constexpr int COLOR_APPWORKSPACE = 12;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_3DSHADOW = COLOR_BTNSHADOW;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_INACTIVECAPTIONTEXT = 19;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_3DHIGHLIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_3DHILIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_3DDKSHADOW = 21;
inline constexpr int COLOR_3DLIGHT = 22;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;
inline constexpr int COLOR_HOTLIGHT = 26;
///@}

///@{
/// The number of a size, for GetSystemMetrics.
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CYVTHUMB = 9;
inline constexpr int SM_CXHTHUMB = 10;
inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;
inline constexpr int SM_CXCURSOR = 13;
inline constexpr int SM_CYCURSOR = 14;
inline constexpr int SM_CYVSCROLL = 20;
inline constexpr int SM_CXHSCROLL = 21;
inline constexpr int SM_CXDOUBLECLK = 36;
inline constexpr int SM_CYDOUBLECLK = 37;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXSMICON = 49;
inline constexpr int SM_CYSMICON = 50;
inline constexpr int SM_CXDRAG = 68;
inline constexpr int SM_CYDRAG = 69;
inline constexpr int SM_CXMENUCHECK = 71;
inline constexpr int SM_CYMENUCHECK = 72;
///@}

///@{
/// Which edge CDC::DrawEdge draws (BDR_*, EDGE_*), and at which sides (BF_*).
inline constexpr UINT BDR_RAISEDOUTER = 0x0001;
inline constexpr UINT BDR_SUNKENOUTER = 0x0002;
inline constexpr UINT BDR_RAISEDINNER = 0x0004;
inline constexpr UINT BDR_SUNKENINNER = 0x0008;
inline constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
inline constexpr UINT EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;
inline constexpr UINT BF_LEFT = 0x0001;
inline constexpr UINT BF_TOP = 0x0002;
inline constexpr UINT BF_RIGHT = 0x0004;
inline constexpr UINT BF_BOTTOM = 0x0008;
inline constexpr UINT BF_RECT = BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM;
inline constexpr UINT BF_MIDDLE = 0x0800;
inline constexpr UINT BF_ADJUST = 0x2000;
inline constexpr UINT BF_FLAT = 0x4000;
///@}

///@{
/// Which control CDC::DrawFrameControl draws (DFC_*), and in which state (DFCS_*).
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFC_BUTTON = 4;
inline constexpr UINT DFCS_SCROLLUP = 0x0000;
inline constexpr UINT DFCS_SCROLLDOWN = 0x0001;
inline constexpr UINT DFCS_SCROLLLEFT = 0x0002;
inline constexpr UINT DFCS_SCROLLRIGHT = 0x0003;
inline constexpr UINT DFCS_SCROLLCOMBOBOX = 0x0005;
inline constexpr UINT DFCS_BUTTONCHECK = 0x0000;
inline constexpr UINT DFCS_BUTTONRADIO = 0x0004;
inline constexpr UINT DFCS_BUTTON3STATE = 0x0008;
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;
inline constexpr UINT DFCS_INACTIVE = 0x0100;
inline constexpr UINT DFCS_PUSHED = 0x0200;
inline constexpr UINT DFCS_CHECKED = 0x0400;
inline constexpr UINT DFCS_HOT = 0x1000;
inline constexpr UINT DFCS_FLAT = 0x4000;
///@}

/// A system colour; black for an unknown number. Any thread.
OSTREL_PLATFORM_API COLORREF GetSysColor(int colorIndex) noexcept;
/// Changes some system colours until the next change of the colour scheme. FALSE for a null pointer or a number that
/// does not exist; nothing is changed then.
OSTREL_PLATFORM_API BOOL SetSysColors(int count, int const* colorIndices, COLORREF const* colors) noexcept;
/// A size in pixels; 0 for an unknown number. Any thread.
OSTREL_PLATFORM_API int GetSystemMetrics(int metric) noexcept;

namespace Ostrel::Platform
{

/// True for the numbers that name a system colour.
[[nodiscard]] OSTREL_PLATFORM_API bool IsSystemColor(int colorIndex) noexcept;

/// A set of system colours.
enum class ColorScheme
{
    Light, ///< dark on light
    Dark   ///< light on dark
};

///@{
/// The set of system colours in use. Setting switches all of them at once. Any thread.
OSTREL_PLATFORM_API void SetColorScheme(ColorScheme scheme) noexcept;
[[nodiscard]] OSTREL_PLATFORM_API ColorScheme GetColorScheme() noexcept;
///@}

/// Device pixels for each design pixel (96 to the inch), 0.5 to 8. At first what the environment variable OSTREL_SCALE
/// says, else 1; a display sets what its server says unless that variable is there. Any thread.
[[nodiscard]] OSTREL_PLATFORM_API double GetScale() noexcept;
/// Changes the scale, brought into that range; 0 and less change nothing. Any thread.
OSTREL_PLATFORM_API void SetScale(double scale) noexcept;
/// True when OSTREL_SCALE chose the scale, so that a display must leave it.
[[nodiscard]] OSTREL_PLATFORM_API bool IsScaleFixed() noexcept;
/// A design size in device pixels, rounded; 1 at least for sizes above 0.
[[nodiscard]] OSTREL_PLATFORM_API int Scaled(int designPixels) noexcept;

/// The size of the screen that SM_CXSCREEN and SM_CYSCREEN report; set by the display.
OSTREL_PLATFORM_API void SetScreenSize(CSize size) noexcept;

/// How a part of a control is touched at the moment.
enum class PartState
{
    Normal,  ///< not at all
    Hot,     ///< the pointer is over it
    Pressed, ///< it is held down
    Disabled ///< it cannot be used
};

/// Where an arrow points.
enum class ArrowDirection
{
    Up,   ///< up
    Down, ///< down
    Left, ///< left
    Right ///< right
};

///@{
/// A part of a scroll bar. It fills its whole rectangle.
OSTREL_PLATFORM_API void DrawScrollTrack(CDC& dc, CRect const& rect, PartState state);
OSTREL_PLATFORM_API void DrawScrollThumb(CDC& dc, CRect const& rect, bool vertical, PartState state);
OSTREL_PLATFORM_API void DrawScrollButton(CDC& dc, CRect const& rect, ArrowDirection direction, PartState state);
///@}
/// The corner between two scroll bars.
OSTREL_PLATFORM_API void DrawScrollCorner(CDC& dc, CRect const& rect);

/// A chevron in the middle of the rectangle, nothing else.
OSTREL_PLATFORM_API void DrawArrow(CDC& dc, CRect const& rect, ArrowDirection direction, COLORREF color);
/// The body of a push button without its caption.
OSTREL_PLATFORM_API void DrawPushButton(CDC& dc, CRect const& rect, PartState state, bool isDefault);
///@{
/// A check box or radio button in the middle of the rectangle.
OSTREL_PLATFORM_API void DrawCheckBox(CDC& dc, CRect const& rect, PartState state, bool checked, bool mixed);
OSTREL_PLATFORM_API void DrawRadioButton(CDC& dc, CRect const& rect, PartState state, bool checked);
///@}
/// The frame of an edit field or list; `focused` shows that it has the keyboard.
OSTREL_PLATFORM_API void DrawFieldFrame(CDC& dc, CRect const& rect, bool focused);

///@{
/// What CDC::DrawEdge and CDC::DrawFrameControl do.
OSTREL_PLATFORM_API bool DrawSystemEdge(CDC& dc, CRect& rect, UINT edge, UINT flags);
OSTREL_PLATFORM_API bool DrawSystemControl(CDC& dc, CRect const& rect, UINT type, UINT state);
///@}

} // namespace Ostrel::Platform
