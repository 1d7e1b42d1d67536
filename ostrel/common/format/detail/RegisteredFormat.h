/// @file
/// What every format class of the library has alike: its name, its factory function, cloning, and the version frame
/// around its stored settings. A derived class tells its bare name as `kClassName`.
#pragma once

#include <string>

#include <ostrel/common/format/Format.h>
#include <ostrel/common/format/FormatFactory.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common::detail
{

/// Throws CSerializer::BadVersionException in the name of a format class.
[[noreturn]] OSTREL_COMMON_API void ThrowBadFormatVersion(char const* className);

/// What every format class of the library has alike.
template <class Derived>
class OSTREL_COMMON_API RegisteredFormat : public CFormat
{
public:
    /// Makes the class known to the factory. The library's own formats are known anyway.
    class Dummy
    {
    public:
        /// Registers the class.
        Dummy() { CFormatFactory::RegisterFormat(Derived::GetFormatClassName(), &Derived::CreateFormat); }
    };

    /// A new format with the default settings. The caller owns it.
    [[nodiscard]] static CFormat* CreateFormat() { return new Derived(); }
    /// The name under which the factory knows the class.
    [[nodiscard]] static std::string GetFormatClassName() { return std::string("Common::") + Derived::kClassName; }

    /// A new format of the class with the same settings. The caller owns it.
    [[nodiscard]] CFormat* Clone() const override { return new Derived(static_cast<Derived const&>(*this)); }
    /// The name under which the factory knows the class.
    [[nodiscard]] std::string GetFormatName() override { return GetFormatClassName(); }
    /// True.
    [[nodiscard]] bool IsSerializableType() const override { return true; }
    /// Stores the version, or restores it; see CFormat::Serialize.
    void Serialize(CSerializer& serializer) override
    {
        SerializeSettings(
            serializer, [] {}, [] {});
    }

protected:
    /// A format of one type.
    explicit RegisteredFormat(EnType type) noexcept : CFormat(type) {}
    /// Copies the type; for Clone.
    RegisteredFormat(RegisteredFormat const&) = default;

    /// The version, then the settings: `store` writes them, `restore` reads all of them before it changes any.
    template <class Store, class Restore>
    static void SerializeSettings(CSerializer& serializer, Store const& store, Restore const& restore)
    {
        if (serializer.GetMode() == CSerializer::ModeStore)
        {
            serializer << CFormat::GetSerializeVertion();
            store();
            return;
        }
        int version = 0;
        serializer >> version;
        if (version > CFormat::GetSerializeVertion())
        {
            ThrowBadFormatVersion(Derived::kClassName);
        }
        if (version >= 1)
        {
            restore();
        }
    }
};

} // namespace Ostrel::Common::detail
