#include <algorithm>
#include <cstdint>

#include <ostrel/gui/paint/detail/Highlight.h>

namespace Ostrel::GUI::Detail
{
namespace
{

bool IsWithinPeriod(int elapsedMs, CHighlightSettings const& settings) noexcept
{
    return elapsedMs >= 0 && elapsedMs < settings.GetHighlightPeriod();
}

/// The full opacity right after the update, falling in a straight line to none at the end of the period.
unsigned char Faded(unsigned char alpha, int elapsedMs, int periodMs) noexcept
{
    std::int64_t const rest = periodMs - elapsedMs;
    return static_cast<unsigned char>(rest * alpha / periodMs);
}

} // namespace

CellHighlight HighlightAfter(int elapsedMs, CHighlightSettings const& settings, unsigned long foreColor,
                             unsigned long backColor) noexcept
{
    if (!IsWithinPeriod(elapsedMs, settings))
    {
        return {};
    }
    int const period = settings.GetHighlightPeriod();
    auto const fore = [&settings](unsigned char opacity) { return CColorBlend(settings.GetForeColor(), opacity); };
    auto const back = [&settings](unsigned char opacity) { return CColorBlend(settings.GetBackColor(), opacity); };
    unsigned char const foreAlpha = settings.GetForeAlpha();
    unsigned char const backAlpha = settings.GetBackAlpha();
    switch (settings.GetMode())
    {
    case CHighlightSettings::Invert:
        return {CColorBlend(backColor, 255), CColorBlend(foreColor, 255)};
    case CHighlightSettings::Fore:
        return {fore(255), {}};
    case CHighlightSettings::Back:
        return {{}, back(255)};
    case CHighlightSettings::ForeAndBack:
        return {fore(255), back(255)};
    case CHighlightSettings::ForeAlpha:
        return {fore(foreAlpha), {}};
    case CHighlightSettings::BackAlpha:
        return {{}, back(backAlpha)};
    case CHighlightSettings::ForeAndBackAlpha:
        return {fore(foreAlpha), back(backAlpha)};
    case CHighlightSettings::ForeFading:
        return {fore(Faded(foreAlpha, elapsedMs, period)), {}};
    case CHighlightSettings::BackFading:
        return {{}, back(Faded(backAlpha, elapsedMs, period))};
    case CHighlightSettings::ForeAndBackFading:
        return {fore(Faded(foreAlpha, elapsedMs, period)), back(Faded(backAlpha, elapsedMs, period))};
    }
    return {};
}

int NextPaintDelay(int elapsedMs, CHighlightSettings const& settings) noexcept
{
    if (!IsWithinPeriod(elapsedMs, settings))
    {
        return 0;
    }
    int const rest = settings.GetHighlightPeriod() - elapsedMs;
    bool const fades = settings.GetMode() >= CHighlightSettings::ForeFading &&
                       settings.GetMode() <= CHighlightSettings::ForeAndBackFading;
    return fades && settings.GetFadingSpan() > 0 ? std::min<int>(settings.GetFadingSpan(), rest) : rest;
}

} // namespace Ostrel::GUI::Detail
