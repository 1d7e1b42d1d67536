#include "MonitorWindow.h"

#include <cstdio>

#include "Dump.h"
#include "MonitorLook.h"

namespace ProcessMonitor
{

using namespace Ostrel::GUI;
using Ostrel::Platform::Scaled;

namespace
{

constexpr UINT kWorkerRead = WM_APP;        ///< wParam: the number of processes
constexpr UINT kWorkerStopped = WM_APP + 1; ///< the grid is ours alone again
constexpr UINT_PTR kEndTimer = 1;
constexpr UINT kGridId = 1;

struct ColumnPlan
{
    CProcess::Fid fid;
    int width; ///< at scale 1
    CColumn::Alignment alignment;
    char const* description;
};

constexpr ColumnPlan kColumns[] = {
    {CProcess::kName, 260, CColumn::AlignLeft, "The kernel's name of the process"},
    {CProcess::kPid, 70, CColumn::AlignRight, "Process number"},
    {CProcess::kParentPid, 80, CColumn::AlignRight, "Number of the parent process"},
    {CProcess::kUser, 90, CColumn::AlignLeft, "Effective user"},
    {CProcess::kState, 90, CColumn::AlignLeft, "What the scheduler says"},
    {CProcess::kCpuPercent, 80, CColumn::AlignRight, "Share of one processor during the last second"},
    {CProcess::kMemoryKiB, 125, CColumn::AlignRight, "Resident memory"},
    {CProcess::kThreads, 85, CColumn::AlignRight, "Number of threads"},
    {CProcess::kStartTime, 160, CColumn::AlignLeft, "When the process started"},
    {CProcess::kCommandLine, 500, CColumn::AlignLeft, "The program and its arguments"},
};

} // namespace

CMonitorWindow::CMonitorWindow(Options options)
    : m_options(std::move(options)), m_shape(m_options.shape), m_table(m_grid, m_shape)
{
    SetAutoDelete(false);
    SetQuitOnDestroy(true);
}

bool CMonitorWindow::Open(std::string& whatIsWrong)
{
    CRect const bounds(CPoint(Scaled(40), Scaled(40)), CSize(Scaled(m_options.size.cx), Scaled(m_options.size.cy)));
    DWORD const gridStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL;
    if (!Create(nullptr, "Process monitor", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, bounds) ||
        !m_grid.Create(gridStyle, CRect(), this, kGridId))
    {
        whatIsWrong = "the window cannot be made";
        return false;
    }
    SetClientWindow(&m_grid);
    AddColumns();
    ApplyMonitorLook(m_grid);
    IndentFor(m_shape);
    m_grid.SetCalmView(true);
    if (!ApplySort(whatIsWrong))
    {
        return false;
    }
    ShowWindow(SW_SHOW);
    HWND const window = m_hWnd; // the worker outlives nothing of it, but posts to it at the very end
    m_table.Start([window](int processes) { ::PostMessage(window, kWorkerRead, static_cast<WPARAM>(processes), 0); },
                  [window] { ::PostMessage(window, kWorkerStopped, 0, 0); });
    if (m_options.seconds)
    {
        SetTimer(kEndTimer, static_cast<UINT>(*m_options.seconds) * 1000U);
    }
    return true;
}

void CMonitorWindow::AddColumns()
{
    auto* header = new CHeader;
    for (ColumnPlan const& plan : kColumns)
    {
        std::string const name = CProcess::Fields()->GetField(plan.fid)->GetName();
        header->Add(new CColumn(plan.fid, name, Scaled(plan.width), plan.alignment, false, -1, -1, nullptr, nullptr,
                                nullptr, plan.description));
    }
    m_grid.SetHeader(header); // which deletes itself with the grid
}

bool CMonitorWindow::ApplySort(std::string& whatIsWrong)
{
    if (!m_options.sort)
    {
        return true;
    }
    CHeader const& header = *m_grid.GetHeader();
    for (int i = 0; i < header.GetColumnCount(); ++i)
    {
        CColumn const* column = header.GetColumnByIndex(i);
        if (column->GetName() == m_options.sort->caption)
        {
            m_grid.SetSort(0, CSortInfo(column->GetFid(), m_options.sort->isDescending), true);
            return true;
        }
    }
    whatIsWrong = "there is no column \"" + m_options.sort->caption + "\"";
    return false;
}

BOOL CMonitorWindow::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_KEYDOWN && message->wParam == VK_F5)
    {
        SwitchShape();
        return TRUE;
    }
    return CFrameWnd::PreTranslateMessage(message);
}

void CMonitorWindow::SwitchShape()
{
    m_shape = m_shape == Shape::Tree ? Shape::List : Shape::Tree;
    IndentFor(m_shape);
    m_table.SetShape(m_shape);
}

void CMonitorWindow::IndentFor(Shape shape)
{
    m_grid.SetPaintFilter(shape == Shape::Tree ? PaintAll : PaintAll & ~PaintHierarchy);
}

LRESULT CMonitorWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_CLOSE:
        StartToEnd();
        return 0;
    case WM_TIMER:
        if (wParam == kEndTimer)
        {
            StartToEnd();
            return 0;
        }
        break;
    case kWorkerRead:
        ShowCount(static_cast<int>(wParam));
        return 0;
    case kWorkerStopped:
        OnWorkerStopped();
        return 0;
    default:
        break;
    }
    return CFrameWnd::WindowProc(message, wParam, lParam);
}

// The worker may be waiting for this thread inside a grid call: the loop goes on until it says that it has stopped.
void CMonitorWindow::StartToEnd()
{
    KillTimer(kEndTimer);
    m_table.RequestStop();
}

void CMonitorWindow::OnWorkerStopped()
{
    if (!m_options.screenshotPath.empty())
    {
        if (Ostrel::Platform::SaveWindowPng(*this, m_options.screenshotPath))
        {
            std::printf("picture: %s\n", m_options.screenshotPath.c_str());
        }
        else
        {
            std::fprintf(stderr, "cannot write %s\n", m_options.screenshotPath.c_str());
        }
    }
    if (m_options.isDump)
    {
        std::fputs(DumpOf(m_grid).c_str(), stdout);
    }
    DestroyWindow();
}

void CMonitorWindow::ShowCount(int processes)
{
    SetWindowText(("Process monitor - " + std::to_string(processes) + " processes").c_str());
}

} // namespace ProcessMonitor
