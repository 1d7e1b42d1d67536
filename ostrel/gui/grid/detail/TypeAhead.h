// Typing letters and digits goes to the next row whose text in the navigation column begins with them.
#pragma once

#include <cstdint>
#include <string>

#include <ostrel/gui/grid/detail/GridArea.h>

namespace Ostrel::GUI::Detail
{
class GridCore;

class TypeAhead
{
public:
    explicit TypeAhead(GridCore& core) noexcept : m_core(core) {}

    /// Keys further apart begin a new search.
    int intervalMs = 1000;

    /// A key that went down with neither Shift nor Ctrl. True if it is a letter or digit and there is a column to
    /// search.
    bool OnKeyDown(unsigned int key);

private:
    [[nodiscard]] bool Matches(CGridItem const& item, long fieldId) const;
    [[nodiscard]] CGridItem* Find(bool startsAtFocus, long fieldId) const;
    void GoTo(CGridItem& item);

    GridCore& m_core;
    std::string m_text;
    std::int32_t m_lastKeyMs = 0;
};
} // namespace Ostrel::GUI::Detail
