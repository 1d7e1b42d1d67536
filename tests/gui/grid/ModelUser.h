// What a person does to one of the grids of the model test with keys and clicks, in its most naive form: all visible
// rows are one sequence, the fixed ones first.
#pragma once

#include "ModelSide.h"

namespace Ostrel::Testing
{

enum class NavigationKey
{
    Up,
    Down,
    PageUp,
    PageDown,
    Home,
    End,
    Left,
    Right
};

class ModelUser
{
public:
    explicit ModelUser(ModelSide& side);

    void Press(NavigationKey key, bool shift, bool ctrl);
    /// Another character of a search: `text` is all that was typed so far.
    void Type(std::string const& text);
    /// A click on a caption.
    void SortBy(int key, bool shift, bool ctrl);

private:
    static constexpr int kNone = -1;

    [[nodiscard]] int Target(NavigationKey key) const;
    [[nodiscard]] int TargetOfPage(NavigationKey key) const;
    [[nodiscard]] int Outward() const;
    /// Left and right change rows that have children.
    bool ExpandOrCollapse(NavigationKey key);
    void GoTo(int target, bool shift, bool ctrl, bool wholeRange);
    void Select(int place, bool select);
    [[nodiscard]] GUI::CGridItem* ItemAt(int place) const { return m_rows[static_cast<std::size_t>(place)]; }
    [[nodiscard]] int PlaceOf(GUI::CGridItem const* item) const;

    ModelSide& m_side;
    ModelSide::Items m_rows;
    int m_fixedRows;
    int m_rowCount;
    int m_focus;
    int m_page; ///< scrollable rows on the screen, at least one
};

} // namespace Ostrel::Testing
