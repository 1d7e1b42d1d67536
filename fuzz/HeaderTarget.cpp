// Loads a header with its columns and their formats from an archive, into a header that has columns already.
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>

#include "SettingsArchive.h"
#include "Target.h"

using namespace Ostrel::GUI;

namespace
{

CColumn* NewColumn(long fid)
{
    return new CColumn(fid, "Name", 80);
}

/// The layout agrees with its columns, and the header can be changed.
void CheckThatItWorks(CHeader& header)
{
    for (int position = 0; position < header.GetColumnCount(); ++position)
    {
        CColumn const* const column = header.GetColumnByIndex(position);
        Fuzz::Require(header.GetColumnByFid(column->GetFid()) == column, "a column is found by its field");
        Fuzz::Require(header.GetColumnIndex(column->GetFid()) == position, "and knows its place");
        Fuzz::Require((header.GetVisibleColumnIndex(column->GetFid()) >= 0) == column->IsVisible(),
                      "the visible ones are shown");
    }
    header.Remove(7);
    Fuzz::Require(header.Add(NewColumn(7)), "a column can be added");
    Fuzz::Require(header.GetLastColumn()->SetWidth(90), "and resized");
    header.AllowSort(true);
    header.ResetSort();
    header.SetSort(0, CSortInfo(7, true));
    Fuzz::Require(header.GetSortLevels() == 1, "and sorted by");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    CHeader header;
    header.Add(NewColumn(7));
    header.Add(NewColumn(8));
    auto const before = Fuzz::Archived(header);
    if (Fuzz::LoadArchived({data, size}, header))
    {
        auto const bytes = Fuzz::Archived(header);
        CHeader again;
        Fuzz::Require(Fuzz::LoadArchived(bytes, again), "what a header stores can be loaded");
        Fuzz::Require(Fuzz::Archived(again) == bytes, "settings survive a round trip");
    }
    else
    {
        Fuzz::Require(Fuzz::Archived(header) == before, "a refused archive changes nothing");
    }
    CheckThatItWorks(header);
    return 0;
}
