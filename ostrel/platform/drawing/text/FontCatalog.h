// The distinct font descriptions of the process, by number. Numbers are never reused, so that every thread can keep its
// own machinery for a number without asking again.
#pragma once

#include <string>

#include <ostrel/platform/drawing/Font.h>

namespace Ostrel::Platform
{

/// What distinguishes fonts for drawing.
struct FontKey
{
    std::string family;
    int pixelSize = 0; ///< of the letters (em), 1 to kMaximumFontSize; negative: minus the height of a line
    int weight = FW_NORMAL;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;

    friend bool operator==(FontKey const&, FontKey const&) = default;
};

inline constexpr int kMaximumFontSize = 400;

/// The number of a description. Any thread.
[[nodiscard]] FontId FontIdOf(LOGFONT const& description);
/// The description of a number that FontIdOf gave. Any thread.
[[nodiscard]] FontKey FontKeyOf(FontId font);

/// The default font of the user interface at the current scale. Any thread.
[[nodiscard]] LOGFONT DefaultFontDescription() noexcept;

} // namespace Ostrel::Platform
