/// @file
/// The place of a control over its cell.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// How a control lies over its cell. A plain value.
class OSTREL_GUI_API CEmbeddedControlParams
{
public:
    /// The edges of the control that follow those of the cell. Where an edge does not, the control keeps the size that
    /// it had when it was embedded.
    enum Anchor : unsigned int
    {
        AnchorLeft = 1,
        AnchorTop = 2,
        AnchorRight = 4,
        AnchorBottom = 8,
        AnchorAll = 15,
    };

    /// Covers the cell.
    CEmbeddedControlParams() noexcept = default;
    /// The offsets, in pixels, are added to the cell's edges.
    CEmbeddedControlParams(unsigned int anchors, int left, int top, int right, int bottom,
                           bool invalidateControl) noexcept
        : m_anchors(anchors),
          m_left(left),
          m_top(top),
          m_right(right),
          m_bottom(bottom),
          m_invalidateControl(invalidateControl)
    {}

    /// Anchor bits.
    [[nodiscard]] unsigned int GetAnchors() const noexcept { return m_anchors; }
    ///@{
    /// Pixels between an edge of the cell and that of the control; positive is right and down.
    [[nodiscard]] int GetLeftOffset() const noexcept { return m_left; }
    [[nodiscard]] int GetTopOffset() const noexcept { return m_top; }
    [[nodiscard]] int GetRightOffset() const noexcept { return m_right; }
    [[nodiscard]] int GetBottomOffset() const noexcept { return m_bottom; }
    ///@}
    /// Whether the control is repainted together with its cell.
    [[nodiscard]] bool GetInvalidateControl() const noexcept { return m_invalidateControl; }
    /// Says whether it is.
    void SetInvalidateControl(bool invalidate) noexcept { m_invalidateControl = invalidate; }

    /// Equal in everything.
    friend bool operator==(CEmbeddedControlParams const&, CEmbeddedControlParams const&) noexcept = default;

private:
    unsigned int m_anchors = AnchorAll;
    int m_left = 0;
    int m_top = 0;
    int m_right = 0;
    int m_bottom = 0;
    bool m_invalidateControl = true;
};

} // namespace Ostrel::GUI
