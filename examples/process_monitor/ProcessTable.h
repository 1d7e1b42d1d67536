// Keeps the rows of a grid in step with the processes of the machine, from a thread of its own: it reads /proc every
// second, updates the objects, and adds, moves and removes rows. All grid calls are made from that thread.
//
// The rows form a list or a tree by parent process. Before an object is deleted its children's rows have moved to where
// the kernel hung them, since a row takes its subtree with it.
#pragma once

#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <stop_token>
#include <thread>

#include <ostrel/GUI.h>

#include "Process.h"

namespace ProcessMonitor
{

enum class Shape
{
    List,
    Tree
};

class ProcessTable
{
public:
    /// The grid must outlive the rows: stop the table, wait for onStopped, then destroy the grid.
    ProcessTable(Ostrel::GUI::CGrid& grid, Shape shape);
    ProcessTable(ProcessTable const&) = delete;
    ProcessTable& operator=(ProcessTable const&) = delete;
    ~ProcessTable();

    /// Starts reading. onRead is called after each round with the number of processes, onStopped once at the end; both
    /// on the worker thread.
    void Start(std::function<void(int)> onRead, std::function<void()> onStopped);
    /// Does not wait: the worker may be waiting for the grid's thread.
    void RequestStop();
    /// Takes effect at once, on the worker.
    void SetShape(Shape shape);

private:
    struct Entry
    {
        std::unique_ptr<CProcess> object;
        Ostrel::GUI::CGridItem* row = nullptr;
        int parentPid = 0;
        unsigned long long startTicks = 0;
    };

    void Run(std::stop_token const& stop);
    void Apply(std::vector<ProcessInfo> processes);
    void ApplyShape(Shape shape);
    void AddRow(int pid, Entry& entry);
    void MoveRow(Entry& entry);
    void RemoveGone(std::map<int, unsigned long long> const& present);
    [[nodiscard]] Ostrel::GUI::CGridItem* ParentRow(Entry const& entry) const;

    Ostrel::GUI::CGrid& m_grid;
    std::function<void(int)> m_onRead;
    std::function<void()> m_onStopped;

    // The worker's own.
    ProcReader m_reader;
    std::map<int, Entry> m_entries;
    Shape m_shape;

    Ostrel::Platform::Mutex m_lock;
    std::condition_variable_any m_wake;
    Shape m_wantedShape OSTREL_GUARDED_BY(m_lock);

    std::jthread m_worker; ///< last: it uses all of the above
};

} // namespace ProcessMonitor
