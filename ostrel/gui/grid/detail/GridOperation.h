// The operation codes of the message that carries a grid call to the grid's thread: its wParam. Codes that are not
// listed answer 0.
#pragma once

#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI::Detail
{
enum class GridOperation : WPARAM
{
    FinishCreation = 1, // posted
    Add = 3,
    DeleteItem = 5,
    DeleteRow = 7,
    DeleteAll = 8,
    GetHandles = 9,
    GetValue = 10,
    GetFormattedStlString = 11,
    GetFormattedMfcString = 12,
    SetValue = 13,
    SetFormattedStlString = 14,
    SetFormattedMfcString = 15,
    Attach = 16,
    Detach = 17,
    GetContextType = 18,
    IsVisible = 19,
    IsExpanded = 20,
    GetChildren = 21,
    HasChildren = 22,
    GetHierarchicalLevel = 23,
    GetParent = 24,
    Expand = 25,
    GetRow = 26,
    GetItemByRow = 27,
    GetItemByObject = 28,
    GetItemAtPoint = 29,
    GetPreviousItem = 30,
    GetNextItem = 31,
    GetDataObject = 32,
    Exists = 33,
    GetRowCount = 34,
    ForEach = 35,
    ForEachVisible = 36,
    Move = 37,
    GetContextVisibleRect = 38,
    GetContextVirtualRect = 39,
    GetLineVisibleRect = 40,
    GetLineVirtualRect = 41,
    GetCellVisibleRect = 42,
    GetCellVirtualRect = 43,
    GetLinesPerPage = 44,
    GetItemHeight = 45,
    ResetScroll = 46,
    DeferredLayout = 47, // posted
    GetFirstVisibleRow = 49,
    GetLastVisibleRow = 50,
    EnsureVisible = 51,
    IsInVisibleRect = 52,
    SetFirstVisibleRow = 53,
    SetFirstVisibleItem = 54,
    GetSelectedCount = 55,
    GetSelection = 56,
    SelectItem = 57,
    SelectRow = 58,
    IsRowSelected = 59,
    IsItemSelected = 60,
    SelectAll = 61,
    ClearSelection = 62,
    SetFocusedRow = 63,
    GetFocusedRow = 64,
    GetFocusedContext = 65,
    AllowFocusContext = 66,
    CanFocusContext = 67,
    GetAppearance = 68,
    SetAppearance = 69,
    GetBackgroundImage = 70,
    SetBackgroundImage = 71,
    UpdateFonts = 72,
    SetPaintFilter = 74,
    GetPaintFilter = 75,
    SetFlickerFreeDrawing = 76,
    GetFlickerFreeDrawing = 77,
    InvalidateRow = 78,
    InvalidateCell = 79,
    Update = 80, // posted
    GetTimeElapsedSinceLastUpdate = 81,
    SetImageList = 82,
    GetImageList = 83,
    AllowStretchImageInCell = 84,
    CanStretchImageInCell = 85,
    AllowMouseTrackSelection = 87,
    CanMouseTrackSelection = 88,
    AllowSelection = 89,
    CanSelect = 90,
    AllowMultiSelection = 91,
    CanMultiSelect = 92,
    AllowSelectContext = 93,
    CanSelectContext = 94,
    AllowHighlight = 95,
    CanHighlight = 96,
    GetHighlightSettings = 97,
    SetHighlightSettings = 98,
    AllowDrawContextSeparator = 99,
    CanDrawContextSeparator = 100,
    SetContextSeparatorHeight = 101,
    GetContextSeparatorHeight = 102,
    SetHeader = 103,
    GetHeader = 104,
    HeaderEvent = 105,
    ShowHeader = 106,
    IsHeaderVisible = 107,
    AdjustColumnByFid = 109,
    AdjustColumnByIndex = 110,
    AdjustAllColumns = 111,
    GetOptimalHeaderHeight = 112,
    GetColumn = 113,
    GetNavigationColumn = 114,
    GetHierarchicalColumn = 115,
    EnsureColumnVisible = 116,
    GetTooltipSettings = 123,
    SetTooltipSettings = 124,
    GetInPlaceTooltipSettings = 127,
    SetInPlaceTooltipSettings = 128,
    GetCopyPasteSettings = 137,
    SetCopyPasteSettings = 138,
    AllowCopyPaste = 139,
    IsCopyPasteAllowed = 140,
    GetDragDropSettings = 144,
    SetDragDropSettings = 145,
    AllowDragAndDrop = 146,
    IsDragAndDropAllowed = 147,
    SetSortedContext = 148,
    GetSortedContext = 149,
    AllowSort = 150,
    CanSort = 151,
    AllowMultiSort = 152,
    CanMultiSort = 153,
    ResetSort = 154,
    SetSort = 155,
    GetSort = 156,
    UpdateSort = 157,
    GetSortLevels = 158,
    SetFilter = 159,
    GetFilter = 160,
    UpdateFilter = 161,
    SetKeyManager = 162,
    GetKeyManager = 163,
    AllowNavigation = 164,
    CanNavigate = 165,
    AllowNotifications = 166,
    IsNotificationsAllowed = 167,
    SetCustomDraw = 168,
    GetCustomDraw = 169,
    GetOptimalRowHeight = 170,
    GetOptimalCellWidth = 171,
    Navigate = 174,
    GetEditInPlaceSettings = 186,
    SetEditInPlaceSettings = 187,
    Serialize = 189,
    CalmView = 190, // this library's own
};

/// Whether a message with the code carries a call that waits on its caller's stack.
constexpr bool IsCarriedCall(WPARAM code) noexcept
{
    struct Range
    {
        WPARAM first;
        WPARAM last;
    };
    // Not in use, posted, or of parts that a grid does not have.
    constexpr Range kOthers[] = {{0, 2},     {4, 4},     {6, 6},     {47, 48},   {73, 73},
                                 {80, 80},   {86, 86},   {108, 108}, {117, 122}, {125, 126},
                                 {129, 136}, {141, 143}, {172, 173}, {175, 185}, {188, 188}};
    for (Range const& range : kOthers)
    {
        if (code >= range.first && code <= range.last)
        {
            return false;
        }
    }
    return code <= static_cast<WPARAM>(GridOperation::CalmView);
}
} // namespace Ostrel::GUI::Detail
