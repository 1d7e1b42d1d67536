/// @file
/// Values to text and back.
#pragma once

#include <string>

#include <ostrel/common/value/Type.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{

class CDataObject;
class CSerializer;
class CValue;

/// A format turns values of one type into text and reads such text back. Each conversion exists on std::string (Stl)
/// and on CString (Mfc). A format handles exactly one type: asked for another it gives an empty text or fails to parse.
///
/// Formats are values behind a pointer: duplicated by Clone, immutable apart from their setters and from restoring, and
/// free of side effects in every conversion, so that one format may serve many fields, columns and threads at once.
///
/// In all conversions `object` is the data object whose field is converted, or null. It is not owned and not kept.
class OSTREL_COMMON_API CFormat
{
public:
    virtual ~CFormat();
    CFormat& operator=(CFormat const&) = delete;

    /// The one type that the format converts.
    [[nodiscard]] EnType GetType() const noexcept { return m_type; }

    /// The text of a value of the format's type; of the other text type too. Empty for any other value.
    [[nodiscard]] virtual CString FormatMfc(CValue const& value, CDataObject const* object = nullptr) const;
    ///@{
    /// The text of a value. The base gives an empty text; a format overrides the one of its type.
    [[nodiscard]] virtual CString FormatMfc(CDataObject* value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(double value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(float value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(bool value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(__int64 value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(unsigned long value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(long value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(unsigned short value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(short value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(unsigned char value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(char value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(std::string const& value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual CString FormatMfc(CString const& value, CDataObject const* object = nullptr) const;
    ///@}

    /// Reads a text as the format's type. An empty value takes the type and the payload, a value of the type takes the
    /// payload, a value of another type is left alone and the result is still true. Returns false and changes nothing
    /// if the text cannot be read.
    virtual bool ParseMfc(CString const& text, CValue& value, CDataObject const* object = nullptr) const;
    ///@{
    /// Reads a text. Returns false and changes nothing if it cannot be read; the base always does.
    virtual bool ParseMfc(CString const& text, double& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, CDataObject*& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, float& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, bool& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, __int64& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, unsigned long& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, long& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, unsigned short& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, short& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, unsigned char& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, char& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, std::string& value, CDataObject const* object = nullptr) const;
    virtual bool ParseMfc(CString const& text, CString& value, CDataObject const* object = nullptr) const;
    ///@}

    ///@{
    /// FormatMfc and ParseMfc on std::string.
    [[nodiscard]] virtual std::string FormatStl(CValue const& value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(CDataObject* value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(double value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(float value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(bool value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(__int64 value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(unsigned long value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(long value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(unsigned short value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(short value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(unsigned char value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(char value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(std::string const& value, CDataObject const* object = nullptr) const;
    [[nodiscard]] virtual std::string FormatStl(CString const& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, CValue& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, double& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, CDataObject*& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, float& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, bool& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, __int64& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, unsigned long& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, long& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, unsigned short& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, short& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, unsigned char& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, char& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, std::string& value, CDataObject const* object = nullptr) const;
    virtual bool ParseStl(std::string const& text, CString& value, CDataObject const* object = nullptr) const;
    ///@}

    ///@{
    /// True for the formats of dates and times, and of enumerations: they are edited by controls of their own.
    [[nodiscard]] virtual bool IsDate() const;
    [[nodiscard]] virtual bool IsEnum() const;
    ///@}
    /// A new format of the same class with the same settings. The caller owns it.
    [[nodiscard]] virtual CFormat* Clone() const = 0;
    /// The name under which the format's class is known to CFormatFactory; empty when it is not.
    [[nodiscard]] virtual std::string GetFormatName();
    /// True when the format can be saved under its name and restored through the factory.
    [[nodiscard]] virtual bool IsSerializableType() const;
    /// Stores the version and the settings, or restores them. Restoring a newer version throws
    /// CSerializer::BadVersionException and keeps the settings; so does a stream that ends too early. The base has
    /// no settings and takes any version.
    virtual void Serialize(CSerializer& serializer);

    /// The library's format for a type, in place of one that was not given; for TypeEmpty and anything unknown one that
    /// converts nothing. Shared, owned by the library, lives as long as the process: read it, never change it.
    /// Any thread.
    [[nodiscard]] static CFormat& GetDefaultFormat(EnType type);
    /// The version of the stored settings of every format.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

protected:
    /// A format of one type. Only concrete formats are made, and copied by Clone.
    explicit CFormat(EnType type) noexcept : m_type(type) {}
    /// A format of the same type.
    CFormat(CFormat const&) = default;

private:
    EnType m_type;
};

} // namespace Ostrel::Common
