/// @file
/// Objects that know their class at run time, can be made by its name, and can be kept in an archive.
///
///     class CShape : public CObject            // header
///     {
///         DECLARE_SERIAL(CShape)
///     public:
///         void Serialize(CArchive& archive) override;
///     };
///     IMPLEMENT_SERIAL(CShape, CObject, 1)     // source file, inside the class's own namespace
///
/// DYNAMIC gives the class's name and base, DYNCREATE also CreateObject (the class needs a default constructor), SERIAL
/// also a version ("schema") and `archive >> shape`. The stored name is the bare class name, without namespaces: two
/// classes of one name in different namespaces share it, and the one registered last is found. A class whose base takes
/// no part names its nearest base that does.
///
/// Threads: classes register while their library is loaded and go when it is unloaded; everything here may be called
/// from any thread. A CRuntimeClass lives as long as the library that defines it.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class CArchive;
class CObject;

/// What is known of a class at run time. RUNTIME_CLASS gives the one of a class.
struct OSTREL_BASE_API CRuntimeClass
{
    /// Makes an object of the class; the caller owns it.
    using Maker = CObject* (*)();

    /// Registers the class. The name is kept by address and must live as long; a null maker cannot create. The base is
    /// null for CObject only.
    CRuntimeClass(char const* className, int objectSize, WORD schema, Maker maker, CRuntimeClass const* base);
    ~CRuntimeClass();
    CRuntimeClass(CRuntimeClass const&) = delete;
    CRuntimeClass& operator=(CRuntimeClass const&) = delete;

    /// A new object of the class, or null when it cannot be made by name. The caller owns it.
    [[nodiscard]] CObject* CreateObject() const;
    /// True for the class itself and for every class below a base. A null base gives false.
    [[nodiscard]] bool IsDerivedFrom(CRuntimeClass const* base) const noexcept;

    /// The registered class of that bare name, or null.
    [[nodiscard]] static CRuntimeClass* FromName(char const* className);

    char const* m_lpszClassName; ///< the bare name, without namespaces
    int m_nObjectSize;           ///< in bytes
    WORD m_wSchema;              ///< the version of stored objects; kNoSchema for a class that is not kept in archives
    Maker m_pfnCreateObject;     ///< null when the class cannot be made by name
    CRuntimeClass const* m_pBaseClass; ///< null for CObject

    static constexpr WORD kNoSchema = 0xFFFF; ///< of a class that is not kept in archives
};

/// The base of what knows its class at run time. Not copyable through its base: each class decides for itself.
class OSTREL_BASE_API CObject
{
public:
    virtual ~CObject();

    /// The class of the object. DECLARE_DYNAMIC overrides it.
    [[nodiscard]] virtual CRuntimeClass* GetRuntimeClass() const;
    /// True when the object is of the class or of one below it. Null gives false.
    [[nodiscard]] bool IsKindOf(CRuntimeClass const* runtimeClass) const;
    /// True when the class was declared with SERIAL.
    [[nodiscard]] bool IsSerializable() const;

    /// Stores into or loads from the archive, as the archive's mode says. Does nothing here.
    virtual void Serialize(CArchive& archive);

    static CRuntimeClass classCObject; ///< the run-time class of CObject itself
    /// What RUNTIME_CLASS(CObject) gives.
    [[nodiscard]] static CRuntimeClass* ThisRuntimeClass() noexcept { return &classCObject; }

protected:
    CObject() = default;
    ///@{
    /// Only derived classes are copied, if they want to be.
    CObject(CObject const&) = default;
    CObject& operator=(CObject const&) = default;
    ///@}
};

namespace Ostrel::Platform
{

/// The class name without its namespaces.
constexpr char const* BareClassName(char const* name) noexcept
{
    char const* bare = name;
    for (char const* at = name; *at != '\0'; ++at)
    {
        if (*at == ':')
        {
            bare = at + 1;
        }
    }
    return bare;
}

/// The next object of the archive, which is of the class or of one below it; null when a null pointer was stored. The
/// caller owns an object that is met for the first time. Throws as CArchive::ReadObject does.
[[nodiscard]] OSTREL_BASE_API CObject* ReadObjectOf(CArchive& archive, CRuntimeClass const* required);

} // namespace Ostrel::Platform

/// The address of a class's run-time class; the class may be written with its namespaces.
#define RUNTIME_CLASS(className) (className::ThisRuntimeClass())

/// In the class: it knows its name and its base.
#define DECLARE_DYNAMIC(className)                                                                                     \
public:                                                                                                                \
    static CRuntimeClass class##className;                                                                             \
    [[nodiscard]] static CRuntimeClass* ThisRuntimeClass() noexcept                                                    \
    {                                                                                                                  \
        return &class##className;                                                                                      \
    }                                                                                                                  \
    [[nodiscard]] CRuntimeClass* GetRuntimeClass() const override;

/// In the class: it can also be made by its name. It needs a default constructor.
#define DECLARE_DYNCREATE(className)                                                                                   \
    DECLARE_DYNAMIC(className)                                                                                         \
    static CObject* CreateObject();

/// In the class: its objects can also be kept in an archive, and are read by `archive >> pointer`.
#define DECLARE_SERIAL(className)                                                                                      \
    DECLARE_DYNCREATE(className)                                                                                       \
    friend CArchive& operator>>(CArchive& archive, className*& object)                                                 \
    {                                                                                                                  \
        object = static_cast<className*>(::Ostrel::Platform::ReadObjectOf(archive, &class##className));                \
        return archive;                                                                                                \
    }

/// For the macros below: registers the class.
#define OSTREL_IMPLEMENT_RUNTIME_CLASS(className, baseClassName, schema, maker)                                        \
    CRuntimeClass className::class##className(::Ostrel::Platform::BareClassName(#className),                           \
                                              static_cast<int>(sizeof(className)), schema, maker,                      \
                                              RUNTIME_CLASS(baseClassName));                                           \
    CRuntimeClass* className::GetRuntimeClass() const                                                                  \
    {                                                                                                                  \
        return &class##className;                                                                                      \
    }

/// In the source file, beside DECLARE_DYNAMIC in the class.
#define IMPLEMENT_DYNAMIC(className, baseClassName)                                                                    \
    OSTREL_IMPLEMENT_RUNTIME_CLASS(className, baseClassName, CRuntimeClass::kNoSchema, nullptr)

/// In the source file, beside DECLARE_DYNCREATE in the class.
#define IMPLEMENT_DYNCREATE(className, baseClassName)                                                                  \
    CObject* className::CreateObject()                                                                                 \
    {                                                                                                                  \
        return new className;                                                                                          \
    }                                                                                                                  \
    OSTREL_IMPLEMENT_RUNTIME_CLASS(className, baseClassName, CRuntimeClass::kNoSchema, &className::CreateObject)

/// In the source file, beside DECLARE_SERIAL in the class. The schema is the version of stored objects, 0 to 0xFFFE.
#define IMPLEMENT_SERIAL(className, baseClassName, schema)                                                             \
    CObject* className::CreateObject()                                                                                 \
    {                                                                                                                  \
        return new className;                                                                                          \
    }                                                                                                                  \
    OSTREL_IMPLEMENT_RUNTIME_CLASS(className, baseClassName, schema, &className::CreateObject)
