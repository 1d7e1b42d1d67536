/// @file
/// The default drawing of the header band: title after title, with the fixed columns over the scrolled ones.
#pragma once

#include <ostrel/gui/paint/IHeaderPaintFormat.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// Draws the header as a grid does by itself. Keeps no state.
class OSTREL_GUI_API CHeaderPaintFormat : public IHeaderPaintFormat
{
public:
    CHeaderPaintFormat() = default;
    ~CHeaderPaintFormat() override = default;

    /// The name under which the factory knows the class.
    static CString GetFormatClassName();
    /// A new format; the caller owns it.
    static IHeaderPaintFormat* CreateFormat();

    // IHeaderPaintFormat
    /// Draws the titles that the context's clip rectangle touches through the hook (null: the global one), and the mark
    /// of a dragged column. Nothing without a header.
    void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter,
                    ICustomDraw* customDraw) const override;
    int IsSerializableType() const override;
    CString GetFormatName() override;
};

} // namespace Ostrel::GUI
