// An application of ten lines: it shows one row and ends.
#include <ostrel/GUI.h>
#include <ostrel/testing/GridWindow.h>

int main()
{
    Ostrel::GUI::CGrid grid;
    Ostrel::Testing::TestObject object({.name = "row"});
    return grid.Add(&object, Ostrel::GUI::ScrollableRoot, Ostrel::GUI::LastPosition) != nullptr ? 0 : 1;
}
