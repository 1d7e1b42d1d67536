// Fonts: a description (LOGFONT) with a handle. The machinery that shapes and draws is shared by all fonts of the same
// description and belongs to the thread that draws, so a CFont costs next to nothing.
#pragma once

#include <ostrel/platform/drawing/GdiObject.h>

class CDC;

inline constexpr int LF_FACESIZE = 32;

inline constexpr LONG FW_DONTCARE = 0;
inline constexpr LONG FW_LIGHT = 300;
inline constexpr LONG FW_NORMAL = 400;
inline constexpr LONG FW_MEDIUM = 500;
inline constexpr LONG FW_SEMIBOLD = 600;
inline constexpr LONG FW_BOLD = 700;

inline constexpr BYTE ANSI_CHARSET = 0;
inline constexpr BYTE DEFAULT_CHARSET = 1;
inline constexpr BYTE OUT_DEFAULT_PRECIS = 0;
inline constexpr BYTE CLIP_DEFAULT_PRECIS = 0;
inline constexpr BYTE DEFAULT_QUALITY = 0;
inline constexpr BYTE DEFAULT_PITCH = 0;
inline constexpr BYTE FIXED_PITCH = 1;
inline constexpr BYTE FF_DONTCARE = 0;

/// A font's description; 60 bytes, as archives hold it. Height in pixels: negative is the size of the letters (em),
/// positive the height of a line, 0 the size of the default font. Width, escapement, orientation and the five bytes
/// behind lfStrikeOut are kept and not used, but for a fixed pitch without a face name.
struct LOGFONTA
{
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
};
using LOGFONT = LOGFONTA;
static_assert(sizeof(LOGFONTA) == 60);

/// Sizes of a font in pixels. tmHeight is tmAscent + tmDescent; tmInternalLeading the part of it above the letters'
/// size.
struct TEXTMETRIC
{
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
};

namespace Ostrel::Platform
{

/// Number of a distinct font description within the process; 0 stands for the default GUI font at the current scale.
using FontId = unsigned;

} // namespace Ostrel::Platform

class OSTREL_PLATFORM_API CFont : public CGdiObject
{
public:
    CFont() noexcept = default;
    ~CFont() override { DeleteObject(); }

    /// Sizes outside 1 to 400 pixels are clamped when drawn; the description keeps them. FALSE for a null pointer.
    BOOL CreateFontIndirect(LOGFONT const* description);
    /// Size in tenths of a point at the current scale.
    BOOL CreatePointFont(int tenthsOfPoint, LPCSTR faceName, CDC* dc = nullptr);
    /// DEFAULT_GUI_FONT or SYSTEM_FONT.
    BOOL CreateStockObject(int number);

    /// The description as given. Returns 0 when the font holds none.
    int GetLogFont(LOGFONT* description) const noexcept;
    [[nodiscard]] Ostrel::Platform::FontId GetFontId() const noexcept { return m_fontId; }

    operator HFONT() const { return static_cast<HFONT>(GetSafeHandle()); }
    [[nodiscard]] static CFont* FromHandle(HFONT handle) noexcept;

private:
    void OnDelete() noexcept override { m_fontId = 0; }

    LOGFONT m_description{};
    Ostrel::Platform::FontId m_fontId = 0;
};
