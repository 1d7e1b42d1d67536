// Selected rows, the focus, the rubber band, and the marks of dragged rows.
#include "../Pages.h"
#include "../PosedDraw.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

class CSelectionPage : public CPage
{
    void Build() override
    {
        CGrid& runs = AddMetalGrid("A run of selected rows has one frame", 10);
        SelectRows(runs, {1, 2, 3, 6});
        runs.SetFocusedRow(8, ScrollableContext);
        CGrid& both = AddMetalGrid("The focus in a selected row", 10);
        SelectRows(both, {4, 5});
        both.SetFocusedRow(5, ScrollableContext);

        CPosedDraw::Pose band;
        band.rubberBand = CRect(Scaled(60), Scaled(80), Scaled(250), Scaled(150));
        SelectRows(AddMetalGrid("Selecting with the mouse", 10, std::make_unique<CPosedDraw>(band)), {2, 3, 4, 5});
        CPosedDraw::Pose drop;
        drop.drop = CDropPosition(ScrollableContext, 4, true, 2);
        ShowTree(
            AddMetalGrid("Dragging rows: below the fifth, into the third", 10, std::make_unique<CPosedDraw>(drop)));
    }

    static void SelectRows(CGrid& grid, std::initializer_list<int> rows)
    {
        for (int const row : rows)
        {
            grid.Select(row, ScrollableContext, true);
        }
    }
};

} // namespace

std::unique_ptr<CPage> MakeSelectionPage()
{
    return std::make_unique<CSelectionPage>();
}

} // namespace Gallery
