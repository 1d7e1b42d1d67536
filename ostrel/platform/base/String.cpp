#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include <ostrel/platform/base/String.h>

namespace
{

constexpr char kBlanks[] = " \t\r\n\v\f";

char ToLowerAscii(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char ToUpperAscii(char c) noexcept
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string_view ViewOf(char const* text) noexcept
{
    return text != nullptr ? std::string_view(text) : std::string_view();
}

int PositionOf(std::size_t found) noexcept
{
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

std::size_t ClampTo(int position, std::size_t length) noexcept
{
    return position <= 0 ? 0 : std::min(static_cast<std::size_t>(position), length);
}

} // namespace

CString::CString(char const* text, int length)
{
    if (text != nullptr && length > 0)
    {
        m_text.assign(text, static_cast<std::size_t>(length));
    }
}

CString& CString::operator=(char const* text)
{
    m_text = ViewOf(text);
    return *this;
}

char CString::GetAt(int position) const noexcept
{
    return position >= 0 && position < GetLength() ? m_text[static_cast<std::size_t>(position)] : '\0';
}

void CString::SetAt(int position, char character)
{
    if (position >= 0 && position < GetLength())
    {
        m_text[static_cast<std::size_t>(position)] = character;
    }
}

CString& CString::operator+=(CString const& text)
{
    m_text += text.m_text;
    return *this;
}

CString& CString::operator+=(char const* text)
{
    m_text += ViewOf(text);
    return *this;
}

CString& CString::operator+=(char character)
{
    m_text += character;
    return *this;
}

int CString::Compare(char const* other) const noexcept
{
    return std::string_view(m_text).compare(ViewOf(other));
}

int CString::CompareNoCase(char const* other) const noexcept
{
    std::string_view const right = ViewOf(other);
    std::size_t const common = std::min(m_text.size(), right.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        int const difference =
            static_cast<unsigned char>(ToLowerAscii(m_text[i])) - static_cast<unsigned char>(ToLowerAscii(right[i]));
        if (difference != 0)
        {
            return difference;
        }
    }
    return m_text.size() == right.size() ? 0 : (m_text.size() < right.size() ? -1 : 1);
}

CString CString::Mid(int first, int count) const
{
    return CString(m_text.substr(ClampTo(first, m_text.size()), ClampTo(count, m_text.size())));
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    return CString(m_text.substr(m_text.size() - ClampTo(count, m_text.size())));
}

int CString::Find(char character, int start) const noexcept
{
    return PositionOf(m_text.find(character, ClampTo(start, m_text.size())));
}

int CString::Find(char const* text, int start) const noexcept
{
    return PositionOf(m_text.find(ViewOf(text), ClampTo(start, m_text.size())));
}

int CString::ReverseFind(char character) const noexcept
{
    return PositionOf(m_text.rfind(character));
}

int CString::FindOneOf(char const* characters) const noexcept
{
    return PositionOf(m_text.find_first_of(ViewOf(characters)));
}

int CString::Replace(char const* from, char const* to)
{
    std::string_view const wanted = ViewOf(from);
    std::string_view const put = ViewOf(to);
    if (wanted.empty())
    {
        return 0;
    }
    std::string result;
    std::size_t copied = 0;
    int replaced = 0;
    for (std::size_t at = m_text.find(wanted); at != std::string::npos; at = m_text.find(wanted, copied))
    {
        result.append(m_text, copied, at - copied).append(put);
        copied = at + wanted.size();
        ++replaced;
    }
    if (replaced > 0)
    {
        m_text = std::move(result.append(m_text, copied));
    }
    return replaced;
}

int CString::Remove(char character)
{
    return static_cast<int>(std::erase(m_text, character));
}

int CString::Insert(int position, char const* text)
{
    m_text.insert(ClampTo(position, m_text.size()), ViewOf(text));
    return GetLength();
}

int CString::Delete(int position, int count)
{
    m_text.erase(ClampTo(position, m_text.size()), ClampTo(count, m_text.size()));
    return GetLength();
}

CString& CString::MakeUpper() noexcept
{
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), ToUpperAscii);
    return *this;
}

CString& CString::MakeLower() noexcept
{
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), ToLowerAscii);
    return *this;
}

CString& CString::Trim()
{
    return TrimLeft().TrimRight();
}

CString& CString::TrimLeft()
{
    m_text.erase(0, std::min(m_text.find_first_not_of(kBlanks), m_text.size()));
    return *this;
}

CString& CString::TrimRight()
{
    std::size_t const last = m_text.find_last_not_of(kBlanks);
    m_text.resize(last == std::string::npos ? 0 : last + 1);
    return *this;
}

void CString::Format(char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list counting;
    va_copy(counting, arguments);
    int const length = std::vsnprintf(nullptr, 0, format, counting);
    va_end(counting);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0)
    {
        std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    }
    va_end(arguments);
    m_text = std::move(text);
}
