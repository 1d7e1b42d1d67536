/// @file
/// What draws the cells of a column.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/String.h>

class CArchive;

namespace Ostrel::GUI
{

class CGridCell;
class CPaintContext;

/// Draws and measures cells, on the grid's thread, inside a paint pass; `filter` is a set of the bits of PaintFilter.
/// A format that tells its name and is registered under it with CPaintFormatFactory is kept in archives.
class OSTREL_GUI_API ICellPaintFormat
{
public:
    ICellPaintFormat() = default;
    ///@{
    /// The interface has no state.
    ICellPaintFormat(ICellPaintFormat const&) = default;
    ICellPaintFormat& operator=(ICellPaintFormat const&) = default;
    ///@}
    virtual ~ICellPaintFormat() = default;

    /// Draws the cell: everything inside its clip rectangle.
    virtual void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) const = 0;
    ///@{
    /// The cell's resulting colour, 0x00BBGGRR.
    virtual unsigned long GetBackColor(CGridCell& cell, CPaintContext const& context, unsigned int filter) const = 0;
    virtual unsigned long GetForeColor(CGridCell& cell, CPaintContext const& context, unsigned int filter) const = 0;
    ///@}
    /// The width in pixels that shows the whole content.
    virtual int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const = 0;
    ///@{
    /// Where the image, or the text, goes, in client pixels.
    virtual CRect GetImageRect(CGridCell& cell, CPaintContext const& context, unsigned int filter) = 0;
    virtual CRect GetTextRect(CGridCell& cell, CPaintContext const& context, unsigned int filter) = 0;
    ///@}

    /// A copy with the same settings; the caller owns it.
    virtual ICellPaintFormat* Clone() const = 0;
    /// Non-zero when archives keep the format.
    virtual int IsSerializableType() const { return 0; }
    /// The name under which the format is registered.
    virtual CString GetFormatName() { return {}; }
    /// Stores or loads the settings. Loading throws CArchiveException.
    virtual void Serialize(CArchive& /*archive*/) {}
};

} // namespace Ostrel::GUI
