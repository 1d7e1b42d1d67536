#include <algorithm>

#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/TypeAhead.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/platform/window/VirtualKeys.h>

namespace Ostrel::GUI::Detail
{
namespace
{
/// The letter or digit of a key, 0 for other keys.
char CharacterOf(unsigned int key) noexcept
{
    if ((key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z'))
    {
        return static_cast<char>(key);
    }
    return key >= VK_NUMPAD0 && key <= VK_NUMPAD9 ? static_cast<char>('0' + (key - VK_NUMPAD0)) : '\0';
}

bool IsNumber(Common::EnType type) noexcept
{
    return (type >= Common::TypeChar && type <= Common::TypeInt64) || type == Common::TypeFloat ||
           type == Common::TypeDouble;
}

// The search text is made of ASCII letters and digits only, so no character of a text is ever cut in half.
bool BeginsWith(std::string const& text, std::string const& start) noexcept
{
    auto const fold = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(), [&](char a, char b) { return fold(a) == fold(b); });
}
} // namespace

bool TypeAhead::OnKeyDown(unsigned int key)
{
    char const character = CharacterOf(key);
    CColumn const* const column = m_core.Columns().NavigationColumn();
    if (character == '\0' || column == nullptr)
    {
        return false;
    }
    std::int32_t const nowMs = GridTimeMs();
    bool const continues = !m_text.empty() && ((nowMs - m_lastKeyMs) & 0x7FFFFFFF) < intervalMs; // the clock wraps
    m_lastKeyMs = nowMs;
    m_text = continues ? m_text + character : std::string(1, character);
    if (CGridItem* const item = Find(continues, column->GetFid()))
    {
        GoTo(*item);
    }
    return true;
}

bool TypeAhead::Matches(CGridItem const& item, long fieldId) const
{
    std::string text = m_core.Cells().StlText(item, fieldId, nullptr);
    if (ItemPool::IsLive(&item) && IsNumber(m_core.Cells().Value(item, fieldId).GetType()))
    {
        std::erase_if(text, [](char c) { return c == ' ' || c == '\t'; });
    }
    return BeginsWith(text, m_text);
}

// Once round all rows, beginning behind the focused one or, while a search goes on, at it.
CGridItem* TypeAhead::Find(bool startsAtFocus, long fieldId) const
{
    GridSelection const& selection = m_core.Selection();
    CGridItem* const focused = selection.FocusedRow() >= 0 ? selection.FocusedItem() : nullptr;
    auto const next = [&](CGridItem* item)
    {
        CGridItem* const below = m_core.Rows().Next(item, true);
        return below != nullptr || focused == nullptr ? below : m_core.Rows().FirstRow();
    };
    CGridItem* item = focused == nullptr ? m_core.Rows().FirstRow() : (startsAtFocus ? focused : next(focused));
    int rowsLeft = m_core.Fixed().RowCount() + m_core.Scrollable().RowCount();
    for (; rowsLeft > 0 && item != nullptr && !Matches(*item, fieldId); --rowsLeft)
    {
        item = ItemPool::IsLive(item) ? next(item) : nullptr; // a getter may delete the row that it was asked for
    }
    return rowsLeft > 0 && ItemPool::IsLive(item) ? item : nullptr;
}

void TypeAhead::GoTo(CGridItem& item)
{
    int const row = RowArea::RowOf(item);
    ContextType const type = item.Area()->Type();
    m_core.Selection().Clear();
    if (type == ScrollableContext)
    {
        m_core.Scroller().EnsureVisible(row);
    }
    m_core.Selection().Select(row, type, true);
    m_core.Selection().SetFocus(row, type);
}
} // namespace Ostrel::GUI::Detail
