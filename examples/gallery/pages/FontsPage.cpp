// Fonts of grids and of single rows, and a header with its own.
#include <array>

#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::GUI;

namespace
{

/// The default font with another size, weight or face.
class CVariedFont : public CFont
{
public:
    struct Change
    {
        double size = 1; ///< times the default size
        LONG weight = FW_NORMAL;
        bool isItalic = false;
        bool isUnderlined = false;
        bool isStruckOut = false;
        char const* face = nullptr;
    };

    explicit CVariedFont(Change const& change)
    {
        LOGFONT description{};
        CPreferences::GetFont()->GetLogFont(&description);
        description.lfHeight = static_cast<LONG>(description.lfHeight * change.size);
        description.lfWeight = change.weight;
        description.lfItalic = change.isItalic ? 1 : 0;
        description.lfUnderline = change.isUnderlined ? 1 : 0;
        description.lfStrikeOut = change.isStruckOut ? 1 : 0;
        if (change.face != nullptr)
        {
            std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "%s", change.face);
        }
        CreateFontIndirect(&description);
    }
};

/// Draws every row in the next of some fonts.
class CFontDraw : public CSpaciousDraw
{
public:
    CFontDraw() : CSpaciousDraw(true) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        auto const row = static_cast<std::size_t>(cell.GetGridLine().GetRow());
        cell.GetPaintInfo().SetFont(&m_fonts[row % m_fonts.size()]);
        CSpaciousDraw::DrawCell(cell, context, filter);
    }

private:
    std::array<CVariedFont, 6> m_fonts{
        CVariedFont({}),
        CVariedFont({.weight = FW_BOLD}),
        CVariedFont({.isItalic = true}),
        CVariedFont({.isUnderlined = true}),
        CVariedFont({.isStruckOut = true}),
        CVariedFont({.face = "DejaVu Sans Mono"}),
    };
};

class CFontsPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("A font for each row", 10, std::make_unique<CFontDraw>());
        CGrid& header = AddMetalGrid("A header with its own font", 10);
        header.GetHeader()->SetFont(&m_bold);
        AddMetalGrid("A smaller font: rows and header follow", 12).SetFont(&m_small);
        CGrid& large = AddMetalGrid("A larger font", 10);
        large.SetFont(&m_large);
        large.GetHeader()->HideColumn(CMetal::kSymbol);
        large.GetHeader()->GetColumnByFid(CMetal::kPrice)->SetWidth(Ostrel::Platform::Scaled(105));
        large.GetHeader()->GetColumnByFid(CMetal::kChange)->SetWidth(Ostrel::Platform::Scaled(125));
    }

    CVariedFont m_bold{{.weight = FW_BOLD}};
    CVariedFont m_small{{.size = 0.8}};
    CVariedFont m_large{{.size = 1.3}};
};

} // namespace

std::unique_ptr<CPage> MakeFontsPage()
{
    return std::make_unique<CFontsPage>();
}

} // namespace Gallery
