// The scale factor: what the system's sizes are at this one.
#include <cmath>

#include "../Pages.h"
#include "../Pictures.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

class CSizeRow : public CDataObject
{
public:
    enum Fid : long
    {
        kName,
        kPixels,
        kDesignPixels
    };

    CSizeRow(std::string name, long pixels) : m_name(std::move(name)), m_pixels(pixels) {}

    [[nodiscard]] std::string GetName() const { return m_name; }
    [[nodiscard]] long GetPixels() const { return m_pixels; }
    [[nodiscard]] double GetDesignPixels() const
    {
        return static_cast<double>(m_pixels) / Ostrel::Platform::GetScale();
    }

    static CFieldMap const& Fields()
    {
        static auto const fields =
            CFieldMapBuilder<CSizeRow>()
                .Field(kName, "Size", &CSizeRow::GetName)
                .Field(kPixels, "Pixels", &CSizeRow::GetPixels)
                .Field(kDesignPixels, "At scale 1", &CSizeRow::GetDesignPixels, nullptr, new CDoubleFormat(1, true))
                .Build();
        return *fields;
    }
    CFieldMap const* GetFieldMap() const override { return &Fields(); }

private:
    std::string m_name;
    long m_pixels;
};

class CScalePage : public CPage
{
    void Build() override
    {
        auto const percent = static_cast<int>(std::lround(Ostrel::Platform::GetScale() * 100));
        CGrid& sizes =
            AddGrid("Sizes at " + std::to_string(percent) + " % (start with --scale 2 for others)", CSizeRow::Fields(),
                    {{CSizeRow::kName, 180},
                     {CSizeRow::kPixels, 80, CColumn::AlignRight},
                     {CSizeRow::kDesignPixels, 95, CColumn::AlignRight}});
        LOGFONT font{};
        Ostrel::GUI::CPreferences::GetFont()->GetLogFont(&font);
        AddSize(sizes, "Font", std::abs(static_cast<long>(font.lfHeight)));
        AddSize(sizes, "Row", sizes.GetOptimalRowHeight(ScrollableContext));
        AddSize(sizes, "Header", sizes.GetOptimalHeaderHeight());
        AddSize(sizes, "Scroll bar", GetSystemMetrics(SM_CXVSCROLL));
        AddSize(sizes, "Small icon", GetSystemMetrics(SM_CXSMICON));
        AddSize(sizes, "Icon", GetSystemMetrics(SM_CXICON));
        AddSize(sizes, "Border", GetSystemMetrics(SM_CXBORDER));
        AddSize(sizes, "Before a drag begins", GetSystemMetrics(SM_CXDRAG));

        MakeIcons(m_icons, Scaled(16));
        CGrid& sample = AddMetalGrid("A sample", 0);
        sample.SetImageList(&m_icons, false);
        CColumn& name = *sample.GetHeader()->GetColumnByFid(CMetal::kName);
        name.SetCellImageId(1);
        ShowTree(sample);
        CGridItem* const root = sample.Add(AllMetals()[0].get(), ScrollableRoot, LastPosition);
        for (std::size_t i = 1; i < 12; ++i)
        {
            sample.Add(AllMetals()[i].get(), root, LastPosition);
        }
        sample.Expand(root, true);
        sample.Select(3, ScrollableContext, true);
        sample.SetFocusedRow(5, ScrollableContext);
    }

    void AddSize(CGrid& grid, char const* name, long pixels)
    {
        m_sizes.push_back(std::make_unique<CSizeRow>(name, pixels));
        grid.Add(m_sizes.back().get(), ScrollableRoot, LastPosition);
    }

    std::vector<std::unique_ptr<CSizeRow>> m_sizes;
    CImageList m_icons;
};

} // namespace

std::unique_ptr<CPage> MakeScalePage()
{
    return std::make_unique<CScalePage>();
}

} // namespace Gallery
