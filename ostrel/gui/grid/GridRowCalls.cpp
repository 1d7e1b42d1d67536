// The grid's operations on rows, cells, order and selection: each runs on the grid's thread, wherever it was called.
#include <algorithm>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/Dispatcher.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/header/Header.h>

namespace Ostrel::GUI
{
using Common::CDataObject;
using Detail::GridOperation;
using Items = std::vector<CGridItem*>;

namespace
{
/// The object of a row of the grid, if it may be asked anything.
CDataObject* ObjectOf(Detail::GridCore& core, CGridItem const* item)
{
    return core.AreaOf(item) != nullptr ? Detail::ObjectToAsk(*item) : nullptr;
}
} // namespace

// --- Adding and removing ---

CGridItem* CGrid::Add(CDataObject* object, CGridItem* parent, CGridItem* after)
{
    // In the snapshot mode only the calling thread may read the object.
    bool const takesSnapshot = object != nullptr && CPreferences::GetThreadingMode() == CPreferences::SnapshotOnNotify;
    auto snapshot = takesSnapshot ? Detail::TakeSnapshot(*object, Detail::kAllFields) : nullptr;
    auto const bars = m_core->Thread().IsCurrent() ? Detail::BarsFollow::Now : Detail::BarsFollow::OnTimer;
    return m_core->Thread().Call<GridOperation::Add>(
        static_cast<CGridItem*>(nullptr),
        [&]() { return m_core->Rows().Add(object, parent, after, std::move(snapshot), bars); });
}

bool CGrid::Delete(CGridItem* item)
{
    return m_core->Thread().Call<GridOperation::DeleteItem>(false, [&]() { return m_core->Rows().Delete(item); });
}

int CGrid::Delete(CDataObject const* object)
{
    return m_core->Thread().Call<GridOperation::DeleteItem>(0,
                                                            [&]()
                                                            {
                                                                Items const items =
                                                                    GetHandles(object, false, AllContexts);
                                                                for (CGridItem* const item : items)
                                                                {
                                                                    m_core->Rows().Delete(item);
                                                                }
                                                                return static_cast<int>(items.size());
                                                            });
}

bool CGrid::Delete(int row, ContextType mask)
{
    return m_core->Thread().Call<GridOperation::DeleteRow>(
        false,
        [&]()
        {
            bool hasDeleted = false;
            for (ContextType const type : {ScrollableContext, FixedContext})
            {
                CGridItem* const item = HasContext(mask, type) ? m_core->ItemAt(row, type) : nullptr;
                hasDeleted = m_core->Rows().Delete(item) || hasDeleted;
            }
            return hasDeleted;
        });
}

void CGrid::DeleteAll(ContextType mask)
{
    m_core->Thread().Call<GridOperation::DeleteAll>([&]() { m_core->Rows().DeleteAll(mask); });
}

bool CGrid::Attach(CGridItem* item, CGridItem* parent, CGridItem* after)
{
    return m_core->Thread().Call<GridOperation::Attach>(false,
                                                        [&]() { return m_core->Rows().Attach(item, parent, after); });
}

bool CGrid::Detach(CGridItem* item)
{
    return m_core->Thread().Call<GridOperation::Detach>(false, [&]() { return m_core->Rows().Detach(item); });
}

bool CGrid::MoveBefore(CGridItem* item, CGridItem* parent, CGridItem* reference)
{
    return m_core->Thread().Call<GridOperation::Move>(false, [&]()
                                                      { return m_core->Rows().Move(item, parent, reference, true); });
}

bool CGrid::MoveAfter(CGridItem* item, CGridItem* parent, CGridItem* reference)
{
    return m_core->Thread().Call<GridOperation::Move>(false, [&]()
                                                      { return m_core->Rows().Move(item, parent, reference, false); });
}

// --- Reading the tree ---

std::vector<CGridItem*> CGrid::GetHandles(CDataObject const* object, bool onlyVisible, ContextType mask) const
{
    return m_core->Thread().Call<GridOperation::GetHandles>(
        Items(), [&]() { return m_core->Rows().Handles(object, onlyVisible, mask); });
}

bool CGrid::Exists(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::Exists>(false, [&]() { return m_core->AreaOf(item) != nullptr; });
}

bool CGrid::Exists(CDataObject const* object) const
{
    return !GetHandles(object, false, AllContexts).empty();
}

unsigned int CGrid::GetRowCount(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetRowCount>(
        0U,
        [&]()
        {
            Detail::GridArea const* const area = m_core->Area(type);
            return area != nullptr ? static_cast<unsigned int>(area->RowCount()) : 0U;
        });
}

CGridItem* CGrid::GetItem(int row, ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetItemByRow>(static_cast<CGridItem*>(nullptr),
                                                              [&]() { return m_core->ItemAt(row, type); });
}

CGridItem* CGrid::GetItem(CDataObject const* object) const
{
    return m_core->Thread().Call<GridOperation::GetItemByObject>(static_cast<CGridItem*>(nullptr),
                                                                 [&]() { return m_core->Rows().ItemOf(object); });
}

CGridItem* CGrid::GetItem(CPoint clientPoint) const
{
    return m_core->Thread().Call<GridOperation::GetItemAtPoint>(static_cast<CGridItem*>(nullptr),
                                                                [&]()
                                                                {
                                                                    auto const hit = m_core->View().RowAt(clientPoint);
                                                                    return m_core->ItemAt(hit.row, hit.type);
                                                                });
}

int CGrid::GetRow(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetRow>(
        -1, [&]() { return m_core->AreaOf(item) != nullptr ? Detail::RowArea::RowOf(*item) : -1; });
}

int CGrid::GetRow(CDataObject const* object) const
{
    return m_core->Thread().Call<GridOperation::GetRow>(-1, [&]() { return GetRow(GetItem(object)); });
}

ContextType CGrid::GetContextType(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetContextType>(NoContext,
                                                                [&]()
                                                                {
                                                                    Detail::GridArea const* const area =
                                                                        m_core->AreaOf(item);
                                                                    return area != nullptr ? area->Type() : NoContext;
                                                                });
}

ContextType CGrid::GetContextType(CDataObject const* object) const
{
    return m_core->Thread().Call<GridOperation::GetContextType>(NoContext,
                                                                [&]() { return GetContextType(GetItem(object)); });
}

CGridItem* CGrid::GetParent(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetParent>(static_cast<CGridItem*>(nullptr),
                                                           [&]() { return m_core->Rows().Parent(item); });
}

int CGrid::GetHierarchicalLevel(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetHierarchicalLevel>(
        -1, [&]() { return m_core->AreaOf(item) != nullptr ? Detail::RowArea::Level(*item) : -1; });
}

bool CGrid::HasChildren(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::HasChildren>(false, [&]() { return m_core->Rows().HasChildren(item); });
}

std::vector<CGridItem*> CGrid::GetChildren(CGridItem* item, bool onlyVisible) const
{
    return m_core->Thread().Call<GridOperation::GetChildren>(Items(), [&]()
                                                             { return m_core->Rows().Children(item, onlyVisible); });
}

bool CGrid::IsExpanded(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::IsExpanded>(
        false, [&]() { return m_core->AreaOf(item) != nullptr && item->IsExpanded(); });
}

bool CGrid::IsExpanded(CDataObject const* object) const
{
    return m_core->Thread().Call<GridOperation::IsExpanded>(
        false,
        [&]()
        {
            return std::ranges::any_of(GetHandles(object, false, AllContexts),
                                       [](CGridItem const* item) { return item->IsExpanded(); });
        });
}

bool CGrid::IsVisible(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::IsVisible>(
        false, [&]() { return m_core->AreaOf(item) != nullptr && Detail::RowArea::IsVisible(*item); });
}

bool CGrid::IsVisible(CDataObject const* object) const
{
    return !GetHandles(object, true, AllContexts).empty();
}

CGridItem* CGrid::GetPreviousItem(CGridItem* item, bool crossAreas) const
{
    return m_core->Thread().Call<GridOperation::GetPreviousItem>(static_cast<CGridItem*>(nullptr), [&]()
                                                                 { return m_core->Rows().Previous(item, crossAreas); });
}

CGridItem* CGrid::GetNextItem(CGridItem* item, bool crossAreas) const
{
    return m_core->Thread().Call<GridOperation::GetNextItem>(static_cast<CGridItem*>(nullptr),
                                                             [&]() { return m_core->Rows().Next(item, crossAreas); });
}

CDataObject* CGrid::GetDataObject(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetDataObject>(
        static_cast<CDataObject*>(nullptr),
        [&]() { return m_core->AreaOf(item) != nullptr ? item->Object() : nullptr; });
}

CDataObject* CGrid::GetDataObject(int row, ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetDataObject>(static_cast<CDataObject*>(nullptr),
                                                               [&]() { return GetDataObject(GetItem(row, type)); });
}

void CGrid::ForEach(IForEach& visitor, CGridItem* start)
{
    m_core->Thread().Call<GridOperation::ForEach>([&]() { m_core->Rows().ForEach(visitor, start); });
}

void CGrid::ForEachVisible(IForEach& visitor, CGridItem* start)
{
    m_core->Thread().Call<GridOperation::ForEachVisible>([&]() { m_core->Rows().ForEachVisible(visitor, start); });
}

void CGrid::Expand(CGridItem* item, bool recursive)
{
    m_core->Thread().Call<GridOperation::Expand>([&]() { m_core->Rows().Expand(item, recursive, true); });
}

void CGrid::Collapse(CGridItem* item, bool recursive)
{
    m_core->Thread().Call<GridOperation::Expand>([&]() { m_core->Rows().Expand(item, recursive, false); });
}

void CGrid::Expand(CDataObject const* object, bool recursive)
{
    m_core->Thread().Call<GridOperation::Expand>(
        [&]()
        {
            for (CGridItem* const item : GetHandles(object, false, AllContexts))
            {
                Expand(item, recursive);
            }
        });
}

void CGrid::Collapse(CDataObject const* object, bool recursive)
{
    m_core->Thread().Call<GridOperation::Expand>(
        [&]()
        {
            for (CGridItem* const item : GetHandles(object, false, AllContexts))
            {
                Collapse(item, recursive);
            }
        });
}

// --- Cells ---

Common::CValue CGrid::GetValue(CGridItem* item, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetValue>(
        Common::CValue(),
        [&]() { return m_core->AreaOf(item) != nullptr ? m_core->Cells().Value(*item, fid) : Common::CValue(); });
}

std::string CGrid::GetFormattedStlString(CGridItem* item, long fid, Common::CFormat const* format) const
{
    return m_core->Thread().Call<GridOperation::GetFormattedStlString>(
        std::string(), [&]()
        { return m_core->AreaOf(item) != nullptr ? m_core->Cells().StlText(*item, fid, format) : std::string(); });
}

CString CGrid::GetFormattedMfcString(CGridItem* item, long fid, Common::CFormat const* format) const
{
    return m_core->Thread().Call<GridOperation::GetFormattedMfcString>(
        CString(),
        [&]() { return m_core->AreaOf(item) != nullptr ? m_core->Cells().MfcText(*item, fid, format) : CString(); });
}

bool CGrid::SetValue(CGridItem* item, long fid, Common::CValue const& value)
{
    return m_core->Thread().Call<GridOperation::SetValue>(false,
                                                          [&]()
                                                          {
                                                              CDataObject* const object = ObjectOf(*m_core, item);
                                                              return object != nullptr && object->SetValue(fid, value);
                                                          });
}

bool CGrid::SetFormattedStlString(CGridItem* item, long fid, std::string const& text, Common::CFormat const* format)
{
    return m_core->Thread().Call<GridOperation::SetFormattedStlString>(
        false,
        [&]()
        {
            CDataObject* const object = ObjectOf(*m_core, item);
            return object != nullptr &&
                   object->SetFormattedStlString(fid, text, m_core->Cells().FormatInUse(fid, format));
        });
}

bool CGrid::SetFormattedMfcString(CGridItem* item, long fid, CString const& text, Common::CFormat const* format)
{
    return m_core->Thread().Call<GridOperation::SetFormattedMfcString>(
        false,
        [&]()
        {
            CDataObject* const object = ObjectOf(*m_core, item);
            return object != nullptr &&
                   object->SetFormattedMfcString(fid, text, m_core->Cells().FormatInUse(fid, format));
        });
}

// --- Updates and repainting ---

void CGrid::UpdateRow(int row, ContextType type, long fid)
{
    Detail::GridUpdates::Posted const update{.row = row, .type = type, .fieldId = fid};
    m_core->Thread().IsCurrent() ? m_core->Updates().Update(update) : m_core->Updates().Post(update);
}

void CGrid::UpdateItem(CGridItem* item, long fid)
{
    if (item != nullptr)
    {
        Detail::GridUpdates::Posted const update{.item = item, .fieldId = fid};
        m_core->Thread().IsCurrent() ? m_core->Updates().Update(update) : m_core->Updates().Post(update);
    }
}

void CGrid::UpdateDataObject(CDataObject const* object, long fid)
{
    Detail::Dispatcher::Instance().OnUpdate(fid, object);
}

int CGrid::GetTimeElapsedSinceLastUpdate(CGridItem* item, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetTimeElapsedSinceLastUpdate>(
        -1, [&]() { return m_core->AreaOf(item) != nullptr ? Detail::GridUpdates::ElapsedMs(*item, fid) : -1; });
}

int CGrid::GetTimeElapsedSinceLastUpdate(int row, ContextType type, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetTimeElapsedSinceLastUpdate>(
        -1, [&]() { return GetTimeElapsedSinceLastUpdate(GetItem(row, type), fid); });
}

void CGrid::InvalidateRow(CGridItem* item, int delayMs)
{
    m_core->Thread().Call<GridOperation::InvalidateRow>([&]() { InvalidateCell(item, Detail::kNoField, delayMs); });
}

void CGrid::InvalidateRow(int row, ContextType type, int delayMs)
{
    m_core->Thread().Call<GridOperation::InvalidateRow>([&]()
                                                        { InvalidateCell(row, type, Detail::kNoField, delayMs); });
}

void CGrid::InvalidateRow(CDataObject const* object, int delayMs)
{
    m_core->Thread().Call<GridOperation::InvalidateRow>([&]() { InvalidateCell(object, Detail::kNoField, delayMs); });
}

void CGrid::InvalidateCell(CGridItem* item, long fid, int delayMs)
{
    m_core->Thread().Call<GridOperation::InvalidateCell>(
        [&]()
        {
            if (m_core->AreaOf(item) != nullptr)
            {
                m_core->Repaints().RepaintCell(*item, fid, delayMs);
            }
        });
}

void CGrid::InvalidateCell(int row, ContextType type, long fid, int delayMs)
{
    m_core->Thread().Call<GridOperation::InvalidateCell>([&]()
                                                         { InvalidateCell(m_core->ItemAt(row, type), fid, delayMs); });
}

void CGrid::InvalidateCell(CDataObject const* object, long fid, int delayMs)
{
    m_core->Thread().Call<GridOperation::InvalidateCell>(
        [&]()
        {
            for (CGridItem* const item : GetHandles(object, false, AllContexts))
            {
                InvalidateCell(item, fid, delayMs);
            }
        });
}

void CGrid::AllowNotifications(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowNotifications>([&]() { m_core->Notifier().Allow(allow); });
}

bool CGrid::IsNotificationsAllowed() const
{
    return m_core->Thread().Call<GridOperation::IsNotificationsAllowed>(false, [&]()
                                                                        { return m_core->Notifier().IsAllowed(); });
}
} // namespace Ostrel::GUI
