#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "HeaderEvents.h"
#include "TestFormats.h"

namespace Ostrel::GUI::Testing
{
namespace
{

class ColumnTest : public testing::Test
{
protected:
    void SetUp() override { m_column->Subscribe(&m_events); }

    std::unique_ptr<CColumn> m_column{NewColumn(1)};
    HeaderEvents m_events;
};

TEST_F(ColumnTest, ASetterNotifiesOnceAndNotForTheSameValue)
{
    auto* const cellFormat = new NumberedCellFormat(1);
    auto* const titleFormat = new TitleFormat;
    auto* const textFormat = new UnnamedTextFormat;
    CColumn& column = *m_column;
    std::pair<char const*, std::function<void()>> const setters[] = {
        {"name", [&] { column.SetName("n"); }},
        {"width", [&] { EXPECT_TRUE(column.SetWidth(70)); }},
        {"alignment", [&] { column.SetAlignment(CColumn::AlignCenter); }},
        {"description", [&] { column.SetDescription("d"); }},
        {"cellformat", [&] { column.SetCellPaintFormat(cellFormat); }},
        {"titleformat", [&] { column.SetColumnPaintFormat(titleFormat); }},
        {"textformat", [&] { column.SetTextFormat(textFormat); }},
        {"cellimage", [&] { column.SetCellImageId(4); }},
        {"titleimage", [&] { column.SetColumnImageId(5); }},
        {"visible", [&] { column.SetVisible(false); }},
        {"editable", [&] { column.SetEditable(true); }},
    };
    for (auto const& [event, set] : setters)
    {
        set();
        EXPECT_EQ(m_events.Take(), event);
        set();
        EXPECT_EQ(m_events.Take(), "") << event;
    }
}

TEST_F(ColumnTest, AWidthBelowOneIsRefused)
{
    EXPECT_FALSE(m_column->SetWidth(0));
    EXPECT_FALSE(m_column->SetWidth(-5));
    EXPECT_EQ(m_column->GetWidth(), 50);
    EXPECT_EQ(m_events.Take(), "");
}

TEST_F(ColumnTest, AReplacedFormatComesBackAndTheSameOneStays)
{
    auto* const first = new UnnamedTextFormat;
    auto* const second = new UnnamedTextFormat;
    EXPECT_EQ(m_column->SetTextFormat(first), nullptr);
    std::unique_ptr<Common::CFormat const> const returned(m_column->SetTextFormat(second));
    EXPECT_EQ(returned.get(), first);
    EXPECT_EQ(m_column->SetTextFormat(second), second);
    EXPECT_EQ(m_column->GetTextFormat(), second);
}

TEST_F(ColumnTest, CopiesHaveTheirOwnFormatsAndNoSubscribers)
{
    m_column->SetCellPaintFormat(new NumberedCellFormat(7));
    m_column->SetName("n");
    m_column->SetVisible(false);
    m_events.Take();

    CColumn copy(*m_column);
    std::unique_ptr<CColumn> const assigned(NewColumn(2));
    assigned->SetCellPaintFormat(new NumberedCellFormat(8));
    *assigned = *m_column;
    for (CColumn* const other : {&copy, assigned.get()})
    {
        EXPECT_EQ(other->GetFid(), 1);
        EXPECT_EQ(other->GetName(), "n");
        EXPECT_FALSE(other->IsVisible());
        EXPECT_NE(other->GetCellPaintFormat(), m_column->GetCellPaintFormat());
        EXPECT_EQ(dynamic_cast<NumberedCellFormat const&>(*other->GetCellPaintFormat()).Number(), 7);
        other->SetWidth(99);
    }
    EXPECT_EQ(m_events.Take(), "");
}

TEST_F(ColumnTest, TheReferenceToANameOutlivesOneChange)
{
    m_column->SetName("before");
    std::string const& name = m_column->GetName();
    m_column->SetName("after");
    EXPECT_EQ(name, "before");
}

TEST_F(ColumnTest, SubscribersMayLeaveWhileTheyAreCalled)
{
    class Leaving final : public CColumn::INotify
    {
    public:
        explicit Leaving(HeaderEvents& other) : m_other(other) {}
        void OnColumnChanged(CColumn* column, CColumn::NotificationType) override
        {
            column->Unsubscribe(this);
            column->Unsubscribe(&m_other);
            column->SetName(column->GetName() + "!");
        }

    private:
        HeaderEvents& m_other;
    };
    std::unique_ptr<CColumn> const column(NewColumn(1));
    Leaving leaving(m_events);
    column->Subscribe(&leaving);
    column->Subscribe(nullptr);
    column->Subscribe(&m_events);
    column->Subscribe(&m_events);
    column->SetWidth(80);
    EXPECT_EQ(column->GetName(), "!");
    EXPECT_EQ(m_events.Take(), "width"); // on the list that was copied, once; not of the name
}

} // namespace
} // namespace Ostrel::GUI::Testing
