// The row model in its most naive form: vectors, linear searches, a flag per visible row. What RowArea must agree with.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/detail/RowArea.h>

namespace Ostrel::GUI::Detail
{

struct ReferenceRow
{
    CGridItem* item = nullptr;
    ReferenceRow* parent = nullptr;
    std::vector<ReferenceRow*> children;
    int values[2] = {0, 0}; ///< what the object says now
    int keys[2] = {0, 0};   ///< what it said when the row was sorted in
    bool isExpanded = false;
    bool isSelected = false;
    bool isVisible = false;
};

/// Also answers RowArea's questions for values and for the filter.
class ReferenceRows : public IRowValues, public IRowFilter
{
public:
    ReferenceRows();

    [[nodiscard]] Common::CValue GetSortValue(CGridItem& item, long fieldId) override;
    [[nodiscard]] bool IsHidden(CGridItem& item) override;

    ReferenceRow& NewRow(CGridItem* item, int firstValue, int secondValue);
    /// For all rows of an object, those in no tree too.
    void SetValue(Common::CDataObject const& object, int which, int value);
    void Insert(ReferenceRow& row, ReferenceRow& parent, std::size_t position);
    void Remove(ReferenceRow& row);
    void Forget(ReferenceRow& row);
    void Expand(ReferenceRow& row, bool recursive);
    void Collapse(ReferenceRow& row, bool recursive);
    void ApplyFilterTo(ReferenceRow& row);
    void ApplyFilter();
    void Sort();
    void Reposition(ReferenceRow& row);

    [[nodiscard]] std::vector<CGridItem*> VisibleRows() const;
    [[nodiscard]] std::vector<CGridItem*> SelectedRows(bool onlyVisible) const;
    /// All rows in the tree in pre-order, without the root.
    [[nodiscard]] std::vector<ReferenceRow*> AllRows() const;
    [[nodiscard]] static bool IsInSubtree(ReferenceRow const& top, ReferenceRow const* row);

    ReferenceRow root;
    int hiddenRemainder = -1; ///< hides first values that leave it when divided by three; -1: none
    std::vector<SortLevel> levels;
    std::vector<RowEvent> events;

private:
    [[nodiscard]] bool IsBefore(ReferenceRow const& a, ReferenceRow const& b) const;
    void Show(ReferenceRow& row);
    void Hide(ReferenceRow& row);
    void SortBelow(ReferenceRow& parent);
    void FilterChildren(ReferenceRow& parent);

    std::unordered_map<CGridItem const*, std::unique_ptr<ReferenceRow>> m_rows;
};

} // namespace Ostrel::GUI::Detail
