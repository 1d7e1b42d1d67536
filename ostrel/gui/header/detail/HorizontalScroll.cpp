#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/header/detail/HorizontalScroll.h>

namespace Ostrel::GUI
{

int HorizontalScrollPosition(CGrid const& grid)
{
    SCROLLINFO info;
    info.cbSize = sizeof(info);
    return grid.GetScrollInfo(SB_HORZ, &info, SIF_POS) ? info.nPos : 0;
}

} // namespace Ostrel::GUI
