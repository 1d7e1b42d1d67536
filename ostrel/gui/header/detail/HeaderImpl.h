// The state of a header. Two locks, neither ever held while a subscriber, a column's lock or a format runs: the list of
// subscribers has its own, the layout lock guards the rest. Every change makes a new immutable HeaderLayout and
// publishes it under the layout lock; events are raised after the lock is released.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/header/detail/SubscriberList.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI
{

/// What a header keeps beside its columns.
struct HeaderSettings
{
    int fixedCount = 0;
    int headerHeight = 20;
    bool allowSort = true;
    bool allowMultiSort = true;
    bool allowFixedColumnMove = true;
    bool allowScrollableColumnMove = true;
    bool allowColumnResize = true;
    int navigationColumn = 0;
    CFont* font = nullptr;
    CImageList* imageList = nullptr;
    std::vector<CSortInfo> sortLevels;
};

class CHeader::Impl final : public CColumn::INotify
{
public:
    using Layout = std::shared_ptr<HeaderLayout const>;
    using ColumnPtr = std::shared_ptr<CColumn>;
    enum class Side
    {
        Before,
        After
    };

    Impl(CHeader& owner, bool autoDelete);

    [[nodiscard]] bool AutoDelete() const noexcept { return m_autoDelete; }

    /// The layout of this moment. Never null.
    [[nodiscard]] Layout GetLayout() const;
    [[nodiscard]] HeaderSettings GetSettings() const;
    template <class T>
    [[nodiscard]] T Get(T HeaderSettings::*setting) const
    {
        Platform::MutexLock const lock(m_layoutLock);
        return m_settings.*setting;
    }
    /// Stores a setting and returns the previous value. The layout is as before: for settings that it does not hold.
    template <class T>
    T Exchange(T HeaderSettings::*setting, T value)
    {
        Platform::MutexLock const lock(m_layoutLock);
        return std::exchange(m_settings.*setting, value);
    }
    /// Stores a setting that the layout holds. False when the value was the same.
    bool ChangeLayoutSetting(int HeaderSettings::*setting, int value);

    /// Columns and settings of another header, before anybody knows this one.
    void CopyFrom(CHeader::Impl const& other);
    /// The column, now owned, or null when its fid is taken or reserved and it is still the caller's.
    ColumnPtr Append(CColumn* column);
    /// The column that was taken out, or null.
    ColumnPtr TakeOut(long fid);
    HeaderLayout::Columns TakeOutAll();
    bool SetVisible(long fid, bool visible);
    bool Move(long fid, long targetFid, Side side);

    /// True when the levels have changed.
    bool SetSortLevel(int level, CSortInfo const& info);
    bool ClearSortLevels();
    /// Fid -2, ascending, for a level that does not exist.
    [[nodiscard]] CSortInfo GetSortLevel(int level) const;
    [[nodiscard]] int CountSortLevels() const;
    /// What comes from an archive beside the columns. Raises no events.
    void RestoreSettings(HeaderSettings const& stored);

    void Subscribe(CHeader::INotify* subscriber) { m_subscribers.Add(subscriber); }
    void Unsubscribe(CHeader::INotify* subscriber) { m_subscribers.Remove(subscriber); }
    void Raise(CColumn* column, CHeader::NotificationType type) const;

    // CColumn::INotify
    void OnColumnChanged(CColumn* column, CColumn::NotificationType type) override;

private:
    void PublishLocked(HeaderLayout::Columns columns) OSTREL_REQUIRES(m_layoutLock);
    [[nodiscard]] bool MayMoveLocked(long fid) const OSTREL_REQUIRES(m_layoutLock);
    [[nodiscard]] ColumnPtr FindLocked(CColumn const* column) const OSTREL_REQUIRES(m_layoutLock);
    /// Makes the layout anew from the columns' present widths and visibility.
    void Refresh();

    CHeader& m_owner;
    bool const m_autoDelete;
    SubscriberList<CHeader::INotify> m_subscribers;
    mutable Platform::Mutex m_layoutLock;
    HeaderSettings m_settings OSTREL_GUARDED_BY(m_layoutLock);
    Layout m_layout OSTREL_GUARDED_BY(m_layoutLock);
};

} // namespace Ostrel::GUI
