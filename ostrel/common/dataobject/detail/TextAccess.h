// The two string worlds as one: they differ only in the names of the format's operations.
#pragma once

#include <string>
#include <type_traits>

#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/platform/base/String.h>

namespace Ostrel::Common::detail
{

/// The given format, or the field's, or the default of its type.
inline CFormat const& ChooseFormat(CFormat const* given, CField const& field)
{
    CFormat const* const format = given != nullptr ? given : field.GetFormat();
    return format != nullptr ? *format : CFormat::GetDefaultFormat(field.GetType());
}

template <class Text, class T>
Text FormatAs(CFormat const& format, T const& value, CDataObject const* object)
{
    if constexpr (std::is_same_v<Text, CString>)
    {
        return format.FormatMfc(value, object);
    }
    else
    {
        return format.FormatStl(value, object);
    }
}

template <class T>
bool ParseFrom(CFormat const& format, CString const& text, T& value, CDataObject const* object)
{
    return format.ParseMfc(text, value, object);
}

template <class T>
bool ParseFrom(CFormat const& format, std::string const& text, T& value, CDataObject const* object)
{
    return format.ParseStl(text, value, object);
}

template <class To>
To ConvertText(CString const& text)
{
    return To(text.AsStd());
}

template <class To>
To ConvertText(std::string const& text)
{
    return To(text);
}

} // namespace Ostrel::Common::detail
