/// @file
/// What draws the header band.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>

class CArchive;

namespace Ostrel::GUI
{

class CHeaderPaintInfo;
class CPaintContext;
class ICustomDraw;

/// Draws the band above the rows, on the grid's thread, inside a paint pass; `filter` is a set of the bits of
/// PaintFilter.
class OSTREL_GUI_API IHeaderPaintFormat
{
public:
    IHeaderPaintFormat() = default;
    ///@{
    /// The interface has no state.
    IHeaderPaintFormat(IHeaderPaintFormat const&) = default;
    IHeaderPaintFormat& operator=(IHeaderPaintFormat const&) = default;
    ///@}
    virtual ~IHeaderPaintFormat() = default;

    /// Draws the band, through the custom draw. A null custom draw means the default one.
    virtual void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter,
                            ICustomDraw* customDraw) const = 0;

    /// Non-zero when archives keep the format.
    virtual int IsSerializableType() const { return 0; }
    /// The name under which the format is registered.
    virtual CString GetFormatName() { return {}; }
    /// Stores or loads the settings. Loading throws CArchiveException.
    virtual void Serialize(CArchive& /*archive*/) {}
};

} // namespace Ostrel::GUI
