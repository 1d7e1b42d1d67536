#include "ProcessTable.h"

#include <chrono>

namespace ProcessMonitor
{

using namespace Ostrel::GUI;
using Ostrel::Platform::MutexLock;

ProcessTable::ProcessTable(CGrid& grid, Shape shape) : m_grid(grid), m_shape(shape), m_wantedShape(shape) {}

ProcessTable::~ProcessTable() = default;

void ProcessTable::Start(std::function<void(int)> onRead, std::function<void()> onStopped)
{
    m_onRead = std::move(onRead);
    m_onStopped = std::move(onStopped);
    m_worker = std::jthread([this](std::stop_token const& stop) { Run(stop); });
}

void ProcessTable::RequestStop()
{
    m_worker.request_stop();
}

void ProcessTable::SetShape(Shape shape)
{
    {
        MutexLock const lock(m_lock);
        m_wantedShape = shape;
    }
    m_wake.notify_all();
}

void ProcessTable::Run(std::stop_token const& stop)
{
    constexpr std::chrono::seconds kInterval(1);
    auto nextRead = std::chrono::steady_clock::now();
    while (!stop.stop_requested())
    {
        Apply(m_reader.Read());
        m_onRead(static_cast<int>(m_entries.size()));
        nextRead += kInterval;
        for (bool isTimeToRead = false; !isTimeToRead && !stop.stop_requested();)
        {
            Shape wanted = m_shape;
            {
                MutexLock const lock(m_lock);
                auto const isOther = [this]() OSTREL_NO_THREAD_SAFETY_ANALYSIS { return m_wantedShape != m_shape; };
                isTimeToRead = !m_wake.wait_until(m_lock, stop, nextRead, isOther);
                wanted = m_wantedShape;
            }
            ApplyShape(wanted);
        }
    }
    m_onStopped();
}

void ProcessTable::Apply(std::vector<ProcessInfo> processes)
{
    std::map<int, unsigned long long> present;
    std::vector<int> added;
    std::vector<int> moved;
    for (ProcessInfo& process : processes)
    {
        present[process.pid] = process.startTicks;
        Entry& entry = m_entries[process.pid];
        if (entry.object && entry.startTicks != process.startTicks)
        {
            continue; // another process under a used number: added next time, when its predecessor's row is gone
        }
        int const parentPid = std::exchange(entry.parentPid, process.parentPid);
        if (!entry.object)
        {
            entry.startTicks = process.startTicks;
            added.push_back(process.pid);
            entry.object = std::make_unique<CProcess>(std::move(process));
        }
        else
        {
            if (parentPid != entry.parentPid)
            {
                moved.push_back(process.pid);
            }
            entry.object->Update(std::move(process));
        }
    }
    for (int const pid : added)
    {
        AddRow(pid, m_entries[pid]);
    }
    if (m_shape == Shape::Tree)
    {
        for (int const pid : moved)
        {
            MoveRow(m_entries[pid]);
        }
    }
    RemoveGone(present);
}

// Parents come first: a process may have a smaller number than its parent once the numbers have wrapped.
void ProcessTable::AddRow(int pid, Entry& entry)
{
    if (entry.row != nullptr)
    {
        return;
    }
    entry.row = ScrollableRoot; // not twice, whatever the parents say
    auto const parent = m_entries.find(entry.parentPid);
    if (m_shape == Shape::Tree && parent != m_entries.end() && parent->first != pid && parent->second.object)
    {
        AddRow(parent->first, parent->second);
    }
    entry.row = m_grid.Add(entry.object.get(), ParentRow(entry), LastPosition);
    m_grid.Expand(entry.row, false);
}

CGridItem* ProcessTable::ParentRow(Entry const& entry) const
{
    auto const parent = m_entries.find(entry.parentPid);
    bool const hasParent = m_shape == Shape::Tree && parent != m_entries.end() && parent->second.row != nullptr &&
                           &parent->second != &entry;
    return hasParent ? parent->second.row : ScrollableRoot;
}

void ProcessTable::MoveRow(Entry& entry)
{
    CGridItem* parent = ParentRow(entry);
    if (m_grid.GetParent(entry.row) != parent && !m_grid.MoveAfter(entry.row, parent, LastPosition))
    {
        m_grid.MoveAfter(entry.row, ScrollableRoot, LastPosition);
    }
}

void ProcessTable::RemoveGone(std::map<int, unsigned long long> const& present)
{
    auto const isGone = [&](auto const& pair)
    {
        auto const found = present.find(pair.first);
        return found == present.end() || found->second != pair.second.startTicks;
    };
    if (m_shape == Shape::Tree) // no row may go down with its parent's
    {
        for (auto& [pid, entry] : m_entries)
        {
            auto const parent = m_entries.find(entry.parentPid);
            if (parent != m_entries.end() && isGone(*parent))
            {
                entry.parentPid = 0;
                MoveRow(entry);
            }
        }
    }
    std::erase_if(m_entries, isGone); // deleting the object takes its row away
}

void ProcessTable::ApplyShape(Shape shape)
{
    if (shape == m_shape)
    {
        return;
    }
    m_shape = shape;
    auto const focused = m_grid.GetDataObject(m_grid.GetFocusedRow(), m_grid.GetFocusedContext());
    for (auto& [pid, entry] : m_entries)
    {
        MoveRow(entry);
    }
    if (focused != nullptr)
    {
        m_grid.SetFocusedRow(m_grid.GetRow(focused), ScrollableContext);
        m_grid.EnsureVisible(focused);
    }
}

} // namespace ProcessMonitor
