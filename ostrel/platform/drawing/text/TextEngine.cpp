#include <algorithm>
#include <functional>

#include <ostrel/platform/base/Utf8.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/text/TextEngine.h>

namespace Ostrel::Platform
{

namespace
{

constexpr std::size_t kMaximumRuns = 4096;
constexpr std::size_t kMaximumRunBytes = 16U << 20U;
constexpr std::size_t kMaximumPictureBytes = 64U << 20U;
constexpr char32_t kEllipsis = 0x2026;

// Where a text can be cut off without anybody seeing it: far behind a box that ends it with an ellipsis. Only a text of
// marks without a width of their own may still fit then.
std::string_view CutFarBehind(std::string_view text, int maximumWidth)
{
    if (maximumWidth < 0)
    {
        return text;
    }
    std::size_t const enough = 256 + 16 * static_cast<std::size_t>(maximumWidth);
    return text.size() > enough ? text.substr(0, Utf8BoundaryAt(text, enough)) : text;
}

constexpr bool IsLineBreak(char32_t codePoint) noexcept
{
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == 0x2028 || codePoint == 0x2029;
}

// What Pango is given: valid UTF-8 without control characters.
std::string ForShaping(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
    {
        Utf8Character const character = DecodeUtf8(text, position);
        AppendUtf8(clean, IsLineBreak(character.codePoint) ? U' ' : character.codePoint);
        position += character.length;
    }
    return clean;
}

/// A place between what a reader takes for characters.
struct Cut
{
    std::size_t position; ///< in bytes
    int width;            ///< about that of the text before it
};

/// All places but the two ends.
std::vector<Cut> CutsOf(PangoLayout* layout, std::string_view text)
{
    std::vector<int> widthsFrom(text.size()); // of what begins at a byte
    for (GSList const* link = pango_layout_get_line_readonly(layout, 0)->runs; link != nullptr; link = link->next)
    {
        auto const* const run = static_cast<PangoGlyphItem const*>(link->data);
        for (int i = 0; i < run->glyphs->num_glyphs; ++i)
        {
            int const from = run->item->offset + run->glyphs->log_clusters[i];
            widthsFrom[static_cast<std::size_t>(from)] += run->glyphs->glyphs[i].geometry.width;
        }
    }
    int count = 0;
    PangoLogAttr const* const places = pango_layout_get_log_attrs_readonly(layout, &count);
    std::vector<Cut> cuts;
    int width = 0;
    std::size_t position = 0;
    for (int character = 0; character < count && position < text.size(); ++character)
    {
        if (position > 0 && places[character].is_cursor_position != 0)
        {
            cuts.push_back({position, PANGO_PIXELS(width)});
        }
        for (std::size_t const end = NextUtf8(text, position); position < end; ++position)
        {
            width += widthsFrom[position];
        }
    }
    return cuts;
}

GlibPointer<PangoContext> MakeContext(PangoFontMap* fontMap)
{
    GlibPointer<PangoContext> context(pango_font_map_create_context(fontMap));
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context.get(), TRUE);
    return context;
}

} // namespace

std::size_t TextEngine::RunKeyHash::operator()(RunKey const& key) const noexcept
{
    return std::hash<std::string_view>()(key.text) + 31U * key.font +
           1000003U * static_cast<unsigned>(key.maximumWidth);
}

std::size_t TextEngine::Run::Bytes() const noexcept
{
    return sizeof(Run) + text.capacity() + line.glyphs.capacity() * sizeof(PlacedGlyph);
}

TextEngine& TextEngine::OfThread()
{
    static thread_local TextEngine engine;
    return engine;
}

TextEngine::TextEngine() : m_fontMap(pango_cairo_font_map_new()), m_context(MakeContext(m_fontMap.get())) {}

TextEngine::~TextEngine() = default;

TextFont& TextEngine::Font(FontId font)
{
    if (font == 0)
    {
        if (m_defaultScale != GetScale())
        {
            m_defaultScale = GetScale();
            m_defaultFont = FontIdOf(DefaultFontDescription());
        }
        font = m_defaultFont;
    }
    if (font >= m_fonts.size())
    {
        m_fonts.resize(font + 1);
    }
    if (m_fonts[font] == nullptr)
    {
        m_fonts[font] = std::make_unique<TextFont>(m_context.get(), FontKeyOf(font));
    }
    return *m_fonts[font];
}

LaidOutLine TextEngine::Layout(FontId font, std::string_view text, int maximumWidth)
{
    std::string_view const beginning = CutFarBehind(text, maximumWidth);
    LaidOutLine const line = LayoutAll(font, beginning, maximumWidth);
    return line.isShortened || beginning.size() == text.size() ? line : LayoutAll(font, text, maximumWidth);
}

LaidOutLine TextEngine::LayoutAll(FontId font, std::string_view text, int maximumWidth)
{
    if (std::optional<LaidOutLine> const simple = LayoutSimple(Font(font), text, maximumWidth))
    {
        return *simple;
    }
    return LayoutComplex(font, text, maximumWidth);
}

// Stops as soon as the line is too wide. The character behind the last one that fits has then been seen and is a simple
// one too, so no combining mark is cut off its letter.
std::optional<LaidOutLine> TextEngine::LayoutSimple(TextFont& font, std::string_view text, int maximumWidth)
{
    m_line.resize(std::max(m_line.size(), text.size() + 1));
    int const forEllipsis = maximumWidth >= 0 ? font.FindSimple(kEllipsis)->advance : 0;
    std::size_t count = 0;
    std::size_t fitting = 0;
    int x = 0;
    int fittingWidth = 0;
    for (std::size_t position = 0; position < text.size();)
    {
        auto character = static_cast<char32_t>(static_cast<unsigned char>(text[position]));
        unsigned length = 1;
        if (character >= 0x80)
        {
            Utf8Character const decoded = DecodeUtf8(text, position);
            character = decoded.codePoint;
            length = decoded.length;
        }
        TextFont::SimpleGlyph const* const simple = font.FindSimple(character);
        if (simple == nullptr)
        {
            return std::nullopt;
        }
        m_line[count++] = {&simple->glyph, x, 0};
        x += simple->advance;
        position += length;
        if (maximumWidth >= 0)
        {
            if (x + forEllipsis <= maximumWidth)
            {
                fitting = count;
                fittingWidth = x;
            }
            else if (x > maximumWidth)
            {
                m_line[fitting] = {&font.FindSimple(kEllipsis)->glyph, fittingWidth, 0};
                return LaidOutLine{fittingWidth + forEllipsis, {m_line.data(), fitting + 1}, true};
            }
        }
    }
    return LaidOutLine{x, {m_line.data(), count}};
}

LaidOutLine TextEngine::LayoutComplex(FontId font, std::string_view text, int maximumWidth)
{
    DropPicturesBeyondLimit();
    Run const* run = &FindRun(font, text, kUnlimited);
    bool const isShortened = maximumWidth >= 0 && run->line.width > maximumWidth;
    if (isShortened)
    {
        run = &FindRun(font, text, maximumWidth);
    }
    return {run->line.width, run->line.glyphs, isShortened};
}

TextEngine::Run const& TextEngine::FindRun(FontId font, std::string_view text, int maximumWidth)
{
    auto const found = m_runsByKey.find({font, maximumWidth, text});
    if (found != m_runsByKey.end())
    {
        m_runs.splice(m_runs.begin(), m_runs, found->second);
        return m_runs.front();
    }
    std::string const clean = ForShaping(text);
    m_runs.push_front({.font = font,
                       .maximumWidth = maximumWidth,
                       .text = std::string(text),
                       .line = maximumWidth < 0 ? Shape(font, clean) : ShapeShortened(font, clean, maximumWidth)});
    m_runsByKey.emplace(m_runs.front().Key(), m_runs.begin());
    m_runBytes += m_runs.front().Bytes();
    DropOldRuns();
    return m_runs.front();
}

// The place of the cut is that where the beginning of the text, shaped without the rest, fits: letters look different
// at the end of a word. The widths within the whole text tell where to look for it.
TextEngine::ShapedLine TextEngine::ShapeShortened(FontId font, std::string const& text, int maximumWidth)
{
    std::string ellipsis;
    AppendUtf8(ellipsis, kEllipsis);
    std::vector<Cut> const cuts = CutsOf(Font(font).MakeLayout(text).get(), text);
    auto const shapeUpTo = [&](std::size_t count)
    { return Shape(font, text.substr(0, count > 0 ? cuts[count - 1].position : 0) + ellipsis); };

    int const room = maximumWidth - Font(font).FindSimple(kEllipsis)->advance;
    auto const isBefore = [room](Cut const& cut) { return cut.width <= room; };
    auto count = static_cast<std::size_t>(std::ranges::partition_point(cuts, isBefore) - cuts.begin());
    ShapedLine line = shapeUpTo(count);
    if (line.width > maximumWidth)
    {
        while (count > 0 && line.width > maximumWidth)
        {
            line = shapeUpTo(--count);
        }
        return line;
    }
    while (count < cuts.size())
    {
        ShapedLine longer = shapeUpTo(++count);
        if (longer.width > maximumWidth)
        {
            break;
        }
        line = std::move(longer);
    }
    return line;
}

TextEngine::ShapedLine TextEngine::Shape(FontId fontId, std::string_view text)
{
    TextFont& font = Font(fontId);
    if (std::optional<LaidOutLine> const simple = LayoutSimple(font, text, kUnlimited))
    {
        return {simple->width, {simple->glyphs.begin(), simple->glyphs.end()}};
    }
    GlibPointer<PangoLayout> const layout = font.MakeLayout(text);
    ShapedLine shaped;
    int x = 0;
    for (GSList const* link = pango_layout_get_line_readonly(layout.get(), 0)->runs; link != nullptr; link = link->next)
    {
        auto const* const item = static_cast<PangoGlyphItem const*>(link->data);
        for (PangoGlyphInfo const& info :
             std::span(item->glyphs->glyphs, static_cast<std::size_t>(item->glyphs->num_glyphs)))
        {
            if (info.glyph != PANGO_GLYPH_EMPTY)
            {
                Glyph const* const glyph = font.FindShaped(item->item->analysis.font, info.glyph);
                shaped.glyphs.push_back({glyph, PANGO_PIXELS(x + info.geometry.x_offset),
                                         PANGO_PIXELS(info.geometry.y_offset - item->y_offset)});
            }
            x += info.geometry.width;
        }
    }
    shaped.width = PANGO_PIXELS(x);
    return shaped;
}

// The newest run always stays: somebody is about to draw it.
void TextEngine::DropOldRuns()
{
    while (m_runs.size() > 1 && (m_runs.size() > kMaximumRuns || m_runBytes > kMaximumRunBytes))
    {
        m_runBytes -= m_runs.back().Bytes();
        m_runsByKey.erase(m_runs.back().Key());
        m_runs.pop_back();
    }
}

// A thread that has shown very many large glyphs begins anew: runs point to pictures, so both go together.
void TextEngine::DropPicturesBeyondLimit()
{
    std::size_t bytes = 0;
    for (std::unique_ptr<TextFont> const& font : m_fonts)
    {
        bytes += font != nullptr ? font->PictureBytes() : 0;
    }
    if (bytes > kMaximumPictureBytes)
    {
        m_runsByKey.clear();
        m_runs.clear();
        m_runBytes = 0;
        m_fonts.clear();
    }
}

} // namespace Ostrel::Platform
