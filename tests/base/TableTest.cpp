#include <set>

#include <gtest/gtest.h>

#include <ostrel/platform/base/HandleTable.h>
#include <ostrel/platform/base/TokenTable.h>

namespace
{

using Ostrel::Platform::HandleTable;
using Ostrel::Platform::TokenKind;
using Ostrel::Platform::TokenTable;

TEST(HandleTableTest, StaleHandlesStayStaleWhenTheirSlotIsUsedAgain)
{
    HandleTable<int> table;
    int first = 1;
    int second = 2;
    DWORD const stale = table.Add(&first);
    ASSERT_NE(stale, 0U);
    EXPECT_EQ(table.Find(stale), &first);
    EXPECT_EQ(table.Remove(stale), &first);
    EXPECT_EQ(table.Remove(stale), nullptr);
    bool slotCameBack = false;
    for (std::size_t i = 0; i < 5 * HandleTable<int>::kReuseDistance; ++i)
    {
        DWORD const handle = table.Add(&second);
        ASSERT_NE(handle, stale);
        EXPECT_EQ(table.Find(handle), &second);
        slotCameBack |= handle % HandleTable<int>::kMaxSlots == stale % HandleTable<int>::kMaxSlots;
        EXPECT_EQ(table.Find(stale), nullptr);
        table.Remove(handle);
    }
    EXPECT_TRUE(slotCameBack);
    EXPECT_EQ(table.Count(), 0U);
}

TEST(HandleTableTest, ForeignNumbersMeanNothing)
{
    HandleTable<int> table;
    int thing = 1;
    DWORD const handle = table.Add(&thing);
    for (DWORD const foreign : {DWORD{0}, handle + 1, handle + HandleTable<int>::kMaxSlots, DWORD{0xFFFFFFFF},
                                handle & (HandleTable<int>::kMaxSlots - 1)})
    {
        EXPECT_EQ(table.Find(foreign), nullptr);
        EXPECT_EQ(table.Remove(foreign), nullptr);
        EXPECT_FALSE(table.Visit(foreign, [](int&) { FAIL(); }));
    }
    EXPECT_TRUE(table.Visit(handle, [](int& visited) { visited = 5; }));
    EXPECT_EQ(thing, 5);
    EXPECT_EQ(table.Add(nullptr), 0U);
}

TEST(HandleTableTest, AFullTableGivesZeroAndRecovers)
{
    HandleTable<int> table;
    int thing = 1;
    DWORD last = 0;
    for (DWORD i = 0; i < HandleTable<int>::kMaxSlots; ++i)
    {
        last = table.Add(&thing);
    }
    EXPECT_NE(last, 0U);
    EXPECT_EQ(table.Add(&thing), 0U);
    table.Remove(last);
    EXPECT_EQ(table.Find(table.Add(&thing)), &thing);
}

TEST(TokenTableTest, TokensBelongToOneKindAndDieWithTheirThing)
{
    TokenTable table;
    int row = 0;
    int other = 0;
    DWORD const token = table.Give(TokenKind::Row, &row);
    EXPECT_EQ(table.Give(TokenKind::Row, &row), token);
    DWORD const asObject = table.Give(TokenKind::Object, &row);
    DWORD const otherToken = table.Give(TokenKind::Row, &other);
    EXPECT_EQ((std::set<DWORD>{0, token, asObject, otherToken}.size()), 4U);
    EXPECT_EQ(table.Resolve(TokenKind::Row, token), &row);
    EXPECT_EQ(table.Resolve(TokenKind::Object, token), nullptr);
    EXPECT_EQ(table.Resolve(TokenKind::Row, 0), nullptr);
    EXPECT_EQ(table.Resolve(TokenKind::Row, 999), nullptr);
    EXPECT_EQ(table.Give(TokenKind::Row, nullptr), 0U);

    table.Forget(&row);
    table.Forget(&row);
    EXPECT_EQ(table.Resolve(TokenKind::Row, token), nullptr);
    EXPECT_EQ(table.Resolve(TokenKind::Object, asObject), nullptr);
    EXPECT_EQ(table.Resolve(TokenKind::Row, otherToken), &other);
    EXPECT_NE(table.Give(TokenKind::Row, &row), token); // another thing at the same address
}

} // namespace
