/// @file
/// The framework's text.
#pragma once

#include <compare>
#include <concepts>
#include <string>
#include <string_view>
#include <utility>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

/// The framework's text: a value of 8-bit characters, UTF-8 on this platform, counted in bytes. It may hold zero bytes;
/// the operations that take a plain character pointer stop at the first one.
class OSTREL_BASE_API CString
{
public:
    /// An empty text.
    CString() noexcept = default;
    ///@{
    /// A text with a copy of the characters: up to the zero byte, so many bytes, one character repeated, or all of a
    /// string. A null pointer and a negative number give an empty text.
    CString(char const* text) : m_text(text != nullptr ? text : "") {}
    CString(char const* text, int length);
    // These take exactly what they name: what converts to several of them, as a CValue does, is copied as a CString.
    template <std::same_as<char> Character>
    explicit CString(Character character, int repeat = 1)
        : m_text(static_cast<std::size_t>(repeat > 0 ? repeat : 0), character)
    {}
    template <std::same_as<std::string> Text>
    explicit CString(Text text) noexcept : m_text(std::move(text))
    {}
    template <std::same_as<std::string_view> Text>
    explicit CString(Text text) : m_text(text)
    {}
    ///@}

    /// Becomes a copy of the characters up to the zero byte; empty for null.
    CString& operator=(char const* text);

    /// The length in bytes, zero bytes inside the text included.
    [[nodiscard]] int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    /// True for a text of length 0.
    [[nodiscard]] bool IsEmpty() const noexcept { return m_text.empty(); }
    /// Makes the text empty.
    void Empty() noexcept { m_text.clear(); }
    ///@{
    /// The byte at a position, 0 outside the text.
    [[nodiscard]] char GetAt(int position) const noexcept;
    char operator[](int position) const noexcept { return GetAt(position); }
    ///@}
    /// Replaces the byte at a position; does nothing outside the text.
    void SetAt(int position, char character);

    ///@{
    /// The text with a terminating zero byte; valid until the next change.
    [[nodiscard]] char const* GetString() const noexcept { return m_text.c_str(); }
    operator char const*() const noexcept { return m_text.c_str(); }
    ///@}
    /// The text with every byte, zero bytes included; valid until the next change.
    [[nodiscard]] std::string const& AsStd() const noexcept { return m_text; }

    ///@{
    /// Appends a text or a byte; nothing for null.
    CString& operator+=(CString const& text);
    CString& operator+=(char const* text);
    CString& operator+=(char character);
    ///@}

    /// Byte-wise order of this text and the other: negative, zero or positive. Null counts as an empty text.
    [[nodiscard]] int Compare(char const* other) const noexcept;
    /// The same with the ASCII letters folded.
    [[nodiscard]] int CompareNoCase(char const* other) const noexcept;

    ///@{
    /// A part of the text: from a position on, or so many bytes at its beginning or end. Positions and counts outside
    /// the text are clamped.
    [[nodiscard]] CString Mid(int first, int count) const;
    [[nodiscard]] CString Mid(int first) const;
    [[nodiscard]] CString Left(int count) const;
    [[nodiscard]] CString Right(int count) const;
    ///@}

    ///@{
    /// The position in bytes at which it is first found at or after `start`; -1 when it is not.
    [[nodiscard]] int Find(char character, int start = 0) const noexcept;
    [[nodiscard]] int Find(char const* text, int start = 0) const noexcept;
    ///@}
    /// The position of the last occurrence; -1 without one.
    [[nodiscard]] int ReverseFind(char character) const noexcept;
    /// The position of the first byte that is one of these; -1 without one.
    [[nodiscard]] int FindOneOf(char const* characters) const noexcept;

    /// Replaces every occurrence and returns their number.
    int Replace(char const* from, char const* to);
    /// Removes every occurrence and returns their number.
    int Remove(char character);
    ///@{
    /// Inserts before a position, or removes from it on. Positions and counts are clamped. Returns the new length.
    int Insert(int position, char const* text);
    int Delete(int position, int count = 1);
    ///@}

    ///@{
    /// Changes the case of ASCII letters only, so that UTF-8 text stays intact.
    CString& MakeUpper() noexcept;
    CString& MakeLower() noexcept;
    ///@}

    ///@{
    /// Removes blanks, tabs and line ends at both ends or at one.
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();
    ///@}

    /// Becomes what printf writes.
    void Format(char const* format, ...) __attribute__((format(printf, 2, 3)));

    ///@{
    /// Both texts, one behind the other; a character counts as a text of one byte.
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
    // Without the next two a character would be added to the address of the text.
    friend CString operator+(CString left, char right)
    {
        left += right;
        return left;
    }
    friend CString operator+(char left, CString const& right)
    {
        CString sum(left);
        sum += right;
        return sum;
    }
    friend CString operator+(char const* left, CString const& right)
    {
        CString sum(left);
        sum += right;
        return sum;
    }
    ///@}

    ///@{
    /// Byte-wise equality and order.
    friend bool operator==(CString const& a, CString const& b) noexcept { return a.m_text == b.m_text; }
    friend bool operator==(CString const& a, char const* b) noexcept { return a.Compare(b) == 0; }
    friend std::strong_ordering operator<=>(CString const& a, CString const& b) noexcept
    {
        return a.m_text <=> b.m_text;
    }
    friend std::strong_ordering operator<=>(CString const& a, char const* b) noexcept { return a.Compare(b) <=> 0; }
    ///@}

private:
    std::string m_text;
};
