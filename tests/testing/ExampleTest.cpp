// The example of docs/testing.md, as a program's own test would have it, and the check that the page shows just this.
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/platform/window/FrameWnd.h>
#include <ostrel/testing/GridWindow.h>

using Ostrel::Testing::TestObject;

namespace
{

/// What stands for the window of an application: it knows nothing of tests.
class StockWindow : public CFrameWnd
{
public:
    StockWindow()
    {
        SetAutoDelete(false);
        Create(nullptr, "Stock", WS_OVERLAPPEDWINDOW, CRect(0, 0, 400, 300));
        m_grid.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 400, 300), this, 1);
        SetClientWindow(&m_grid);
        m_grid.SetHeader(Ostrel::Testing::MakeHeader("Name:120,Price:80", m_bolt).release());
        for (TestObject* const object : {&m_bolt, &m_nut})
        {
            m_grid.Add(object, Ostrel::GUI::ScrollableRoot, Ostrel::GUI::LastPosition);
        }
        ShowWindow(SW_SHOW);
    }

    TestObject m_bolt{{.name = "bolt", .price = 3}};
    TestObject m_nut{{.name = "nut", .price = 2}};
    Ostrel::GUI::CGrid m_grid;
};

} // namespace

// [example]
using namespace Ostrel::Testing;

TEST(StockWindowTest, SortsByPriceAndFollowsAPrice)
{
    Driver driver; // first: from here on the thread has a screen in memory and time stands still
    StockWindow window;
    GridDriver stock(driver, window.m_grid);

    stock.ClickCaption("Price");
    EXPECT_EQ(stock.State(), "rows=nut,bolt selected=- focus=- first=0 sort=Price:asc");

    stock.ClickRow("nut");
    stock.ClickRow("bolt", Modifier::Ctrl);
    EXPECT_EQ(stock.SelectionText(), "selected=nut,bolt focus=bolt");

    COLORREF const before = stock.CellColors("nut", "Price").back;
    window.m_grid.AllowHighlight(true);
    window.m_nut.SetPrice(9); // the row moves to its new place, and the cell lights up
    stock.WaitUntilState("rows=bolt,nut selected=bolt,nut focus=- first=0 sort=Price:asc");
    EXPECT_NE(stock.CellColors("nut", "Price").back, before);
    driver.Advance(5000); // the highlight fades
    EXPECT_EQ(stock.CellColors("nut", "Price").back, before);

    driver.RequestClose(driver.Window("Stock"));
    EXPECT_FALSE(driver.HasWindow("Stock"));
}
// [example]

namespace
{

std::string ContentsOf(char const* path)
{
    std::ifstream const file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string Between(std::string const& text, std::string const& first, std::string const& last)
{
    std::size_t const begin = text.find(first) + first.size();
    return text.substr(begin, text.find(last, begin) - begin);
}

TEST(DocumentationTest, ThePageShowsTheExampleThatIsCompiled)
{
    std::string const compiled = Between(ContentsOf(OSTREL_TESTING_EXAMPLE), "\n// [example]\n", "// [example]\n");
    EXPECT_EQ(Between(ContentsOf(OSTREL_TESTING_PAGE), "```cpp\n", "```\n"), compiled);
}

} // namespace
