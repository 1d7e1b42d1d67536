#include <algorithm>
#include <string>

#include <ostrel/platform/base/Utf8.h>
#include <ostrel/platform/drawing/text/TextFont.h>

namespace Ostrel::Platform
{

namespace
{

// Kerning and ligatures would make a width depend on neighbours; figures all have one width where the font can.
constexpr char const* kFeatures = "kern=0,liga=0,clig=0,tnum=1";

struct CodePointRange
{
    char32_t first;
    char32_t last;
};

// One code point is one glyph here, whatever stands beside it.
constexpr CodePointRange kSimpleSet[] = {{0x20, 0x7E},     {0xA0, 0xAC},     {0xAE, 0x24F},
                                         {0x370, 0x482},   {0x48A, 0x52F},   {0x1E00, 0x1FFF},
                                         {0x2010, 0x2027}, {0x20A0, 0x20BF}, {0x2190, 0x22FF}};

constexpr bool IsControl(char32_t codePoint) noexcept
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

bool IsSimple(char32_t codePoint) noexcept
{
    return std::ranges::any_of(kSimpleSet, [codePoint](CodePointRange const& range)
                               { return codePoint >= range.first && codePoint <= range.last; });
}

int ToPixels(int pangoUnits) noexcept
{
    return PANGO_PIXELS(pangoUnits);
}

// A picture with room for the ink and for what hinting may add to it.
GlyphPainter PainterFor(PangoRectangle const& ink)
{
    constexpr int kMargin = 3;
    constexpr int kLimit = 4 * kMaximumFontSize;
    int const left = std::clamp(ink.x, -kLimit, kLimit) - kMargin;
    int const top = std::clamp(ink.y, -kLimit, kLimit) - kMargin;
    return {std::clamp(ink.width, 0, kLimit) + 2 * kMargin, std::clamp(ink.height, 0, kLimit) + 2 * kMargin, -left,
            -top};
}

} // namespace

TextFont::TextFont(PangoContext* context, FontKey const& key)
    : m_context(context), m_key(key), m_description(pango_font_description_new()), m_attributes(pango_attr_list_new())
{
    pango_font_description_set_family(m_description, key.family.c_str());
    pango_font_description_set_weight(m_description, static_cast<PangoWeight>(key.weight));
    pango_font_description_set_style(m_description, key.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_attr_list_insert(m_attributes, pango_attr_font_features_new(kFeatures));
    MeasureFont();
}

TextFont::~TextFont()
{
    pango_attr_list_unref(m_attributes);
    pango_font_description_free(m_description);
}

// A height of a line is met from below: letters of that size first, then as much smaller as their line is too high.
void TextFont::MeasureFont()
{
    int const lineHeight = -m_key.pixelSize;
    int size = std::max(std::abs(m_key.pixelSize), 1);
    while (true)
    {
        pango_font_description_set_absolute_size(m_description, static_cast<double>(size) * PANGO_SCALE);
        GlibPointer<PangoFont> const font(pango_context_load_font(m_context, m_description));
        PangoFontMetrics* const metrics = pango_font_get_metrics(font.get(), pango_language_get_default());
        m_metrics.tmAscent = ToPixels(pango_font_metrics_get_ascent(metrics));
        m_metrics.tmDescent = ToPixels(pango_font_metrics_get_descent(metrics));
        m_metrics.tmHeight = std::max(m_metrics.tmAscent + m_metrics.tmDescent, 1);
        m_metrics.tmExternalLeading =
            std::max(0, ToPixels(pango_font_metrics_get_height(metrics)) - m_metrics.tmHeight);
        m_metrics.tmAveCharWidth = std::max(1, ToPixels(pango_font_metrics_get_approximate_char_width(metrics)));
        m_lineThickness = std::max(1, ToPixels(pango_font_metrics_get_underline_thickness(metrics)));
        m_underlineTop = std::max(1, -ToPixels(pango_font_metrics_get_underline_position(metrics)));
        m_strikeOutTop = -ToPixels(pango_font_metrics_get_strikethrough_position(metrics));
        pango_font_metrics_unref(metrics);
        if (lineHeight <= 0 || m_metrics.tmHeight <= lineHeight || size == 1)
        {
            break;
        }
        size = std::clamp(size * lineHeight / m_metrics.tmHeight, 1, size - 1);
    }
    m_metrics.tmInternalLeading = std::max(0, m_metrics.tmHeight - size);
    m_metrics.tmMaxCharWidth = 2 * size;
    m_metrics.tmWeight = m_key.weight;
    m_metrics.tmItalic = m_key.italic ? 1 : 0;
    m_metrics.tmUnderlined = m_key.underline ? 1 : 0;
    m_metrics.tmStruckOut = m_key.strikeOut ? 1 : 0;
}

GlibPointer<PangoLayout> TextFont::MakeLayout(std::string_view text) const
{
    GlibPointer<PangoLayout> layout(pango_layout_new(m_context));
    pango_layout_set_font_description(layout.get(), m_description);
    pango_layout_set_attributes(layout.get(), m_attributes);
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    return layout;
}

// The picture is that of the whole line: a font without the precomposed letter draws it with two glyphs.
TextFont::SimpleGlyph const* TextFont::MakeSimple(char32_t codePoint)
{
    if (!IsControl(codePoint) && !IsSimple(codePoint))
    {
        return nullptr;
    }
    std::unique_ptr<Page>& page = m_pages[codePoint / kPageSize];
    if (page == nullptr)
    {
        page = std::make_unique<Page>();
    }
    SimpleGlyph& simple = (*page)[codePoint % kPageSize];
    std::string text;
    AppendUtf8(text, IsControl(codePoint) ? U' ' : codePoint);
    GlibPointer<PangoLayout> const layout = MakeLayout(text);
    PangoLayoutLine* const line = pango_layout_get_line_readonly(layout.get(), 0);
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_line_get_pixel_extents(line, &ink, &logical);
    GlyphPainter painter = PainterFor(ink);
    pango_cairo_show_layout_line(painter.Context(), line);
    simple.glyph = painter.Take(m_store);
    simple.advance = logical.width;
    simple.isReady = true;
    return &simple;
}

Glyph const* TextFont::FindShaped(PangoFont* font, PangoGlyph number)
{
    auto const [found, isNew] = m_shaped.try_emplace({font, number});
    if (isNew)
    {
        if (!m_heldFonts.contains(font))
        {
            m_heldFonts.emplace(font, static_cast<PangoFont*>(g_object_ref(font)));
        }
        PangoGlyphInfo info{};
        info.glyph = number;
        PangoRectangle ink;
        PangoRectangle logical;
        pango_font_get_glyph_extents(font, number, &ink, &logical);
        info.geometry.width = logical.width;
        pango_extents_to_pixels(&ink, nullptr);
        int cluster = 0;
        PangoGlyphString one{1, &info, &cluster, 1};
        GlyphPainter painter = PainterFor(ink);
        pango_cairo_show_glyph_string(painter.Context(), font, &one);
        found->second = painter.Take(m_store);
    }
    return &found->second;
}

} // namespace Ostrel::Platform
