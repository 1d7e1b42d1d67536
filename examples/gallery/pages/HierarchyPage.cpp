// Rows below rows: buttons, tree lines, and what the paint filter leaves of them.
#include "../Pages.h"
#include "../Pictures.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

class CHierarchyPage : public CPage
{
    void Build() override
    {
        MakeIcons(m_icons, Scaled(16));
        FillTree(AddTreeGrid("Buttons and tree lines", 0));
        CGrid& images = AddTreeGrid("With an image", 0);
        images.SetImageList(&m_icons, false);
        images.GetHeader()->GetColumnByFid(CMetal::kName)->SetCellImageId(0);
        FillTree(images);
        FillTree(AddTreeGrid("Buttons only", PaintTreeLines));
        FillTree(AddTreeGrid("Indented only", PaintTreeLines | PaintExpandButton));
    }

    CGrid& AddTreeGrid(std::string caption, unsigned int leftOut)
    {
        CGrid& grid = AddMetalGrid(std::move(caption), 0);
        ShowTree(grid);
        grid.SetPaintFilter(grid.GetPaintFilter() & ~leftOut);
        return grid;
    }

    CGridItem* AddRow(CGrid& grid, std::size_t number, CGridItem* parent)
    {
        return grid.Add(AllMetals()[number].get(), parent, LastPosition);
    }

    void FillTree(CGrid& grid)
    {
        CGridItem* const gold = AddRow(grid, 0, ScrollableRoot);
        CGridItem* const silver = AddRow(grid, 1, gold);
        AddRow(grid, 2, silver);
        AddRow(grid, 3, silver);
        AddRow(grid, 4, gold);
        CGridItem* const collapsed = AddRow(grid, 5, gold);
        AddRow(grid, 6, collapsed);
        AddRow(grid, 7, ScrollableRoot);
        CGridItem* const lead = AddRow(grid, 8, ScrollableRoot);
        AddRow(grid, 9, lead);
        grid.Expand(gold, false);
        grid.Expand(silver, false);
        grid.Expand(lead, false);
        grid.Collapse(collapsed, false);
    }

    CImageList m_icons;
};

} // namespace

std::unique_ptr<CPage> MakeHierarchyPage()
{
    return std::make_unique<CHierarchyPage>();
}

} // namespace Gallery
