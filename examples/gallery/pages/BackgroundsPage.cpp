// A picture behind the rows: three places for it, and two ways of showing through.
#include "../Pages.h"
#include "../Pictures.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

class CBackgroundsPage : public CPage
{
    void Build() override
    {
        MakeLandscape(m_landscape, CSize(Scaled(200), Scaled(130)));
        AddPicture("In the middle, the rows' colour half over it", CBackgroundImage::Center, 128);
        AddPicture("Stretched, a third of the rows' colour", CBackgroundImage::Stretch, 85);
        AddPicture("As tiles, two thirds of the rows' colour", CBackgroundImage::Tile, 170);
        AddPicture("Stretched, bare", CBackgroundImage::Stretch, 0);
    }

    void AddPicture(std::string caption, CBackgroundImage::Mode mode, unsigned char opacity)
    {
        CGrid& grid = AddMetalGrid(std::move(caption), 6);
        CBackgroundImage image;
        image.SetBitmap(&m_landscape);
        image.SetMode(mode);
        image.SetOpacity(opacity);
        grid.SetBackgroundImage(image);
        grid.Select(2, ScrollableContext, true);
        grid.Select(3, ScrollableContext, true);
        grid.SetSort(0, CSortInfo(CMetal::kPrice, true), true);
    }

    CBitmap m_landscape;
};

} // namespace

std::unique_ptr<CPage> MakeBackgroundsPage()
{
    return std::make_unique<CBackgroundsPage>();
}

} // namespace Gallery
