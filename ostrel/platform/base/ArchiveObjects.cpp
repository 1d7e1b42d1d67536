// The part of the archive that knows classes and objects: their records and their common numbering.
#include <cstring>

#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Exception.h>

namespace
{

constexpr WORD kNullTag = 0;
constexpr WORD kNewClassTag = 0xFFFF;
constexpr WORD kBigTag = 0x7FFF; ///< the number follows as a DWORD
constexpr WORD kClassBit = 0x8000;
constexpr DWORD kBigClassBit = 0x80000000;

class DepthCount
{
public:
    explicit DepthCount(int& depth) noexcept : m_depth(depth) { ++m_depth; }
    ~DepthCount() { --m_depth; }
    DepthCount(DepthCount const&) = delete;
    DepthCount& operator=(DepthCount const&) = delete;

private:
    int& m_depth;
};

} // namespace

void CArchive::WriteClass(CRuntimeClass const* runtimeClass)
{
    RequireStoring();
    std::size_t const nameLength = runtimeClass != nullptr ? std::strlen(runtimeClass->m_lpszClassName) : 0;
    if (runtimeClass == nullptr || runtimeClass->m_wSchema == CRuntimeClass::kNoSchema || nameLength > 0xFFFF)
    {
        Throw(CArchiveException::badClass);
    }
    if (DWORD const number = NumberOf(runtimeClass); number != 0)
    {
        PutTag(number, true);
        return;
    }
    Put(kNewClassTag).Put(runtimeClass->m_wSchema).Put(static_cast<WORD>(nameLength));
    Write(runtimeClass->m_lpszClassName, static_cast<UINT>(nameLength));
}

CRuntimeClass* CArchive::ReadClass(CRuntimeClass const* required, UINT* schema)
{
    Tag const tag = GetTag();
    if (!tag.isClass)
    {
        Throw(CArchiveException::badIndex);
    }
    return ReadClassOf(tag, required, schema);
}

void CArchive::WriteObject(CObject const* object)
{
    RequireStoring();
    if (object == nullptr)
    {
        Put(kNullTag);
        return;
    }
    if (auto const met = m_stored.find(object); met != m_stored.end())
    {
        PutTag(met->second, false);
        return;
    }
    WriteClass(object->GetRuntimeClass());
    NumberOf(object);
    const_cast<CObject*>(object)->Serialize(*this); // storing leaves the object as it is
}

CObject* CArchive::ReadObject(CRuntimeClass const* required)
{
    Tag const tag = GetTag();
    if (tag.isClass)
    {
        return ReadNewObject(ReadClassOf(tag, required, nullptr));
    }
    if (tag.number == 0)
    {
        return nullptr;
    }
    CObject* const object = LoadedAt(tag.number).object;
    if (object == nullptr)
    {
        Throw(CArchiveException::badIndex);
    }
    if (required != nullptr && !object->IsKindOf(required))
    {
        Throw(CArchiveException::badClass);
    }
    return object;
}

void CArchive::PutTag(DWORD number, bool isClass)
{
    if (number < kBigTag)
    {
        Put(static_cast<WORD>(number | (isClass ? kClassBit : 0U)));
    }
    else
    {
        Put(kBigTag).Put(number | (isClass ? kBigClassBit : 0U));
    }
}

DWORD CArchive::NumberOf(void const* met)
{
    auto const [place, isNew] = m_stored.try_emplace(met, static_cast<DWORD>(m_stored.size() + 1));
    return isNew ? 0 : place->second;
}

CArchive::Tag CArchive::GetTag()
{
    WORD tag = 0;
    Get(tag);
    if (tag == kNewClassTag)
    {
        return {.number = 0, .isClass = true, .isNewClass = true};
    }
    if (tag != kBigTag)
    {
        return {.number = tag & DWORD{0x7FFF}, .isClass = (tag & kClassBit) != 0, .isNewClass = false};
    }
    DWORD bigTag = 0;
    Get(bigTag);
    return {.number = bigTag & ~kBigClassBit, .isClass = (bigTag & kBigClassBit) != 0, .isNewClass = false};
}

CArchive::Loaded const& CArchive::LoadedAt(DWORD number) const
{
    if (number == 0 || number > m_loaded.size())
    {
        Throw(CArchiveException::badIndex);
    }
    return m_loaded[number - 1];
}

CRuntimeClass* CArchive::ReadClassOf(Tag tag, CRuntimeClass const* required, UINT* schema)
{
    if (tag.isNewClass)
    {
        ReadNewClass();
    }
    Loaded const& loaded = tag.isNewClass ? m_loaded.back() : LoadedAt(tag.number);
    if (!loaded.isClass)
    {
        Throw(CArchiveException::badIndex);
    }
    if (loaded.runtimeClass == nullptr || (required != nullptr && !loaded.runtimeClass->IsDerivedFrom(required)))
    {
        Throw(CArchiveException::badClass);
    }
    if (schema != nullptr)
    {
        *schema = loaded.schema;
    }
    else if (loaded.schema != loaded.runtimeClass->m_wSchema)
    {
        Throw(CArchiveException::badSchema);
    }
    return loaded.runtimeClass;
}

void CArchive::ReadNewClass()
{
    WORD schema = 0;
    WORD nameLength = 0;
    Get(schema).Get(nameLength);
    std::string const name = GetBytes(nameLength);
    bool const isPlain = name.find('\0') == std::string::npos;
    CRuntimeClass* const runtimeClass = isPlain ? CRuntimeClass::FromName(name.c_str()) : nullptr;
    m_loaded.push_back({.runtimeClass = runtimeClass, .object = nullptr, .schema = schema, .isClass = true});
}

CObject* CArchive::ReadNewObject(CRuntimeClass const* runtimeClass)
{
    DepthCount const depth(m_depth);
    if (m_depth > kMaxDepth)
    {
        Throw(CArchiveException::genericException);
    }
    std::unique_ptr<CObject> object(runtimeClass->CreateObject());
    if (object == nullptr)
    {
        Throw(CArchiveException::badClass);
    }
    // Numbered before it is read, since what it holds may point back to it.
    std::size_t const place = m_loaded.size();
    m_loaded.push_back({.runtimeClass = nullptr, .object = object.get(), .schema = 0, .isClass = false});
    try
    {
        object->Serialize(*this);
    }
    catch (...)
    {
        m_loaded[place].object = nullptr;
        throw;
    }
    return object.release();
}

CObject* Ostrel::Platform::ReadObjectOf(CArchive& archive, CRuntimeClass const* required)
{
    return archive.ReadObject(required);
}
