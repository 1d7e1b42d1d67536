// The grid's operations on geometry, columns and looks: each runs on the grid's thread, wherever it was called.
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>

namespace Ostrel::GUI
{
using Common::CDataObject;
using Detail::GridOperation;

// --- Geometry ---

CRect CGrid::GetContextVisibleRect(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetContextVisibleRect>(
        CRect(), [&]() { return m_core->View().ContextVisibleRect(type); });
}

CRect CGrid::GetContextVirtualRect(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetContextVirtualRect>(
        CRect(), [&]() { return m_core->View().ContextVirtualRect(type); });
}

CRect CGrid::GetLineVisibleRect(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetLineVisibleRect>(
        CRect(), [&]() { return m_core->AreaOf(item) != nullptr ? m_core->View().LineVisibleRect(*item) : CRect(); });
}

CRect CGrid::GetLineVisibleRect(CDataObject const* object) const
{
    return GetLineVisibleRect(GetItem(object));
}

CRect CGrid::GetLineVirtualRect(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetLineVirtualRect>(
        CRect(), [&]() { return m_core->AreaOf(item) != nullptr ? m_core->View().LineVirtualRect(*item) : CRect(); });
}

CRect CGrid::GetLineVirtualRect(CDataObject const* object) const
{
    return GetLineVirtualRect(GetItem(object));
}

CRect CGrid::GetCellVisibleRect(CGridItem* item, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetCellVisibleRect>(
        CRect(),
        [&]() { return m_core->AreaOf(item) != nullptr ? m_core->View().CellVisibleRect(*item, fid) : CRect(); });
}

CRect CGrid::GetCellVisibleRect(CDataObject const* object, long fid) const
{
    return GetCellVisibleRect(GetItem(object), fid);
}

CRect CGrid::GetCellVirtualRect(CGridItem* item, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetCellVirtualRect>(
        CRect(),
        [&]() { return m_core->AreaOf(item) != nullptr ? m_core->View().CellVirtualRect(*item, fid) : CRect(); });
}

CRect CGrid::GetCellVirtualRect(CDataObject const* object, long fid) const
{
    return GetCellVirtualRect(GetItem(object), fid);
}

int CGrid::GetLinesPerPage(bool down) const
{
    return m_core->Thread().Call<GridOperation::GetLinesPerPage>(
        0,
        [&]()
        {
            Detail::GridGeometry const geometry = m_core->View().Geometry();
            return down ? geometry.RowsDown() : geometry.RowsUp();
        });
}

int CGrid::GetItemHeight(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::GetItemHeight>(0,
                                                               [&]()
                                                               {
                                                                   Detail::GridArea const* const area =
                                                                       m_core->AreaOf(item);
                                                                   return area != nullptr ? area->RowHeight() : 0;
                                                               });
}

int CGrid::GetOptimalRowHeight(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetOptimalRowHeight>(
        0, [&]() { return m_core->Looks().OptimalRowHeight(type); });
}

int CGrid::GetOptimalCellWidth(int row, ContextType type, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetOptimalCellWidth>(
        0, [&]() { return m_core->Columns().OptimalCellWidth(row, type, fid); });
}

int CGrid::GetOptimalColumnWidth(ContextType type, long fid) const
{
    return m_core->Thread().Call<GridOperation::GetOptimalCellWidth>(
        0, [&]() { return m_core->Columns().OptimalColumnWidth(type, fid); });
}

int CGrid::GetOptimalHeaderHeight() const
{
    return m_core->Thread().Call<GridOperation::GetOptimalHeaderHeight>(
        0, [&]() { return m_core->Columns().OptimalHeaderHeight(); });
}

void CGrid::AdjustColumnByFid(long fid)
{
    m_core->Thread().Call<GridOperation::AdjustColumnByFid>(
        [&]()
        {
            if (CHeader const* const header = m_core->Columns().Header())
            {
                m_core->Columns().Adjust(header->GetColumnByFid(fid));
            }
        });
}

void CGrid::AdjustColumnByIndex(int columnIndex)
{
    m_core->Thread().Call<GridOperation::AdjustColumnByIndex>(
        [&]()
        {
            if (CHeader const* const header = m_core->Columns().Header())
            {
                m_core->Columns().Adjust(header->GetColumnByIndex(columnIndex));
            }
        });
}

void CGrid::AdjustAllColumns()
{
    m_core->Thread().Call<GridOperation::AdjustAllColumns>([&]() { m_core->Columns().AdjustAll(); });
}

void CGrid::EnsureColumnVisible(long fid)
{
    m_core->Thread().Call<GridOperation::EnsureColumnVisible>([&]() { m_core->Columns().EnsureVisible(fid); });
}

CColumn const* CGrid::GetColumn(CPoint clientPoint) const
{
    return m_core->Thread().Call<GridOperation::GetColumn>(static_cast<CColumn const*>(nullptr),
                                                           [&]() { return m_core->Columns().ColumnAt(clientPoint); });
}

CColumn const* CGrid::GetNavigationColumn() const
{
    return m_core->Thread().Call<GridOperation::GetNavigationColumn>(static_cast<CColumn const*>(nullptr), [&]()
                                                                     { return m_core->Columns().NavigationColumn(); });
}

CColumn const* CGrid::GetHierarchicalColumn() const
{
    return m_core->Thread().Call<GridOperation::GetHierarchicalColumn>(
        static_cast<CColumn const*>(nullptr), [&]() { return m_core->Columns().HierarchicalColumn(); });
}

void CGrid::AllowDrawContextSeparator(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowDrawContextSeparator>(
        [&]()
        {
            m_core->Looks().drawSeparator = allow;
            m_core->Scroller().OnResized();
            m_core->View().InvalidateAll();
        });
}

bool CGrid::CanDrawContextSeparator() const
{
    return m_core->Thread().Call<GridOperation::CanDrawContextSeparator>(false, [&]()
                                                                         { return m_core->Looks().drawSeparator; });
}

void CGrid::SetContextSeparatorHeight(int height)
{
    m_core->Thread().Call<GridOperation::SetContextSeparatorHeight>(
        [&]()
        {
            m_core->Looks().separatorHeight = height;
            m_core->Scroller().OnResized();
            m_core->View().InvalidateAll();
        });
}

int CGrid::GetContextSeparatorHeight() const
{
    return m_core->Thread().Call<GridOperation::GetContextSeparatorHeight>(0, [&]()
                                                                           { return m_core->Looks().separatorHeight; });
}

void CGrid::ResetScroll()
{
    m_core->Thread().Call<GridOperation::ResetScroll>([&]() { m_core->Scroller().UpdateBars(); });
}

// --- Header ---

CHeader* CGrid::SetHeader(CHeader* header)
{
    return m_core->Thread().Call<GridOperation::SetHeader>(static_cast<CHeader*>(nullptr),
                                                           [&]() { return m_core->Columns().SetHeader(header); });
}

CHeader* CGrid::GetHeader() const
{
    return m_core->Thread().Call<GridOperation::GetHeader>(static_cast<CHeader*>(nullptr),
                                                           [&]() { return m_core->Columns().Header(); });
}

void CGrid::ShowHeader()
{
    m_core->Thread().Call<GridOperation::ShowHeader>([&]() { m_core->Columns().Show(true); });
}

void CGrid::HideHeader()
{
    m_core->Thread().Call<GridOperation::ShowHeader>([&]() { m_core->Columns().Show(false); });
}

bool CGrid::IsHeaderVisible() const
{
    return m_core->Thread().Call<GridOperation::IsHeaderVisible>(false, [&]() { return m_core->Columns().IsShown(); });
}

// --- Looks ---

// The settings outlive the window, so a reference to them is good even when nobody can be asked any more.
CAppearance& CGrid::GetAppearance()
{
    return m_core->Looks().Appearance();
}

CAppearance const& CGrid::GetAppearance() const
{
    return m_core->Looks().Appearance();
}

void CGrid::SetAppearance(CAppearance const& appearance)
{
    SetAppearance(appearance, Platform::GetColorScheme());
}

void CGrid::SetAppearance(CAppearance const& appearance, Platform::ColorScheme scheme)
{
    m_core->Thread().Call<GridOperation::SetAppearance>(
        [&]()
        {
            m_core->Looks().Appearance(scheme) = appearance;
            m_core->View().InvalidateAll();
        });
}

CBackgroundImage& CGrid::GetBackgroundImage()
{
    return m_core->Looks().backgroundImage;
}

CBackgroundImage const& CGrid::GetBackgroundImage() const
{
    return m_core->Looks().backgroundImage;
}

void CGrid::SetBackgroundImage(CBackgroundImage const& image)
{
    m_core->Thread().Call<GridOperation::SetBackgroundImage>(
        [&]()
        {
            m_core->Looks().backgroundImage = image;
            m_core->Looks().RebuildBuffers();
            m_core->View().InvalidateAll();
        });
}

void CGrid::SetPaintFilter(unsigned int filter)
{
    m_core->Thread().Call<GridOperation::SetPaintFilter>(
        [&]()
        {
            m_core->Looks().paintFilter = filter;
            m_core->View().InvalidateAll();
        });
}

unsigned int CGrid::GetPaintFilter() const
{
    return m_core->Thread().Call<GridOperation::GetPaintFilter>(0U, [&]() { return m_core->Looks().paintFilter; });
}

void CGrid::SetFlickerFreeDrawing(bool flickerFree)
{
    m_core->Thread().Call<GridOperation::SetFlickerFreeDrawing>(
        [&]()
        {
            m_core->Looks().flickerFree = flickerFree;
            m_core->Looks().RebuildBuffers();
            m_core->View().InvalidateAll();
        });
}

bool CGrid::GetFlickerFreeDrawing() const
{
    return m_core->Thread().Call<GridOperation::GetFlickerFreeDrawing>(false,
                                                                       [&]() { return m_core->Looks().flickerFree; });
}

CImageList* CGrid::SetImageList(CImageList* imageList, bool stretch)
{
    return m_core->Thread().Call<GridOperation::SetImageList>(static_cast<CImageList*>(nullptr),
                                                              [&]()
                                                              {
                                                                  m_core->Looks().stretchImages = stretch;
                                                                  m_core->View().InvalidateAll();
                                                                  return std::exchange(m_core->Looks().imageList,
                                                                                       imageList);
                                                              });
}

CImageList* CGrid::GetImageList() const
{
    return m_core->Thread().Call<GridOperation::GetImageList>(static_cast<CImageList*>(nullptr),
                                                              [&]() { return m_core->Looks().imageList; });
}

void CGrid::AllowStretchImageInCell(bool stretch)
{
    m_core->Thread().Call<GridOperation::AllowStretchImageInCell>(
        [&]()
        {
            m_core->Looks().stretchImages = stretch;
            m_core->View().InvalidateAll();
        });
}

bool CGrid::CanStretchImageInCell() const
{
    return m_core->Thread().Call<GridOperation::CanStretchImageInCell>(false,
                                                                       [&]() { return m_core->Looks().stretchImages; });
}

void CGrid::AllowHighlight(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowHighlight>(
        [&]()
        {
            m_core->Looks().allowHighlight = allow;
            m_core->View().InvalidateAll();
        });
}

bool CGrid::CanHighlight() const
{
    return m_core->Thread().Call<GridOperation::CanHighlight>(false, [&]() { return m_core->Looks().allowHighlight; });
}

CHighlightSettings& CGrid::GetHighlightSettings()
{
    return m_core->Looks().highlight;
}

CHighlightSettings const& CGrid::GetHighlightSettings() const
{
    return m_core->Looks().highlight;
}

void CGrid::SetHighlightSettings(CHighlightSettings const& settings)
{
    m_core->Thread().Call<GridOperation::SetHighlightSettings>(
        [&]()
        {
            m_core->Looks().highlight = settings;
            m_core->View().InvalidateAll();
        });
}

ICustomDraw* CGrid::SetCustomDraw(ICustomDraw* customDraw)
{
    return m_core->Thread().Call<GridOperation::SetCustomDraw>(static_cast<ICustomDraw*>(nullptr),
                                                               [&]()
                                                               {
                                                                   ICustomDraw* const previous =
                                                                       std::exchange(m_core->customDraw, customDraw);
                                                                   m_core->Looks().MeasureRowHeights();
                                                                   return previous;
                                                               });
}

ICustomDraw* CGrid::GetCustomDraw() const
{
    return m_core->Thread().Call<GridOperation::GetCustomDraw>(static_cast<ICustomDraw*>(nullptr),
                                                               [&]() { return m_core->customDraw; });
}

void CGrid::SetFont(CFont* font, BOOL redraw)
{
    m_core->Thread().Call<GridOperation::UpdateFonts>(
        [&]()
        {
            m_core->Looks().SetFont(font);
            if (redraw != FALSE)
            {
                m_core->View().InvalidateAll();
            }
        });
}

CFont* CGrid::GetFont() const
{
    return m_core->Looks().OwnFont();
}
} // namespace Ostrel::GUI
