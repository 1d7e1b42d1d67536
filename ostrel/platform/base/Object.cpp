#include <algorithm>
#include <string_view>
#include <vector>

#include <ostrel/platform/base/Object.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace
{

using Ostrel::Platform::Mutex;
using Ostrel::Platform::MutexLock;

/// The classes of every loaded library, in the order of their registration.
class Registry
{
public:
    /// Made by the first class that registers, and so outlives every class of this library.
    static Registry& Instance()
    {
        static Registry registry;
        return registry;
    }

    void Add(CRuntimeClass* runtimeClass)
    {
        MutexLock const lock(m_lock);
        m_classes.push_back(runtimeClass);
    }

    void Remove(CRuntimeClass* runtimeClass)
    {
        MutexLock const lock(m_lock);
        std::erase(m_classes, runtimeClass);
    }

    CRuntimeClass* Find(std::string_view name)
    {
        MutexLock const lock(m_lock);
        auto const found = std::find_if(m_classes.rbegin(), m_classes.rend(),
                                        [name](CRuntimeClass* each) { return each->m_lpszClassName == name; });
        return found != m_classes.rend() ? *found : nullptr;
    }

private:
    Mutex m_lock;
    std::vector<CRuntimeClass*> m_classes OSTREL_GUARDED_BY(m_lock);
};

} // namespace

CRuntimeClass::CRuntimeClass(char const* className, int objectSize, WORD schema, Maker maker, CRuntimeClass const* base)
    : m_lpszClassName(className),
      m_nObjectSize(objectSize),
      m_wSchema(schema),
      m_pfnCreateObject(maker),
      m_pBaseClass(base)
{
    Registry::Instance().Add(this);
}

CRuntimeClass::~CRuntimeClass()
{
    Registry::Instance().Remove(this);
}

CObject* CRuntimeClass::CreateObject() const
{
    return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
}

bool CRuntimeClass::IsDerivedFrom(CRuntimeClass const* base) const noexcept
{
    CRuntimeClass const* each = this;
    while (each != nullptr && each != base)
    {
        each = each->m_pBaseClass;
    }
    return each != nullptr;
}

CRuntimeClass* CRuntimeClass::FromName(char const* className)
{
    return className != nullptr ? Registry::Instance().Find(className) : nullptr;
}

CRuntimeClass CObject::classCObject("CObject", static_cast<int>(sizeof(CObject)), CRuntimeClass::kNoSchema, nullptr,
                                    nullptr);

CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}

bool CObject::IsKindOf(CRuntimeClass const* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

bool CObject::IsSerializable() const
{
    return GetRuntimeClass()->m_wSchema != CRuntimeClass::kNoSchema;
}

void CObject::Serialize(CArchive& /*archive*/) {}
