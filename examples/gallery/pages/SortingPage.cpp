// Sort marks: the first level has a mark alone, further ones show their rank by filled bars.
#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::GUI;

namespace
{

class CSortingPage : public CPage
{
    void Build() override
    {
        AddMetalGrid("Ascending", 8).SetSort(0, CSortInfo(CMetal::kName, false), true);
        AddMetalGrid("Descending", 8).SetSort(0, CSortInfo(CMetal::kPrice, true), true);
        CGrid& levels = AddGrid("Five levels", CMetal::Fields(),
                                {{CMetal::kName, 80},
                                 {CMetal::kSymbol, 75},
                                 {CMetal::kPrice, 75, CColumn::AlignRight},
                                 {CMetal::kChange, 65, CColumn::AlignRight},
                                 {CMetal::kStock, 75, CColumn::AlignRight}});
        levels.GetHeader()->GetColumnByFid(CMetal::kChange)->SetName("+ %");
        SortByAll(levels);
        CGrid& centered = AddGrid("Narrow and centred titles", CMetal::Fields(),
                                  {{CMetal::kName, 60, CColumn::AlignCenter},
                                   {CMetal::kSymbol, 110, CColumn::AlignCenter},
                                   {CMetal::kPrice, 40, CColumn::AlignRight},
                                   {CMetal::kChange, 24, CColumn::AlignCenter},
                                   {CMetal::kStock, 100, CColumn::AlignRight}});
        SortByAll(centered);
    }

    void SortByAll(CGrid& grid)
    {
        for (std::size_t i = 0; i < 9; ++i)
        {
            grid.Add(AllMetals()[i].get(), ScrollableRoot, LastPosition);
        }
        int level = 0;
        for (long const fid : {CMetal::kSymbol, CMetal::kName, CMetal::kPrice, CMetal::kChange, CMetal::kStock})
        {
            grid.SetSort(level, CSortInfo(fid, level % 2 == 1), true);
            ++level;
        }
    }
};

} // namespace

std::unique_ptr<CPage> MakeSortingPage()
{
    return std::make_unique<CSortingPage>();
}

} // namespace Gallery
