// The reading half of the grid driver: names, texts and colours.
#include <cstdlib>
#include <map>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/testing/GridDriver.h>

namespace Ostrel::Testing
{

using GUI::CColumn;
using GUI::CGridItem;
using GUI::CHeader;
using GUI::ContextType;

namespace
{

constexpr char const* kNothing = "-";

std::string Joined(std::vector<std::string> const& texts, char const* separator = ",")
{
    std::string joined;
    for (std::string const& text : texts)
    {
        joined += joined.empty() ? text : separator + text;
    }
    return joined.empty() ? kNothing : joined;
}

int Distance(COLORREF a, COLORREF b) noexcept
{
    return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
           std::abs(GetBValue(a) - GetBValue(b));
}

/// Calls for each row of an area from the first on, until the function answers false.
template <class Function>
void ForEachRow(GUI::CGrid const& grid, ContextType area, Function const& function)
{
    auto const count = static_cast<int>(grid.GetRowCount(area));
    for (int row = 0; row < count && function(grid.GetItem(row, area)); ++row)
    {}
}

} // namespace

// ---- names

long GridDriver::KeyFid() const
{
    if (m_keyFid.has_value())
    {
        return *m_keyFid;
    }
    CHeader const* const header = m_grid.GetHeader();
    CColumn const* const column = header != nullptr ? header->GetFirstVisibleColumn() : nullptr;
    if (column == nullptr)
    {
        throw DriverError("the grid has no visible column by which rows could be named");
    }
    return column->GetFid();
}

std::string GridDriver::NameOf(CGridItem* item) const
{
    return item != nullptr ? m_grid.GetFormattedStlString(item, KeyFid()) : kNothing;
}

std::string GridDriver::NameOf(Common::CDataObject& object) const
{
    CHeader const* const header = m_grid.GetHeader();
    CColumn const* const column = header != nullptr ? header->GetColumnByFid(KeyFid()) : nullptr;
    return object.GetFormattedStlString(KeyFid(), column != nullptr ? column->GetTextFormat() : nullptr);
}

CGridItem* GridDriver::FindItem(std::string_view row) const
{
    CGridItem* found = nullptr;
    for (ContextType const area : {GUI::FixedContext, GUI::ScrollableContext})
    {
        if (found == nullptr)
        {
            ForEachRow(m_grid, area,
                       [&](CGridItem* item)
                       {
                           found = NameOf(item) == row ? item : nullptr;
                           return found == nullptr;
                       });
        }
    }
    return found;
}

bool GridDriver::HasRow(std::string_view row) const
{
    return FindItem(row) != nullptr;
}

CGridItem* GridDriver::Item(std::string_view row) const
{
    CGridItem* const item = FindItem(row);
    if (item == nullptr)
    {
        throw DriverError("no row \"" + std::string(row) + "\"; there are: " + RowsText());
    }
    return item;
}

CColumn& GridDriver::Column(std::string_view caption) const
{
    CHeader const* const header = m_grid.GetHeader();
    int const count = header != nullptr ? header->GetColumnCount() : 0;
    for (int position = 0; position < count; ++position)
    {
        CColumn* const column = header->GetColumnByIndex(position);
        if (column->GetName() == caption)
        {
            return *column;
        }
    }
    throw DriverError("no column \"" + std::string(caption) + "\"; there are: " + ColumnsText());
}

// ---- texts

std::string GridDriver::CellText(std::string_view row, std::string_view column) const
{
    return m_grid.GetFormattedStlString(Item(row), Column(column).GetFid());
}

std::string GridDriver::RowText(std::string_view row) const
{
    CGridItem* const item = Item(row);
    CHeader const* const header = m_grid.GetHeader();
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(header->GetVisibleColumnCount()));
    for (int position = 0; position < header->GetVisibleColumnCount(); ++position)
    {
        texts.push_back(m_grid.GetFormattedStlString(item, header->GetVisibleColumnByIndex(position)->GetFid()));
    }
    return Joined(texts, " | ");
}

std::vector<std::string> GridDriver::Rows(ContextType area) const
{
    std::vector<std::string> names;
    ForEachRow(m_grid, area,
               [&](CGridItem* item)
               {
                   names.push_back(NameOf(item));
                   return true;
               });
    return names;
}

std::vector<std::string> GridDriver::RowsOnScreen() const
{
    std::vector<std::string> names;
    for (ContextType const area : {GUI::FixedContext, GUI::ScrollableContext})
    {
        int const first = area == GUI::FixedContext ? 0 : m_grid.GetFirstVisibleRow();
        for (int row = first; row >= 0 && row <= m_grid.GetLastVisibleRow(area); ++row)
        {
            names.push_back(NameOf(m_grid.GetItem(row, area)));
        }
    }
    return names;
}

std::string GridDriver::DecoratedName(CGridItem* item) const
{
    std::string const levels(static_cast<std::size_t>(std::max(0, m_grid.GetHierarchicalLevel(item))), '>');
    bool const isCollapsed = m_grid.HasChildren(item) && !m_grid.IsExpanded(item);
    return levels + NameOf(item) + (isCollapsed ? "+" : "");
}

std::string GridDriver::AreaText(ContextType area) const
{
    std::vector<std::string> names;
    ForEachRow(m_grid, area,
               [&](CGridItem* item)
               {
                   names.push_back(DecoratedName(item));
                   return true;
               });
    return Joined(names);
}

std::string GridDriver::RowsText() const
{
    bool const hasFixed = m_grid.GetRowCount(GUI::FixedContext) > 0;
    return (hasFixed ? "fixed=" + AreaText(GUI::FixedContext) + ' ' : "") + "rows=" + AreaText(GUI::ScrollableContext);
}

std::string GridDriver::SelectionText() const
{
    std::vector<std::string> names;
    for (CGridItem* const item : m_grid.GetSelection(GUI::AllContexts))
    {
        names.push_back(NameOf(item));
    }
    ContextType const area = m_grid.GetFocusedContext();
    CGridItem* const focused = area != GUI::NoContext ? m_grid.GetItem(m_grid.GetFocusedRow(), area) : nullptr;
    return "selected=" + Joined(names) + " focus=" + NameOf(focused);
}

std::string GridDriver::FirstRowText() const
{
    return "first=" + std::to_string(m_grid.GetFirstVisibleRow());
}

std::string GridDriver::SortText() const
{
    std::vector<std::string> levels;
    for (int level = 0; level < m_grid.GetSortLevels(); ++level)
    {
        GUI::CSortInfo const info = m_grid.GetSort(level);
        CColumn const* const column = m_grid.GetHeader()->GetColumnByFid(info.GetFid());
        std::string const name = column != nullptr ? column->GetName() : std::to_string(info.GetFid());
        levels.push_back(name + (info.GetReverseSort() ? ":desc" : ":asc"));
    }
    return "sort=" + Joined(levels);
}

std::string GridDriver::State() const
{
    return RowsText() + ' ' + SelectionText() + ' ' + FirstRowText() + ' ' + SortText();
}

std::string GridDriver::ColumnsText() const
{
    CHeader const* const header = m_grid.GetHeader();
    int const count = header != nullptr ? header->GetVisibleColumnCount() : 0;
    std::string text;
    for (int position = 0; position < count; ++position)
    {
        CColumn const* const column = header->GetVisibleColumnByIndex(position);
        bool const isFirstScrollable = position > 0 && position == header->GetFixedColumnsCount();
        text += position == 0 ? "" : (isFirstScrollable ? "|" : ",");
        text += column->GetName() + ':' + std::to_string(column->GetWidth());
    }
    return text.empty() ? kNothing : text;
}

// ---- pixels

Platform::Surface GridDriver::CellPicture(std::string_view row, std::string_view column)
{
    Platform::Surface const grid = m_driver.Picture(m_grid);
    CRect const cell = CellRect(row, column);
    Platform::Surface picture(cell.Width(), cell.Height());
    picture.CopyFrom(grid, cell, {0, 0});
    return picture;
}

GridDriver::Colors GridDriver::CellColors(std::string_view row, std::string_view column)
{
    constexpr int kEdge = 2; // grid lines, the frames of focus and selection
    Platform::Surface const cell = CellPicture(row, column);
    std::map<COLORREF, int> counts;
    for (int y = kEdge; y < cell.Height() - kEdge; ++y)
    {
        for (int x = kEdge; x < cell.Width() - kEdge; ++x)
        {
            ++counts[cell.ColorAt(x, y)];
        }
    }
    if (counts.empty())
    {
        throw DriverError("the cell is too small to tell its colours");
    }
    Colors colors{counts.begin()->first, 0};
    for (auto const& [color, count] : counts)
    {
        colors.back = count > counts[colors.back] ? color : colors.back;
    }
    colors.text = colors.back;
    for (auto const& [color, count] : counts)
    {
        colors.text = Distance(color, colors.back) > Distance(colors.text, colors.back) ? color : colors.text;
    }
    return colors;
}

} // namespace Ostrel::Testing
