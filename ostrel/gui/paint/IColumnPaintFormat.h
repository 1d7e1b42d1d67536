/// @file
/// What draws the titles of columns.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>

class CArchive;

namespace Ostrel::GUI
{

class CColumnPaintInfo;
class CPaintContext;

/// Draws column titles, on the grid's thread, inside a paint pass; `filter` is a set of the bits of PaintFilter. A
/// format that tells its name and is registered under it with CPaintFormatFactory is kept in archives.
class OSTREL_GUI_API IColumnPaintFormat
{
public:
    IColumnPaintFormat() = default;
    ///@{
    /// The interface has no state.
    IColumnPaintFormat(IColumnPaintFormat const&) = default;
    IColumnPaintFormat& operator=(IColumnPaintFormat const&) = default;
    ///@}
    virtual ~IColumnPaintFormat() = default;

    /// Draws the title: everything inside its clip rectangle.
    virtual void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const = 0;

    /// A copy with the same settings; the caller owns it.
    virtual IColumnPaintFormat* Clone() const = 0;
    /// Non-zero when archives keep the format.
    virtual int IsSerializableType() const { return 0; }
    /// The name under which the format is registered.
    virtual CString GetFormatName() { return {}; }
    /// Stores or loads the settings. Loading throws CArchiveException.
    virtual void Serialize(CArchive& /*archive*/) {}
};

} // namespace Ostrel::GUI
