#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/testing/PaintRecorder.h>

namespace Ostrel::Testing
{

PaintRecorder::PaintRecorder(GridDriver& grid)
    : CCustomDraw(false), m_grid(grid), m_before(grid.Grid().SetCustomDraw(this))
{
    Clear();
}

PaintRecorder::~PaintRecorder()
{
    m_grid.Grid().SetCustomDraw(m_before);
}

std::string PaintRecorder::CellsText() const
{
    std::string text;
    for (std::string const& cell : m_cells)
    {
        text += text.empty() ? cell : "," + cell;
    }
    return text.empty() ? "-" : text;
}

void PaintRecorder::Clear()
{
    m_grid.Driver().RunUntilIdle();
    m_cells.clear();
    m_lineCount = 0;
    m_headerCount = 0;
}

void PaintRecorder::DrawHeader(GUI::CHeaderPaintInfo& info, GUI::CPaintContext const& context, unsigned int filter)
{
    ++m_headerCount;
    CCustomDraw::DrawHeader(info, context, filter);
}

void PaintRecorder::DrawLine(GUI::CGridLine& line, GUI::CPaintContext const& context, unsigned int filter)
{
    m_lineCount += line.GetItem() != nullptr ? 1 : 0;
    CCustomDraw::DrawLine(line, context, filter);
}

void PaintRecorder::DrawCell(GUI::CGridCell& cell, GUI::CPaintContext const& context, unsigned int filter)
{
    if (cell.GetColumn() != nullptr && cell.GetGridLine().GetItem() != nullptr)
    {
        m_cells.push_back(m_grid.NameOf(cell.GetGridLine().GetItem()) + '.' + cell.GetColumn()->GetName());
    }
    CCustomDraw::DrawCell(cell, context, filter);
}

} // namespace Ostrel::Testing
