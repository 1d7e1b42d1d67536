// Where a column goes that is dragged by its caption: arithmetic over the header's layout, without any window.
#pragma once

namespace Ostrel::GUI
{
class CHeader;
}

namespace Ostrel::GUI::Detail
{
/// A place beside a visible column.
struct ColumnDrop
{
    long fieldId = -2;      ///< the column beside which the dragged one goes, -2 for nowhere
    bool goesBefore = true; ///< or behind it
    int markX = -1;         ///< between the two columns, in client pixels

    [[nodiscard]] bool IsPlace() const noexcept { return markX >= 0; }
    friend bool operator==(ColumnDrop const&, ColumnDrop const&) = default;
};

/// Whether the header lets the user move the column at all.
[[nodiscard]] bool CanDragColumn(CHeader const& header, long fieldId);

/// The place nearest to a client x under a horizontal scroll position. None where the column would stay where it is,
/// and where the header does not allow it.
[[nodiscard]] ColumnDrop FindColumnDrop(CHeader const& header, long fieldId, int clientX, int scrollPosition);
} // namespace Ostrel::GUI::Detail
