// The grid's header: holding it, hearing its events on the grid's thread, and what is measured by its columns.
#pragma once

#include <algorithm>
#include <memory>

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/platform/base/Geometry.h>

class CDC;

namespace Ostrel::GUI
{
class CGridItem;
}

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridColumns final : private CHeader::INotify
{
public:
    explicit GridColumns(GridCore& core) noexcept : m_core(core) {}
    ~GridColumns() override;

    /// Returns the old header, which is then the caller's.
    CHeader* SetHeader(CHeader* header);
    [[nodiscard]] CHeader* Header() const noexcept { return m_header; }
    /// Null without a header.
    [[nodiscard]] std::shared_ptr<HeaderLayout const> Layout() const;

    void Show(bool show);
    [[nodiscard]] bool IsShown() const noexcept { return m_isShown; }
    /// 0 while there is no header to be seen. Never so large that sums of it with others are no numbers any more.
    [[nodiscard]] int ShownHeight() const noexcept { return m_isShown ? std::clamp(m_height, -kTallest, kTallest) : 0; }
    [[nodiscard]] int FixedWidth() const;
    [[nodiscard]] int TotalWidth() const;

    [[nodiscard]] CColumn* ColumnAt(CPoint clientPoint) const;
    [[nodiscard]] CColumn* NavigationColumn() const;
    /// The one that shows the tree: the first visible column.
    [[nodiscard]] CColumn* HierarchicalColumn() const;
    void EnsureVisible(long fieldId);

    // --- Measuring ---
    [[nodiscard]] int OptimalCellWidth(int row, ContextType type, long fieldId) const;
    [[nodiscard]] int OptimalColumnWidth(ContextType mask, long fieldId) const;
    [[nodiscard]] int OptimalHeaderHeight() const;
    /// Fits the column to its widest cell.
    void Adjust(CColumn* column);
    void AdjustAll();

private:
    // CHeader::INotify
    void OnHeaderChanged(CHeader* header, CColumn* column, CHeader::NotificationType type) override;

    void Handle(CColumn* column, CHeader::NotificationType type);
    void LayOutAnew();
    [[nodiscard]] int MeasureCell(CDC& dc, CGridItem* item, int row, ContextType type, CColumn const& column) const;

    static constexpr int kTallest = 32767;

    GridCore& m_core;
    CHeader* m_header = nullptr;
    int m_height = 0; ///< of the header, so that geometry need not ask it
    bool m_isShown = true;
};
} // namespace Ostrel::GUI::Detail
