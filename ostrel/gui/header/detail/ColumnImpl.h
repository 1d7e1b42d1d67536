// The state of a column. Plain properties are atomic, so that reading them takes no lock; texts and the replacement of
// formats are guarded by the property lock.
//
// Formats are called under the property lock in two places, when they are cloned and when they are stored: only the
// lock keeps another thread from replacing and deleting the format meanwhile. The lock is re-entrant, so that a format
// may ask the column. Everywhere else nothing foreign runs under it; replaced formats are deleted outside it.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include <ostrel/common/format/Format.h>
#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/SubscriberList.h>
#include <ostrel/gui/paint/ICellPaintFormat.h>
#include <ostrel/gui/paint/IColumnPaintFormat.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI
{

/// A pointer that owns, that any thread may read, and that is replaced as a whole.
template <class T>
class SharedOwner
{
public:
    SharedOwner() = default;
    SharedOwner(SharedOwner const&) = delete;
    SharedOwner& operator=(SharedOwner const&) = delete;
    ~SharedOwner() { delete m_object.load(); }

    [[nodiscard]] T const* Get() const noexcept { return m_object.load(std::memory_order_acquire); }
    /// Returns what was owned before.
    std::unique_ptr<T const> Exchange(std::unique_ptr<T const> object) noexcept
    {
        return std::unique_ptr<T const>(m_object.exchange(object.release(), std::memory_order_acq_rel));
    }

private:
    std::atomic<T const*> m_object{nullptr};
};

/// The properties of a column, as they go from one column to another.
struct ColumnProperties
{
    std::int32_t fid = -2;
    std::string name;
    int width = 0;
    std::unique_ptr<ICellPaintFormat const> cellPaintFormat;
    std::unique_ptr<IColumnPaintFormat const> columnPaintFormat;
    CColumn::Alignment alignment = CColumn::AlignLeft;
    int cellImageId = -1;
    int columnImageId = -1;
    std::unique_ptr<Common::CFormat const> textFormat;
    bool visible = true;
    bool editable = false;
    std::string description;
};

class CColumn::Impl
{
public:
    explicit Impl(ColumnProperties properties) { SetProperties(std::move(properties)); }

    /// With clones of the formats.
    [[nodiscard]] ColumnProperties CloneProperties() const;
    /// The formats that were there end up in `properties`.
    void SetProperties(ColumnProperties&& properties);

    /// True when the text was another one.
    bool ChangeName(std::string const& name);
    bool ChangeDescription(std::string const& description);
    [[nodiscard]] std::string const& Name() const;
    [[nodiscard]] std::string Description() const;

    /// Replaces a format. Returns the previous one, which is then the caller's unless it is the same.
    template <class T>
    T const* ChangeFormat(SharedOwner<T>& owner, T const* format)
    {
        Common::CLock const lock(propertyLock);
        return owner.Get() == format ? format : owner.Exchange(std::unique_ptr<T const>(format)).release();
    }

    void Store(CArchive& archive) const;
    /// Property by property; an exception leaves those that were read.
    void Load(CArchive& archive);

    mutable Common::CSyncObject propertyLock;
    SubscriberList<INotify> subscribers;

    std::atomic<std::int32_t> fid;
    std::atomic<int> width;
    std::atomic<Alignment> alignment;
    std::atomic<int> cellImageId;
    std::atomic<int> columnImageId;
    std::atomic<bool> visible;
    std::atomic<bool> editable;
    /// Replaced under the lock only.
    SharedOwner<Common::CFormat> textFormat;
    SharedOwner<ICellPaintFormat> cellPaintFormat;
    SharedOwner<IColumnPaintFormat> columnPaintFormat;

private:
    /// Deletes the format that was there, outside the lock.
    template <class T>
    void Install(SharedOwner<T>& owner, std::unique_ptr<T const> format)
    {
        std::unique_ptr<T const> const previous = [&]
        {
            Common::CLock const lock(propertyLock);
            return owner.Exchange(std::move(format));
        }();
    }
    /// False when the name was the same.
    bool ReplaceName(std::string const& name);

    /// Never held while anything foreign runs: titles are painted with the name.
    mutable Platform::Mutex m_nameLock;
    /// Never changed in place: a reader may still hold a reference to the name before.
    std::unique_ptr<std::string const> m_name OSTREL_GUARDED_BY(m_nameLock) = std::make_unique<std::string const>();
    std::unique_ptr<std::string const> m_previousName OSTREL_GUARDED_BY(m_nameLock);
    std::string m_description OSTREL_GUARDED_BY(propertyLock);
};

} // namespace Ostrel::GUI
