// Walks over a row and its descendants, without recursion: trees may be as deep as the application likes.
#pragma once

#include <ostrel/gui/grid/detail/GridItem.h>

namespace Ostrel::GUI::Detail
{

/// Calls enter(item) before an item's descendants, which are visited only if it returns true, and leave(item) after
/// them. leave may destroy the item; nothing else may change the tree, but enter may reorder the item's own children.
template <class Enter, class Leave>
void WalkSubtree(CGridItem& top, Enter enter, Leave leave)
{
    constexpr unsigned kPrefetchAhead = 6;
    CGridItem* item = &top;
    SequencePlace place;
    for (;;)
    {
        if (enter(*item) && item->HasChildren())
        {
            place = item->Children().Begin();
            item = ChildSequence::ItemOf(place);
            continue;
        }
        for (;;)
        {
            CGridItem* const parent = item->Parent();
            bool const isTop = item == &top;
            leave(*item);
            if (isTop)
            {
                return;
            }
            ++place.slot;
            if (CGridItem* const next = ChildSequence::ItemOf(place))
            {
                if (place.slot + kPrefetchAhead < place.leaf->m_count)
                {
                    __builtin_prefetch(place.leaf->ItemAt(place.slot + kPrefetchAhead));
                }
                item = next;
                break;
            }
            item = parent;
            if (item != &top)
            {
                place = ChildSequence::PlaceOf(*item);
            }
        }
    }
}

template <class Enter>
void WalkSubtree(CGridItem& top, Enter enter)
{
    WalkSubtree(top, enter, [](CGridItem&) {});
}

} // namespace Ostrel::GUI::Detail
