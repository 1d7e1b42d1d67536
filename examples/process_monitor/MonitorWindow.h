// The monitor's window: a grid that fills it, F5 for list or tree, and an orderly end while the worker still calls the
// grid.
#pragma once

#include <ostrel/GUI.h>

#include "Options.h"
#include "ProcessTable.h"

namespace ProcessMonitor
{

class CMonitorWindow : public CFrameWnd
{
public:
    explicit CMonitorWindow(Options options);

    /// False when the window cannot be made or an option names what is not there; then what it is.
    bool Open(std::string& whatIsWrong);

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void AddColumns();
    bool ApplySort(std::string& whatIsWrong);
    void SwitchShape();
    void IndentFor(Shape shape);
    void StartToEnd();
    void OnWorkerStopped();
    void ShowCount(int processes);

    Options m_options;
    Shape m_shape;
    Ostrel::GUI::CGrid m_grid;
    ProcessTable m_table;
};

} // namespace ProcessMonitor
