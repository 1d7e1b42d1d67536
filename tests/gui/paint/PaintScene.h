// A grid in a hidden window of the headless display, painted into memory, for the tests of painting.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/edit/IEditInPlace.h>
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/GridItem.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/gui/paint/detail/GridPainter.h>
#include <ostrel/platform/drawing/Bitmap.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/testing/NotificationLog.h>

namespace PaintTest
{

inline constexpr long kNameFid = 0;
inline constexpr long kCountFid = 1;
inline constexpr long kPriceFid = 2;
inline constexpr int kRowHeight = 16;
inline constexpr int kHeaderHeight = 20;
/// A colour that no part of a grid has.
inline constexpr COLORREF kUntouched = RGB(255, 0, 254);

class Row : public Ostrel::Common::CDataObject
{
public:
    Row(std::string name, long count) : m_name(std::move(name)), m_count(count) {}

    Ostrel::Common::CFieldMap const* GetFieldMap() const override;
    std::string GetName() const { return m_name; }
    long GetCount() const { return m_count; }
    double GetPrice() const { return static_cast<double>(m_count) * 1.25; }

private:
    std::string m_name;
    long m_count;
};

class Scene
{
public:
    /// A window of that client size with a header of the columns Name (0), Count (1) and Price (2).
    explicit Scene(CSize clientSize, std::vector<int> const& widths = {100, 60, 80});
    ~Scene();

    Ostrel::GUI::CGridItem* AddRow(Ostrel::GUI::CGridItem* parent = Ostrel::GUI::ScrollableRoot,
                                   std::string const& name = "", long count = 0);
    [[nodiscard]] Ostrel::GUI::CColumn& Column(long fid) const { return *header->GetColumnByFid(fid); }
    /// Makes everything the cells show empty but their background and lines.
    void HideText() { grid.SetPaintFilter(grid.GetPaintFilter() & ~1U); }
    void ScrollTo(int x);

    /// The pixels of the whole client area, or of some areas on ground of kUntouched.
    [[nodiscard]] Ostrel::Platform::Surface Paint();
    [[nodiscard]] Ostrel::Platform::Surface Paint(std::vector<CRect> const& areas);

    /// Shows the window; what the display then shows of the grid.
    [[nodiscard]] Ostrel::Platform::Surface Show();
    /// What the display shows of the grid when all that is due has been done.
    [[nodiscard]] Ostrel::Platform::Surface Shown();

    /// Top of a scrollable row when nothing is fixed and nothing is scrolled.
    [[nodiscard]] static int RowTop(int row) { return kHeaderHeight + row * kRowHeight; }

    Ostrel::GUI::CGrid grid;
    Ostrel::GUI::CHeader* header; ///< the grid owns it
    Ostrel::GUI::Detail::GridPaintState state;
    Ostrel::Testing::NotificationLog frame; ///< the window around the grid

private:
    std::vector<std::unique_ptr<Row>> m_rows;
};

/// What random scenes are made of.
class Random
{
public:
    explicit Random(unsigned seed) : m_random(seed) {}

    [[nodiscard]] int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    [[nodiscard]] bool Maybe() { return Below(2) == 0; }
    enum class Opacity
    {
        Full,
        Any ///< of each pixel
    };
    [[nodiscard]] std::vector<DWORD> Pixels(std::size_t count, Opacity opacity);

private:
    std::mt19937 m_random;
};

/// A bitmap, and a list of the images of one size that lie in it side by side.
struct Pictures
{
    /// As many images as the pixels, from the top down, make.
    Pictures(CSize imageSize, std::vector<DWORD> const& pixels);
    /// One image of one colour.
    Pictures(CSize imageSize, DWORD pixel);

    CBitmap bitmap;
    CImageList list;
};

/// An editor that lets nothing be edited, for what editors do to the painting of cells.
class PaintingEditor : public Ostrel::GUI::IEditInPlace
{
public:
    using Context = Ostrel::GUI::CEditInPlaceContext;

    bool AutoDelete() const override { return false; }
    bool CanBeginEdit(Context const& /*context*/, StartReason /*reason*/) const override { return false; }
    bool AttachControl(Context& /*context*/, StartReason /*reason*/) override { return false; }
    bool CanStopEdit(Context const& /*context*/, StopReason /*reason*/) const override { return true; }
    void OnEndEdit(Context& /*context*/, StopReason /*reason*/, CWnd* /*control*/) override {}
    bool Navigate(Context& /*context*/, StopReason /*reason*/) override { return false; }
};

/// Empty when both are alike, else where the first pixel is that differs.
[[nodiscard]] std::string FirstDifference(Ostrel::Platform::Surface const& a, Ostrel::Platform::Surface const& b);

/// One letter a pixel: '#' where it has the colour, '.' elsewhere. From a point to the right, or downward.
[[nodiscard]] std::string PixelsRight(Ostrel::Platform::Surface const& surface, CPoint from, int count, COLORREF ink);
[[nodiscard]] std::string PixelsDown(Ostrel::Platform::Surface const& surface, CPoint from, int count, COLORREF ink);

} // namespace PaintTest
