// A thread counts; the grid keeps up.
#include <atomic>
#include <thread>

#include <ostrel/GUI.h>

using namespace Ostrel::Common;
using namespace Ostrel::GUI;

class CCounter : public CDataObject
{
public:
    std::string GetName() const { return "Tenths of a second"; }
    long GetCount() const { return m_count; }
    void Increment()
    {
        ++m_count;
        NotifyUpdate(1);
    }
    CFieldMap const* GetFieldMap() const override
    {
        static auto const fields =
            CFieldMapBuilder<CCounter>().Field(0, "", &CCounter::GetName).Field(1, "", &CCounter::GetCount).Build();
        return fields.get();
    }

private:
    std::atomic<long> m_count = 0;
};

int main()
{
    CFrameWnd frame;
    frame.Create(nullptr, "Hello, grid", WS_OVERLAPPEDWINDOW, CRect(100, 100, 500, 300));
    CGrid grid;
    grid.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(), &frame, 1);
    frame.SetClientWindow(&grid);

    auto* header = new CHeader; // the grid deletes it
    header->Add(new CColumn(0, "Name", 200));
    header->Add(new CColumn(1, "Count", 100, CColumn::AlignRight));
    grid.SetHeader(header);
    grid.SetCustomDraw(new CSpaciousDraw(true)); // and this one too
    header->SetHeaderHeight(grid.GetOptimalHeaderHeight());
    grid.SetPaintFilter(PaintAll & ~PaintHierarchy); // a list, not a tree
    grid.AllowHighlight(true);

    CCounter counter;
    grid.Add(&counter, ScrollableRoot, LastPosition);
    std::jthread const worker(
        [&](std::stop_token const& stop)
        {
            for (; !stop.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(100)))
            {
                counter.Increment();
            }
        });
    return frame.RunAsMainWindow();
}
