// Columns and rows that stay while the others scroll. The grids are scrolled.
#include <array>

#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;

namespace
{

constexpr long kMonthCount = 12;

/// A city and what it sold in each month. The fields are made at run time.
class CCity : public CDynamicObject
{
public:
    enum Fid : long
    {
        kName,
        kYear,
        kFirstMonth
    };

    CCity(std::string const& name, long seed) : CDynamicObject(true)
    {
        constexpr std::array<char const*, kMonthCount> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
        DeclareField(new CField(kName, "City", TypeStlString)); // takes it
        DeclareField(new CField(kYear, "Year", TypeLong));
        SetStlString(kName, name);
        long year = 0;
        for (long month = 0; month < kMonthCount; ++month)
        {
            long const sold = 100 + (seed * 37 + month * 53) % 190;
            DeclareField(new CField(kFirstMonth + month, kMonths[static_cast<std::size_t>(month)], TypeLong));
            SetLong(kFirstMonth + month, sold);
            year += sold;
        }
        SetLong(kYear, year);
    }
};

class CFixedPage : public CPage
{
    void Build() override
    {
        SetGridsPerRow(1);
        for (char const* const name : {"Amsterdam", "Berlin", "Copenhagen", "Dublin", "Edinburgh", "Florence", "Geneva",
                                       "Helsinki", "Istanbul", "Krakow", "Lisbon", "Madrid", "Naples", "Oslo"})
        {
            m_cities.push_back(std::make_unique<CCity>(name, static_cast<long>(m_cities.size())));
        }
        AddCityGrid("Two fixed columns", 0);
        AddCityGrid("The same with two fixed rows and vertical lines", 2).GetAppearance().EnableVerticalLines(true);
    }

    void Pose() override
    {
        for (CGrid* const grid : m_grids)
        {
            grid->SetFirstVisibleRow(2);
            grid->EnsureColumnVisible(CCity::kFirstMonth + 8);
        }
    }

    CGrid& AddCityGrid(std::string caption, std::size_t fixedRows)
    {
        std::vector<ColumnPlan> columns = {{CCity::kName, 110}, {CCity::kYear, 80, CColumn::AlignRight}};
        for (long month = 0; month < kMonthCount; ++month)
        {
            columns.push_back({CCity::kFirstMonth + month, 80, CColumn::AlignRight});
        }
        CGrid& grid = AddGrid(std::move(caption), *m_cities.front()->GetFieldMap(), columns);
        grid.GetHeader()->SetFixedColumnsCount(2);
        for (std::size_t i = 0; i < m_cities.size(); ++i)
        {
            grid.Add(m_cities[i].get(), i < fixedRows ? FixedRoot : ScrollableRoot, LastPosition);
        }
        m_grids.push_back(&grid);
        return grid;
    }

    std::vector<std::unique_ptr<CCity>> m_cities;
    std::vector<CGrid*> m_grids;
};

} // namespace

std::unique_ptr<CPage> MakeFixedPage()
{
    return std::make_unique<CFixedPage>();
}

} // namespace Gallery
