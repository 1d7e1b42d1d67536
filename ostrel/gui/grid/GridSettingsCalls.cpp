// The settings that a grid keeps for its parts, and the archive of all its settings.
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridArchive.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{
using Detail::GridOperation;

// The settings outlive the window, so a reference to them is good even when nobody can be asked any more.
void CGrid::AllowCopyPaste(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowCopyPaste>([&]() { m_core->parts.allowCopyPaste = allow; });
}

bool CGrid::IsCopyPasteAllowed() const
{
    return m_core->Thread().Call<GridOperation::IsCopyPasteAllowed>(false,
                                                                    [&]() { return m_core->parts.allowCopyPaste; });
}

CCopyPasteSettings& CGrid::GetCopyPasteSettings()
{
    return m_core->parts.copyPaste;
}

CCopyPasteSettings const& CGrid::GetCopyPasteSettings() const
{
    return m_core->parts.copyPaste;
}

void CGrid::SetCopyPasteSettings(CCopyPasteSettings const& settings)
{
    m_core->Thread().Call<GridOperation::SetCopyPasteSettings>([&]() { m_core->parts.copyPaste = settings; });
}

void CGrid::AllowDragAndDrop(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowDragAndDrop>([&]() { m_core->parts.allowDragAndDrop = allow; });
}

bool CGrid::IsDragAndDropAllowed() const
{
    return m_core->Thread().Call<GridOperation::IsDragAndDropAllowed>(false,
                                                                      [&]() { return m_core->parts.allowDragAndDrop; });
}

CDragDropSettings& CGrid::GetDragDropSettings()
{
    return m_core->parts.dragDrop;
}

CDragDropSettings const& CGrid::GetDragDropSettings() const
{
    return m_core->parts.dragDrop;
}

void CGrid::SetDragDropSettings(CDragDropSettings const& settings)
{
    m_core->Thread().Call<GridOperation::SetDragDropSettings>([&]() { m_core->parts.dragDrop = settings; });
}

CEditInPlaceSettings& CGrid::GetEditInPlaceSettings()
{
    return m_core->parts.editInPlace;
}

CEditInPlaceSettings const& CGrid::GetEditInPlaceSettings() const
{
    return m_core->parts.editInPlace;
}

void CGrid::SetEditInPlaceSettings(CEditInPlaceSettings const& settings)
{
    m_core->Thread().Call<GridOperation::SetEditInPlaceSettings>(
        [&]()
        {
            m_core->parts.editInPlace = settings;
            m_core->View().InvalidateAll();
        });
}

CTooltipSettings& CGrid::GetTooltipSettings()
{
    return m_core->parts.tooltip;
}

CTooltipSettings const& CGrid::GetTooltipSettings() const
{
    return m_core->parts.tooltip;
}

void CGrid::SetTooltipSettings(CTooltipSettings const& settings)
{
    m_core->Thread().Call<GridOperation::SetTooltipSettings>([&]() { m_core->parts.tooltip = settings; });
}

CTooltipSettings& CGrid::GetInPlaceTooltipSettings()
{
    return m_core->parts.inPlaceTooltip;
}

CTooltipSettings const& CGrid::GetInPlaceTooltipSettings() const
{
    return m_core->parts.inPlaceTooltip;
}

void CGrid::SetInPlaceTooltipSettings(CTooltipSettings const& settings)
{
    m_core->Thread().Call<GridOperation::SetInPlaceTooltipSettings>([&]() { m_core->parts.inPlaceTooltip = settings; });
}

void CGrid::Serialize(CArchive& archive)
{
    m_core->Thread().Call<GridOperation::Serialize>(
        [&]() {
            archive.IsStoring() ? Detail::GridArchive::Store(*m_core, archive)
                                : Detail::GridArchive::Load(*m_core, archive);
        });
}
} // namespace Ostrel::GUI
