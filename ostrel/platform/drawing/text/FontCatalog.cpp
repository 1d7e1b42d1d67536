#include <algorithm>
#include <cstring>
#include <deque>

#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/text/FontCatalog.h>

namespace Ostrel::Platform
{

namespace
{

constexpr int kDefaultFontDesignSize = 13;
constexpr char const* kDefaultFamily = "sans-serif";
constexpr char const* kFixedFamily = "monospace";

struct Catalog
{
    Mutex lock;
    std::deque<FontKey> keys OSTREL_GUARDED_BY(lock); ///< number 1 first
};

Catalog& TheCatalog()
{
    static Catalog catalog;
    return catalog;
}

std::string FamilyOf(LOGFONT const& description)
{
    auto const* const end = std::find(std::begin(description.lfFaceName), std::end(description.lfFaceName), '\0');
    std::string family(std::begin(description.lfFaceName), end);
    if (family.empty())
    {
        family = (description.lfPitchAndFamily & 3U) == FIXED_PITCH ? kFixedFamily : kDefaultFamily;
    }
    return family;
}

FontKey KeyOf(LOGFONT const& description)
{
    int const height = std::clamp(description.lfHeight, -kMaximumFontSize, kMaximumFontSize);
    return {.family = FamilyOf(description),
            .pixelSize = height == 0 ? Scaled(kDefaultFontDesignSize) : -height,
            .weight = description.lfWeight == FW_DONTCARE ? FW_NORMAL : std::clamp(description.lfWeight, 100, 1000),
            .italic = description.lfItalic != 0,
            .underline = description.lfUnderline != 0,
            .strikeOut = description.lfStrikeOut != 0};
}

} // namespace

FontId FontIdOf(LOGFONT const& description)
{
    FontKey key = KeyOf(description);
    Catalog& catalog = TheCatalog();
    MutexLock const lock(catalog.lock);
    auto const found = std::ranges::find(catalog.keys, key);
    if (found == catalog.keys.end())
    {
        catalog.keys.push_back(std::move(key));
        return static_cast<FontId>(catalog.keys.size());
    }
    return static_cast<FontId>(found - catalog.keys.begin()) + 1;
}

FontKey FontKeyOf(FontId font)
{
    Catalog& catalog = TheCatalog();
    MutexLock const lock(catalog.lock);
    return catalog.keys.at(font - 1);
}

LOGFONT DefaultFontDescription() noexcept
{
    LOGFONT description{};
    description.lfHeight = -Scaled(kDefaultFontDesignSize);
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    std::strcpy(description.lfFaceName, kDefaultFamily);
    return description;
}

} // namespace Ostrel::Platform
