/// @file
/// The default drawing of a row: cell after cell, with the fixed columns over the scrolled ones.
#pragma once

#include <ostrel/gui/paint/ILinePaintFormat.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// Draws a row as a grid does by itself. Keeps no state.
class OSTREL_GUI_API CLinePaintFormat : public ILinePaintFormat
{
public:
    CLinePaintFormat() = default;
    ~CLinePaintFormat() override = default;

    /// The name under which the factory knows the class.
    static CString GetFormatClassName();
    /// A new format; the caller owns it.
    static ILinePaintFormat* CreateFormat();

    // ILinePaintFormat
    /// Draws the cells that the context's clip rectangle touches through the hook (null: the global one). Nothing
    /// without a header.
    void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter,
                  ICustomDraw* customDraw) const override;
    int IsSerializableType() const override;
    CString GetFormatName() override;
};

} // namespace Ostrel::GUI
