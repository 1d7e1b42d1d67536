// The rule that turns the time since a value's change into the overlays of its cell. Nothing is kept per cell.
#pragma once

#include <ostrel/gui/paint/ColorBlend.h>
#include <ostrel/gui/paint/HighlightSettings.h>

namespace Ostrel::GUI::Detail
{

struct CellHighlight
{
    CColorBlend fore; ///< laid over the text colour
    CColorBlend back; ///< laid over the background

    friend bool operator==(CellHighlight const&, CellHighlight const&) noexcept = default;
};

/// `elapsedMs` since the last update, negative for never; the colours are the row's own. No overlay outside the period
/// or for an unknown mode.
[[nodiscard]] CellHighlight HighlightAfter(int elapsedMs, CHighlightSettings const& settings, unsigned long foreColor,
                                           unsigned long backColor) noexcept;

/// Milliseconds until the cell looks different: the next step of a fading highlight, else its end; 0 when it shows
/// none.
[[nodiscard]] int NextPaintDelay(int elapsedMs, CHighlightSettings const& settings) noexcept;

} // namespace Ostrel::GUI::Detail
