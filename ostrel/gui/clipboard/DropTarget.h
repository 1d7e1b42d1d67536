/// @file
/// Where in a grid something that is being dragged is, and what it is.
#pragma once

#include <ostrel/gui/paint/DropPosition.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/Types.h>

class COleDataObject;
class COleDropTarget;

namespace Ostrel::GUI
{
class CGrid;

/// Refers to everything and owns nothing; lives for one operation.
class OSTREL_GUI_API CDropTarget
{
public:
    /// What is dragged, `data`, over a grid; `keyState` and `clientPoint` as returned below.
    CDropTarget(CGrid& grid, CDropPosition const& position, COleDropTarget* dropTarget, COleDataObject* data,
                DWORD keyState, CPoint clientPoint) noexcept
        : m_grid(grid),
          m_position(position),
          m_dropTarget(dropTarget),
          m_data(data),
          m_keyState(keyState),
          m_clientPoint(clientPoint)
    {}
    CDropTarget(CDropTarget const&) = delete;
    CDropTarget& operator=(CDropTarget const&) = delete;
    ~CDropTarget() = default;

    /// The grid under the pointer.
    [[nodiscard]] CGrid& GetGrid() const noexcept { return m_grid; }
    /// The row and the side of it where the drop would go.
    [[nodiscard]] CDropPosition const& GetDropPosition() const noexcept { return m_position; }
    /// The grid as the platform's drop target.
    [[nodiscard]] COleDropTarget* GetDropTarget() const noexcept { return m_dropTarget; }
    /// What is dragged.
    [[nodiscard]] COleDataObject* GetData() const noexcept { return m_data; }
    /// The MK_ flags of the platform; 8 is the Control key.
    [[nodiscard]] DWORD GetdwKeyState() const noexcept { return m_keyState; }
    /// In client coordinates.
    [[nodiscard]] CPoint GetPoint() const noexcept { return m_clientPoint; }

private:
    CGrid& m_grid;
    CDropPosition m_position;
    COleDropTarget* m_dropTarget;
    COleDataObject* m_data;
    DWORD m_keyState;
    CPoint m_clientPoint;
};
} // namespace Ostrel::GUI
