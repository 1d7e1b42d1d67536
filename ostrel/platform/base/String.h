// The framework's text: a value of 8-bit characters, UTF-8 on this platform, counted in bytes. It may hold zero bytes;
// the operations that take a plain character pointer stop at the first one.
#pragma once

#include <compare>
#include <string>
#include <string_view>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

class OSTREL_BASE_API CString
{
public:
    CString() noexcept = default;
    /// A null pointer gives an empty text.
    CString(char const* text) : m_text(text != nullptr ? text : "") {}
    CString(char const* text, int length);
    explicit CString(char character, int repeat = 1);
    explicit CString(std::string text) noexcept : m_text(std::move(text)) {}
    explicit CString(std::string_view text) : m_text(text) {}

    CString& operator=(char const* text);

    [[nodiscard]] int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_text.empty(); }
    void Empty() noexcept { m_text.clear(); }
    /// The byte at a position, 0 outside the text.
    [[nodiscard]] char GetAt(int position) const noexcept;
    char operator[](int position) const noexcept { return GetAt(position); }
    void SetAt(int position, char character);

    /// The text with a terminating zero byte; valid until the next change.
    [[nodiscard]] char const* GetString() const noexcept { return m_text.c_str(); }
    operator char const*() const noexcept { return m_text.c_str(); }
    /// The text with every byte, zero bytes included; valid until the next change.
    [[nodiscard]] std::string const& AsStd() const noexcept { return m_text; }

    CString& operator+=(CString const& text);
    CString& operator+=(char const* text);
    CString& operator+=(char character);

    /// Byte-wise order: negative, zero or positive.
    [[nodiscard]] int Compare(char const* other) const noexcept;
    /// The same with the ASCII letters folded.
    [[nodiscard]] int CompareNoCase(char const* other) const noexcept;

    /// Parts of the text. Positions and counts outside the text are clamped.
    [[nodiscard]] CString Mid(int first, int count) const;
    [[nodiscard]] CString Mid(int first) const;
    [[nodiscard]] CString Left(int count) const;
    [[nodiscard]] CString Right(int count) const;

    /// Positions in bytes, -1 when not found.
    [[nodiscard]] int Find(char character, int start = 0) const noexcept;
    [[nodiscard]] int Find(char const* text, int start = 0) const noexcept;
    [[nodiscard]] int ReverseFind(char character) const noexcept;
    [[nodiscard]] int FindOneOf(char const* characters) const noexcept;

    /// Changes in place; each returns how many occurrences or bytes it touched or the new length.
    int Replace(char const* from, char const* to);
    int Remove(char character);
    int Insert(int position, char const* text);
    int Delete(int position, int count = 1);

    /// ASCII letters only, so that UTF-8 text stays intact.
    CString& MakeUpper() noexcept;
    CString& MakeLower() noexcept;
    /// Removes blanks, tabs and line ends.
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();

    /// As printf writes it.
    void Format(char const* format, ...) __attribute__((format(printf, 2, 3)));

    friend CString operator+(CString left, CString const& right)
    {
        left += right;
        return left;
    }
    friend CString operator+(CString left, char const* right)
    {
        left += right;
        return left;
    }
    friend CString operator+(char const* left, CString const& right)
    {
        CString sum(left);
        sum += right;
        return sum;
    }
    friend bool operator==(CString const& a, CString const& b) noexcept { return a.m_text == b.m_text; }
    friend bool operator==(CString const& a, char const* b) noexcept { return a.Compare(b) == 0; }
    friend std::strong_ordering operator<=>(CString const& a, CString const& b) noexcept
    {
        return a.m_text <=> b.m_text;
    }
    friend std::strong_ordering operator<=>(CString const& a, char const* b) noexcept { return a.Compare(b) <=> 0; }

private:
    std::string m_text;
};
