// The text machinery of a thread: its font map, its fonts and the shaped runs of complex text. Nothing is shared
// between threads, so nothing is locked.
//
// Texts of simple characters are laid out by table, without Pango and without allocation; a text with any other
// character is shaped whole, and the result is kept until it has not been used for a long time. Either way a text is
// exactly as wide as it is drawn.
#pragma once

#include <list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <ostrel/platform/drawing/text/TextFont.h>

namespace Ostrel::Platform
{

/// A line ready to be drawn; valid until the next layout on the same thread.
struct LaidOutLine
{
    int width = 0;
    std::span<PlacedGlyph const> glyphs;
    bool isShortened = false; ///< an ellipsis stands for the end of the text
};

class TextEngine
{
public:
    /// The engine of the calling thread.
    [[nodiscard]] static TextEngine& OfThread();

    TextEngine();
    TextEngine(TextEngine const&) = delete;
    TextEngine& operator=(TextEngine const&) = delete;
    ~TextEngine();

    /// The font of a number; 0 is the default font at the current scale. Valid until the next layout.
    [[nodiscard]] TextFont& Font(FontId font);

    static constexpr int kUnlimited = -1;
    /// Lays out a line. A line wider than `maximumWidth` (0 or more) is that of as many whole characters (letters with
    /// their marks, sequences of emoji) as fit with an ellipsis behind them; the ellipsis alone may be wider.
    [[nodiscard]] LaidOutLine Layout(FontId font, std::string_view text, int maximumWidth);

    /// Shaped runs that are kept at the moment.
    [[nodiscard]] std::size_t KeptRuns() const noexcept { return m_runs.size(); }

private:
    struct RunKey
    {
        FontId font;
        int maximumWidth;
        std::string_view text;

        friend bool operator==(RunKey const&, RunKey const&) = default;
    };
    struct RunKeyHash
    {
        std::size_t operator()(RunKey const& key) const noexcept;
    };
    struct ShapedLine
    {
        int width = 0;
        std::vector<PlacedGlyph> glyphs;
    };
    struct Run
    {
        FontId font;
        int maximumWidth;
        std::string text;
        ShapedLine line;

        [[nodiscard]] RunKey Key() const noexcept { return {font, maximumWidth, text}; }
        [[nodiscard]] std::size_t Bytes() const noexcept;
    };

    [[nodiscard]] LaidOutLine LayoutAll(FontId font, std::string_view text, int maximumWidth);
    [[nodiscard]] std::optional<LaidOutLine> LayoutSimple(TextFont& font, std::string_view text, int maximumWidth);
    [[nodiscard]] LaidOutLine LayoutComplex(FontId font, std::string_view text, int maximumWidth);
    [[nodiscard]] Run const& FindRun(FontId font, std::string_view text, int maximumWidth);
    [[nodiscard]] ShapedLine Shape(FontId font, std::string_view text);
    [[nodiscard]] ShapedLine ShapeShortened(FontId font, std::string const& text, int maximumWidth);
    void DropOldRuns();
    void DropPicturesBeyondLimit();

    GlibPointer<PangoFontMap> m_fontMap;
    GlibPointer<PangoContext> m_context;
    std::vector<std::unique_ptr<TextFont>> m_fonts; ///< by number
    FontId m_defaultFont = 0;
    double m_defaultScale = 0;
    std::vector<PlacedGlyph> m_line; ///< of the last simple layout; its memory is reused
    std::list<Run> m_runs;           ///< last used first
    std::unordered_map<RunKey, std::list<Run>::iterator, RunKeyHash> m_runsByKey;
    std::size_t m_runBytes = 0;
};

} // namespace Ostrel::Platform
