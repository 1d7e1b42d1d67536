/// @file
/// The process-wide defaults of all grids.
#pragma once

#include <ostrel/platform/base/Export.h>

class CFont;

namespace Ostrel::Platform
{
enum class ColorScheme;
}

namespace Ostrel::GUI
{
class CAppearance;
class ICellPaintFormat;
class IColumnPaintFormat;
class ICopyPaste;
class ICustomDraw;
class IDragDrop;
class IEditInPlace;
class IHeaderPaintFormat;
class IKeyManager;
class ILinePaintFormat;
class ITooltipCtrl;

/// Defaults that a grid uses where the application has set nothing of its own. Everything returned lives until the
/// process ends. The threading mode may be read on any thread; the rest belongs to the thread of the grids.
class OSTREL_GUI_API CPreferences
{
public:
    /// Who reads the values of data objects.
    enum ThreadingMode
    {
        /// The grid's thread reads them when it needs them: the application makes its getters safe for that.
        DirectRead = 0,
        /// The notifying thread reads them and sends copies along: the grid's thread never touches the object.
        SnapshotOnNotify = 1,
    };

    CPreferences() = delete;

    ///@{
    /// Who reads the values; DirectRead unless set. Set it before the first row is added.
    static ThreadingMode GetThreadingMode() noexcept;
    static void SetThreadingMode(ThreadingMode mode) noexcept;
    ///@}

    /// The font of grids without their own; at first a copy of the system's default font.
    static CFont* GetFont();
    /// Replaces that font. Does not take ownership; must outlive the grids. Null goes back to the system's default
    /// font.
    static void SetFont(CFont* font);

    /// Switches the whole program between the light and the dark look: the system colours, the appearance of every grid
    /// and the default appearance at once; windows that are open are painted anew. Any thread.
    ///
    /// Each grid has an appearance for either scheme, and its GetAppearance and SetAppearance mean that of the scheme
    /// which is on. So everything looks again as it did when the scheme before comes back.
    static void SetColorScheme(Platform::ColorScheme scheme);
    /// The scheme that is on; at first the light one. Any thread.
    static Platform::ColorScheme GetColorScheme() noexcept;

    ///@{
    /// The colours of new grids in the scheme that is on: copied into each as it is made. May be changed in place.
    static CAppearance& GetDefaultAppearance();
    static void SetDefaultAppearance(CAppearance& appearance);
    ///@}
    /// The same for either scheme: at first a CAppearance as it is constructed, and CAppearance::Dark().
    static CAppearance& GetDefaultAppearance(Platform::ColorScheme scheme);

    ///@{
    /// The part that serves where a grid, or a column, has none of its own. Not to be deleted.
    static ICustomDraw* GetDefaultCustomDraw();
    static ILinePaintFormat* GetDefaultLinePaintFormat();
    static ICellPaintFormat* GetDefaultCellPaintFormat();
    static IHeaderPaintFormat* GetDefaultHeaderPaintFormat();
    static IColumnPaintFormat* GetDefaultColumnPaintFormat();
    static IKeyManager* GetDefaultKeyManager();
    ///@}

    ///@{
    /// Null: this version brings none of these parts, so a grid without one of its own does nothing there.
    static IDragDrop* GetDefaultDragDrop() noexcept { return nullptr; }
    static ICopyPaste* GetDefaultCopyPaste() noexcept { return nullptr; }
    static IEditInPlace* GetDefaultEditInPlace() noexcept { return nullptr; }
    ///@}
    ///@{
    /// A new window for tips; the caller owns it. Null: this version shows none.
    static ITooltipCtrl* CreateDefaultTooltipCtrl() noexcept { return nullptr; }
    static ITooltipCtrl* CreateDefaultInPlaceTooltipCtrl() noexcept { return nullptr; }
    ///@}
};
} // namespace Ostrel::GUI
