// The hook through which all drawing of a grid goes, so that an application can draw any of it differently.
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
    ICustomDraw(ICustomDraw const&) = default;
    ICustomDraw& operator=(ICustomDraw const&) = default;
    ~ICustomDraw() override = default;

    virtual void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter) = 0;
    virtual void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) = 0;
    virtual void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) = 0;
    virtual void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) = 0;

    /// Which formats draw a row and a cell. Object and item are null for an empty line, the column for the space right
    /// of the last one.
    virtual ILinePaintFormat const& GetLinePaintFormat(Common::CDataObject const* object, CGridItem* item,
                                                       ContextType context, int row) const = 0;
    virtual ICellPaintFormat const& GetCellPaintFormat(CColumn const* column, Common::CDataObject const* object,
                                                       CGridItem* item, ContextType context, int row) const = 0;

    /// Sizes in pixels. A row height below 1 leaves the grid's as it is.
    virtual int GetOptimalHeaderHeight(CHeaderPaintInfo& info, CPaintContext const& context,
                                       unsigned int filter) const = 0;
    virtual int GetOptimalRowHeight(CFont* font, CDC& dc) const = 0;
    virtual int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const = 0;
};

} // namespace Ostrel::GUI
