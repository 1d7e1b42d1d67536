// Integers as bars.
#include "../Pages.h"
#include "../SlimBar.h"

namespace Gallery
{

using namespace Ostrel::GUI;

namespace
{

class CProgressPage : public CPage
{
    void Build() override
    {
        SetGridsPerRow(1);
        std::vector<ColumnPlan> const columns = {{CMetal::kName, 150},
                                                 {CMetal::kStock, 300},
                                                 {CMetal::kPrice, 110, CColumn::AlignRight},
                                                 {CMetal::kChange, 110, CColumn::AlignRight}};
        AddStocks(AddGrid("Bars from 0 to 100; they move", CMetal::Fields(), columns), {RGB(64, 140, 230), 0, 100});
        AddStocks(AddGrid("From 20 to 60: lower values are empty, higher ones full", CMetal::Fields(), columns),
                  {RGB(60, 170, 100), 20, 60});
    }

    void AddStocks(CGrid& grid, CSlimBar const& bar)
    {
        grid.GetHeader()->GetColumnByFid(CMetal::kStock)->SetCellPaintFormat(bar.Clone()); // owns it now
        for (auto const& metal : AllMetals())
        {
            grid.Add(metal.get(), ScrollableRoot, LastPosition);
        }
    }

    [[nodiscard]] int TickMs() const override { return 100; }
    void OnTick() override
    {
        for (auto const& metal : AllMetals())
        {
            metal->SetStock((metal->GetStock() + 1) % 101);
        }
    }
};

} // namespace

std::unique_ptr<CPage> MakeProgressPage()
{
    return std::make_unique<CProgressPage>();
}

} // namespace Gallery
