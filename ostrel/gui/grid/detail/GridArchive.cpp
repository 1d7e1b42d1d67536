#include <algorithm>
#include <iterator>

#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/grid/detail/GridArchive.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI::Detail
{
namespace
{
constexpr int kAreaVersion = 1;
constexpr int kTallest = 32767; ///< pixels; no height of a sane archive is near it

void StoreFont(CArchive& archive, LOGFONT const& font)
{
    archive << font.lfHeight << font.lfWidth << font.lfEscapement << font.lfOrientation << font.lfWeight;
    archive << font.lfItalic << font.lfUnderline << font.lfStrikeOut << font.lfCharSet << font.lfOutPrecision
            << font.lfClipPrecision << font.lfQuality << font.lfPitchAndFamily;
    archive.Write(font.lfFaceName, LF_FACESIZE);
}

LOGFONT LoadFont(CArchive& archive)
{
    LOGFONT font{};
    archive >> font.lfHeight >> font.lfWidth >> font.lfEscapement >> font.lfOrientation >> font.lfWeight;
    archive >> font.lfItalic >> font.lfUnderline >> font.lfStrikeOut >> font.lfCharSet >> font.lfOutPrecision >>
        font.lfClipPrecision >> font.lfQuality >> font.lfPitchAndFamily;
    archive.EnsureRead(font.lfFaceName, LF_FACESIZE);
    if (std::ranges::find(font.lfFaceName, '\0') == std::end(font.lfFaceName))
    {
        font.lfFaceName[LF_FACESIZE - 1] = '\0';
    }
    return font;
}

void LoadAreaHeight(CArchive& archive, int& height)
{
    if (ReadBlockVersion(archive, kAreaVersion))
    {
        int loaded = 0;
        archive >> loaded;
        height = loaded >= 1 && loaded <= kTallest ? loaded : height;
    }
}

int StoredMask(ContextType mask) noexcept
{
    return static_cast<int>(mask);
}

ContextType LoadMask(CArchive& archive)
{
    int mask = 0;
    archive >> mask;
    return static_cast<ContextType>(mask) & AllContexts;
}

bool LoadWideSwitch(CArchive& archive)
{
    int value = 0;
    archive >> value;
    return value != 0;
}

void StoreHeader(CArchive& archive, CHeader* header)
{
    archive << (header != nullptr);
    if (header != nullptr)
    {
        archive.WriteClass(header->GetRuntimeClass());
        header->Serialize(archive);
    }
}

/// Null when none was stored.
std::unique_ptr<CHeader> LoadHeader(CArchive& archive)
{
    bool isStored = false;
    archive >> isStored;
    if (!isStored)
    {
        return nullptr;
    }
    std::unique_ptr<CObject> object(archive.ReadClass(RUNTIME_CLASS(CHeader))->CreateObject());
    auto* const header = dynamic_cast<CHeader*>(object.get());
    if (header == nullptr)
    {
        AfxThrowArchiveException(CArchiveException::badClass);
    }
    static_cast<void>(object.release());
    std::unique_ptr<CHeader> owned(header);
    owned->Serialize(archive);
    return owned;
}
} // namespace

GridArchive::Settings GridArchive::Take(GridCore& core)
{
    GridLooks& looks = core.Looks();
    GridSelection const& selection = core.Selection();
    Settings settings{.isHeaderShown = core.Columns().IsShown(),
                      .fixedRowHeight = core.Fixed().RowHeight(),
                      .scrollableRowHeight = core.Scrollable().RowHeight(),
                      .focusable = selection.focusable,
                      .appearance = looks.Appearance(Platform::ColorScheme::Light),
                      .paintFilter = looks.paintFilter,
                      .flickerFree = looks.flickerFree,
                      .font = std::nullopt,
                      .stretchImages = looks.stretchImages,
                      .allowMouseTrack = selection.allowMouseTrack,
                      .allowSelection = selection.allowSelection,
                      .allowMultiSelection = selection.allowMultiSelection,
                      .selectable = selection.selectable,
                      .allowHighlight = looks.allowHighlight,
                      .highlight = looks.highlight,
                      .drawSeparator = looks.drawSeparator,
                      .separatorHeight = looks.separatorHeight,
                      .sortedAreas = core.Sorting().sortedAreas,
                      .navigable = selection.navigable,
                      .typeAheadMs = core.Search().intervalMs,
                      .parts = core.parts};
    LOGFONT font{};
    if (CFont const* const own = looks.OwnFont(); own != nullptr && own->GetLogFont(&font) != 0)
    {
        settings.font = font;
    }
    return settings;
}

void GridArchive::ApplyHeader(GridCore& core, std::unique_ptr<CHeader> header)
{
    CHeader* const previous = core.Columns().SetHeader(header.release());
    if (previous != nullptr && previous->AutoDelete())
    {
        delete previous;
    }
}

void GridArchive::Apply(GridCore& core, Settings const& settings)
{
    core.Columns().Show(settings.isHeaderShown);
    core.Fixed().SetRowHeight(settings.fixedRowHeight);
    core.Scrollable().SetRowHeight(settings.scrollableRowHeight);

    GridLooks& looks = core.Looks();
    looks.Appearance(Platform::ColorScheme::Light) = settings.appearance;
    looks.paintFilter = settings.paintFilter;
    looks.flickerFree = settings.flickerFree;
    looks.RestoreFont(settings.font.has_value() ? &*settings.font : nullptr);
    looks.stretchImages = settings.stretchImages;
    looks.allowHighlight = settings.allowHighlight;
    looks.highlight = settings.highlight;
    looks.drawSeparator = settings.drawSeparator;
    looks.separatorHeight = settings.separatorHeight;

    GridSelection& selection = core.Selection();
    selection.focusable = settings.focusable;
    selection.allowMouseTrack = settings.allowMouseTrack;
    selection.allowSelection = settings.allowSelection;
    selection.allowMultiSelection = settings.allowMultiSelection;
    selection.selectable = settings.selectable;
    selection.navigable = settings.navigable;
    core.Sorting().sortedAreas = settings.sortedAreas;
    core.Search().intervalMs = settings.typeAheadMs;
    core.parts = settings.parts;
}

void GridArchive::Store(CArchive& archive, Settings& settings)
{
    archive << settings.isHeaderShown << kAreaVersion << settings.fixedRowHeight << kAreaVersion
            << settings.scrollableRowHeight << StoredMask(settings.focusable);
    settings.appearance.Serialize(archive);
    archive << settings.paintFilter << settings.flickerFree << (settings.font.has_value() ? 1 : 0);
    if (settings.font.has_value())
    {
        StoreFont(archive, *settings.font);
    }
    archive << (settings.stretchImages ? 1 : 0) << settings.allowMouseTrack << settings.allowSelection
            << settings.allowMultiSelection << StoredMask(settings.selectable) << settings.allowHighlight;
    settings.highlight.Serialize(archive);
    archive << settings.drawSeparator << settings.separatorHeight;
    settings.parts.copyPaste.Serialize(archive);
    archive << settings.parts.allowCopyPaste;
    settings.parts.dragDrop.Serialize(archive);
    archive << settings.parts.allowDragAndDrop;
    archive << StoredMask(settings.sortedAreas) << StoredMask(settings.navigable) << settings.typeAheadMs;
    settings.parts.editInPlace.Serialize(archive);
    settings.parts.tooltip.Serialize(archive);
    settings.parts.inPlaceTooltip.Serialize(archive);
}

void GridArchive::LoadLooks(CArchive& archive, Settings& settings)
{
    archive >> settings.isHeaderShown;
    LoadAreaHeight(archive, settings.fixedRowHeight);
    LoadAreaHeight(archive, settings.scrollableRowHeight);
    settings.focusable = LoadMask(archive);
    settings.appearance.Serialize(archive);
    archive >> settings.paintFilter >> settings.flickerFree;
    settings.font.reset();
    if (LoadWideSwitch(archive))
    {
        settings.font = LoadFont(archive);
    }
    settings.stretchImages = LoadWideSwitch(archive);
}

void GridArchive::LoadRules(CArchive& archive, Settings& settings)
{
    archive >> settings.allowMouseTrack >> settings.allowSelection >> settings.allowMultiSelection;
    settings.selectable = LoadMask(archive);
    archive >> settings.allowHighlight;
    settings.highlight.Serialize(archive);
    archive >> settings.drawSeparator >> settings.separatorHeight;
    settings.separatorHeight = std::clamp(settings.separatorHeight, -kTallest, kTallest);
}

void GridArchive::Load(CArchive& archive, Settings& settings)
{
    LoadLooks(archive, settings);
    LoadRules(archive, settings);
    settings.parts.copyPaste.Serialize(archive);
    archive >> settings.parts.allowCopyPaste;
    settings.parts.dragDrop.Serialize(archive);
    archive >> settings.parts.allowDragAndDrop;
    settings.sortedAreas = LoadMask(archive);
    settings.navigable = LoadMask(archive);
    archive >> settings.typeAheadMs;
    settings.parts.editInPlace.Serialize(archive);
    settings.parts.tooltip.Serialize(archive);
    settings.parts.inPlaceTooltip.Serialize(archive);
}

// The window and what is behind it each have a version of their own.
void GridArchive::Store(GridCore& core, CArchive& archive)
{
    archive << kVersion << kVersion;
    StoreHeader(archive, core.Columns().Header());
    Settings settings = Take(core);
    Store(archive, settings);
}

void GridArchive::Load(GridCore& core, CArchive& archive)
{
    if (!ReadBlockVersion(archive, kVersion) || !ReadBlockVersion(archive, kVersion))
    {
        return;
    }
    std::unique_ptr<CHeader> header = LoadHeader(archive);
    Settings settings = Take(core);
    Load(archive, settings);

    if (header != nullptr)
    {
        ApplyHeader(core, std::move(header));
    }
    Apply(core, settings);
    core.Selection().FocusItem(nullptr);
    core.Sorting().Update();
    core.Looks().RebuildBuffers();
    core.Scroller().OnResized();
    core.View().InvalidateAll(true);
}
} // namespace Ostrel::GUI::Detail
