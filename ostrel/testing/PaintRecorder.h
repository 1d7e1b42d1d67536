/// @file
/// Counts what a grid paints. Sits in the grid as its custom draw while it lives, and draws as the default does.
#pragma once

#include <string>
#include <vector>

#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/testing/GridDriver.h>

namespace Ostrel::Testing
{

/// Shows that an update repaints no more than it must.
class OSTREL_TESTING_API PaintRecorder final : public GUI::CCustomDraw
{
public:
    /// Puts itself into the grid. Does not take ownership of the driver, which outlives it.
    explicit PaintRecorder(GridDriver& grid);
    PaintRecorder(PaintRecorder const&) = delete;
    PaintRecorder& operator=(PaintRecorder const&) = delete;
    /// Puts back what was there.
    ~PaintRecorder() override;

    /// The cells in the order in which they were painted since Clear, "red.Price"; those of empty lines and the filler
    /// right of the last column are left out.
    [[nodiscard]] std::vector<std::string> const& Cells() const noexcept { return m_cells; }
    /// The same as one line, "-" for none.
    [[nodiscard]] std::string CellsText() const;
    /// How many lines with a row were painted since Clear.
    [[nodiscard]] int LineCount() const noexcept { return m_lineCount; }
    /// How many times the header was painted since Clear.
    [[nodiscard]] int HeaderCount() const noexcept { return m_headerCount; }
    /// Lets everything be painted that is due, then forgets it.
    void Clear();

    // ICustomDraw
    void DrawHeader(GUI::CHeaderPaintInfo& info, GUI::CPaintContext const& context, unsigned int filter) override;
    void DrawLine(GUI::CGridLine& line, GUI::CPaintContext const& context, unsigned int filter) override;
    void DrawCell(GUI::CGridCell& cell, GUI::CPaintContext const& context, unsigned int filter) override;

private:
    GridDriver& m_grid;
    GUI::ICustomDraw* m_before;
    std::vector<std::string> m_cells;
    int m_lineCount = 0;
    int m_headerCount = 0;
};

} // namespace Ostrel::Testing
