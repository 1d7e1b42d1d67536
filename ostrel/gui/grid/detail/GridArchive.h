// The settings of a grid as they are kept in an archive: everything that the user or the program may have set, but no
// rows. What is loaded is read whole before anything changes, so that a damaged archive changes nothing.
#pragma once

#include <memory>
#include <optional>

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/grid/detail/PartSettings.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/platform/drawing/Font.h>

class CArchive;

namespace Ostrel::GUI
{
class CHeader;
}

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridArchive
{
public:
    static constexpr int kVersion = 1;

    static void Store(GridCore& core, CArchive& archive);
    /// Throws CArchiveException and leaves the grid as it is; a version below 1 leaves it as well.
    static void Load(GridCore& core, CArchive& archive);

private:
    /// What is stored behind the header.
    struct Settings
    {
        bool isHeaderShown = true;
        int fixedRowHeight = 0;
        int scrollableRowHeight = 0;
        ContextType focusable = AllContexts;
        CAppearance appearance;
        unsigned int paintFilter = 0;
        bool flickerFree = false;
        std::optional<LOGFONT> font;
        bool stretchImages = false;
        bool allowMouseTrack = true;
        bool allowSelection = true;
        bool allowMultiSelection = true;
        ContextType selectable = AllContexts;
        bool allowHighlight = false;
        CHighlightSettings highlight;
        bool drawSeparator = true;
        int separatorHeight = 0;
        ContextType sortedAreas = AllContexts;
        ContextType navigable = AllContexts;
        int typeAheadMs = 0;
        PartSettings parts;
    };

    [[nodiscard]] static Settings Take(GridCore& core);
    static void Apply(GridCore& core, Settings const& settings);
    static void ApplyHeader(GridCore& core, std::unique_ptr<CHeader> header);
    static void Store(CArchive& archive, Settings& settings);
    static void Load(CArchive& archive, Settings& settings);
    static void LoadLooks(CArchive& archive, Settings& settings);
    static void LoadRules(CArchive& archive, Settings& settings);
};
} // namespace Ostrel::GUI::Detail
