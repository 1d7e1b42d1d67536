/// @file
/// The question which rows a grid hides.
#pragma once

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{
class CGrid;
class CGridItem;

/// Decides row by row what a grid hides. Asked on the grid's thread from inside row operations: it only answers, it
/// changes no rows.
class OSTREL_GUI_API IGridFilter : public virtual IAutoDelete
{
public:
    IGridFilter() = default;
    ///@{
    /// The interface has no state.
    IGridFilter(IGridFilter const&) = default;
    IGridFilter& operator=(IGridFilter const&) = default;
    ///@}
    ~IGridFilter() override = default;

    /// True hides the row.
    virtual bool IsFiltered(CGrid* grid, CGridItem* item, Common::CDataObject* object) = 0;
};
} // namespace Ostrel::GUI
