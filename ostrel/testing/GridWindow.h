// A window with nothing but a grid of test objects in it, ready to be driven.
//
//     Driver driver;
//     GridWindow grid(driver, {.columns = "Name:100|Price:80,Quantity:60"});
//     grid.AddRows({"red", "green", "blue"});
//     grid.ClickRow("red");
//     EXPECT_EQ(grid.SelectionText(), "selected=red focus=red");
//     EXPECT_EQ(grid.Notifications().Text(), "FocusChanged red gained; SelectionChanged red selected");
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

struct GridWindowOptions
{
    std::string title = "Grid";
    std::string columns = "Name:100,Price:80,Quantity:60";
    CSize size{400, 300}; ///< of the grid, with its scroll bars
    CPoint position{100, 100};
    DWORD gridStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL;
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

/// The window is visible and has the focus when the constructor returns. Rows are TestObjects that the window owns.
class OSTREL_TESTING_API GridWindow : private Detail::GridWindowParts, public GridDriver
{
public:
    explicit GridWindow(Testing::Driver& driver, GridWindowOptions const& options = {});
    GridWindow(GridWindow const&) = delete;
    GridWindow& operator=(GridWindow const&) = delete;
    ~GridWindow();

    /// Adds an object as the last row of an area or of a row. Like all that changes rows here, nothing is painted yet
    /// when it returns.
    TestObject& Add(TestRow row, GUI::CGridItem* parent = GUI::ScrollableRoot);
    TestObject& AddFixed(TestRow row) { return Add(std::move(row), GUI::FixedRoot); }
    TestObject& AddChild(std::string_view parentRow, TestRow row) { return Add(std::move(row), Item(parentRow)); }
    void AddRows(std::initializer_list<std::string_view> names);
    /// name0, name1, ... with quantities 0, 1, ...
    void AddMany(int count, std::string_view name = "row");
    /// The object of that name, whether the grid shows it or not.
    [[nodiscard]] TestObject& Object(std::string_view name) const;
    /// Destroys the object; its rows go with it.
    void Destroy(std::string_view name);

    [[nodiscard]] GUI::CHeader& Header() const { return *Grid().GetHeader(); }
    [[nodiscard]] NotificationLog& Frame() noexcept { return frame; }
    [[nodiscard]] NotificationLog& Notifications() noexcept { return frame; }
};

} // namespace Ostrel::Testing
