// Loads the settings of a grid from an archive. One grid with rows serves all inputs; it starts each with the same
// settings, is painted with what it has loaded, and must then still do what a grid does.
#include <ostrel/testing/GridWindow.h>

#include "SettingsArchive.h"
#include "Target.h"

using namespace Ostrel;

namespace
{

class Scene
{
public:
    Scene()
    {
        m_window.AddFixed({.name = "sum"});
        m_window.AddRows({"green", "red", "blue"});
        m_window.AddChild("red", {.name = "rose"});
        m_window.Grid().ShowHeader();
        m_driver.Advance(20);
        m_settings = Fuzz::Archived(m_window.Grid());
    }

    void Load(std::span<BYTE const> bytes)
    {
        GUI::CGrid& grid = m_window.Grid();
        Fuzz::Require(Fuzz::LoadArchived(m_settings, grid), "the first settings come back");
        if (!Fuzz::LoadArchived(bytes, grid))
        {
            Fuzz::Require(Fuzz::Archived(grid) == m_settings, "a refused archive changes nothing");
            return;
        }
        auto const stored = Fuzz::Archived(grid);
        m_driver.Advance(20); // paints
        m_driver.WheelRight(1);
        m_driver.Wheel(-1);
        Fuzz::Require(Fuzz::LoadArchived(stored, grid), "what a grid stores can be loaded");
        Fuzz::Require(Fuzz::Archived(grid) == stored, "settings survive a round trip");
        CheckThatItWorks(grid);
    }

private:
    void CheckThatItWorks(GUI::CGrid& grid)
    {
        unsigned int const rowCount = grid.GetRowCount(GUI::ScrollableContext);
        m_window.Object("blue").SetPrice(++m_price);
        m_window.Add({.name = "black"});
        Fuzz::Require(grid.GetRowCount(GUI::ScrollableContext) == rowCount + 1, "a row can be added");
        m_driver.Advance(20);
        m_window.Destroy("black");
        Fuzz::Require(grid.GetRowCount(GUI::ScrollableContext) == rowCount, "and goes with its object");
    }

    Testing::Driver m_driver;
    Testing::GridWindow m_window{m_driver};
    std::vector<BYTE> m_settings;
    double m_price = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Scene& scene = *new Scene; // never destroyed: its display belongs to the thread, which ends before statics
    scene.Load({data, size});
    return 0;
}
