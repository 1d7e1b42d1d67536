#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

CAppearance CAppearance::Dark() noexcept
{
    constexpr COLORREF kText = RGB(226, 229, 233);
    constexpr COLORREF kLines = RGB(84, 90, 99);
    constexpr COLORREF kAccent = RGB(96, 156, 240);
    CAppearance dark;
    dark.SetTextEvenColor(kText);
    dark.SetTextOddColor(kText);
    dark.SetBackEvenColor(RGB(30, 32, 36));
    dark.SetBackOddColor(RGB(30, 32, 36));
    dark.SetVerticalLinesColor(kLines);
    dark.SetHorizontalLinesColor(kLines);
    dark.SetSelectedLineColor({kAccent, 72});
    dark.SetFocusedLineColor({kAccent, 30});
    dark.SetSortedColumnColor({RGB(150, 150, 190), 26});
    dark.SetMouseSelectionColor({kAccent, 64});
    return dark;
}

void CAppearance::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        Store(archive);
    }
    else
    {
        Load(archive);
    }
}

void CAppearance::Store(CArchive& archive)
{
    archive << GetSerializeVertion();
    archive << m_textEvenColor << m_textOddColor << m_backEvenColor << m_backOddColor;
    archive << m_verticalLinesColor << m_horizontalLinesColor;
    m_selectedLineColor.Serialize(archive);
    m_focusedLineColor.Serialize(archive);
    m_sortedColumnColor.Serialize(archive);
    m_mouseSelectionColor.Serialize(archive);
    archive << (m_verticalLinesEnabled ? 1 : 0) << (m_horizontalLinesEnabled ? 1 : 0);
}

void CAppearance::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    archive >> m_textEvenColor >> m_textOddColor >> m_backEvenColor >> m_backOddColor;
    archive >> m_verticalLinesColor >> m_horizontalLinesColor;
    m_selectedLineColor.Serialize(archive);
    m_focusedLineColor.Serialize(archive);
    m_sortedColumnColor.Serialize(archive);
    m_mouseSelectionColor.Serialize(archive);
    int verticalLines = 0;
    int horizontalLines = 0;
    archive >> verticalLines >> horizontalLines;
    m_verticalLinesEnabled = verticalLines != 0;
    m_horizontalLinesEnabled = horizontalLines != 0;
}

} // namespace Ostrel::GUI
