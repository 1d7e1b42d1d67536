#include <set>

#include <ostrel/common/format/LongEnumFormat.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

CLongEnumFormat::CLongEnumFormat(std::vector<std::pair<long, std::string>> const& items)
{
    for (auto const& [value, text] : items)
    {
        Add(value, text);
    }
}

CLongEnumFormat::CLongEnumFormat(Item const* items, long count)
{
    CreateLongEnumFormat(items, count);
}

bool CLongEnumFormat::CreateLongEnumFormat(Item const* items, long count)
{
    m_texts.clear();
    m_values.clear();
    bool allNew = true;
    for (long i = 0; items != nullptr && i < count; ++i)
    {
        allNew = Add(items[i].value, items[i].text != nullptr ? items[i].text : "") && allNew;
    }
    return allNew;
}

bool CLongEnumFormat::Add(long value, std::string text)
{
    long const key = Platform::NarrowLong(value);
    bool const added = m_texts.emplace(key, std::move(text)).second;
    if (added)
    {
        m_values.push_back(key);
    }
    return added;
}

void CLongEnumFormat::AppendStl(std::string& text, long value) const
{
    if (auto const found = m_texts.find(Platform::NarrowLong(value)); found != m_texts.end())
    {
        text.append(found->second);
    }
}

bool CLongEnumFormat::ParseStl(std::string const& text, long& value, CDataObject const* /*object*/) const
{
    for (long const candidate : m_values)
    {
        auto const found = m_texts.find(candidate);
        if (found != m_texts.end() && found->second == text)
        {
            value = candidate;
            return true;
        }
    }
    return false;
}

bool CLongEnumFormat::GetItems(std::vector<std::pair<long, std::string>>& items) const
{
    for (long const value : m_values)
    {
        auto const found = m_texts.find(value);
        items.emplace_back(value, found != m_texts.end() ? found->second : std::string());
    }
    return !m_values.empty();
}

void CLongEnumFormat::Serialize(CSerializer& serializer)
{
    SerializeSettings(
        serializer,
        [&]
        {
            serializer << static_cast<int>(m_values.size());
            for (long const value : m_values)
            {
                serializer << value;
            }
            serializer << static_cast<int>(m_texts.size());
            for (auto const& [value, text] : m_texts)
            {
                serializer << value << text;
            }
        },
        [&]
        {
            // Counts from a stream are not believed: memory grows only with what is really there.
            int count = 0;
            serializer >> count;
            std::vector<long> values;
            std::set<long> known;
            for (int i = 0; i < count; ++i)
            {
                long value = 0;
                serializer >> value;
                if (known.insert(value).second)
                {
                    values.push_back(value);
                }
            }
            serializer >> count;
            std::map<long, std::string> texts;
            for (int i = 0; i < count; ++i)
            {
                long value = 0;
                std::string text;
                serializer >> value >> text;
                texts.emplace(value, std::move(text));
            }
            m_values = std::move(values);
            m_texts = std::move(texts);
        });
}

} // namespace Ostrel::Common
