/// @file
/// What draws whole rows.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>

class CArchive;

namespace Ostrel::GUI
{

class CGridLine;
class CPaintContext;
class ICustomDraw;

/// Draws rows, on the grid's thread, inside a paint pass; `filter` is a set of the bits of PaintFilter.
class OSTREL_GUI_API ILinePaintFormat
{
public:
    ILinePaintFormat() = default;
    ///@{
    /// The interface has no state.
    ILinePaintFormat(ILinePaintFormat const&) = default;
    ILinePaintFormat& operator=(ILinePaintFormat const&) = default;
    ///@}
    virtual ~ILinePaintFormat() = default;

    /// Draws the row, cell by cell, through the custom draw. A null custom draw means the default one.
    virtual void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter,
                          ICustomDraw* customDraw) const = 0;

    /// Non-zero when archives keep the format.
    virtual int IsSerializableType() const { return 0; }
    /// The name under which the format is registered.
    virtual CString GetFormatName() { return {}; }
    /// Stores or loads the settings. Loading throws CArchiveException.
    virtual void Serialize(CArchive& /*archive*/) {}
};

} // namespace Ostrel::GUI
