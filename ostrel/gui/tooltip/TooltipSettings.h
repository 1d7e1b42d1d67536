/// @file
/// How the tip over a cell looks, when it comes and where. A plain value.
#pragma once

#include <optional>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>
#include <ostrel/platform/drawing/SystemLook.h>

class CArchive;

namespace Ostrel::GUI
{

/// Looks and timing of a tip. A grid keeps and stores them; in this version nothing acts on them yet.
class OSTREL_GUI_API CTooltipSettings
{
public:
    /// On which side of the pointer the tip comes.
    enum Position : int
    {
        PositionAbove = 0, ///< above
        PositionBelow = 1, ///< below
        PositionLeft = 2,  ///< on the left
        PositionRight = 3, ///< on the right
    };
    /// When the tip comes.
    enum Mode : int
    {
        ModeImmediate = 0, ///< as soon as the pointer is over a cell that has a tip
        ModeDelayed = 1,   ///< after it has rested for the delay
    };

    /// The system's colours of tips, which follow the colour scheme until they are set; 500 and 10000 milliseconds, a
    /// margin of a pixel, above, delayed.
    CTooltipSettings() = default;

    ///@{
    /// The background, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetBackColor() const noexcept { return m_backColor.Get(); }
    void SetBackColor(unsigned long color) noexcept { m_backColor.Set(color); }
    ///@}

    ///@{
    /// The text, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetTextColor() const noexcept { return m_textColor.Get(); }
    void SetTextColor(unsigned long color) noexcept { m_textColor.Set(color); }
    ///@}

    ///@{
    /// The frame, 0x00BBGGRR.
    [[nodiscard]] unsigned long GetBorderColor() const noexcept { return m_borderColor.Get(); }
    void SetBorderColor(unsigned long color) noexcept { m_borderColor.Set(color); }
    ///@}

    ///@{
    /// Milliseconds that the pointer rests before the tip comes.
    [[nodiscard]] int GetDelay() const noexcept { return m_delayMs; }
    void SetDelay(int milliseconds) noexcept { m_delayMs = milliseconds; }
    ///@}

    ///@{
    /// Milliseconds that the tip stays.
    [[nodiscard]] int GetDisappearDelay() const noexcept { return m_disappearDelayMs; }
    void SetDisappearDelay(int milliseconds) noexcept { m_disappearDelayMs = milliseconds; }
    ///@}

    ///@{
    /// The distance from the pointer in pixels.
    [[nodiscard]] CSize GetToolTipOffset() const noexcept { return m_toolTipOffset; }
    void SetToolTipOffset(CSize size) noexcept { m_toolTipOffset = size; }
    ///@}

    ///@{
    /// The distance between frame and text in pixels.
    [[nodiscard]] CSize GetTextMargin() const noexcept { return m_textMargin; }
    void SetTextMargin(CSize size) noexcept { m_textMargin = size; }
    ///@}

    ///@{
    /// The side of the pointer.
    [[nodiscard]] Position GetPosition() const noexcept { return m_position; }
    void SetPosition(Position position) noexcept { m_position = position; }
    ///@}

    ///@{
    /// When the tip comes.
    [[nodiscard]] Mode GetMode() const noexcept { return m_mode; }
    void SetMode(Mode mode) noexcept { m_mode = mode; }
    ///@}

    /// Equality of all settings as they are at the moment.
    friend bool operator==(CTooltipSettings const&, CTooltipSettings const&) noexcept = default;

    /// Stores or loads 48 bytes: the 32-bit version, then the fields in the order above, a byte for a switch and 32
    /// bits for anything else. Loading throws CArchiveException (badSchema) for a newer version; a version below 1
    /// reads nothing further. Nothing changes in either case. A loaded colour that is the system's at that moment goes
    /// on following the scheme.
    void Serialize(CArchive& archive);
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    /// A colour of the application's, or none: the system's then.
    struct Color
    {
        [[nodiscard]] COLORREF Get() const noexcept { return own.value_or(GetSysColor(systemColor)); }
        void Set(unsigned long color) noexcept { own = static_cast<COLORREF>(color); }
        void SetUnlessSame(COLORREF color) noexcept
        {
            if (color != Get())
            {
                own = color;
            }
        }
        friend bool operator==(Color const& a, Color const& b) noexcept { return a.Get() == b.Get(); }

        int systemColor; ///< COLOR_*
        std::optional<COLORREF> own;
    };

    Color m_backColor{COLOR_INFOBK, {}};
    Color m_textColor{COLOR_INFOTEXT, {}};
    Color m_borderColor{COLOR_ACTIVEBORDER, {}};
    INT m_delayMs = 500;
    INT m_disappearDelayMs = 10000;
    CSize m_toolTipOffset{0, 0};
    CSize m_textMargin{1, 1};
    Position m_position = PositionAbove;
    Mode m_mode = ModeDelayed;
};

} // namespace Ostrel::GUI
