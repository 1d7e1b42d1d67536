// The grid's operations that belong to its replaceable parts: clipboard, drag and drop, editing, tips, printing.
#include <optional>
#include <utility>

#include <ostrel/gui/clipboard/ICopyPaste.h>
#include <ostrel/gui/clipboard/PasteTarget.h>
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/GridCore.h>

namespace Ostrel::GUI
{
using Detail::GridCore;
using Detail::GridOperation;

namespace
{
struct PastePlace
{
    CGridItem* parent;
    CGridItem* position;
};

ICopyPaste* CopyPasteInUse(GridCore const& core)
{
    return core.copyPaste != nullptr ? core.copyPaste : CPreferences::GetDefaultCopyPaste();
}

bool CanPasteTo(CCopyPasteSettings const& settings, ContextType type)
{
    return type == FixedContext ? settings.CanPasteToFixedContext() : settings.CanPasteToScrollableContext();
}

CGridItem* RootOf(ContextType type)
{
    return type == FixedContext ? FixedRoot : ScrollableRoot;
}

PastePlace PlaceAt(CGrid const& grid, CGridItem* focused, CCopyPasteSettings::PasteType type)
{
    switch (type)
    {
    case CCopyPasteSettings::PasteAsFirstChild:
        return {focused, FirstPosition};
    case CCopyPasteSettings::PasteAsLastChild:
        return {focused, LastPosition};
    case CCopyPasteSettings::PasteAsSibling:
        return {grid.GetParent(focused), focused};
    default:
        return {RootOf(grid.GetContextType(focused)), focused};
    }
}

std::optional<PastePlace> PlaceWithoutFocus(CCopyPasteSettings const& settings)
{
    if (!settings.CanPasteWhenNoFocus())
    {
        return std::nullopt;
    }
    return PastePlace{settings.CanPasteToScrollableContext() ? ScrollableRoot : FixedRoot,
                      settings.CanPasteWhenNoFocusToEnd() ? LastPosition : FirstPosition};
}

/// Where the focus and the settings send what is pasted.
std::optional<PastePlace> PlaceToPaste(CGrid const& grid, CCopyPasteSettings const& settings)
{
    if (!settings.CanPasteToFixedContext() && !settings.CanPasteToScrollableContext())
    {
        return std::nullopt;
    }
    ContextType const type = grid.GetFocusedContext();
    CGridItem* const focused = grid.GetItem(grid.GetFocusedRow(), type);
    if (focused == nullptr)
    {
        return PlaceWithoutFocus(settings);
    }
    return CanPasteTo(settings, type) ? std::optional(PlaceAt(grid, focused, settings.GetPasteType())) : std::nullopt;
}

template <GridOperation Code, class Part>
Part* Replace(GridCore& core, Part*& slot, Part* part)
{
    return core.Thread().Call<Code>(static_cast<Part*>(nullptr), [&]() { return std::exchange(slot, part); });
}

template <GridOperation Code, class Value>
Value Read(GridCore& core, Value const& value)
{
    return core.Thread().Call<Code>(Value(), [&]() { return value; });
}

template <GridOperation Code, class Value>
void Write(GridCore& core, Value& place, Value value)
{
    core.Thread().Call<Code>([&]() { place = value; });
}
} // namespace

// --- Clipboard ---

bool CGrid::Copy()
{
    return m_core->Thread().Call<GridOperation::Copy>(false,
                                                      [&]()
                                                      {
                                                          ICopyPaste* const part = CopyPasteInUse(*m_core);
                                                          return part != nullptr && part->Copy(*this);
                                                      });
}

bool CGrid::Cut()
{
    return m_core->Thread().Call<GridOperation::Cut>(false,
                                                     [&]()
                                                     {
                                                         ICopyPaste* const part = CopyPasteInUse(*m_core);
                                                         return part != nullptr && part->Cut(*this);
                                                     });
}

bool CGrid::Paste()
{
    return m_core->Thread().Call<GridOperation::Paste>(false,
                                                       [&]()
                                                       {
                                                           auto const place =
                                                               m_core->parts.allowCopyPaste
                                                                   ? PlaceToPaste(*this, m_core->parts.copyPaste)
                                                                   : std::nullopt;
                                                           return place && Paste(place->parent, place->position);
                                                       });
}

bool CGrid::Paste(CGridItem* parent, CGridItem* position)
{
    return m_core->Thread().Call<GridOperation::PasteAt>(false,
                                                         [&]()
                                                         {
                                                             ICopyPaste* const part = CopyPasteInUse(*m_core);
                                                             return part != nullptr &&
                                                                    part->Paste(CPasteTarget(*this, parent, position));
                                                         });
}

ICopyPaste* CGrid::SetCopyPaste(ICopyPaste* copyPaste)
{
    return Replace<GridOperation::SetCopyPaste>(*m_core, m_core->copyPaste, copyPaste);
}

ICopyPaste* CGrid::GetCopyPaste() const
{
    return Read<GridOperation::GetCopyPaste>(*m_core, m_core->copyPaste);
}

// --- Drag and drop ---

IDragDrop* CGrid::SetDragDrop(IDragDrop* dragDrop)
{
    return Replace<GridOperation::SetDragDrop>(*m_core, m_core->dragDrop, dragDrop);
}

IDragDrop* CGrid::GetDragDrop() const
{
    return Read<GridOperation::GetDragDrop>(*m_core, m_core->dragDrop);
}

CDragImage CGrid::CreateDragImage(std::vector<CGridItem*> const&, ContextType, CHeader const*) const
{
    return {};
}

// --- Editing in place and embedded controls ---

IEditInPlace* CGrid::SetEditInPlace(IEditInPlace* editInPlace)
{
    return Replace<GridOperation::SetEditInPlace>(*m_core, m_core->editInPlace, editInPlace);
}

IEditInPlace* CGrid::GetEditInPlace() const
{
    return Read<GridOperation::GetEditInPlace>(*m_core, m_core->editInPlace);
}

bool CGrid::CanStartEditInPlace(CGridItem*, long, IEditInPlace::StartReason) const
{
    return false;
}

bool CGrid::StartEditInPlace(CGridItem*, long, IEditInPlace::StartReason)
{
    return false;
}

bool CGrid::StopEditInPlace(IEditInPlace::StopReason, bool)
{
    return false;
}

CWnd* CGrid::GetEditInPlaceControl() const
{
    return nullptr;
}

CEmbeddedControlAdapter* CGrid::AttachControl(CWnd* control, CGridItem* item, long fid,
                                              CEmbeddedControlParams const& params)
{
    return m_core->Thread().Call<GridOperation::AttachControl>(
        static_cast<CEmbeddedControlAdapter*>(nullptr),
        [&]() { return m_core->Controls().Attach(control, item, fid, params); });
}

bool CGrid::HasControl(CGridItem* item, long fid) const
{
    return m_core->Thread().Call<GridOperation::HasControl>(false, [&]() { return m_core->Controls().Has(item, fid); });
}

bool CGrid::HasControl(int row, ContextType type, long fid) const
{
    return m_core->Thread().Call<GridOperation::HasControl>(
        false, [&]() { return m_core->Controls().Has(m_core->ItemAt(row, type), fid); });
}

bool CGrid::DetachControl(CWnd*)
{
    return false;
}

bool CGrid::DetachControl(CGridItem*, long, bool)
{
    return false;
}

// --- Tips ---

void CGrid::EnableTooltip(bool enable)
{
    Write<GridOperation::EnableTooltip>(*m_core, m_core->parts.enableTooltip, enable);
}

bool CGrid::IsTooltipEnabled() const
{
    return Read<GridOperation::IsTooltipEnabled>(*m_core, m_core->parts.enableTooltip);
}

void CGrid::EnableInPlaceTooltip(bool enable)
{
    Write<GridOperation::EnableInPlaceTooltip>(*m_core, m_core->parts.enableInPlaceTooltip, enable);
}

bool CGrid::IsInPlaceTooltipEnabled() const
{
    return Read<GridOperation::IsInPlaceTooltipEnabled>(*m_core, m_core->parts.enableInPlaceTooltip);
}

ITooltip* CGrid::SetTooltip(ITooltip* tooltip)
{
    return Replace<GridOperation::SetTooltip>(*m_core, m_core->tooltip, tooltip);
}

ITooltip* CGrid::GetTooltip() const
{
    return Read<GridOperation::GetTooltip>(*m_core, m_core->tooltip);
}

ITooltipCtrl* CGrid::SetTooltipCtrl(ITooltipCtrl* control)
{
    return Replace<GridOperation::SetTooltipCtrl>(*m_core, m_core->tooltipCtrl, control);
}

ITooltipCtrl* CGrid::GetTooltipCtrl() const
{
    return Read<GridOperation::GetTooltipCtrl>(*m_core, m_core->tooltipCtrl);
}

ITooltipCtrl* CGrid::SetInPlaceTooltipCtrl(ITooltipCtrl* control)
{
    return Replace<GridOperation::SetInPlaceTooltipCtrl>(*m_core, m_core->inPlaceTooltipCtrl, control);
}

ITooltipCtrl* CGrid::GetInPlaceTooltipCtrl() const
{
    return Read<GridOperation::GetInPlaceTooltipCtrl>(*m_core, m_core->inPlaceTooltipCtrl);
}

// --- Header dialog, printing ---

void CGrid::ShowHeaderDialog() {}

void CGrid::Print(CPrintSettings const&, CPrintInfo*) {}

void CGrid::PrintPreview(CPrintSettings const&) {}
} // namespace Ostrel::GUI
