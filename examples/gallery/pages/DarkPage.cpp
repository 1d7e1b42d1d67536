// The dark look: one call for the whole program, taken back when the page is left.
#include "../Pages.h"
#include "../Pictures.h"
#include "../SlimBar.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::ColorScheme;
using Ostrel::Platform::Scaled;

namespace
{

constexpr int kRowCount = 10;

class CDarkPage : public CPage
{
public:
    CDarkPage() { CPreferences::SetColorScheme(ColorScheme::Dark); }
    CDarkPage(CDarkPage const&) = delete;
    CDarkPage& operator=(CDarkPage const&) = delete;
    ~CDarkPage() override { CPreferences::SetColorScheme(m_before); }

private:
    void Build() override
    {
        MakeIcons(m_icons, Scaled(16));
        CGrid& selection = AddMetalGrid("Selection, focus, sorted column", kRowCount);
        selection.SetSort(0, CSortInfo(CMetal::kChange, false), true);
        for (int const row : {2, 3, 4})
        {
            selection.Select(row, ScrollableContext, true);
        }
        selection.SetFocusedRow(6, ScrollableContext);

        CGrid& tree = AddMetalGrid("Hierarchy, images, grid lines", 0);
        tree.SetImageList(&m_icons, false);
        tree.GetHeader()->GetColumnByFid(CMetal::kName)->SetCellImageId(0);
        ShowTree(tree);
        tree.GetAppearance().EnableHorizontalLines(true);
        tree.GetAppearance().EnableVerticalLines(true);
        CGridItem* const root = tree.Add(AllMetals()[0].get(), ScrollableRoot, LastPosition);
        for (std::size_t i = 1; i < 5; ++i)
        {
            tree.Add(AllMetals()[i].get(), root, LastPosition);
        }
        tree.Expand(root, true);

        CGrid& bars = AddGrid("Progress bars", CMetal::Fields(), {{CMetal::kName, 110}, {CMetal::kStock, 200}});
        bars.GetHeader()->GetColumnByFid(CMetal::kStock)->SetCellPaintFormat(new CSlimBar(RGB(64, 140, 230), 0, 100));
        for (std::size_t i = 0; i < kRowCount; ++i)
        {
            bars.Add(AllMetals()[i].get(), ScrollableRoot, LastPosition);
        }

        CGrid& changes = AddMetalGrid("Highlighting", kRowCount);
        changes.AllowHighlight(true);
        m_changing = &changes;
    }

    [[nodiscard]] int TickMs() const override { return 500; }
    void OnTick() override
    {
        m_changing->UpdateRow(m_nextRow, ScrollableContext, CMetal::kPrice);
        m_nextRow = (m_nextRow + 1) % kRowCount;
    }
    void Pose() override { Ostrel::Platform::TurnClock(2100); }

    ColorScheme const m_before = CPreferences::GetColorScheme();
    CImageList m_icons;
    CGrid* m_changing = nullptr;
    int m_nextRow = 0;
};

} // namespace

std::unique_ptr<CPage> MakeDarkPage()
{
    return std::make_unique<CDarkPage>();
}

} // namespace Gallery
