// A header in an archive.
#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderImpl.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{
namespace
{

struct StoredHeader
{
    std::vector<std::unique_ptr<CColumn>> columns;
    HeaderSettings settings;
};

/// A new column of the class that is stored next, or null when there is no such class here.
std::unique_ptr<CColumn> MakeColumnOfStoredClass(CArchive& archive)
{
    try
    {
        CRuntimeClass const* const runtimeClass = archive.ReadClass(RUNTIME_CLASS(CColumn));
        std::unique_ptr<CObject> object(runtimeClass->CreateObject());
        if (auto* const column = dynamic_cast<CColumn*>(object.get()))
        {
            static_cast<void>(object.release());
            return std::unique_ptr<CColumn>(column);
        }
        return nullptr;
    }
    catch (CArchiveException* caught)
    {
        Platform::ExceptionPtr<CArchiveException> exception(caught);
        if (exception->m_cause != CArchiveException::badClass && exception->m_cause != CArchiveException::badSchema)
        {
            throw exception.release();
        }
        return nullptr;
    }
}

void LoadColumn(CArchive& archive, std::vector<std::unique_ptr<CColumn>>& columns)
{
    if (std::unique_ptr<CColumn> column = MakeColumnOfStoredClass(archive))
    {
        column->Serialize(archive);
        columns.push_back(std::move(column));
        return;
    }
    // Read past the record of a foreign class.
    std::unique_ptr<CObject> const scratch(RUNTIME_CLASS(CColumn)->CreateObject());
    scratch->Serialize(archive);
}

std::vector<CSortInfo> LoadSortLevels(CArchive& archive)
{
    std::vector<CSortInfo> levels;
    int count = 0;
    archive >> count;
    for (int level = 0; level < count; ++level)
    {
        CSortInfo info(-2, false);
        info.Serialize(archive);
        if (level < CHeader::kMaximalSortLevels)
        {
            levels.push_back(info);
        }
    }
    return levels;
}

/// Everything after the version. An exception leaves nothing behind.
StoredHeader LoadHeader(CArchive& archive)
{
    StoredHeader stored;
    HeaderSettings& settings = stored.settings;
    int columnCount = 0;
    archive >> columnCount;
    for (int column = 0; column < columnCount; ++column)
    {
        LoadColumn(archive, stored.columns);
    }
    archive >> settings.fixedCount >> settings.headerHeight >> settings.allowSort >> settings.allowMultiSort;
    settings.sortLevels = LoadSortLevels(archive);
    archive >> settings.allowFixedColumnMove >> settings.allowScrollableColumnMove >> settings.allowColumnResize;
    archive >> settings.navigationColumn;
    return stored;
}

void StoreColumns(CArchive& archive, HeaderLayout::Columns const& columns)
{
    archive << static_cast<int>(columns.size());
    for (auto const& column : columns)
    {
        archive.WriteClass(column->GetRuntimeClass());
        column->Serialize(archive);
    }
}

void StoreSettings(CArchive& archive, HeaderSettings& settings)
{
    archive << settings.fixedCount << settings.headerHeight << settings.allowSort << settings.allowMultiSort;
    archive << static_cast<int>(settings.sortLevels.size());
    for (CSortInfo& level : settings.sortLevels)
    {
        level.Serialize(archive);
    }
    archive << settings.allowFixedColumnMove << settings.allowScrollableColumnMove << settings.allowColumnResize;
    archive << settings.navigationColumn;
}

} // namespace

void CHeader::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        HeaderSettings settings = m_impl->GetSettings();
        archive << GetSerializeVertion();
        StoreColumns(archive, m_impl->GetLayout()->AllColumns());
        StoreSettings(archive, settings);
        return;
    }
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    StoredHeader stored = LoadHeader(archive);
    RemoveAll();
    for (auto& column : stored.columns)
    {
        CColumn* const added = column.release();
        if (!Add(added))
        {
            column.reset(added);
        }
    }
    m_impl->RestoreSettings(stored.settings);
}

} // namespace Ostrel::GUI
