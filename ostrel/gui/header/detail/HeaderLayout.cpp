#include <algorithm>
#include <limits>
#include <utility>

#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>

namespace Ostrel::GUI
{
namespace
{

constexpr int ClampToInt(long long value) noexcept
{
    return static_cast<int>(
        std::clamp<long long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

HeaderLayout::HeaderLayout(Columns columns, int fixedCount, int headerHeight, std::vector<CSortInfo> const& sortLevels)
    : m_columns(std::move(columns)), m_headerHeight(headerHeight)
{
    PlaceColumns();
    m_fixedCount = std::clamp(fixedCount, 0, static_cast<int>(m_visible.size()));
    m_fixedWidth = m_fixedCount == 0 ? 0 : m_visible[static_cast<std::size_t>(m_fixedCount) - 1].right;
    m_scrollableWidth = m_visible.empty() ? 0 : m_visible.back().right - m_fixedWidth;
    IndexFids();
    MarkSortLevels(sortLevels);
}

void HeaderLayout::PlaceColumns()
{
    m_visible.reserve(m_columns.size());
    m_edges.reserve(m_columns.size());
    int left = 0;
    for (std::size_t position = 0; position < m_columns.size(); ++position)
    {
        CColumn* const column = m_columns[position].get();
        if (!column->IsVisible())
        {
            continue;
        }
        int const right = ClampToInt(static_cast<long long>(left) + std::max(column->GetWidth(), 0));
        if (right > left)
        {
            m_edges.push_back({right, static_cast<int>(m_visible.size())});
        }
        m_visible.push_back({column, column->GetFid(), static_cast<int>(position), left, right, -1, false});
        left = right;
    }
}

void HeaderLayout::IndexFids()
{
    m_fids.reserve(m_columns.size());
    for (std::size_t position = 0; position < m_columns.size(); ++position)
    {
        m_fids.push_back({m_columns[position]->GetFid(), static_cast<int>(position), -1});
    }
    for (std::size_t visiblePosition = 0; visiblePosition < m_visible.size(); ++visiblePosition)
    {
        auto const position = static_cast<std::size_t>(m_visible[visiblePosition].position);
        m_fids[position].visiblePosition = static_cast<int>(visiblePosition);
    }
    std::ranges::stable_sort(m_fids, {}, &FidEntry::fid);
}

void HeaderLayout::MarkSortLevels(std::vector<CSortInfo> const& sortLevels)
{
    for (std::size_t level = 0; level < sortLevels.size(); ++level)
    {
        int const visiblePosition = VisiblePositionOf(sortLevels[level].GetFid());
        if (visiblePosition < 0)
        {
            continue;
        }
        VisibleColumn& column = m_visible[static_cast<std::size_t>(visiblePosition)];
        if (column.sortLevel < 0)
        {
            column.sortLevel = static_cast<int>(level);
            column.reverseSort = sortLevels[level].GetReverseSort();
        }
    }
}

HeaderLayout::FidEntry const* HeaderLayout::Find(long fid) const noexcept
{
    auto const found = std::ranges::lower_bound(m_fids, fid, {}, &FidEntry::fid);
    return found != m_fids.end() && found->fid == fid ? &*found : nullptr;
}

int HeaderLayout::PositionOf(long fid) const noexcept
{
    FidEntry const* const entry = Find(fid);
    return entry != nullptr ? entry->position : -1;
}

int HeaderLayout::VisiblePositionOf(long fid) const noexcept
{
    FidEntry const* const entry = Find(fid);
    return entry != nullptr ? entry->visiblePosition : -1;
}

CColumn* HeaderLayout::ColumnAt(int position) const noexcept
{
    return position >= 0 && position < std::ssize(m_columns) ? m_columns[static_cast<std::size_t>(position)].get()
                                                             : nullptr;
}

CColumn* HeaderLayout::ColumnOf(long fid) const noexcept
{
    return ColumnAt(PositionOf(fid));
}

VisibleColumn const* HeaderLayout::VisibleAt(int visiblePosition) const noexcept
{
    return visiblePosition >= 0 && visiblePosition < std::ssize(m_visible)
               ? &m_visible[static_cast<std::size_t>(visiblePosition)]
               : nullptr;
}

VisibleColumn const* HeaderLayout::VisibleOf(long fid) const noexcept
{
    return VisibleAt(VisiblePositionOf(fid));
}

bool HeaderLayout::IsFixed(VisibleColumn const& column) const noexcept
{
    return &column - m_visible.data() < m_fixedCount;
}

VisibleColumn const* HeaderLayout::HitTest(int clientX, int scrollPosition) const noexcept
{
    int const x = clientX < m_fixedWidth ? clientX : ClampToInt(static_cast<long long>(clientX) + scrollPosition);
    auto const edge = std::ranges::upper_bound(m_edges, x, {}, &Edge::right);
    if (edge == m_edges.end())
    {
        return nullptr;
    }
    VisibleColumn const* const column = VisibleAt(edge->visiblePosition);
    return x >= column->left ? column : nullptr;
}

CRect HeaderLayout::VirtualRect(VisibleColumn const& column, int scrollPosition) const noexcept
{
    long long const shift = column.left >= m_fixedWidth ? scrollPosition : 0;
    return {ClampToInt(column.left - shift), 0, ClampToInt(column.right - shift), m_headerHeight};
}

CRect HeaderLayout::VisibleRect(VisibleColumn const& column, int scrollPosition) const noexcept
{
    CRect rect = VirtualRect(column, scrollPosition);
    if (column.left >= m_fixedWidth)
    {
        rect.left = std::max<LONG>(rect.left, m_fixedWidth);
        rect.right = std::max<LONG>(rect.right, m_fixedWidth);
    }
    return rect;
}

} // namespace Ostrel::GUI
