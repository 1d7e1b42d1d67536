#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/dataobject/FieldMap.h>
#include <ostrel/common/dataobject/detail/NotificationPass.h>
#include <ostrel/common/dataobject/detail/TextAccess.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/common/thread/Lock.h>
#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/common/value/Value.h>
#include <ostrel/common/value/detail/TypeTraits.h>
#include <ostrel/platform/base/CallbackErrors.h>

namespace Ostrel::Common
{

namespace
{

constexpr std::uintptr_t kIsSingle = 1; // sinks are aligned, so that the bit is free

} // namespace

/// The subscribers of an object that has had several, in the order of subscription.
class CDataObject::SinkList
{
public:
    /// What a notification runs on: a copy of the list, without the heap for the usual few.
    class Copy
    {
    public:
        void Take(std::span<ISink* const> sinks)
        {
            if (sinks.size() > m_few.size())
            {
                m_many.assign(sinks.begin(), sinks.end());
            }
            else
            {
                std::copy(sinks.begin(), sinks.end(), m_few.begin());
            }
            m_count = sinks.size();
        }
        [[nodiscard]] std::span<ISink*> Sinks() noexcept
        {
            return {m_many.empty() ? m_few.data() : m_many.data(), m_count};
        }

    private:
        std::array<ISink*, 4> m_few{};
        std::vector<ISink*> m_many;
        std::size_t m_count = 0;
    };

    SinkList(ISink* first, ISink* second) : m_sinks{first, second} {}

    /// What the word of an object means: at most one of both is not null.
    static SinkList* In(std::uintptr_t word) noexcept
    {
        return (word & kIsSingle) == 0 ? reinterpret_cast<SinkList*>(word) : nullptr;
    }
    static ISink* SingleIn(std::uintptr_t word) noexcept
    {
        return (word & kIsSingle) != 0 ? reinterpret_cast<ISink*>(word & ~kIsSingle) : nullptr;
    }
    static std::uintptr_t WordOf(ISink* single) noexcept
    {
        static_assert(alignof(ISink) > kIsSingle);
        return reinterpret_cast<std::uintptr_t>(single) | kIsSingle;
    }

    void Add(ISink* sink)
    {
        CLock const lock(m_lock);
        if (std::find(m_sinks.begin(), m_sinks.end(), sink) == m_sinks.end())
        {
            m_sinks.push_back(sink);
        }
    }
    void Remove(ISink* sink)
    {
        CLock const lock(m_lock);
        std::erase(m_sinks, sink);
    }
    void CopyTo(Copy& copy)
    {
        CLock const lock(m_lock);
        copy.Take(m_sinks);
    }
    [[nodiscard]] std::vector<ISink*> TakeAll()
    {
        CLock const lock(m_lock);
        return std::exchange(m_sinks, {});
    }

private:
    CSyncObject m_lock;
    std::vector<ISink*> m_sinks OSTREL_GUARDED_BY(m_lock);
};

void CDataObject::ISink::OnUpdate(std::set<long> const& fids, CDataObject const* object)
{
    for (long const fid : fids)
    {
        OnUpdate(fid, object);
    }
}

void CDataObject::ISink::OnDelete(CDataObject const* /*object*/) {}

CDataObject::~CDataObject()
{
    Platform::CallbackErrors errors;
    Platform::CallbackErrors::Keep([this]() { NotifyDelete(); });
    errors.Report();
    delete SinkList::In(m_sinks.load(std::memory_order_acquire));
}

// Subscription and notification

bool CDataObject::ReplaceSinks(std::uintptr_t before, std::uintptr_t now) noexcept
{
    return m_sinks.compare_exchange_strong(before, now, std::memory_order_acq_rel);
}

bool CDataObject::AddSecondSink(std::uintptr_t word, ISink* second)
{
    auto list = std::make_unique<SinkList>(SinkList::SingleIn(word), second);
    bool const isAdded = ReplaceSinks(word, reinterpret_cast<std::uintptr_t>(list.get()));
    if (isAdded)
    {
        static_cast<void>(list.release());
    }
    return isAdded;
}

void CDataObject::AddSink(ISink* sink)
{
    for (bool isDone = sink == nullptr; !isDone;)
    {
        std::uintptr_t const word = m_sinks.load(std::memory_order_acquire);
        if (SinkList* const list = SinkList::In(word))
        {
            list->Add(sink);
            isDone = true;
        }
        else if (word == 0)
        {
            isDone = ReplaceSinks(0, SinkList::WordOf(sink));
        }
        else
        {
            isDone = SinkList::SingleIn(word) == sink || AddSecondSink(word, sink);
        }
    }
}

void CDataObject::RemoveSink(ISink* sink)
{
    std::uintptr_t word = m_sinks.load(std::memory_order_acquire);
    // A list may have come in between; it never goes.
    if (sink != nullptr && word == SinkList::WordOf(sink) && !ReplaceSinks(word, 0))
    {
        word = m_sinks.load(std::memory_order_acquire);
    }
    if (SinkList* const list = SinkList::In(word))
    {
        list->Remove(sink);
    }
}

template <class Call>
void CDataObject::ForEachSink(Call const& call) const
{
    std::uintptr_t const word = m_sinks.load(std::memory_order_acquire);
    if (ISink* const single = SinkList::SingleIn(word))
    {
        call(*single);
    }
    else if (SinkList* const list = SinkList::In(word))
    {
        SinkList::Copy copy;
        list->CopyTo(copy);
        detail::NotificationPass(copy.Sinks()).Run(call);
    }
}

void CDataObject::NotifyUpdate(long fid)
{
    ForEachSink([&](ISink& sink) { sink.OnUpdate(fid, this); });
}

void CDataObject::NotifyUpdate(std::set<long> const& fids)
{
    ForEachSink([&](ISink& sink) { sink.OnUpdate(fids, this); });
}

// All are told, whatever one of them throws: the object goes.
void CDataObject::NotifyDelete()
{
    std::uintptr_t word = m_sinks.load(std::memory_order_acquire);
    while (ISink* const single = SinkList::SingleIn(word))
    {
        if (ReplaceSinks(word, 0))
        {
            single->OnDelete(this);
            return;
        }
        word = m_sinks.load(std::memory_order_acquire);
    }
    if (SinkList* const list = SinkList::In(word))
    {
        std::vector<ISink*> sinks = list->TakeAll();
        Platform::CallbackErrors errors;
        detail::NotificationPass(sinks).Run([this](ISink& sink)
                                            { Platform::CallbackErrors::Keep([&]() { sink.OnDelete(this); }); });
        errors.Rethrow();
    }
}

// What is known of the fields

std::pair<CField*, CDataObject*> CDataObject::GetField(long fid) const
{
    CFieldMap const* const map = GetFieldMap();
    if (map == nullptr)
    {
        return {nullptr, nullptr};
    }
    // Looking a field up changes nothing; whoever sets it through the pair has the object itself.
    return {map->GetField(fid), const_cast<CDataObject*>(this)};
}

void CDataObject::GetAllFields(std::set<std::pair<CField*, CDataObject*>>& fields) const
{
    for (CFieldMap const* map = GetFieldMap(); map != nullptr; map = map->GetParentMap())
    {
        std::set<CField*> own;
        map->GetAllFields(own);
        for (CField* const field : own)
        {
            fields.emplace(field, const_cast<CDataObject*>(this));
        }
    }
}

void CDataObject::GetAllFids(std::set<long>& fids) const
{
    for (CFieldMap const* map = GetFieldMap(); map != nullptr; map = map->GetParentMap())
    {
        std::set<CField*> own;
        map->GetAllFields(own);
        for (CField const* const field : own)
        {
            fids.insert(field->GetFid());
        }
    }
}

bool CDataObject::HasGetMethod(long fid) const
{
    auto const [field, object] = GetField(fid);
    return field != nullptr && object != nullptr && field->HasGetMethod();
}

bool CDataObject::HasSetMethod(long fid) const
{
    auto const [field, object] = GetField(fid);
    return field != nullptr && object != nullptr && field->HasSetMethod();
}

EnType CDataObject::GetFieldType(long fid)
{
    auto const [field, object] = GetField(fid);
    return field != nullptr && object != nullptr ? field->GetType() : TypeEmpty;
}

std::string CDataObject::GetFieldName(long fid)
{
    auto const [field, object] = GetField(fid);
    return field != nullptr && object != nullptr ? field->GetName() : std::string();
}

CFormat const* CDataObject::GetFormat(long fid) const
{
    auto const [field, object] = GetField(fid);
    return field != nullptr && object != nullptr ? field->GetFormat() : nullptr;
}

// Typed access

template <class T>
T CDataObject::Get(long fid) const
{
    auto const [field, object] = GetField(fid);
    if (field != nullptr && object != nullptr)
    {
        if (auto const getter = field->GetterOf<T>())
        {
            return (object->*getter)();
        }
    }
    return T();
}

template <class T>
bool CDataObject::Set(long fid, T const& value)
{
    auto const [field, object] = GetField(fid);
    if (field != nullptr && object != nullptr)
    {
        if (auto const setter = field->SetterOf<T>())
        {
            (object->*setter)(value);
            return true;
        }
    }
    return false;
}

CString CDataObject::GetMfcString(long fid)
{
    return Get<CString>(fid);
}
std::string CDataObject::GetStlString(long fid)
{
    return Get<std::string>(fid);
}

bool CDataObject::SetMfcString(long fid, CString const& value)
{
    return Set<CString>(fid, value);
}
bool CDataObject::SetStlString(long fid, std::string const& value)
{
    return Set<std::string>(fid, value);
}

#define OSTREL_TYPED_ACCESS(Name, T)                                                                                   \
    T CDataObject::Get##Name(long fid) const                                                                           \
    {                                                                                                                  \
        return Get<T>(fid);                                                                                            \
    }                                                                                                                  \
    bool CDataObject::Set##Name(long fid, T value)                                                                     \
    {                                                                                                                  \
        return Set<T>(fid, value);                                                                                     \
    }

OSTREL_TYPED_ACCESS(Char, char)
OSTREL_TYPED_ACCESS(UChar, unsigned char)
OSTREL_TYPED_ACCESS(Short, short)
OSTREL_TYPED_ACCESS(UShort, unsigned short)
OSTREL_TYPED_ACCESS(Long, long)
OSTREL_TYPED_ACCESS(ULong, unsigned long)
OSTREL_TYPED_ACCESS(Int64, __int64)
OSTREL_TYPED_ACCESS(Bool, bool)
OSTREL_TYPED_ACCESS(Float, float)
OSTREL_TYPED_ACCESS(Double, double)
OSTREL_TYPED_ACCESS(ObjectPtr, CDataObject*)
#undef OSTREL_TYPED_ACCESS

CValue CDataObject::GetValue(long fid)
{
    auto const [field, object] = GetField(fid);
    if (field == nullptr || object == nullptr)
    {
        return {};
    }
    auto const typed = [field = field, object = object]<class T>(std::type_identity<T>)
    {
        auto const getter = field->GetterOf<T>();
        return CValue(getter != nullptr ? (object->*getter)() : T());
    };
    return detail::VisitType(field->GetType(), typed, [] { return CValue(); });
}

bool CDataObject::SetValue(long fid, CValue const& value)
{
    auto const [field, object] = GetField(fid);
    if (field == nullptr || object == nullptr)
    {
        return false;
    }
    auto const typed = [&value, field = field, object = object]<class T>(std::type_identity<T>)
    {
        auto const setter = field->SetterOf<T>();
        if (setter == nullptr)
        {
            return false;
        }
        (object->*setter)(static_cast<detail::Argument<T>>(value));
        return true;
    };
    return detail::VisitType(field->GetType(), typed, [] { return false; });
}

// Text access

template <class Text>
Text CDataObject::GetFormatted(long fid, CFormat const* format) const
{
    auto const [field, object] = GetField(fid);
    if (field == nullptr || object == nullptr || !field->HasGetMethod())
    {
        return Text();
    }
    auto const typed = [format, field = field, object = object]<class T>(std::type_identity<T>) {
        return detail::FormatAs<Text, T>(detail::ChooseFormat(format, *field), (object->*field->GetterOf<T>())(),
                                         object);
    };
    return detail::VisitType(field->GetType(), typed, [] { return Text(); });
}

template <class Text>
bool CDataObject::SetFormatted(long fid, Text const& text, CFormat const* format)
{
    auto const [field, object] = GetField(fid);
    if (field == nullptr || object == nullptr || !field->HasSetMethod())
    {
        return false;
    }
    auto const typed = [&text, format, field = field, object = object]<class T>(std::type_identity<T>)
    {
        T value{};
        if (!detail::ParseFrom(detail::ChooseFormat(format, *field), text, value, object))
        {
            if constexpr (!detail::FieldText<T>)
            {
                return false;
            }
            else
            {
                value = detail::ConvertText<T>(text);
            }
        }
        (object->*field->SetterOf<T>())(value);
        return true;
    };
    return detail::VisitType(field->GetType(), typed, [] { return false; });
}

CString CDataObject::GetFormattedMfcString(long fid, CFormat const* format)
{
    return GetFormatted<CString>(fid, format);
}

bool CDataObject::SetFormattedMfcString(long fid, CString const& text, CFormat const* format)
{
    return SetFormatted(fid, text, format);
}

std::string CDataObject::GetFormattedStlString(long fid, CFormat const* format)
{
    return GetFormatted<std::string>(fid, format);
}

bool CDataObject::SetFormattedStlString(long fid, std::string const& text, CFormat const* format)
{
    return SetFormatted(fid, text, format);
}

// Storing and restoring

std::string const& CDataObject::GetSerializationName() const
{
    return CValue::GetEmptyStlString();
}

bool CDataObject::IsSerializableType() const
{
    return false;
}

void CDataObject::Serialize(CSerializer& serializer)
{
    if (serializer.GetMode() == CSerializer::ModeStore)
    {
        Store(serializer);
    }
    else
    {
        Restore(serializer);
    }
}

void CDataObject::Store(CSerializer& serializer)
{
    std::set<std::pair<CField*, CDataObject*>> fields;
    GetAllFields(fields);
    std::set<long> fids;
    for (auto const& [field, object] : fields)
    {
        fids.insert(field->GetFid());
    }
    serializer << GetSerializeVertion() << static_cast<int>(fids.size());
    for (long const fid : fids)
    {
        serializer << fid << GetValue(fid);
    }
}

void CDataObject::Restore(CSerializer& serializer)
{
    int version = 0;
    serializer >> version;
    if (version < 1)
    {
        return;
    }
    int count = 0;
    serializer >> count;
    for (int i = 0; i < count; ++i)
    {
        long fid = kNoField;
        CValue value;
        serializer >> fid >> value;
        SetValue(fid, value);
    }
}

} // namespace Ostrel::Common
