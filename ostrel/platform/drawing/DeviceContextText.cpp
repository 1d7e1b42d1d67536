// Text of a device context: lines, alignment, word break, the line under a marked letter.
#include <algorithm>
#include <cstring>
#include <limits>

#include <ostrel/platform/base/Utf8.h>
#include <ostrel/platform/drawing/DeviceContext.h>

using Ostrel::Platform::ClipRects;
using Ostrel::Platform::NextUtf8;
using Ostrel::Platform::TextLine;

namespace
{

constexpr std::size_t kMostLines = 1U << 20U; ///< beyond, heights are not right any more
constexpr std::size_t kNoMark = std::numeric_limits<std::size_t>::max();

std::string_view ViewOf(LPCSTR text, int length) noexcept
{
    if (text == nullptr)
    {
        return {};
    }
    return length < 0 ? std::string_view(text) : std::string_view(text, static_cast<std::size_t>(length));
}

// Without the ampersands that mark a letter; `mark` becomes the position of the last marked one.
std::string WithoutMarks(std::string_view text, std::size_t& mark)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == '&')
        {
            if (++i == text.size())
            {
                break;
            }
            mark = text[i] == '&' ? mark : plain.size();
        }
        plain += text[i];
    }
    return plain;
}

// Cuts the first line off a text at its line end (LF, CR LF or CR).
std::string_view TakeLine(std::string_view& rest) noexcept
{
    std::size_t const end = std::min(rest.find_first_of("\r\n"), rest.size());
    std::string_view const line = rest.substr(0, end);
    bool const isPair = rest.substr(end, 2) == "\r\n";
    rest.remove_prefix(std::min(rest.size(), end + (isPair ? 2 : 1)));
    return line;
}

TextLine::Align AlignOf(UINT format) noexcept
{
    if ((format & DT_RIGHT) != 0)
    {
        return TextLine::Align::Right;
    }
    return (format & DT_CENTER) != 0 ? TextLine::Align::Center : TextLine::Align::Left;
}

} // namespace

/// A text cut into its lines, with what all of them share.
struct CDC::TextParts
{
    std::vector<std::string_view> lines; ///< of a text of several lines
    std::string_view single;             ///< of one that stays on one line; nothing is allocated then
    std::size_t mark = kNoMark;          ///< the marked letter, in a single line only
    bool isSingle = true;
    TEXTMETRIC metrics{};

    [[nodiscard]] std::span<std::string_view const> Lines() const noexcept
    {
        return isSingle ? std::span<std::string_view const>(&single, 1) : std::span<std::string_view const>(lines);
    }
    [[nodiscard]] int Height() const noexcept
    {
        return static_cast<int>(std::min(Lines().size(), kMostLines)) * metrics.tmHeight;
    }
};

namespace
{

// How much of a line goes before a break: up to the last blank that fits, at least one word.
std::size_t BreakOf(std::string_view line, int width, auto&& measure)
{
    std::size_t fitting = 0;
    std::size_t end = 0;
    while (end < line.size())
    {
        end = std::min(line.find(' ', line.find_first_not_of(' ', end)), line.size());
        if (fitting != 0 && measure(line.substr(0, end)) > width)
        {
            return fitting;
        }
        fitting = end;
    }
    return line.size();
}

void AppendBroken(std::vector<std::string_view>& lines, std::string_view line, int width, auto&& measure)
{
    do
    {
        std::size_t const end = BreakOf(line, width, measure);
        lines.push_back(line.substr(0, end));
        line.remove_prefix(end);
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    } while (!line.empty());
}

} // namespace

int CDC::DrawText(LPCSTR text, int length, RECT* rect, UINT format)
{
    if (rect == nullptr || m_target == nullptr)
    {
        return 0;
    }
    TextParts parts;
    parts.single = ViewOf(text, length);
    std::string plain;
    if ((format & DT_NOPREFIX) == 0 && parts.single.find('&') != std::string_view::npos)
    {
        plain = WithoutMarks(parts.single, parts.mark);
        parts.single = plain;
    }
    m_target->FontMetrics(m_state.fontId, parts.metrics);
    parts.isSingle = (format & DT_SINGLELINE) != 0;
    std::string_view rest = parts.isSingle ? std::string_view() : parts.single;
    while (!rest.empty())
    {
        std::string_view const line = TakeLine(rest);
        if ((format & DT_WORDBREAK) != 0)
        {
            AppendBroken(parts.lines, line, ToTarget(*rect).Width(),
                         [this](std::string_view part) { return m_target->TextWidth(m_state.fontId, part); });
        }
        else
        {
            parts.lines.push_back(line);
        }
    }
    if ((format & DT_CALCRECT) == 0)
    {
        return DrawTextLines(parts, *rect, format);
    }
    CSize const size = MeasureLines(parts);
    rect->right = rect->left + std::min(size.cx, std::numeric_limits<int>::max() - std::max(rect->left, 0));
    rect->bottom = rect->top + std::min(size.cy, std::numeric_limits<int>::max() - std::max(rect->top, 0));
    return size.cy;
}

int CDC::DrawText(CString const& text, RECT* rect, UINT format)
{
    return DrawText(text.GetString(), text.GetLength(), rect, format);
}

int CDC::DrawText(std::string_view text, RECT const& rect, UINT format)
{
    RECT place = rect;
    return DrawText(text.data() != nullptr ? text.data() : "", static_cast<int>(text.size()), &place,
                    format & ~DT_CALCRECT);
}

CSize CDC::MeasureLines(TextParts const& parts)
{
    int width = 0;
    for (std::string_view const line : parts.Lines())
    {
        width = std::max(width, m_target->TextWidth(m_state.fontId, line));
    }
    return {width, parts.Height()};
}

int CDC::DrawTextLines(TextParts const& parts, CRect const& rect, UINT format)
{
    CRect const box = ToTarget(rect);
    int top = box.top;
    if (parts.isSingle && (format & DT_VCENTER) != 0)
    {
        top += (box.Height() - parts.metrics.tmHeight) / 2;
    }
    else if (parts.isSingle && (format & DT_BOTTOM) != 0)
    {
        top = box.bottom - parts.metrics.tmHeight;
    }
    for (std::string_view const line : parts.Lines())
    {
        if (top >= m_state.clip.Bounds().bottom)
        {
            break;
        }
        DrawTextLine(parts, line, box, top, format);
        top += parts.metrics.tmHeight;
    }
    return parts.Height();
}

void CDC::DrawTextLine(TextParts const& parts, std::string_view text, CRect const& box, int top, UINT format)
{
    ClipRects const clip = (format & DT_NOCLIP) != 0 ? Clip() : ClipTo(box);
    if (clip.empty())
    {
        return;
    }
    TextLine line{.font = m_state.fontId,
                  .text = text,
                  .left = box.left,
                  .right = box.right,
                  .baseline = top + parts.metrics.tmAscent,
                  .align = AlignOf(format),
                  .ellipsis = (format & DT_END_ELLIPSIS) != 0,
                  .color = m_state.textColor};
    if (m_state.backMode == OPAQUE || parts.mark != kNoMark)
    {
        int const whole = m_target->TextWidth(line.font, text);
        int const width = line.ellipsis ? std::min(whole, box.Width()) : whole;
        int const spare = box.Width() - width;
        int const start =
            box.left +
            (line.align == TextLine::Align::Left ? 0 : (line.align == TextLine::Align::Right ? spare : spare / 2));
        if (m_state.backMode == OPAQUE)
        {
            m_target->Fill(CRect(start, top, start + width, top + parts.metrics.tmHeight), m_state.backColor, clip);
        }
        if (parts.isSingle && parts.mark < text.size())
        {
            int const from = m_target->TextWidth(line.font, text.substr(0, parts.mark));
            int const to = m_target->TextWidth(line.font, text.substr(0, NextUtf8(text, parts.mark)));
            m_target->Fill(CRect(start + from, line.baseline + 1, start + std::min(to, width), line.baseline + 2),
                           line.color, clip);
        }
    }
    m_target->Text(line, clip);
}

BOOL CDC::TextOut(int x, int y, LPCSTR text, int length)
{
    CRect const place(x, y, x, y);
    DrawText(ViewOf(text, length), place, DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
    return TRUE;
}

BOOL CDC::TextOut(int x, int y, CString const& text)
{
    return TextOut(x, y, text.GetString(), text.GetLength());
}

CSize CDC::GetTextExtent(LPCSTR text, int length)
{
    if (m_target == nullptr)
    {
        return {};
    }
    TEXTMETRIC metrics{};
    m_target->FontMetrics(m_state.fontId, metrics);
    return {m_target->TextWidth(m_state.fontId, ViewOf(text, length)), metrics.tmHeight};
}

CSize CDC::GetTextExtent(CString const& text)
{
    return GetTextExtent(text.GetString(), text.GetLength());
}

BOOL CDC::GetTextMetrics(TEXTMETRIC* metrics)
{
    if (metrics == nullptr || m_target == nullptr)
    {
        return FALSE;
    }
    m_target->FontMetrics(m_state.fontId, *metrics);
    return TRUE;
}
