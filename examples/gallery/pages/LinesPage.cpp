// Grid lines: none, horizontal, vertical, both in colours of their own.
#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::GUI;

namespace
{

class CLinesPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("No lines", 6);
        AddMetalGrid("Horizontal lines", 6).GetAppearance().EnableHorizontalLines(true);
        AddMetalGrid("Vertical lines", 6).GetAppearance().EnableVerticalLines(true);
        CAppearance& both = AddMetalGrid("Both, each in a colour", 6).GetAppearance();
        both.EnableHorizontalLines(true);
        both.EnableVerticalLines(true);
        both.SetHorizontalLinesColor(RGB(46, 160, 90));
        both.SetVerticalLinesColor(RGB(38, 110, 217));
    }
};

} // namespace

std::unique_ptr<CPage> MakeLinesPage()
{
    return std::make_unique<CLinesPage>();
}

} // namespace Gallery
