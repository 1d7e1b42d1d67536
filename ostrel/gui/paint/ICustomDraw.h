/// @file
/// The hook through which all drawing of a grid goes, so that an application can draw any of it differently.
#pragma once

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/platform/base/Export.h>

class CDC;
class CFont;

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{

class CColumn;
class CColumnPaintInfo;
class CGridCell;
class CGridItem;
class CGridLine;
class CHeaderPaintInfo;
class CPaintContext;
class ICellPaintFormat;
class ILinePaintFormat;

/// Called on the grid's thread, inside a paint pass or while the grid measures; `filter` is a set of the bits of
/// PaintFilter. Derive from CCustomDraw to replace only some of it.
class OSTREL_GUI_API ICustomDraw : public virtual IAutoDelete
{
public:
    ICustomDraw() = default;
    ///@{
    /// The interface has no state.
    ICustomDraw(ICustomDraw const&) = default;
    ICustomDraw& operator=(ICustomDraw const&) = default;
    ///@}
    ~ICustomDraw() override = default;

    /// Draws the band above the rows.
    virtual void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter) = 0;
    /// Draws one title.
    virtual void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) = 0;
    /// Draws one row, or an empty line below the last one.
    virtual void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) = 0;
    /// Draws one cell, or the space right of the last column.
    virtual void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) = 0;

    ///@{
    /// The format that draws a row, and a cell. Object and item are null for an empty line, the column for the space
    /// right of the last one.
    virtual ILinePaintFormat const& GetLinePaintFormat(Common::CDataObject const* object, CGridItem* item,
                                                       ContextType context, int row) const = 0;
    virtual ICellPaintFormat const& GetCellPaintFormat(CColumn const* column, Common::CDataObject const* object,
                                                       CGridItem* item, ContextType context, int row) const = 0;
    ///@}

    /// The height of the header that suits its font, in pixels.
    virtual int GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                                       unsigned int filter) const = 0;
    /// The height of rows that suits a font, in pixels. Below 1 leaves the rows as they are.
    virtual int GetOptimalRowHeight(CFont* font, CDC& dc) const = 0;
    /// The width that shows the whole cell, in pixels.
    virtual int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const = 0;
};

} // namespace Ostrel::GUI
