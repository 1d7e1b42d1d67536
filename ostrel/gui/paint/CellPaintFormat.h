/// @file
/// The default drawing of a cell, in steps that a derived format can replace one by one.
#pragma once

#include <ostrel/gui/paint/ICellPaintFormat.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// Draws a cell as a grid does by itself. One object serves any number of columns and grids.
class OSTREL_GUI_API CCellPaintFormat : public ICellPaintFormat
{
public:
    CCellPaintFormat() = default;
    ~CCellPaintFormat() override = default;

    /// The name under which the factory knows the class.
    static CString GetFormatClassName();

    // ICellPaintFormat
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
    unsigned long GetBackColor(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
    unsigned long GetForeColor(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
    int GetOptimalCellWidth(CGridCell& cell, CPaintContext const& context, unsigned int filter) const override;
    CRect GetImageRect(CGridCell& cell, CPaintContext const& context, unsigned int filter) override;
    CRect GetTextRect(CGridCell& cell, CPaintContext const& context, unsigned int filter) override;
    ICellPaintFormat* Clone() const override;
    int IsSerializableType() const override;
    CString GetFormatName() override;

protected:
    ///@{
    /// A step of DrawCell. It draws only when its filter bit and its own conditions hold.
    virtual void OnDrawBackGround(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawMouseSelection(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawText(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawImage(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawFocusedLineFrame(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawSelectedLineFrame(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawHierarchy(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawDropPosition(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawDropParentPosition(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawVerticalLines(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawHorizontalLines(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    virtual void OnDrawEditInPlace(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
    ///@}
    /// Asks for the repaint that a highlighted cell needs to fade or to end.
    virtual void OnNextPaintRequest(CGridCell& cell, CPaintContext const& context, unsigned int filter) const;
};

} // namespace Ostrel::GUI
