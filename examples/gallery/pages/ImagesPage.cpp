// Images in cells, at their own size and stretched to the row, and in titles.
#include "../Pages.h"
#include "../Pictures.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

/// Gives every row its image; a column by itself shows the same image in all rows.
class CImageDraw : public CSpaciousDraw
{
public:
    explicit CImageDraw(int roomForImages) : CSpaciousDraw(true), m_room(roomForImages) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        if (cell.GetColumn() != nullptr && cell.GetColumn()->GetFid() == CMetal::kName)
        {
            cell.SetImageId(cell.GetGridLine().GetRow() % kIconCount);
        }
        CSpaciousDraw::DrawCell(cell, context, filter);
    }
    int GetOptimalRowHeight(CFont* font, CDC& dc) const override
    {
        return CSpaciousDraw::GetOptimalRowHeight(font, dc) + m_room;
    }

private:
    int m_room;
};

class CImagesPage : public CPage
{
    void Build() override
    {
        MakeIcons(m_icons, Scaled(16));
        MakeIcons(m_largeIcons, Scaled(64));
        AddImageGrid("An image for each row, at its own size", 0).SetImageList(&m_icons, false);
        AddImageGrid("Large images stretched to the row", 0).SetImageList(&m_largeIcons, true);
        CGrid& high = AddImageGrid("The same in higher rows", Scaled(16));
        high.SetImageList(&m_largeIcons, true);
        high.GetHeader()->GetColumnByFid(CMetal::kName)->SetWidth(Scaled(130));
        high.GetHeader()->GetColumnByFid(CMetal::kSymbol)->SetWidth(Scaled(55));
        high.GetHeader()->GetColumnByFid(CMetal::kSymbol)->SetName("Sign");
        CGrid& titles = AddMetalGrid("Images in titles, and one for a whole column", 10);
        titles.SetImageList(&m_icons, false);
        CHeader& header = *titles.GetHeader();
        header.SetImageList(&m_icons);
        header.GetColumnByFid(CMetal::kName)->SetColumnImageId(1);
        header.GetColumnByFid(CMetal::kPrice)->SetColumnImageId(3);
        header.GetColumnByFid(CMetal::kSymbol)->SetCellImageId(2);
    }

    CGrid& AddImageGrid(std::string caption, int roomForImages)
    {
        return AddMetalGrid(std::move(caption), 10, std::make_unique<CImageDraw>(roomForImages));
    }

    CImageList m_icons;
    CImageList m_largeIcons;
};

} // namespace

std::unique_ptr<CPage> MakeImagesPage()
{
    return std::make_unique<CImagesPage>();
}

} // namespace Gallery
