/// @file
/// A data object in front of another one, the aggregate: it answers for its own fields, passes on what they do not
/// answer, and repeats the aggregate's notifications as its own. So a row can show an object with more or other fields
/// without changing it, and the object behind a row can be exchanged.
#pragma once

#include <atomic>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// A derived class supplies the own fields by GetFieldMap. Delegates may stand in a circle: a look-up that comes back
/// finds nothing, and a notification that comes back ends. Any thread may look up; who exchanges the aggregate sees to
/// it that the old one lives until the last look-up through it has returned.
class OSTREL_COMMON_API CDelegate : public CDataObject
{
public:
    /// The aggregate may be null. It is deleted with the delegate if `ownsAggregate`.
    CDelegate(CDataObject* aggregate, bool ownsAggregate);
    ~CDelegate() override;

    /// The own field and this object, or else what the aggregate answers; (null, null) when there is neither.
    [[nodiscard]] std::pair<CField*, CDataObject*> GetField(long fid) const override;
    ///@{
    /// The own fields, then the aggregate's.
    void GetAllFields(std::set<std::pair<CField*, CDataObject*>>& fields) const override;
    void GetAllFids(std::set<long>& fids) const override;
    ///@}

    /// Puts another object behind and tells all sinks that every field may have changed. Returns the old aggregate,
    /// which the caller owns if the delegate did. Does nothing if it is the same object.
    virtual CDataObject* SetAggregate(CDataObject* aggregate);
    ///@{
    /// The object behind; null without one.
    [[nodiscard]] virtual CDataObject* GetAggregate();
    [[nodiscard]] virtual CDataObject const* GetAggregate() const;
    ///@}

private:
    /// Listens to the aggregate.
    class Forwarder final : public ISink
    {
    public:
        explicit Forwarder(CDelegate& delegate) noexcept : m_delegate(delegate) {}

        void OnUpdate(std::set<long> const& fids, CDataObject const* object) override;
        void OnUpdate(long fid, CDataObject const* object) override;
        void OnDelete(CDataObject const* object) override;

    private:
        template <class Fids>
        void Forward(Fids const& fids, CDataObject const* source);

        CDelegate& m_delegate;
    };

    Forwarder m_forwarder{*this};
    std::atomic<CDataObject*> m_aggregate{nullptr};
    bool const m_ownsAggregate;
};

} // namespace Ostrel::Common
