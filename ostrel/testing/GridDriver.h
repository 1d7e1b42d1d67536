/// @file
/// A person in front of a grid.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/testing/Driver.h>

namespace Ostrel::Testing
{

/// A person in front of a grid: clicks rows, cells and captions by their names and tells what the grid shows.
///
///     GridDriver grid(driver, window.m_grid);
///     grid.ClickRow("red");
///     grid.ClickRow("blue", Modifier::Ctrl);
///     grid.ClickCaption("Price");
///     EXPECT_EQ(grid.State(), "rows=blue,red selected=red,blue focus=- first=0 sort=Price:asc");
///
/// A row is named by the text of its key column: the first visible one unless SetKeyColumn says otherwise. Where
/// several rows have the name the first one counts, fixed rows before scrollable ones. A column is named by its
/// caption. Only what is on the screen can be clicked: ScrollTo turns the wheel until a row is. Whatever is not there
/// throws DriverError.
///
/// All on the thread of the grid. Neither driver nor grid is owned; both outlive this object.
class OSTREL_TESTING_API GridDriver
{
public:
    /// Neither is owned; both outlive this object.
    GridDriver(Testing::Driver& driver, GUI::CGrid& grid) noexcept : m_driver(driver), m_grid(grid) {}

    /// The driver of the program.
    [[nodiscard]] Testing::Driver& Driver() const noexcept { return m_driver; }
    /// The grid.
    [[nodiscard]] GUI::CGrid& Grid() const noexcept { return m_grid; }
    /// From now on rows are named by their text in this column.
    void SetKeyColumn(std::string_view caption) { m_keyFid = Column(caption).GetFid(); }

    // ---- names
    /// The row of that name, on the screen or not.
    [[nodiscard]] GUI::CGridItem* Item(std::string_view row) const;
    /// The column with that caption.
    [[nodiscard]] GUI::CColumn& Column(std::string_view caption) const;
    /// Whether there is a row of that name, visible or not.
    [[nodiscard]] bool HasRow(std::string_view row) const;
    ///@{
    /// The name of a row, or of the row of an object; "-" for none.
    [[nodiscard]] std::string NameOf(GUI::CGridItem* item) const;
    [[nodiscard]] std::string NameOf(Common::CDataObject& object) const;
    ///@}

    // ---- mouse on rows and cells. A row is clicked in its key column, where the text is.
    /// A click on the row.
    void ClickRow(std::string_view row, Modifier modifiers = Modifier::None);
    /// A double click on the row.
    void DoubleClickRow(std::string_view row, Modifier modifiers = Modifier::None);
    /// A click with the right button on the row.
    void RightClickRow(std::string_view row);
    /// A click into the middle of the cell.
    void ClickCell(std::string_view row, std::string_view column, Modifier modifiers = Modifier::None);
    /// A double click into the middle of the cell.
    void DoubleClickCell(std::string_view row, std::string_view column);
    /// Presses on one row and releases on another.
    void DragRow(std::string_view fromRow, std::string_view toRow, Modifier modifiers = Modifier::None);
    /// A click on the button that shows or hides the row's children.
    void ClickExpandButton(std::string_view row);
    /// Below the last row; throws when there is no room.
    void ClickBelowRows();
    /// Moves the pointer over the cell and lets it rest.
    void HoverCell(std::string_view row, std::string_view column, int restMs = 1000);

    // ---- mouse on the header
    /// A click on the caption: it sorts.
    void ClickCaption(std::string_view column, Modifier modifiers = Modifier::None);
    /// Drags the right edge of a caption by so many pixels.
    void DragCaptionEdge(std::string_view column, int pixels);
    /// Drags one caption onto another.
    void DragCaption(std::string_view column, std::string_view ontoColumn);

    // ---- scrolling
    /// Turns the wheel over the scrollable rows; positive up.
    void Wheel(int notches);
    /// Turns the wheel until the row is wholly on the screen.
    void ScrollTo(std::string_view row);
    /// What of the vertical scroll bar is clicked.
    enum class ScrollBarPart
    {
        LineUp,   ///< the button at the top
        LineDown, ///< the button at the bottom
        PageUp,   ///< between that button and the thumb
        PageDown  ///< between the thumb and that button
    };
    /// Clicks on a part of the vertical bar.
    void ClickScrollBar(ScrollBarPart part);
    /// Drags the thumb of the vertical bar by so many pixels.
    void DragThumb(int pixels);

    // ---- keyboard; the grid must have the focus (a click gives it)
    /// A key, a VK_ code, down and up.
    void PressKey(UINT key, Modifier modifiers = Modifier::None) { m_driver.PressKey(key, modifiers); }
    /// Types whole UTF-8 characters.
    void TypeText(std::string_view text) { m_driver.TypeText(text); }

    // ---- what is shown, as text
    /// The text of a cell, on the screen or not.
    [[nodiscard]] std::string CellText(std::string_view row, std::string_view column) const;
    /// The texts of the visible columns, "red | 3.50 | 7".
    [[nodiscard]] std::string RowText(std::string_view row) const;
    /// The names of the rows of an area, those on the screen or not, in order.
    [[nodiscard]] std::vector<std::string> Rows(GUI::ContextType area = GUI::ScrollableContext) const;
    /// The names of the rows whose top is on the screen, fixed ones first.
    [[nodiscard]] std::vector<std::string> RowsOnScreen() const;

    /// Everything that matters in one line, made of the parts below and always in this order:
    ///
    ///     fixed=sum rows=metals,>gold,>iron,woods+ selected=gold focus=iron first=0 sort=Name:asc,Price:desc
    ///
    /// `fixed` is there only when there are fixed rows. A row is preceded by one > for each level above it and followed
    /// by + when it is collapsed and has children. Lists are in the grid's order; "-" stands for nothing.
    [[nodiscard]] std::string State() const;
    /// "fixed=sum rows=red,blue" as above.
    [[nodiscard]] std::string RowsText() const;
    /// "selected=red,blue focus=blue".
    [[nodiscard]] std::string SelectionText() const;
    /// "sort=Name:asc,Price:desc".
    [[nodiscard]] std::string SortText() const;
    /// Captions and widths of the visible columns; a bar parts the fixed ones from the others:
    /// "Name:80|Price:60,Age:40".
    [[nodiscard]] std::string ColumnsText() const;

    // ---- what is shown, as pixels
    /// The two colours of a text.
    struct Colors
    {
        COLORREF back; ///< the commonest colour
        COLORREF text; ///< the one that differs from it most
    };
    /// The colours of the inside of the cell, two pixels off its edges.
    [[nodiscard]] Colors CellColors(std::string_view row, std::string_view column);
    /// The pixels of the inside of the cell.
    [[nodiscard]] Platform::Surface CellPicture(std::string_view row, std::string_view column);

    // ---- waiting; each throws DriverError with the state reached when the limit has passed
    /// Lets time pass until the predicate answers true, at most that many milliseconds of the clock.
    void WaitUntil(std::function<bool()> const& predicate, int limitMs = 5000);
    /// The same until State() is this line.
    void WaitUntilState(std::string_view state, int limitMs = 5000);
    /// The same until the cell has this text.
    void WaitUntilCell(std::string_view row, std::string_view column, std::string_view text, int limitMs = 5000);

    // ---- places, in client coordinates
    /// What of the cell is on the screen.
    [[nodiscard]] CRect CellRect(std::string_view row, std::string_view column) const;
    /// The middle of the cell.
    [[nodiscard]] CPoint CellPoint(std::string_view row, std::string_view column) const;
    /// Where the row is clicked.
    [[nodiscard]] CPoint RowPoint(std::string_view row) const;
    /// The middle of the caption.
    [[nodiscard]] CPoint CaptionPoint(std::string_view column) const;

private:
    [[nodiscard]] long KeyFid() const;
    [[nodiscard]] GUI::CGridItem* FindItem(std::string_view row) const;
    [[nodiscard]] CRect VisibleCell(std::string_view row, long fid) const;
    [[nodiscard]] CPoint PointIn(std::string_view row, long fid) const;
    [[nodiscard]] CRect CaptionRect(std::string_view column) const;
    [[nodiscard]] CRect VerticalBar() const;
    [[nodiscard]] std::string DecoratedName(GUI::CGridItem* item) const;
    [[nodiscard]] std::string AreaText(GUI::ContextType area) const;
    [[nodiscard]] std::string FirstRowText() const;
    void RequireWait(bool hasSucceeded, std::string const& expected) const;

    Testing::Driver& m_driver;
    GUI::CGrid& m_grid;
    std::optional<long> m_keyFid;
};

} // namespace Ostrel::Testing
