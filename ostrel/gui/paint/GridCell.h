/// @file
/// One cell of a grid as it is painted. Lives on the stack of a paint pass; painters keep no reference to it.
#pragma once

#include <string>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/PaintInfo.h>
#include <ostrel/platform/base/String.h>

class CImageList;

namespace Ostrel::Common
{
class CFormat;
}

namespace Ostrel::GUI
{

class CColumn;

/// One cell: its place and looks, its line, column, image and text.
class OSTREL_GUI_API CGridCell
{
public:
    /// See the getters. The line must outlive the cell.
    CGridCell(CPaintInfo const& paintInfo, CGridLine const& line, CColumn const* column, CImageList const* imageList,
              int imageId, bool stretchImage, Common::CFormat const* textFormat) noexcept
        : m_paintInfo(paintInfo),
          m_line(line),
          m_column(column),
          m_imageList(imageList),
          m_imageId(imageId),
          m_stretchImage(stretchImage),
          m_textFormat(textFormat)
    {}

    ///@{
    /// Place and looks.
    [[nodiscard]] CPaintInfo const& GetPaintInfo() const noexcept { return m_paintInfo; }
    [[nodiscard]] CPaintInfo& GetPaintInfo() noexcept { return m_paintInfo; }
    ///@}

    /// The line that the cell is in.
    [[nodiscard]] CGridLine const& GetGridLine() const noexcept { return m_line; }
    /// The column; null for the filler right of the last column.
    [[nodiscard]] CColumn const* GetColumn() const noexcept { return m_column; }

    ///@{
    /// The grid's images, null when it has none. Not owned.
    [[nodiscard]] CImageList const* GetImageList() const noexcept { return m_imageList; }
    void SetImageList(CImageList const* imageList) noexcept { m_imageList = imageList; }
    ///@}

    ///@{
    /// Number of the cell's image; -1 for none.
    [[nodiscard]] int GetImageId() const noexcept { return m_imageId; }
    void SetImageId(int imageId) noexcept { m_imageId = imageId; }
    ///@}

    ///@{
    /// True when the image is scaled to the row's height.
    [[nodiscard]] bool GetStretchImage() const noexcept { return m_stretchImage; }
    void SetStretchImage(bool stretch) noexcept { m_stretchImage = stretch; }
    ///@}

    ///@{
    /// The format that turns the value into text, null for the field's own. Not owned.
    [[nodiscard]] Common::CFormat const* CetTextFormat() const noexcept { return m_textFormat; }
    void SetTextFormat(Common::CFormat const* format) noexcept { m_textFormat = format; }
    ///@}

    ///@{
    /// The cell's value and text; empty when the line has no item or the cell no column.
    [[nodiscard]] Common::CValue GetValue() const;
    [[nodiscard]] std::string GetFormattedStlString() const;
    [[nodiscard]] CString GetFormattedMfcString() const;
    ///@}

    /// Asks the grid to paint this cell again after a delay. Nothing without an item or a column or when the row
    /// belongs to no grid.
    void RequestNextPaint(int delayMs) const;

private:
    CPaintInfo m_paintInfo;
    CGridLine const& m_line;
    CColumn const* m_column;
    CImageList const* m_imageList;
    int m_imageId;
    bool m_stretchImage;
    Common::CFormat const* m_textFormat;
};

} // namespace Ostrel::GUI
