#include "GalleryWindow.h"

namespace Gallery
{

using namespace Ostrel;
using namespace Ostrel::Common;
using namespace Ostrel::GUI;
using Ostrel::Platform::ColorScheme;
using Ostrel::Platform::Scaled;

namespace
{

constexpr UINT kListId = 1;

// At scale 1.
constexpr CSize kWindowSize{960, 600};
constexpr int kListWidth = 170;

} // namespace

/// A row of the list.
class CGalleryWindow::CListedPage : public CDataObject
{
public:
    enum Fid : long
    {
        kTitle
    };

    explicit CListedPage(PageEntry const& page) : m_page(page) {}

    [[nodiscard]] PageEntry const& Page() const { return m_page; }
    [[nodiscard]] std::string GetTitle() const { return m_page.title; }

    static CFieldMap const& Fields()
    {
        static auto const fields =
            CFieldMapBuilder<CListedPage>().Field(kTitle, "Page", &CListedPage::GetTitle).Build();
        return *fields;
    }
    CFieldMap const* GetFieldMap() const override { return &Fields(); }

private:
    PageEntry const& m_page;
};

CGalleryWindow::CGalleryWindow()
{
    SetAutoDelete(false);
    SetQuitOnDestroy(true);
}

CGalleryWindow::~CGalleryWindow() = default;

bool CGalleryWindow::Open()
{
    CRect const bounds(CPoint(Scaled(40), Scaled(40)), CSize(Scaled(kWindowSize.cx), Scaled(kWindowSize.cy)));
    if (!Create(nullptr, "Gallery", WS_OVERLAPPEDWINDOW, bounds) || !FillList())
    {
        return false;
    }
    SetClientWindow(&m_list); // has the keyboard
    ShowPage(AllPages().front());
    ShowWindow(SW_SHOW);
    return true;
}

bool CGalleryWindow::FillList()
{
    if (!m_list.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(), this, kListId))
    {
        return false;
    }
    auto* const header = new CHeader; // deletes itself with the grid
    header->Add(new CColumn(CListedPage::kTitle, "Page", Scaled(kListWidth)));
    header->SetNavigationColumn(0);
    header->AllowSort(false);
    m_list.SetHeader(header);
    m_list.SetCustomDraw(new CSpaciousDraw(true));
    m_list.AllowMultiSelection(false);
    m_list.HideHeader();
    m_list.SetPaintFilter(PaintAll & ~static_cast<unsigned int>(PaintHierarchy)); // no room for a tree
    for (PageEntry const& page : AllPages())
    {
        m_entries.push_back(std::make_unique<CListedPage>(page));
        m_list.Add(m_entries.back().get(), ScrollableRoot, LastPosition);
    }
    return true;
}

void CGalleryWindow::ShowPage(PageEntry const& page)
{
    int const row = static_cast<int>(&page - AllPages().data());
    m_list.ClearSelection();
    m_list.Select(row, ScrollableContext, true);
    m_list.EnsureVisible(row);
    m_list.SetFocusedRow(row, ScrollableContext); // which opens it: see OnNotify
}

void CGalleryWindow::OpenPage(PageEntry const& page)
{
    m_page.reset(); // the page before puts back what it has changed before the next one begins
    auto next = page.make();
    if (next->Open(*this))
    {
        m_page = std::move(next);
        RecalcLayout();
        m_page->ShowWindow(SW_SHOW);
    }
    SetWindowText((std::string("Gallery - ") + page.title).c_str());
}

bool CGalleryWindow::SavePicture(PageEntry const& page, std::string const& path)
{
    ShowPage(page);
    Ostrel::Platform::ProcessPending();
    m_page->Pose();
    Ostrel::Platform::ProcessPending();
    return Ostrel::Platform::SaveWindowPng(*this, path);
}

void CGalleryWindow::StepPage(int step)
{
    int const count = static_cast<int>(AllPages().size());
    int const row = (m_list.GetFocusedRow() + step + count) % count;
    ShowPage(AllPages()[static_cast<std::size_t>(row)]);
}

void CGalleryWindow::RecalcLayout()
{
    CRect client;
    GetClientRect(&client);
    int const listWidth = Scaled(kListWidth);
    if (m_list.GetSafeHwnd() != nullptr)
    {
        m_list.MoveWindow(0, 0, listWidth, client.Height());
    }
    if (m_page != nullptr)
    {
        m_page->MoveWindow(listWidth, 0, client.Width() - listWidth, client.Height());
    }
}

BOOL CGalleryWindow::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_KEYDOWN && message->wParam == VK_F6)
    {
        SwitchColorScheme();
        return TRUE;
    }
    if (message->message == WM_KEYDOWN && message->wParam == VK_TAB && GetKeyState(VK_CONTROL) < 0)
    {
        StepPage(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        return TRUE;
    }
    return CFrameWnd::PreTranslateMessage(message);
}

BOOL CGalleryWindow::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    auto const& notification = *reinterpret_cast<NMHDR const*>(lParam);
    if (notification.hwndFrom == m_list.GetSafeHwnd() && notification.code == FocusChanged)
    {
        auto const& row = *reinterpret_cast<NM_GRIDITEM const*>(lParam);
        if ((row.state & ItemStateFocused) != 0)
        {
            OpenPage(static_cast<CListedPage const*>(row.object)->Page());
        }
    }
    return CFrameWnd::OnNotify(wParam, lParam, result);
}

void SwitchColorScheme()
{
    bool const isDark = GUI::CPreferences::GetColorScheme() == ColorScheme::Dark;
    GUI::CPreferences::SetColorScheme(isDark ? ColorScheme::Light : ColorScheme::Dark);
}

} // namespace Gallery
