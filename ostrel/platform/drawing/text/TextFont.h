// One font of one thread: its sizes and the pictures of its glyphs. Characters of the simple set (each one glyph that
// does not depend on its neighbours) lie in a table by code point; the glyphs of other scripts are kept by the number
// that shaping gave them.
#pragma once

#include <array>
#include <memory>
#include <unordered_map>
#include <utility>

#include <pango/pangocairo.h>

#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/text/FontCatalog.h>
#include <ostrel/platform/drawing/text/Glyph.h>

namespace Ostrel::Platform
{

/// Releases what GLib counts.
struct ObjectRelease
{
    void operator()(void* object) const noexcept { g_object_unref(object); }
};
template <class T>
using GlibPointer = std::unique_ptr<T, ObjectRelease>;

/// A glyph at its place on a line, from the line's beginning.
struct PlacedGlyph
{
    Glyph const* glyph;
    int x;
    int y;
};

class TextFont
{
public:
    TextFont(PangoContext* context, FontKey const& key);
    ~TextFont();
    TextFont(TextFont const&) = delete;
    TextFont& operator=(TextFont const&) = delete;

    struct SimpleGlyph
    {
        Glyph glyph;
        int advance = 0;
        bool isReady = false;
    };

    [[nodiscard]] TEXTMETRIC const& Metrics() const noexcept { return m_metrics; }
    /// Height of underline and strike-out, and their tops from the baseline downwards.
    [[nodiscard]] int LineThickness() const noexcept { return m_lineThickness; }
    [[nodiscard]] int UnderlineTop() const noexcept { return m_underlineTop; }
    [[nodiscard]] int StrikeOutTop() const noexcept { return m_strikeOutTop; }
    [[nodiscard]] bool IsUnderlined() const noexcept { return m_key.underline; }
    [[nodiscard]] bool IsStruckOut() const noexcept { return m_key.strikeOut; }

    /// The glyph of a character of the simple set (control characters are blanks); null for all others.
    [[nodiscard]] SimpleGlyph const* FindSimple(char32_t codePoint)
    {
        std::size_t const page = codePoint / kPageSize;
        if (page < m_pages.size() && m_pages[page] != nullptr)
        {
            SimpleGlyph const& simple = (*m_pages[page])[codePoint % kPageSize];
            if (simple.isReady)
            {
                return &simple;
            }
        }
        return MakeSimple(codePoint);
    }

    /// The glyph of a shaped run.
    [[nodiscard]] Glyph const* FindShaped(PangoFont* font, PangoGlyph number);

    /// A layout with this font and the features that every text here has. `text` must be valid UTF-8.
    [[nodiscard]] GlibPointer<PangoLayout> MakeLayout(std::string_view text) const;

    /// Bytes of all pictures.
    [[nodiscard]] std::size_t PictureBytes() const noexcept { return m_store.Bytes(); }

private:
    static constexpr std::size_t kPageSize = 256;
    static constexpr std::size_t kPageCount = 0x23; ///< the simple set ends at U+22FF
    using Page = std::array<SimpleGlyph, kPageSize>;

    struct ShapedHash
    {
        std::size_t operator()(std::pair<PangoFont*, PangoGlyph> const& key) const noexcept
        {
            return std::hash<void*>()(key.first) * 31U + key.second;
        }
    };

    void MeasureFont();
    [[nodiscard]] SimpleGlyph const* MakeSimple(char32_t codePoint);

    PangoContext* m_context;
    FontKey m_key;
    PangoFontDescription* m_description;
    PangoAttrList* m_attributes;
    TEXTMETRIC m_metrics{};
    int m_lineThickness = 1;
    int m_underlineTop = 1;
    int m_strikeOutTop = 0;
    std::array<std::unique_ptr<Page>, kPageCount> m_pages;
    std::unordered_map<std::pair<PangoFont*, PangoGlyph>, Glyph, ShapedHash> m_shaped;
    std::unordered_map<PangoFont*, GlibPointer<PangoFont>> m_heldFonts; ///< so that no address in m_shaped is reused
    GlyphStore m_store;
};

} // namespace Ostrel::Platform
