// What the two date formats have in common: the style and its flags. A derived class has the static operations that
// convert with a style and a date type.
#pragma once

#include <string>

#include <ostrel/common/format/Preferences.h>
#include <ostrel/common/format/detail/DateText.h>
#include <ostrel/common/format/detail/TypedFormat.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common::detail
{

template <class Derived, FieldValue T>
class OSTREL_COMMON_API DateFormat : public TypedFormat<Derived, T>
{
public:
    /// The parts shown, to be combined.
    enum Style : unsigned long
    {
        Year4 = DateYear4,
        Year2 = DateYear2,
        Month = DateMonth,
        Day = DateDay,
        Hours = DateHours,
        Minutes = DateMinutes,
        Seconds = DateSeconds,
        Milliseconds = DateMilliseconds
    };

    using TypedFormat<Derived, T>::FormatStl;
    using TypedFormat<Derived, T>::ParseStl;
    bool ParseStl(std::string const& text, T& value, CDataObject const* object = nullptr) const override
    {
        return Derived::ParseStl(text, value, object, m_style, CPreferences::GetDateType());
    }
    [[nodiscard]] bool IsDate() const override { return true; }

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, T value) const
    {
        text.append(Derived::FormatStl(value, nullptr, m_style, CPreferences::GetDateType()));
    }

    void Serialize(CSerializer& serializer) override
    {
        this->SerializeSettings(
            serializer, [&] { serializer << m_style; }, [&] { serializer >> m_style; });
    }

protected:
    explicit DateFormat(unsigned long style) noexcept : m_style(Platform::NarrowULong(style)) {}
    DateFormat(DateFormat const&) = default;

    unsigned long m_style;
};

} // namespace Ostrel::Common::detail
