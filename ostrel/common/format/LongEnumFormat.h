/// @file
/// The format of `long` fields that stand for one of a few named values.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <ostrel/common/format/detail/TypedFormat.h>

namespace Ostrel::Common
{

/// Each value has one text; the first text given for a value stays. The order in which values were added is kept: it is
/// the order of a list to choose from.
class OSTREL_COMMON_API CLongEnumFormat : public detail::TypedFormat<CLongEnumFormat, long>
{
public:
    static constexpr char const* kClassName = "CLongEnumFormat"; ///< the bare class name

    /// One row of a static table. A null text is empty.
    struct Item
    {
        long value;       ///< what the field holds
        char const* text; ///< what is shown
    };

    /// A format of values and their texts.
    explicit CLongEnumFormat(std::vector<std::pair<long, std::string>> const& items);
    /// The same from a static table. A null table or a count below 1 gives a format without items. The texts are
    /// copied.
    CLongEnumFormat(Item const* items, long count);
    /// A format with copies of the items.
    CLongEnumFormat(CLongEnumFormat const&) = default;

    using TypedFormat::ParseStl;
    /// The first value whose text is exactly this one; false and nothing changed without one.
    bool ParseStl(std::string const& text, long& value, CDataObject const* object = nullptr) const override;
    [[nodiscard]] bool IsEnum() const override { return true; }
    void Serialize(CSerializer& serializer) override;

    /// Appends the values with their texts in the order in which they were added. Returns true if there is any.
    virtual bool GetItems(std::vector<std::pair<long, std::string>>& items) const;

    /// Appends what FormatStl gives: the text of the value, nothing for an unknown one.
    void AppendStl(std::string& text, long value) const;

private:
    friend class detail::RegisteredFormat<CLongEnumFormat>;
    CLongEnumFormat() = default;

    /// Starts anew with the items of the table. Returns false if a value came twice.
    bool CreateLongEnumFormat(Item const* items, long count);
    bool Add(long value, std::string text);

    std::map<long, std::string> m_texts;
    std::vector<long> m_values; ///< in the order in which they were added
};

} // namespace Ostrel::Common
