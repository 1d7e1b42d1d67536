#include <algorithm>
#include <charconv>
#include <set>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/testing/GridWindow.h>

namespace Ostrel::Testing
{

using GUI::CColumn;
using GUI::CHeader;

namespace
{

constexpr UINT kGridId = 1;
constexpr int kDefaultWidth = 80;

long FidOf(Common::CDataObject& sample, std::string_view name)
{
    std::set<long> fids;
    sample.GetAllFids(fids);
    auto const found =
        std::find_if(fids.begin(), fids.end(), [&](long fid) { return sample.GetFieldName(fid) == name; });
    if (found == fids.end())
    {
        throw DriverError("no field \"" + std::string(name) + "\" to make a column of");
    }
    return *found;
}

std::string_view Trimmed(std::string_view text)
{
    std::size_t const first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// "Price:80" or "Price".
std::unique_ptr<CColumn> MakeColumn(std::string_view description, Common::CDataObject& sample)
{
    std::size_t const colon = std::min(description.find(':'), description.size());
    std::string const name(Trimmed(description.substr(0, colon)));
    std::string_view const widthText = Trimmed(description.substr(std::min(colon + 1, description.size())));
    int width = kDefaultWidth;
    auto const parsed = std::from_chars(widthText.data(), widthText.data() + widthText.size(), width);
    if (!widthText.empty() && parsed.ptr != widthText.data() + widthText.size())
    {
        throw DriverError("\"" + std::string(description) + "\" does not describe a column");
    }
    return std::make_unique<CColumn>(FidOf(sample, name), name, width, CColumn::AlignAuto, true, -1, -1, nullptr,
                                     nullptr, nullptr, "");
}

} // namespace

std::unique_ptr<CHeader> MakeHeader(std::string_view columns, Common::CDataObject& sample)
{
    auto header = std::make_unique<CHeader>();
    while (!columns.empty())
    {
        std::size_t const end = std::min(columns.find_first_of(",|"), columns.size());
        std::unique_ptr<CColumn> column = MakeColumn(columns.substr(0, end), sample);
        if (!header->Add(column.get()))
        {
            throw DriverError("the column " + column->GetName() + " is there twice");
        }
        static_cast<void>(column.release());
        if (end < columns.size() && columns[end] == '|')
        {
            header->SetFixedColumnsCount(header->GetColumnCount());
        }
        columns.remove_prefix(std::min(end + 1, columns.size()));
    }
    return header;
}

GridWindow::GridWindow(Testing::Driver& driver, GridWindowOptions const& options)
    : GridDriver(driver, GridWindowParts::grid)
{
    TestObject sample;
    std::unique_ptr<CHeader> header = MakeHeader(options.columns, sample);
    bool const isMade =
        frame.Create(nullptr, options.title.c_str(), WS_OVERLAPPEDWINDOW, CRect(options.position, options.size)) &&
        grid.Create(options.gridStyle, CRect({0, 0}, options.size), &frame, kGridId);
    if (!isMade)
    {
        throw DriverError("the window could not be made");
    }
    frame.SetClientWindow(&grid);
    grid.SetFont(GUI::CPreferences::GetFont()); // rows as high as their text
    grid.SetHeader(header.release());
    frame.SetNames(this);
    frame.ShowWindow(SW_SHOW);
    driver.RunUntilIdle();
    frame.Clear();
}

GridWindow::~GridWindow()
{
    frame.onNotification = nullptr;
    frame.DestroyWindow();
}

TestObject& GridWindow::Add(TestRow row, GUI::CGridItem* parent)
{
    objects.push_back(std::make_unique<TestObject>(std::move(row)));
    if (grid.Add(objects.back().get(), parent, GUI::LastPosition) == nullptr)
    {
        objects.pop_back();
        throw DriverError("the grid does not take the row");
    }
    return *objects.back();
}

void GridWindow::AddRows(std::initializer_list<std::string_view> names)
{
    for (std::string_view const name : names)
    {
        Add({.name = std::string(name)});
    }
}

void GridWindow::AddMany(int count, std::string_view name)
{
    for (int number = 0; number < count; ++number)
    {
        Add({.name = std::string(name) + std::to_string(number), .quantity = number});
    }
}

TestObject& GridWindow::Object(std::string_view name) const
{
    auto const found =
        std::find_if(objects.begin(), objects.end(), [&](auto const& object) { return object->GetName() == name; });
    if (found == objects.end())
    {
        throw DriverError("no object \"" + std::string(name) + "\"");
    }
    return **found;
}

void GridWindow::Destroy(std::string_view name)
{
    TestObject const* const object = &Object(name);
    std::erase_if(objects, [&](auto const& owned) { return owned.get() == object; });
}

} // namespace Ostrel::Testing
