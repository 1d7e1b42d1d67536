// A thread counts; the grid keeps up.
#include <atomic>
#include <thread>

#include <ostrel/GUI.h>

using namespace Ostrel::Common;
using namespace Ostrel::GUI;

class CCounter : public CDataObject
{
public:
    std::string GetName() const { return "Seconds, in tenths"; }
    long GetCount() const { return m_count; }
    void Increment() { ++m_count, NotifyUpdate(1); }

    CFieldMap const* GetFieldMap() const override
    {
        static auto const fields = CFieldMapBuilder<CCounter>()
                                       .Field(0, "Name", &CCounter::GetName)
                                       .Field(1, "Count", &CCounter::GetCount)
                                       .Build();
        return fields.get();
    }

private:
    std::atomic<long> m_count = 0;
};

int main()
{
    CGrid grid;
    CCounter counter;
    CFrameWnd frame("Hello, grid", grid);
    grid.GetHeader()->Add(new CColumn(0, "Name", 200));
    grid.GetHeader()->Add(new CColumn(1, "Count", 100, CColumn::AlignRight));
    grid.AllowHighlight(true);
    grid.Add(&counter, ScrollableRoot, LastPosition);
    std::jthread const worker(
        [&](std::stop_token const& stop)
        {
            for (; !stop.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(100)))
            {
                counter.Increment();
            }
        });
    return frame.Run();
}
