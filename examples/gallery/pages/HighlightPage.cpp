// The ten ways to highlight a changed value, side by side: in every row another one, in every column another time since
// the change.
#include <array>

#include "../Pages.h"

namespace Gallery
{

using namespace Ostrel::Common;
using namespace Ostrel::GUI;
using Ostrel::Platform::ColorScheme;

namespace
{

constexpr int kPeriodMs = 2000;
constexpr int kTickMs = 400;
constexpr long kValueCount = kPeriodMs / kTickMs;

/// A mode of highlighting, and values that change in turn.
class CModeRow : public CDataObject
{
public:
    enum Fid : long
    {
        kMode,
        kFirstValue // kValueCount fields from here on
    };

    CModeRow(char const* name, CHighlightSettings::Mode mode) : m_name(name), m_mode(mode) {}

    [[nodiscard]] CHighlightSettings::Mode Mode() const { return m_mode; }
    void Change(long number)
    {
        ++m_values[static_cast<std::size_t>(number)];
        NotifyUpdate(kFirstValue + number);
    }

    [[nodiscard]] std::string GetName() const { return m_name; }
    template <std::size_t kNumber>
    [[nodiscard]] long GetValueOf() const
    {
        return m_values[kNumber];
    }

    static CFieldMap const& Fields()
    {
        static auto const fields = CFieldMapBuilder<CModeRow>()
                                       .Field(kMode, "Mode", &CModeRow::GetName)
                                       .Field(kFirstValue, "First", &CModeRow::GetValueOf<0>)
                                       .Field(kFirstValue + 1, "Second", &CModeRow::GetValueOf<1>)
                                       .Field(kFirstValue + 2, "Third", &CModeRow::GetValueOf<2>)
                                       .Field(kFirstValue + 3, "Fourth", &CModeRow::GetValueOf<3>)
                                       .Field(kFirstValue + 4, "Fifth", &CModeRow::GetValueOf<4>)
                                       .Build();
        return *fields;
    }
    CFieldMap const* GetFieldMap() const override { return &Fields(); }

private:
    char const* m_name;
    CHighlightSettings::Mode m_mode;
    std::array<long, kValueCount> m_values{1024, 512, 256, 128, 64};
};

/// Highlights a row in its own mode instead of the grid's.
class CModeDraw : public CSpaciousDraw
{
public:
    CModeDraw() : CSpaciousDraw(true) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        if (auto const* const row = static_cast<CModeRow const*>(cell.GetGridLine().GetDataObject()))
        {
            CHighlightSettings settings = cell.GetPaintInfo().GetHighlightSettings();
            settings.SetMode(row->Mode());
            cell.GetPaintInfo().SetHighlightSettings(settings);
        }
        CSpaciousDraw::DrawCell(cell, context, filter);
    }
};

class CHighlightPage : public CPage
{
    void Build() override
    {
        SetGridsPerRow(1);
        AddModes("A value changes every 0.4 seconds and is highlighted for 2 seconds", RGB(0, 90, 220),
                 RGB(255, 176, 32))
            .SetAppearance(CAppearance(), ColorScheme::Dark);
        AddModes("The same on dark rows", RGB(140, 195, 255), RGB(150, 92, 0))
            .SetAppearance(CAppearance::Dark(), ColorScheme::Light);
    }

    CGrid& AddModes(std::string caption, COLORREF text, COLORREF back)
    {
        std::vector<ColumnPlan> columns = {{CModeRow::kMode, 190}};
        for (long number = 0; number < kValueCount; ++number)
        {
            columns.push_back({CModeRow::kFirstValue + number, 105, CColumn::AlignRight});
        }
        CGrid& grid = AddGrid(std::move(caption), CModeRow::Fields(), columns, std::make_unique<CModeDraw>());
        grid.SetHighlightSettings({kPeriodMs, text, back, 170, 150, 40, CHighlightSettings::BackFading});
        grid.AllowHighlight(true);
        for (CModeRow& row : m_rows)
        {
            grid.Add(&row, ScrollableRoot, LastPosition);
        }
        return grid;
    }

    [[nodiscard]] int TickMs() const override { return kTickMs; }
    void OnTick() override
    {
        for (CModeRow& row : m_rows)
        {
            row.Change(m_next);
        }
        m_next = (m_next + 1) % kValueCount;
    }
    // Just after the last column has changed, so that the first ones have faded longest.
    void Pose() override { Ostrel::Platform::TurnClock(kPeriodMs + 40); }

    std::array<CModeRow, 10> m_rows{{{"Invert", CHighlightSettings::Invert},
                                     {"Fore", CHighlightSettings::Fore},
                                     {"Back", CHighlightSettings::Back},
                                     {"ForeAndBack", CHighlightSettings::ForeAndBack},
                                     {"ForeAlpha", CHighlightSettings::ForeAlpha},
                                     {"BackAlpha", CHighlightSettings::BackAlpha},
                                     {"ForeAndBackAlpha", CHighlightSettings::ForeAndBackAlpha},
                                     {"ForeFading", CHighlightSettings::ForeFading},
                                     {"BackFading", CHighlightSettings::BackFading},
                                     {"ForeAndBackFading", CHighlightSettings::ForeAndBackFading}}};
    long m_next = 0;
};

} // namespace

std::unique_ptr<CPage> MakeHighlightPage()
{
    return std::make_unique<CHighlightPage>();
}

} // namespace Gallery
