#include "Dump.h"

namespace ProcessMonitor
{

using namespace Ostrel::GUI;

namespace
{

class RowPrinter : public CGrid::IForEach
{
public:
    bool Visit(CGrid* grid, CGridItem* item, Ostrel::Common::CDataObject* /*object*/) override
    {
        AddLine(*grid, [&](CColumn const& column) { return grid->GetFormattedStlString(item, column.GetFid()); });
        return true;
    }

    template <class CellText>
    void AddLine(CGrid const& grid, CellText const& cellText)
    {
        CHeader const& header = *grid.GetHeader();
        for (int i = 0; i < header.GetVisibleColumnCount(); ++i)
        {
            m_text += i > 0 ? "\t" : "";
            m_text += cellText(*header.GetVisibleColumnByIndex(i));
        }
        m_text += '\n';
    }

    [[nodiscard]] std::string const& Text() const noexcept { return m_text; }

private:
    std::string m_text;
};

} // namespace

std::string DumpOf(CGrid& grid)
{
    RowPrinter printer;
    printer.AddLine(grid, [](CColumn const& column) { return column.GetName(); });
    grid.ForEachVisible(printer, nullptr);
    return printer.Text();
}

} // namespace ProcessMonitor
