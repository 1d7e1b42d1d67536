/// @file
/// What dragging rows out of a grid and dropping them into one means: a replaceable part of a grid.
#pragma once

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CDragSource;
class CDropTarget;
class CGrid;

/// All operations run on the grid's thread. Effects are those of the platform, DROPEFFECT_NONE and its siblings.
class OSTREL_GUI_API IDragDrop : public virtual IAutoDelete
{
public:
    /// Runs a whole drag; returns its effect.
    virtual unsigned long DoDrag(CDragSource& source) = 0;
    /// A drag comes in: the effect that a drop here would have.
    virtual unsigned long OnDragEnter(CDropTarget const& target) = 0;
    /// The same for each move of the pointer or change of the keys.
    virtual unsigned long OnDragOver(CDropTarget const& target) = 0;
    /// Nonzero when the rows were taken.
    virtual int OnDrop(CDropTarget const& target, unsigned long effect) = 0;
    /// The drag has left the grid or was given up.
    virtual void OnDragLeave(CGrid const& grid) = 0;
    /// Whether the rows could be dropped here.
    [[nodiscard]] virtual bool CanDrop(CDropTarget const& target) const = 0;
};
} // namespace Ostrel::GUI
