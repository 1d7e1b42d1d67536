#include <string_view>

#include <ostrel/common/format/BoolFormat.h>

namespace Ostrel::Common
{

bool CBoolFormat::ParseStl(std::string const& text, bool& value, CDataObject const* /*object*/) const
{
    constexpr std::string_view kTrue = "true";
    std::size_t matched = 0;
    bool same = true;
    for (char const character : text)
    {
        if (character == ' ' || character == '\t' || character == '\r' || character == '\n')
        {
            continue;
        }
        char const lower =
            character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
        same = same && matched < kTrue.size() && lower == kTrue[matched];
        ++matched;
    }
    value = same && matched == kTrue.size();
    return true;
}

} // namespace Ostrel::Common
