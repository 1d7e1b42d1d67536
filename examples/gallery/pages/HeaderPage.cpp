// The states of titles: at rest, under the pointer, pressed, and the mark where a dragged column would go.
#include "../Pages.h"
#include "../PosedDraw.h"

namespace Gallery
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

class CHeaderPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("At rest", 5);
        AddPosed("Under the pointer: Symbol", {.hotFid = CMetal::kSymbol});
        AddPosed("Pressed: Symbol", {.hotFid = CMetal::kSymbol, .isPressed = true});
        AddPosed("Metal is dragged before Price", {.dropFid = CMetal::kPrice});
        CGrid& narrow = AddMetalGrid("Titles that do not fit", 5);
        narrow.GetHeader()->GetColumnByFid(CMetal::kName)->SetWidth(Scaled(40));
        narrow.GetHeader()->GetColumnByFid(CMetal::kSymbol)->SetWidth(Scaled(50));
        narrow.GetHeader()->GetColumnByFid(CMetal::kChange)->SetWidth(Scaled(60));
        AddMetalGrid("Without a header", 5).HideHeader();
    }

    void AddPosed(std::string caption, CPosedDraw::Pose const& pose)
    {
        AddMetalGrid(std::move(caption), 5, std::make_unique<CPosedDraw>(pose));
    }
};

} // namespace

std::unique_ptr<CPage> MakeHeaderPage()
{
    return std::make_unique<CHeaderPage>();
}

} // namespace Gallery
