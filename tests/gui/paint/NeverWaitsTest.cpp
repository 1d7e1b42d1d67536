// Painting never waits for a worker that is in the middle of something: the page is painted to its end while the worker
// stays there.
#include <atomic>
#include <functional>
#include <mutex>
#include <semaphore>

#include <gtest/gtest.h>

#include <ostrel/common/dataobject/FieldMapBuilder.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/testing/Driver.h>
#include <ostrel/testing/GridWindow.h>
#include <ostrel/testing/PaintRecorder.h>
#include <ostrel/testing/Workers.h>

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace Ostrel::Testing;

namespace
{

/// Where the worker stays until the page is painted, or for so long that waiting for it has failed the test.
class Stay
{
public:
    void Here()
    {
        m_hasArrived = true;
        m_isTooLate = !m_mayLeave.try_acquire_for(std::chrono::seconds(5));
    }
    [[nodiscard]] bool HasArrived() const noexcept { return m_hasArrived; }
    void End() { m_mayLeave.release(); }
    [[nodiscard]] bool IsTooLate() const noexcept { return m_isTooLate; }

private:
    std::atomic<bool> m_hasArrived = false;
    std::binary_semaphore m_mayLeave{0};
    std::atomic<bool> m_isTooLate = false;
};

/// An object whose values a lock of its own guards.
class GuardedObject : public Common::CDataObject
{
public:
    mutable std::recursive_mutex lock;

    Common::CFieldMap const* GetFieldMap() const override
    {
        static auto const map = Common::CFieldMapBuilder<GuardedObject>()
                                    .Field(TestObject::Name, "Name", &GuardedObject::GetName)
                                    .Field(TestObject::Price, "Price", &GuardedObject::GetPrice)
                                    .Field(TestObject::Quantity, "Quantity", &GuardedObject::GetQuantity)
                                    .Build();
        return map.get();
    }
    std::string GetName() const { return Guarded(std::string("guarded")); }
    double GetPrice() const { return Guarded(1.5); }
    long GetQuantity() const { return Guarded(7L); }

private:
    template <class T>
    T Guarded(T value) const
    {
        std::lock_guard const guard(lock);
        return value;
    }
};

class StayingSink : public Common::CDataObject::ISink
{
public:
    explicit StayingSink(Stay& stay) : m_stay(stay) {}
    using ISink::OnUpdate;
    void OnUpdate(long /*fid*/, Common::CDataObject const* /*object*/) override { m_stay.Here(); }

private:
    Stay& m_stay;
};

class StayingSubscriber : public CColumn::INotify, public CHeader::INotify
{
public:
    explicit StayingSubscriber(Stay& stay) : m_stay(stay) {}
    void OnColumnChanged(CColumn* /*column*/, CColumn::NotificationType /*type*/) override { m_stay.Here(); }
    void OnHeaderChanged(CHeader* /*header*/, CColumn* /*column*/, CHeader::NotificationType /*type*/) override
    {
        m_stay.Here();
    }

private:
    Stay& m_stay;
};

class NeverWaitsTest : public testing::Test
{
protected:
    NeverWaitsTest() { grid.AddRows({"a", "b", "c"}); }

    /// Paints the whole page while the worker is where it stays.
    void PaintMeanwhile(std::function<void()> const& work)
    {
        PaintRecorder counter(grid);
        Workers workers;
        workers.Add("worker", work);
        workers.Start();
        ASSERT_TRUE(driver.RunUntil([this] { return stay.HasArrived(); }));
        for (int page = 0; page < 3; ++page)
        {
            grid.Grid().RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        }
        EXPECT_FALSE(stay.IsTooLate()) << "the page waited for the worker";
        EXPECT_GE(counter.HeaderCount(), 3);
        EXPECT_GE(counter.LineCount(), 9);
        stay.End();
        workers.Join();
        driver.RunUntilIdle();
    }

    Driver driver{{.time = Driver::Time::Running}};
    GridWindow grid{driver};
    Stay stay;
};

} // namespace

TEST_F(NeverWaitsTest, ForSubscribersOfAnObject)
{
    StayingSink sink(stay);
    grid.Object("b").AddSink(&sink);
    PaintMeanwhile([&] { grid.Object("b").SetPrice(5); });
    grid.Object("b").RemoveSink(&sink);
}

TEST_F(NeverWaitsTest, ForSubscribersOfAColumn)
{
    StayingSubscriber subscriber(stay);
    grid.Column("Price").Subscribe(&subscriber);
    CColumn& column = grid.Column("Price");
    PaintMeanwhile([&] { column.SetDescription("dear"); });
    column.Unsubscribe(&subscriber);
}

TEST_F(NeverWaitsTest, ForSubscribersOfTheHeader)
{
    StayingSubscriber subscriber(stay);
    grid.Header().Subscribe(&subscriber);
    PaintMeanwhile([&] { grid.Header().SetHeaderHeight(31); });
    grid.Header().Unsubscribe(&subscriber);
}

TEST_F(NeverWaitsTest, ForCallsThatWaitForTheGrid)
{
    std::mutex applicationLock;
    PaintMeanwhile(
        [&]
        {
            std::lock_guard const lock(applicationLock);
            stay.Here();
        });
    Stay second;
    Workers workers;
    workers.Add("caller",
                [&]
                {
                    std::lock_guard const lock(applicationLock);
                    second.End();
                    EXPECT_EQ(grid.Grid().GetRowCount(ScrollableContext), 3U);
                });
    workers.Start();
    second.Here(); // the caller is on its way; its call is answered in Join
    grid.Grid().RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    workers.Join();
}

TEST_F(NeverWaitsTest, ForTheLockOfAnObjectWhoseValuesAreCopied)
{
    CPreferences::SetThreadingMode(CPreferences::SnapshotOnNotify);
    {
        GuardedObject object;
        grid.Grid().Add(&object, ScrollableRoot, LastPosition);
        object.NotifyUpdate(-1);
        driver.RunUntilIdle();
        PaintMeanwhile(
            [&]
            {
                std::lock_guard const lock(object.lock);
                stay.Here();
            });
    }
    CPreferences::SetThreadingMode(CPreferences::DirectRead);
}
