/// @file
/// Fonts: a description (LOGFONT) with a handle. The machinery that shapes and draws is shared by all fonts of the same
/// description and belongs to the thread that draws, so a CFont costs next to nothing.
#pragma once

#include <ostrel/platform/drawing/GdiObject.h>

class CDC;

inline constexpr int LF_FACESIZE = 32; ///< bytes of a face name with its terminating zero byte

///@{
/// The weight of the letters, 0 to 1000.
inline constexpr LONG FW_DONTCARE = 0;
inline constexpr LONG FW_LIGHT = 300;
inline constexpr LONG FW_NORMAL = 400;
inline constexpr LONG FW_MEDIUM = 500;
inline constexpr LONG FW_SEMIBOLD = 600;
inline constexpr LONG FW_BOLD = 700;
///@}

///@{
/// A value for the fields of LOGFONT of that kind.
inline constexpr BYTE ANSI_CHARSET = 0;
inline constexpr BYTE DEFAULT_CHARSET = 1;
inline constexpr BYTE OUT_DEFAULT_PRECIS = 0;
inline constexpr BYTE CLIP_DEFAULT_PRECIS = 0;
inline constexpr BYTE DEFAULT_QUALITY = 0;
inline constexpr BYTE DEFAULT_PITCH = 0;
inline constexpr BYTE FIXED_PITCH = 1;
inline constexpr BYTE FF_DONTCARE = 0;
///@}

/// A font's description; 60 bytes, as archives hold it. Height in pixels: negative is the size of the letters (em),
/// positive the height of a line, 0 the size of the default font. Width, escapement, orientation and the five bytes
/// behind lfStrikeOut are kept and not used, but for a fixed pitch without a face name.
struct LOGFONTA
{
    LONG lfHeight;                ///< see above
    LONG lfWidth;                 ///< not used
    LONG lfEscapement;            ///< not used
    LONG lfOrientation;           ///< not used
    LONG lfWeight;                ///< FW_*; 0 is normal
    BYTE lfItalic;                ///< not 0: slanted
    BYTE lfUnderline;             ///< not 0: with a line below
    BYTE lfStrikeOut;             ///< not 0: with a line through
    BYTE lfCharSet;               ///< not used: texts are UTF-8
    BYTE lfOutPrecision;          ///< not used
    BYTE lfClipPrecision;         ///< not used
    BYTE lfQuality;               ///< not used
    BYTE lfPitchAndFamily;        ///< FIXED_PITCH without a face name: a font of equal widths
    char lfFaceName[LF_FACESIZE]; ///< the family; empty: the default font's
};
/// The name that callers use.
using LOGFONT = LOGFONTA;
static_assert(sizeof(LOGFONTA) == 60);

/// Sizes of a font in pixels. tmHeight is tmAscent + tmDescent; tmInternalLeading the part of it above the letters'
/// size.
struct TEXTMETRIC
{
    LONG tmHeight;          ///< height of a line
    LONG tmAscent;          ///< above the base line
    LONG tmDescent;         ///< below the base line
    LONG tmInternalLeading; ///< room for accents
    LONG tmExternalLeading; ///< what lines should be apart besides
    LONG tmAveCharWidth;    ///< width of an average character
    LONG tmMaxCharWidth;    ///< width of the widest character
    LONG tmWeight;          ///< FW_*
    BYTE tmItalic;          ///< not 0: slanted
    BYTE tmUnderlined;      ///< not 0: with a line below
    BYTE tmStruckOut;       ///< not 0: with a line through
};

namespace Ostrel::Platform
{

/// Number of a distinct font description within the process; 0 stands for the default GUI font at the current scale.
using FontId = unsigned;

} // namespace Ostrel::Platform

/// A font by its description.
class OSTREL_PLATFORM_API CFont : public CGdiObject
{
public:
    CFont() noexcept = default;
    ~CFont() override { DeleteObject(); }

    /// Becomes the font of a description. Sizes outside 1 to 400 pixels are clamped when drawn; the description keeps
    /// them. FALSE for a null pointer.
    BOOL CreateFontIndirect(LOGFONT const* description);
    /// Becomes a font of a family. Size in tenths of a point at the current scale.
    BOOL CreatePointFont(int tenthsOfPoint, LPCSTR faceName, CDC* dc = nullptr);
    /// Becomes DEFAULT_GUI_FONT or SYSTEM_FONT. FALSE for any other number.
    BOOL CreateStockObject(int number);

    /// Hands out the description as given. Returns 0 when the font holds none.
    int GetLogFont(LOGFONT* description) const noexcept;
    /// The number of the description; 0 when the font holds none.
    [[nodiscard]] Ostrel::Platform::FontId GetFontId() const noexcept { return m_fontId; }

    /// The handle; null while the object holds nothing.
    operator HFONT() const { return static_cast<HFONT>(GetSafeHandle()); }
    /// The object of a handle; null for a null, foreign or stale one.
    [[nodiscard]] static CFont* FromHandle(HFONT handle) noexcept;

private:
    void OnDelete() noexcept override { m_fontId = 0; }

    LOGFONT m_description{};
    Ostrel::Platform::FontId m_fontId = 0;
};
