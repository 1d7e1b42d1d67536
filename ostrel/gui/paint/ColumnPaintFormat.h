/// @file
/// The default drawing of a column title: background, sort mark, name, image.
#pragma once

#include <ostrel/gui/paint/IColumnPaintFormat.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

class CDC;
class CImageList;

namespace Ostrel::GUI
{

/// Draws a title as a grid does by itself. One object serves any number of columns.
class OSTREL_GUI_API CColumnPaintFormat : public IColumnPaintFormat
{
public:
    CColumnPaintFormat() = default;
    ~CColumnPaintFormat() override = default;

    /// The name under which the factory knows the class.
    static CString GetFormatClassName();
    /// A new format; the caller owns it.
    static IColumnPaintFormat* CreateFormat();

    // IColumnPaintFormat
    void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const override;
    IColumnPaintFormat* Clone() const override;
    int IsSerializableType() const override;
    CString GetFormatName() override;

    /// Pixels at the title's right edge that the sort mark takes.
    virtual int GetRequiredSortInfoWidth() const;
    ///@{
    /// A step of DrawColumn. It draws only when its own conditions hold.
    virtual void DrawBackground(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const;
    virtual void DrawSort(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const;
    virtual void DrawText(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) const;
    ///@}
    /// Draws a title image centred in the rectangle, clipped to it.
    virtual void DrawImage(CImageList* imageList, int imageId, CRect rect, CDC& dc) const;
};

} // namespace Ostrel::GUI
