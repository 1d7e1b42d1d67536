/// @file
/// What is common to everything that is painted in one pass: the grid, the device context, the area being painted and
/// the grid's transient state. Lives on the stack of the pass.
#pragma once

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/paint/DropPosition.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

class CBitmap;
class CDC;
class CImageList;

namespace Ostrel::GUI
{

class CGrid;
class CHeader;

namespace Detail
{
struct PaintSnapshot;
}

/// One paint pass.
class OSTREL_GUI_API CPaintContext
{
public:
    /// See the getters. Grid, header and device context must outlive it.
    CPaintContext(CGrid const& grid, CHeader const* header, CRect const& clipRect, CDC& dc,
                  CDropPosition const& dropPosition, CRect const& mouseSelection, ContextType focusedContext,
                  int focusedRow, CImageList* imageList, bool stretchImage, CBitmap* backgroundImage,
                  CRect const& backgroundImageRect) noexcept
        : m_grid(grid),
          m_header(header),
          m_clipRect(clipRect),
          m_dc(dc),
          m_dropPosition(dropPosition),
          m_mouseSelection(mouseSelection),
          m_focusedContext(focusedContext),
          m_focusedRow(focusedRow),
          m_imageList(imageList),
          m_stretchImage(stretchImage),
          m_backgroundImage(backgroundImage),
          m_backgroundImageRect(backgroundImageRect)
    {}

    /// The grid that is painted.
    [[nodiscard]] CGrid const& GetGrid() const noexcept { return m_grid; }
    /// The grid's header; null when it has none.
    [[nodiscard]] CHeader const* GetHeader() const noexcept { return m_header; }
    /// The area being painted, in client pixels.
    [[nodiscard]] CRect const& GetClipRect() const noexcept { return m_clipRect; }
    /// What is drawn on.
    [[nodiscard]] CDC& GetDC() const noexcept { return m_dc; }
    /// Where dragged rows would go.
    [[nodiscard]] CDropPosition const& GetDropPosition() const noexcept { return m_dropPosition; }
    /// The rubber band in client pixels, empty when there is none.
    [[nodiscard]] CRect const& GetMouseSelection() const noexcept { return m_mouseSelection; }
    ///@{
    /// Area and number of the row with the focus; NoContext and -1 for none.
    [[nodiscard]] ContextType GetFocusedContext() const noexcept { return m_focusedContext; }
    [[nodiscard]] int GetFocusedRow() const noexcept { return m_focusedRow; }
    ///@}
    /// The grid's images; null for none. Not owned.
    [[nodiscard]] CImageList* GetImageList() const noexcept { return m_imageList; }
    /// Whether images are scaled to the row's height.
    [[nodiscard]] bool GetStretchImage() const noexcept { return m_stretchImage; }
    /// The grid's prepared picture, as large as its client area, or null. Not owned.
    [[nodiscard]] CBitmap* GetBackgroundImage() const noexcept { return m_backgroundImage; }
    /// Where that picture lies, in client pixels.
    [[nodiscard]] CRect const& GetBackgroundImageRc() const noexcept { return m_backgroundImageRect; }

    /// What the pass has read from the header and the grid once for all cells; null in a context that an application
    /// made itself. Not owned. For the library's own painters.
    [[nodiscard]] Detail::PaintSnapshot const* Snapshot() const noexcept { return m_snapshot; }
    /// Tells the context of what the pass has read, which must outlive it. For the library's own painters.
    void UseSnapshot(Detail::PaintSnapshot const* snapshot) noexcept { m_snapshot = snapshot; }

private:
    CGrid const& m_grid;
    CHeader const* m_header;
    CRect m_clipRect;
    CDC& m_dc;
    CDropPosition m_dropPosition;
    CRect m_mouseSelection;
    ContextType m_focusedContext;
    int m_focusedRow;
    CImageList* m_imageList;
    bool m_stretchImage;
    CBitmap* m_backgroundImage;
    CRect m_backgroundImageRect;
    Detail::PaintSnapshot const* m_snapshot = nullptr;
};

} // namespace Ostrel::GUI
