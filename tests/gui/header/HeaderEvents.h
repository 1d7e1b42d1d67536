// Hears a header or a column and writes down what it hears, one word an event.
#pragma once

#include <string>
#include <utility>

#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/Header.h>

namespace Ostrel::GUI::Testing
{

inline CColumn* NewColumn(long fid, int width = 50, bool visible = true)
{
    auto* const column = new CColumn(fid, "", width, CColumn::AlignLeft, false, -1, -1, nullptr, nullptr, nullptr, "");
    column->SetVisible(visible);
    return column;
}

class HeaderEvents final : public CHeader::INotify, public CColumn::INotify
{
public:
    void OnHeaderChanged(CHeader*, CColumn* column, CHeader::NotificationType type) override
    {
        constexpr char const* kNames[] = {"added",      "removed", "resized", "changed", "shown/hidden", "moved",
                                          "fixedcount", "sort",    "?",       "height",  "font",         "images"};
        Append(kNames[type] + (column != nullptr ? std::to_string(column->GetFid()) : std::string()));
    }

    void OnColumnChanged(CColumn*, CColumn::NotificationType type) override
    {
        constexpr char const* kNames[] = {"name",       "width",       "alignment",  "description",
                                          "cellformat", "titleformat", "textformat", "cellimage",
                                          "titleimage", "visible",     "editable"};
        Append(kNames[type]);
    }

    /// What was heard since the last call.
    std::string Take() { return std::exchange(m_heard, {}); }

private:
    void Append(std::string const& event) { m_heard += (m_heard.empty() ? "" : " ") + event; }

    std::string m_heard;
};

} // namespace Ostrel::GUI::Testing
