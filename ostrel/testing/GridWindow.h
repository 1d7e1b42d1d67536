/// @file
/// A window with nothing but a grid of test objects in it.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/GridItem.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/testing/GridDriver.h>
#include <ostrel/testing/NotificationLog.h>
#include <ostrel/testing/TestObject.h>

namespace Ostrel::Testing
{

/// A header made from a line like "Name:100|Price:80,Quantity:60": captions, which are names of fields of `sample`,
/// with widths (80 when left out); a bar ends the fixed columns. What GridDriver::ColumnsText answers can be read back.
/// Throws DriverError for a name that no field has. The header deletes itself with its grid.
[[nodiscard]] OSTREL_TESTING_API std::unique_ptr<GUI::CHeader> MakeHeader(std::string_view columns,
                                                                          Common::CDataObject& sample);

/// How a GridWindow is set up.
struct GridWindowOptions
{
    std::string title = "Grid";                                        ///< of the window
    std::string columns = "Name:100,Price:80,Quantity:60";             ///< see MakeHeader
    CSize size{400, 300};                                              ///< of the grid, with its scroll bars
    CPoint position{100, 100};                                         ///< of the window on the screen
    DWORD gridStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL; ///< of the grid
};

namespace Detail
{
/// What the driver of a GridWindow stands on, so that it is there first.
struct OSTREL_TESTING_API GridWindowParts
{
    std::vector<std::unique_ptr<TestObject>> objects; // outlive the grid that shows them
    NotificationLog frame;
    GUI::CGrid grid;
};
} // namespace Detail

/// A window with nothing but a grid of test objects in it, ready to be driven.
///
///     Driver driver;
///     GridWindow grid(driver, {.columns = "Name:100|Price:80,Quantity:60"});
///     grid.AddRows({"red", "green", "blue"});
///     grid.ClickRow("red");
///     EXPECT_EQ(grid.SelectionText(), "selected=red focus=red");
///     EXPECT_EQ(grid.Notifications().Text(), "SelectionChanged red selected; FocusChanged red gained");
///
/// The window is visible and has the focus when the constructor returns. Rows are TestObjects that the window owns.
class OSTREL_TESTING_API GridWindow : private Detail::GridWindowParts, public GridDriver
{
public:
    /// Makes the window on the driver's screen. The driver must outlive it.
    explicit GridWindow(Testing::Driver& driver, GridWindowOptions const& options = {});
    GridWindow(GridWindow const&) = delete;
    GridWindow& operator=(GridWindow const&) = delete;
    ~GridWindow();

    /// Adds an object as the last row of an area or of a row. Like all that changes rows here, nothing is painted yet
    /// when it returns.
    TestObject& Add(TestRow row, GUI::CGridItem* parent = GUI::ScrollableRoot);
    /// The same in the fixed area.
    TestObject& AddFixed(TestRow row) { return Add(std::move(row), GUI::FixedRoot); }
    /// The same below the row of that name.
    TestObject& AddChild(std::string_view parentRow, TestRow row) { return Add(std::move(row), Item(parentRow)); }
    /// A row for each name in the scrollable area.
    void AddRows(std::initializer_list<std::string_view> names);
    /// name0, name1, ... with quantities 0, 1, ...
    void AddMany(int count, std::string_view name = "row");
    /// The object of that name, whether the grid shows it or not.
    [[nodiscard]] TestObject& Object(std::string_view name) const;
    /// Destroys the object; its rows go with it.
    void Destroy(std::string_view name);

    /// The header of the grid.
    [[nodiscard]] GUI::CHeader& Header() const { return *Grid().GetHeader(); }
    ///@{
    /// The window around the grid, which writes down what the grid tells it.
    [[nodiscard]] NotificationLog& Frame() noexcept { return frame; }
    [[nodiscard]] NotificationLog& Notifications() noexcept { return frame; }
    ///@}
};

} // namespace Ostrel::Testing
