// The monitor's own look: more room around the texts than the grid's default, and calm colours.
#pragma once

#include <ostrel/GUI.h>

namespace ProcessMonitor
{

/// Column titles whose text stands as far from the edges as that of the cells below.
class CMonitorTitle : public Ostrel::GUI::CColumnPaintFormat
{
public:
    void DrawText(Ostrel::GUI::CColumnPaintInfo& info, Ostrel::GUI::CPaintContext const& context,
                  unsigned int filter) const override;
};

class CMonitorDraw : public Ostrel::GUI::CCustomDraw
{
public:
    CMonitorDraw() : CCustomDraw(true) {} // the grid deletes it

    void DrawColumn(Ostrel::GUI::CColumnPaintInfo& info, Ostrel::GUI::CPaintContext const& context,
                    unsigned int filter) override;
    void DrawCell(Ostrel::GUI::CGridCell& cell, Ostrel::GUI::CPaintContext const& context,
                  unsigned int filter) override;
    int GetOptimalRowHeight(CFont* font, CDC& dc) const override;

private:
    CMonitorTitle m_title;
};

/// Gives the grid the monitor's look.
void ApplyMonitorLook(Ostrel::GUI::CGrid& grid);

} // namespace ProcessMonitor
