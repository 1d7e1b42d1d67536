// The way over the columns that rows and the header take alike.
#pragma once

#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>

namespace Ostrel::GUI::Detail
{

/// From the first scrolling column until the walk dies nothing is painted over the fixed columns: neither the scrolling
/// ones nor what follows behind them.
class ColumnWalk
{
public:
    ColumnWalk(CDC& dc, PaintSnapshot const& snapshot, CRect const& clip) noexcept
        : m_snapshot(snapshot), m_clip(clip), m_guard(dc, clip, snapshot.fixedRight)
    {}

    /// Calls paint(column, visibleLeft) for every column of which a pixel of the clip is to be seen, from left to
    /// right.
    template <class Paint>
    void ForEach(Paint&& paint)
    {
        ForEachColumn(m_snapshot, m_clip.left, m_clip.right,
                      [&](PaintColumn const& column, int visibleLeft)
                      {
                          if (!column.isFixed)
                          {
                              m_guard.Protect();
                          }
                          paint(column, visibleLeft);
                      });
    }

private:
    PaintSnapshot const& m_snapshot;
    CRect m_clip;
    FixedColumnsGuard m_guard;
};

} // namespace Ostrel::GUI::Detail
