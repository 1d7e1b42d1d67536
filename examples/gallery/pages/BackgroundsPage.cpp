// A picture behind the rows: three places for it, and two ways of showing through.
#include "../Pages.h"
#include "../Pictures.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::ColorScheme;
using Ostrel::Platform::Scaled;

namespace
{

class CBackgroundsPage : public CPage
{
    void Build() override
    {
        MakeLandscape(m_small, CSize(Scaled(200), Scaled(130)));
        MakeLandscape(m_large, CSize(Scaled(1200), Scaled(780)));
        AddPicture("In the middle, the rows' colour half over it", m_small, CBackgroundImage::Center, 128);
        AddPicture("Stretched, a third of the rows' colour", m_large, CBackgroundImage::Stretch, 85);
        AddPicture("As tiles, two thirds of the rows' colour", m_small, CBackgroundImage::Tile, 170);
        AddPicture("Stretched, bare", m_large, CBackgroundImage::Stretch, 0)
            .SetAppearance(CAppearance(), ColorScheme::Dark); // the sky is bright in either scheme
    }

    CGrid& AddPicture(std::string caption, CBitmap& landscape, CBackgroundImage::Mode mode, unsigned char opacity)
    {
        CGrid& grid = AddMetalGrid(std::move(caption), 6);
        CBackgroundImage image;
        image.SetBitmap(&landscape);
        image.SetMode(mode);
        image.SetOpacity(opacity);
        grid.SetBackgroundImage(image);
        grid.Select(2, ScrollableContext, true);
        grid.Select(3, ScrollableContext, true);
        grid.SetSort(0, CSortInfo(CMetal::kPrice, true), true);
        return grid;
    }

    CBitmap m_small;
    CBitmap m_large;
};

} // namespace

std::unique_ptr<CPage> MakeBackgroundsPage()
{
    return std::make_unique<CBackgroundsPage>();
}

} // namespace Gallery
