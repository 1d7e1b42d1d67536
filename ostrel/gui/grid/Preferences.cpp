#include <atomic>

#include <ostrel/gui/grid/KeyManager.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/CellPaintFormat.h>
#include <ostrel/gui/paint/ColumnPaintFormat.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/HeaderPaintFormat.h>
#include <ostrel/gui/paint/LinePaintFormat.h>
#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/WindowApi.h>

namespace Ostrel::GUI
{
namespace
{
std::atomic<CPreferences::ThreadingMode> g_threadingMode{CPreferences::DirectRead};
CFont* g_font = nullptr;

// The defaults are never destroyed: grids with static storage may outlive anything that could be destroyed here.
template <class Part, class... Arguments>
Part& Lasting(Arguments... arguments)
{
    static auto* const part = new Part(arguments...);
    return *part;
}

CFont* SystemFont()
{
    static CFont* const font = []()
    {
        CFont stock;
        LOGFONT description{};
        stock.CreateStockObject(DEFAULT_GUI_FONT);
        stock.GetLogFont(&description);
        auto* const copy = new CFont;
        copy->CreateFontIndirect(&description);
        return copy;
    }();
    return font;
}
} // namespace

CPreferences::ThreadingMode CPreferences::GetThreadingMode() noexcept
{
    return g_threadingMode.load(std::memory_order_relaxed);
}

void CPreferences::SetThreadingMode(ThreadingMode mode) noexcept
{
    g_threadingMode.store(mode, std::memory_order_relaxed);
}

CFont* CPreferences::GetFont()
{
    return g_font != nullptr ? g_font : SystemFont();
}

void CPreferences::SetFont(CFont* font)
{
    g_font = font;
}

void CPreferences::SetColorScheme(Platform::ColorScheme scheme)
{
    Platform::SetColorScheme(scheme);
    Platform::AnnounceSystemColors();
}

Platform::ColorScheme CPreferences::GetColorScheme() noexcept
{
    return Platform::GetColorScheme();
}

CAppearance& CPreferences::GetDefaultAppearance()
{
    return GetDefaultAppearance(GetColorScheme());
}

CAppearance& CPreferences::GetDefaultAppearance(Platform::ColorScheme scheme)
{
    static auto* const light = new CAppearance;
    static auto* const dark = new CAppearance(CAppearance::Dark());
    return scheme == Platform::ColorScheme::Dark ? *dark : *light;
}

void CPreferences::SetDefaultAppearance(CAppearance& appearance)
{
    GetDefaultAppearance() = appearance;
}

ICustomDraw* CPreferences::GetDefaultCustomDraw()
{
    return &Lasting<CCustomDraw>(false);
}

ILinePaintFormat* CPreferences::GetDefaultLinePaintFormat()
{
    return &Lasting<CLinePaintFormat>();
}

ICellPaintFormat* CPreferences::GetDefaultCellPaintFormat()
{
    return &Lasting<CCellPaintFormat>();
}

IHeaderPaintFormat* CPreferences::GetDefaultHeaderPaintFormat()
{
    return &Lasting<CHeaderPaintFormat>();
}

IColumnPaintFormat* CPreferences::GetDefaultColumnPaintFormat()
{
    return &Lasting<CColumnPaintFormat>();
}

IKeyManager* CPreferences::GetDefaultKeyManager()
{
    return &Lasting<CKeyManager>(false);
}
} // namespace Ostrel::GUI
