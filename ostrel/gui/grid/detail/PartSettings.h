// Settings of the grid's parts that the grid keeps for them.
#pragma once

#include <ostrel/gui/clipboard/CopyPasteSettings.h>
#include <ostrel/gui/clipboard/DragDropSettings.h>
#include <ostrel/gui/edit/EditInPlaceSettings.h>
#include <ostrel/gui/tooltip/TooltipSettings.h>

namespace Ostrel::GUI::Detail
{
struct PartSettings
{
    CCopyPasteSettings copyPaste;
    bool allowCopyPaste = true;
    CDragDropSettings dragDrop;
    bool allowDragAndDrop = false;
    CEditInPlaceSettings editInPlace;
    CTooltipSettings tooltip;
    CTooltipSettings inPlaceTooltip;
    // Not part of the archive.
    bool enableTooltip = false;
    bool enableInPlaceTooltip = true;
};
} // namespace Ostrel::GUI::Detail
