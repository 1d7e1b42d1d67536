// The comparison of rows by their values, its odd cases, and that sorts survive an order that is none.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/detail/MergeSort.h>
#include <ostrel/gui/grid/detail/RowArea.h>

namespace Ostrel::GUI::Detail
{
namespace
{

using Common::CValue;

/// Rows whose values are set by the test; the object pointer is the row's number.
class ListedValues : public IRowValues
{
public:
    CValue GetSortValue(CGridItem& item, long fieldId) override
    {
        return values.at(reinterpret_cast<std::size_t>(item.Object())).at(static_cast<std::size_t>(fieldId));
    }

    std::vector<std::vector<CValue>> values;
};

class SortOrderTest : public testing::Test
{
protected:
    ~SortOrderTest() override
    {
        for (CGridItem* const item : m_loose)
        {
            RowArea::DestroyDetached(*item);
        }
    }

    CGridItem* NewItem(std::vector<CValue> values)
    {
        m_values.values.push_back(std::move(values));
        return RowArea::CreateItem(reinterpret_cast<Common::CDataObject*>(m_values.values.size() - 1));
    }
    CGridItem* Add(std::vector<CValue> values)
    {
        CGridItem* const item = NewItem(std::move(values));
        RowChanges changes;
        m_area.Insert(*item, m_area.Root(), LastPosition, changes);
        return item;
    }
    Ordering Compare(SortOrder const& order, std::vector<CValue> a, std::vector<CValue> b)
    {
        CGridItem* const itemA = m_loose.emplace_back(NewItem(std::move(a)));
        CGridItem* const itemB = m_loose.emplace_back(NewItem(std::move(b)));
        order.ComputeKeys(*itemA, m_values);
        order.ComputeKeys(*itemB, m_values);
        return order.Compare(*itemA, *itemB);
    }
    void Update(CGridItem& item, CValue value)
    {
        m_values.values[reinterpret_cast<std::size_t>(item.Object())][0] = std::move(value);
        m_area.Reposition(item);
        EXPECT_EQ(m_area.CheckInvariants(), "");
    }
    std::vector<CGridItem*> Rows() const { return RowArea::Children(m_area.Root(), true); }

    ListedValues m_values;
    RowArea m_area{ScrollableContext, &m_values};
    std::vector<CGridItem*> m_loose;
};

TEST_F(SortOrderTest, ComparesOneLevel)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinity = std::numeric_limits<double>::infinity();
    struct Case
    {
        CValue a;
        CValue b;
        Ordering ascending;
    };
    Case const cases[] = {
        {CValue(1.5), CValue(2.0), Ordering::Before},
        {CValue(-2.0), CValue(-1.5), Ordering::Before},
        {CValue(-0.0), CValue(0.0), Ordering::Equal},
        {CValue(-infinity), CValue(-1e308), Ordering::Before},
        {CValue(nan), CValue(-infinity), Ordering::Before},
        {CValue(nan), CValue(-nan), Ordering::Equal},
        {CValue(5e-324), CValue(0.0), Ordering::After},
        {CValue(-1.0F), CValue(1.0F), Ordering::Before},
        {CValue(-1L), CValue(0L), Ordering::Before},
        {CValue(0xFFFFFFFFUL), CValue(0UL), Ordering::After},
        {CValue(__int64{-1}), CValue(std::numeric_limits<__int64>::max()), Ordering::Before},
        {CValue(static_cast<char>(-1)), CValue(static_cast<char>(1)), Ordering::Before},
        {CValue(static_cast<unsigned char>(255)), CValue(static_cast<unsigned char>(1)), Ordering::After},
        {CValue(short{-3}), CValue(short{2}), Ordering::Before},
        {CValue(false), CValue(true), Ordering::Before},
        {CValue(std::string("abc")), CValue(std::string("abc")), Ordering::Equal},
        {CValue(std::string("same start 1")), CValue(std::string("same start 2")), Ordering::Before},
        {CValue(std::string("a")), CValue(std::string("a\0b", 3)), Ordering::Before},
        {CValue(std::string("\xC3\xA9")), CValue(std::string("z")), Ordering::After},
        {CValue(CString("abcdefgh")), CValue(CString("abcdefghi")), Ordering::Before},
        {CValue(CString("")), CValue(CString("a")), Ordering::Before},
        {CValue(1L), CValue(short{2}), Ordering::Incomparable},
        {CValue(CString("a")), CValue(std::string("b")), Ordering::Incomparable},
        {CValue(), CValue(), Ordering::Incomparable},
        {CValue(), CValue(2.0), Ordering::Incomparable},
    };
    SortLevel const up[] = {{0, false}};
    SortLevel const down[] = {{0, true}};
    SortOrder ascending;
    SortOrder descending;
    ascending.SetLevels(up);
    descending.SetLevels(down);
    for (Case const& each : cases)
    {
        SCOPED_TRACE(&each - cases);
        bool const isOrdered = each.ascending == Ordering::Before || each.ascending == Ordering::After;
        Ordering const turned = each.ascending == Ordering::Before ? Ordering::After : Ordering::Before;
        EXPECT_EQ(Compare(ascending, {each.a}, {each.b}), each.ascending);
        EXPECT_EQ(Compare(ascending, {each.b}, {each.a}), isOrdered ? turned : each.ascending);
        EXPECT_EQ(Compare(descending, {each.a}, {each.b}), isOrdered ? turned : each.ascending);
    }
}

TEST_F(SortOrderTest, ComparesFurtherLevelsOnlyWhereTheEarlierOnesAreEqual)
{
    SortLevel const levels[] = {{0, false}, {1, true}, {2, false}};
    SortOrder order;
    order.SetLevels(levels);
    CValue const text(std::string("a longer text"));
    EXPECT_EQ(Compare(order, {CValue(1L), CValue(2.0), text}, {CValue(1L), CValue(1.0), text}), Ordering::Before);
    EXPECT_EQ(Compare(order, {CValue(1L), text, CValue(1L)}, {CValue(1L), text, CValue(2L)}), Ordering::Before);
    EXPECT_EQ(Compare(order, {text, text, CValue(1L)}, {text, text, CValue(1L)}), Ordering::Equal);
    EXPECT_EQ(Compare(order, {text, CValue(1L), CValue(1L)}, {text, CValue(1.0), CValue(2L)}), Ordering::Incomparable);
    EXPECT_EQ(Compare(order, {CValue(), CValue(1.0), text}, {CValue(), CValue(2.0), text}), Ordering::Incomparable);
}

TEST_F(SortOrderTest, RowsWithoutAValueStayWhereTheyAre)
{
    SortLevel const levels[] = {{0, false}};
    m_area.Sort(levels);
    CGridItem* const one = Add({CValue(1L)});
    CGridItem* const five = Add({CValue(5L)});
    CGridItem* const nine = Add({CValue(9L)});
    Update(*five, CValue());
    EXPECT_EQ(Rows(), (std::vector{one, five, nine}));
    Update(*one, CValue(7L)); // its neighbour says nothing, the row behind it does not come before it
    EXPECT_EQ(Rows(), (std::vector{one, five, nine}));
    Update(*one, CValue(20L));
    EXPECT_EQ(Rows(), (std::vector{five, nine, one}));
}

/// Every sort must keep every element, whatever it is told.
TEST_F(SortOrderTest, SurvivesAnOrderThatIsNone)
{
    std::mt19937 random(3);
    for (std::size_t const size : {2U, 15U, 17U, 100U, 5000U})
    {
        std::vector<unsigned> elements(size);
        std::iota(elements.begin(), elements.end(), 0U);
        MergeSort(elements, [&](unsigned, unsigned) { return random() % 2 == 0; });
        std::ranges::sort(elements);
        EXPECT_EQ(std::ranges::adjacent_find(elements), elements.end());
    }
    SortLevel const levels[] = {{0, false}};
    m_area.Sort(levels);
    std::vector<CGridItem*> items;
    auto const anyValue = [&]
    {
        switch (random() % 5)
        {
        case 0:
            return CValue();
        case 1:
            return CValue(std::nan(""));
        case 2:
            return CValue(std::string(random() % 3, 'x'));
        case 3:
            return CValue(static_cast<long>(random() % 9));
        default:
            return CValue(static_cast<double>(random() % 9));
        }
    };
    for (int i = 0; i < 800; ++i)
    {
        items.push_back(Add({anyValue()}));
    }
    for (int i = 0; i < 3000; ++i)
    {
        Update(*items[random() % items.size()], anyValue());
    }
    SortLevel const downwards[] = {{0, true}, {0, false}};
    m_area.Sort(downwards);
    EXPECT_EQ(m_area.CheckInvariants(), "");
    std::vector<CGridItem*> rows = Rows();
    std::ranges::sort(rows);
    std::ranges::sort(items);
    EXPECT_EQ(rows, items);
}

TEST_F(SortOrderTest, FullSortIsStableAtEverySize)
{
    std::mt19937 random(5);
    std::vector<CGridItem*> expected;
    for (std::size_t i = 0; i < 6000; ++i)
    {
        expected.push_back(Add({CValue(static_cast<double>(random() % 40) - 20.0), CValue(static_cast<long>(i))}));
    }
    for (bool const descending : {false, true})
    {
        SortLevel const levels[] = {{0, descending}};
        std::ranges::stable_sort(expected,
                                 [&](CGridItem* a, CGridItem* b)
                                 {
                                     double const valueA = m_values.GetSortValue(*a, 0);
                                     double const valueB = m_values.GetSortValue(*b, 0);
                                     return descending ? valueA > valueB : valueA < valueB;
                                 });
        m_area.Sort(levels);
        EXPECT_EQ(Rows(), expected);
        EXPECT_EQ(m_area.CheckInvariants(), "");
    }
}

} // namespace
} // namespace Ostrel::GUI::Detail
