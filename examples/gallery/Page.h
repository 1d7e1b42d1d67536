// What the pages of the gallery have in common: grids side by side, each under a caption.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include <ostrel/GUI.h>

#include "Metals.h"

namespace Gallery
{

/// A column by the field that it shows, which also names it.
struct ColumnPlan
{
    long fid;
    int width; ///< at scale 1
    Ostrel::GUI::CColumn::Alignment alignment = Ostrel::GUI::CColumn::AlignAuto;
};

/// Metal, symbol, price and change.
[[nodiscard]] std::vector<ColumnPlan> MetalColumns();

/// A child window that shows one feature. A page is made when it is opened and dies when it is left.
class CPage : public CWnd
{
public:
    /// Makes the window, hidden, with everything in it. False when that fails.
    bool Open(CWnd& parent);
    /// Makes what is to be seen only while somebody uses the page, for its picture. By default nothing is to be made.
    virtual void Pose() {}

protected:
    /// Adds the grids. The window is there.
    virtual void Build() = 0;
    /// Called every Ticking() milliseconds while the page is open; 0 for never.
    virtual void OnTick() {}
    [[nodiscard]] virtual int TickMs() const { return 0; }

    /// How many grids stand side by side; further ones begin a new row of them.
    void SetGridsPerRow(int count) { m_gridsPerRow = count; }
    /// An empty grid. The fields name its columns. Without drawing of its own it has the spacious one.
    Ostrel::GUI::CGrid& AddGrid(std::string caption, Ostrel::Common::CFieldMap const& fields,
                                std::vector<ColumnPlan> const& columns,
                                std::unique_ptr<Ostrel::GUI::CCustomDraw> draw = nullptr);
    /// The same with the first of the metals as its rows.
    Ostrel::GUI::CGrid& AddMetalGrid(std::string caption, int rowCount,
                                     std::unique_ptr<Ostrel::GUI::CCustomDraw> draw = nullptr);
    /// Gives a grid of metals the room for a tree in its first column.
    static void ShowTree(Ostrel::GUI::CGrid& grid);
    /// The metals of the page, twelve of them; they outlive its grids.
    [[nodiscard]] Metals const& AllMetals() const { return m_metals; }

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Panel
    {
        std::string caption;
        Ostrel::GUI::CGrid grid;
    };

    [[nodiscard]] CRect PanelRect(int number) const;
    void LayOut();
    void PaintCaptions();

    Metals m_metals = MakeMetals(12);
    std::list<Panel> m_panels; ///< grids do not move
    int m_gridsPerRow = 2;
};

} // namespace Gallery
