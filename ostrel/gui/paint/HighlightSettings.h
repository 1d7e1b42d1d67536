/// @file
/// How a grid highlights cells whose value has changed: for how long, in which colours, fading or not. A plain value.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;

namespace Ostrel::GUI
{

/// How changed cells look, and for how long.
class OSTREL_GUI_API CHighlightSettings
{
public:
    /// What of a cell takes the highlight's colours. Fading means with an opacity that falls from the one given to
    /// none.
    enum Mode : int
    {
        Invert = 0,           ///< text and background change places
        Fore = 1,             ///< the text
        Back = 2,             ///< the background
        ForeAndBack = 3,      ///< both
        ForeAlpha = 4,        ///< the text, with the opacity given
        BackAlpha = 5,        ///< the background, with the opacity given
        ForeAndBackAlpha = 6, ///< both, with the opacities given
        ForeFading = 7,       ///< the text, fading
        BackFading = 8,       ///< the background, fading
        ForeAndBackFading = 9 ///< both, fading
    };

    /// Inverted for a second, without fading.
    CHighlightSettings() noexcept = default;
    /// See the getters.
    CHighlightSettings(int highlightPeriodMs, unsigned long foreColor, unsigned long backColor, unsigned char foreAlpha,
                       unsigned char backAlpha, int fadingSpanMs, Mode mode) noexcept
        : m_highlightPeriodMs(highlightPeriodMs),
          m_foreColor(static_cast<COLORREF>(foreColor)),
          m_backColor(static_cast<COLORREF>(backColor)),
          m_foreAlpha(foreAlpha),
          m_backAlpha(backAlpha),
          m_fadingSpanMs(fadingSpanMs),
          m_mode(mode)
    {}

    ///@{
    /// How long a highlight lasts in milliseconds; 0 or less highlights nothing.
    [[nodiscard]] int GetHighlightPeriod() const noexcept { return m_highlightPeriodMs; }
    void SetHighlightPeriod(int milliseconds) noexcept { m_highlightPeriodMs = milliseconds; }
    ///@}

    ///@{
    /// The colour of the text, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetForeColor() const noexcept { return m_foreColor; }
    void SetForeColor(unsigned long color) noexcept { m_foreColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// The colour of the background, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetBackColor() const noexcept { return m_backColor; }
    void SetBackColor(unsigned long color) noexcept { m_backColor = static_cast<COLORREF>(color); }
    ///@}

    ///@{
    /// The opacity of the text's colour, 0 to 255, in the modes that use it.
    [[nodiscard]] unsigned char GetForeAlpha() const noexcept { return m_foreAlpha; }
    void SetForeAlpha(unsigned char alpha) noexcept { m_foreAlpha = alpha; }
    ///@}

    ///@{
    /// The opacity of the background's colour, 0 to 255, in the modes that use it.
    [[nodiscard]] unsigned char GetBackAlpha() const noexcept { return m_backAlpha; }
    void SetBackAlpha(unsigned char alpha) noexcept { m_backAlpha = alpha; }
    ///@}

    ///@{
    /// Milliseconds between two steps of a fading highlight; 0 or less paints no steps.
    [[nodiscard]] int GetFadingSpan() const noexcept { return m_fadingSpanMs; }
    void SetFadingSpan(int milliseconds) noexcept { m_fadingSpanMs = milliseconds; }
    ///@}

    ///@{
    /// What takes the colours. A mode outside the enumeration highlights nothing.
    [[nodiscard]] Mode GetMode() const noexcept { return m_mode; }
    void SetMode(Mode mode) noexcept { m_mode = mode; }
    ///@}

    /// Equality of all settings.
    friend bool operator==(CHighlightSettings const&, CHighlightSettings const&) noexcept = default;

    /// Stores or loads 26 bytes: the version and the seven fields in the order of the constructor, 32 bits each but the
    /// two alphas. Loading throws CArchiveException (badSchema) for a newer version; a version below 1 reads nothing
    /// further. Nothing changes in either case.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    INT m_highlightPeriodMs = 1000;
    COLORREF m_foreColor = 0xFFFFFF;
    COLORREF m_backColor = 0x00FF00;
    BYTE m_foreAlpha = 0;
    BYTE m_backAlpha = 0;
    INT m_fadingSpanMs = 0;
    Mode m_mode = Invert;
};

} // namespace Ostrel::GUI
