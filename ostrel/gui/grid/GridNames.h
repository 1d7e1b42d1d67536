/// @file
/// The names of the classes that the operations of the grid mention.
#pragma once

class CArchive;
class CFont;
class CImageList;
struct CPrintInfo;

namespace Ostrel::Common
{
class CDataObject;
class CFormat;
class CValue;
} // namespace Ostrel::Common

namespace Ostrel::GUI
{
class CAppearance;
class CBackgroundImage;
class CColumn;
class CCopyPasteSettings;
class CDragDropSettings;
class CEditInPlaceSettings;
class CEmbeddedControlAdapter;
class CEmbeddedControlParams;
class CGridItem;
class CHeader;
class CHighlightSettings;
class CPrintSettings;
class CSortInfo;
class CTooltipSettings;
class ICopyPaste;
class ICustomDraw;
class IDragDrop;
class IGridFilter;
class IKeyManager;
class ITooltip;
class ITooltipCtrl;
} // namespace Ostrel::GUI
