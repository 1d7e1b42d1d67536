// The gallery's window: a grid that lists the pages, and the page that is chosen in it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Pages.h"

namespace Gallery
{

class CGalleryWindow : public CFrameWnd
{
public:
    CGalleryWindow();
    ~CGalleryWindow() override;

    /// Makes and shows the window with the first page. False when that fails.
    bool Open();
    /// Opens a page and marks it in the list.
    void ShowPage(PageEntry const& page);
    /// Saves a picture of a page to a PNG file. Time must stand still. False when that fails.
    bool SavePicture(PageEntry const& page, std::string const& path);

    [[nodiscard]] Ostrel::GUI::CGrid& PageList() noexcept { return m_list; }

    // CFrameWnd
    void RecalcLayout() override;
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    class CListedPage;

    bool FillList();
    void OpenPage(PageEntry const& page);
    void StepPage(int step);

    std::vector<std::unique_ptr<CListedPage>> m_entries;
    Ostrel::GUI::CGrid m_list;
    std::unique_ptr<CPage> m_page;
};

/// Between light and dark, for the whole program.
void SwitchColorScheme();

} // namespace Gallery
