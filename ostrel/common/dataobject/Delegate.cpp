#include <ostrel/common/dataobject/Delegate.h>
#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/dataobject/detail/CallChain.h>
#include <ostrel/common/dataobject/detail/NotificationPass.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::Common
{

namespace
{

struct FieldLookUp;
struct FieldsLookUp;
struct FidsLookUp;

/// The road of a notification on this thread: the object that it came from, through each delegate that repeats it.
struct Road
{
    CDataObject const* object;
    Road const* before;

    [[nodiscard]] bool Leads(CDataObject const* through) const noexcept
    {
        return object == through || (before != nullptr && before->Leads(through));
    }
};
thread_local Road const* t_road = nullptr;

/// Sets the thread's road for a scope.
class RoadScope
{
public:
    explicit RoadScope(Road const& road) noexcept : m_previous(t_road) { t_road = &road; }
    ~RoadScope() { t_road = m_previous; }
    RoadScope(RoadScope const&) = delete;
    RoadScope& operator=(RoadScope const&) = delete;

private:
    Road const* m_previous;
};

} // namespace

CDelegate::CDelegate(CDataObject* aggregate, bool ownsAggregate) : m_ownsAggregate(ownsAggregate)
{
    CDelegate::SetAggregate(aggregate);
}

CDelegate::~CDelegate()
{
    Platform::CallbackErrors errors;
    Platform::CallbackErrors::Keep([this]() { NotifyDelete(); });
    errors.Report();
    CDataObject const* const aggregate = CDelegate::SetAggregate(nullptr);
    detail::NotificationPass::Drop(&m_forwarder); // a sink of the aggregate may be what deletes this object
    if (m_ownsAggregate)
    {
        delete aggregate;
    }
}

CDataObject* CDelegate::SetAggregate(CDataObject* aggregate)
{
    CDataObject* const previous = m_aggregate.exchange(aggregate, std::memory_order_acq_rel);
    if (previous == aggregate)
    {
        return aggregate;
    }
    if (previous != nullptr)
    {
        previous->RemoveSink(&m_forwarder);
    }
    if (aggregate != nullptr)
    {
        aggregate->AddSink(&m_forwarder);
    }
    NotifyUpdate(kAllFields);
    return previous;
}

CDataObject* CDelegate::GetAggregate()
{
    return m_aggregate.load(std::memory_order_acquire);
}

CDataObject const* CDelegate::GetAggregate() const
{
    return m_aggregate.load(std::memory_order_acquire);
}

std::pair<CField*, CDataObject*> CDelegate::GetField(long fid) const
{
    auto const own = CDataObject::GetField(fid);
    if (own.first != nullptr)
    {
        return own;
    }
    detail::CallScope<FieldLookUp> const scope(this);
    CDataObject const* const aggregate = GetAggregate();
    return aggregate != nullptr && scope.Entered() ? aggregate->GetField(fid)
                                                   : std::pair<CField*, CDataObject*>(nullptr, nullptr);
}

void CDelegate::GetAllFields(std::set<std::pair<CField*, CDataObject*>>& fields) const
{
    CDataObject::GetAllFields(fields);
    detail::CallScope<FieldsLookUp> const scope(this);
    CDataObject const* const aggregate = GetAggregate();
    if (aggregate != nullptr && scope.Entered())
    {
        aggregate->GetAllFields(fields);
    }
}

void CDelegate::GetAllFids(std::set<long>& fids) const
{
    CDataObject::GetAllFids(fids);
    detail::CallScope<FidsLookUp> const scope(this);
    CDataObject const* const aggregate = GetAggregate();
    if (aggregate != nullptr && scope.Entered())
    {
        aggregate->GetAllFids(fids);
    }
}

void CDelegate::Forwarder::OnUpdate(std::set<long> const& fids, CDataObject const* object)
{
    Forward(fids, object);
}

void CDelegate::Forwarder::OnUpdate(long fid, CDataObject const* object)
{
    Forward(fid, object);
}

/// A notification that another delegate repeats arrives on that delegate's road. One that a subscriber starts in the
/// middle of it, for another object, is a new one and is repeated like any other.
template <class Fids>
void CDelegate::Forwarder::Forward(Fids const& fids, CDataObject const* source)
{
    Road const beginning{source, nullptr};
    Road const* const road = t_road != nullptr && t_road->object == source ? t_road : &beginning;
    if (road->Leads(&m_delegate))
    {
        return;
    }
    Road const continued{&m_delegate, road};
    RoadScope const scope(continued);
    m_delegate.NotifyUpdate(fids);
}

void CDelegate::Forwarder::OnDelete(CDataObject const* object)
{
    // Another one may have been set while the news came.
    auto* expected = const_cast<CDataObject*>(object);
    m_delegate.m_aggregate.compare_exchange_strong(expected, nullptr, std::memory_order_acq_rel);
}

} // namespace Ostrel::Common
