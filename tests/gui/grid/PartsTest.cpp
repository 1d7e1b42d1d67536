// The replaceable parts that an application brings itself.
#include <ostrel/gui/clipboard/CopyPasteSettings.h>
#include <ostrel/gui/clipboard/ICopyPaste.h>
#include <ostrel/gui/clipboard/PasteTarget.h>
#include <ostrel/platform/window/VirtualKeys.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;
using Settings = CCopyPasteSettings;

/// Writes down what it is asked for.
class Scribe : public ICopyPaste
{
public:
    explicit Scribe(bool* deleted = nullptr) : m_deleted(deleted) {}
    ~Scribe() override
    {
        if (m_deleted != nullptr)
        {
            *m_deleted = true;
        }
    }

    bool AutoDelete() const override { return m_deleted != nullptr; }
    bool Copy(CGrid&) override { return Note("copy"); }
    bool Cut(CGrid&) override { return Note("cut"); }
    bool Paste(CPasteTarget const& target) override
    {
        parent = target.GetPasteParent();
        position = target.GetPastePosition();
        return Note("paste");
    }

    std::string asked;
    CGridItem* parent = nullptr;
    CGridItem* position = nullptr;

private:
    bool Note(char const* what)
    {
        asked += std::string(what) + ";";
        return true;
    }

    bool* m_deleted;
};

using PartsTest = GridTest;

TEST_F(PartsTest, TheKeysReachTheCopyPastePart)
{
    Scribe scribe;
    EXPECT_FALSE(Grid().Copy()) << "there is no part yet";
    EXPECT_EQ(Grid().SetCopyPaste(&scribe), nullptr);
    for (UINT const key : {UINT{'C'}, UINT{'X'}, UINT{'V'}})
    {
        driver.PressKey(key, Modifier::Ctrl);
    }
    EXPECT_EQ(scribe.asked, "copy;cut;paste;");
    EXPECT_EQ(Grid().SetCopyPaste(nullptr), &scribe);
    EXPECT_FALSE(Grid().Cut());
}

TEST_F(PartsTest, PastesWhereTheFocusAndTheSettingsSay)
{
    grid.AddRows({"a", "b"});
    CGridItem* const b = Item("b");
    grid.AddChild("b", {.name = "child"});
    Grid().Expand(b, false);
    CGridItem* const child = Item("child");
    grid.AddFixed({.name = "sum"});
    Scribe scribe;
    Grid().SetCopyPaste(&scribe);
    struct Case
    {
        Settings::PasteType type;
        CGridItem* parent;
        CGridItem* position;
    };
    Grid().SetFocusedRow(2, ScrollableContext);
    for (Case const& wanted :
         {Case{Settings::PasteAsFirstChild, child, FirstPosition},
          Case{Settings::PasteAsLastChild, child, LastPosition}, Case{Settings::PasteAsSibling, b, child},
          Case{Settings::PasteAtTopLevel, ScrollableRoot, child}})
    {
        Grid().GetCopyPasteSettings().SetPasteType(wanted.type);
        EXPECT_TRUE(Grid().Paste());
        EXPECT_EQ(scribe.parent, wanted.parent) << wanted.type;
        EXPECT_EQ(scribe.position, wanted.position) << wanted.type;
    }
    Grid().SetFocusedRow(-1, NoContext);
    EXPECT_TRUE(Grid().Paste());
    EXPECT_EQ(scribe.parent, ScrollableRoot);
    EXPECT_EQ(scribe.position, LastPosition);

    Settings settings;
    settings.EnablePasteToScrollableContext(false);
    settings.EnablePasteWhenNoFocusToEnd(false);
    Grid().SetCopyPasteSettings(settings);
    EXPECT_TRUE(Grid().Paste());
    EXPECT_EQ(scribe.parent, FixedRoot);
    EXPECT_EQ(scribe.position, FirstPosition);
    Grid().SetFocusedRow(0, ScrollableContext);
    EXPECT_FALSE(Grid().Paste()) << "not into this area";
    Grid().SetFocusedRow(0, FixedContext);
    EXPECT_TRUE(Grid().Paste());
    Grid().AllowCopyPaste(false);
    EXPECT_FALSE(Grid().Paste());
    EXPECT_TRUE(Grid().Paste(ScrollableRoot, FirstPosition)) << "a named place is the caller's business";
    Grid().SetCopyPaste(nullptr);
}

TEST_F(PartsTest, APartThatSaysSoDiesWithItsGrid)
{
    bool isDeleted = false;
    {
        CGrid other;
        other.SetCopyPaste(new Scribe(&isDeleted));
        EXPECT_FALSE(isDeleted);
    }
    EXPECT_TRUE(isDeleted);
}
} // namespace
} // namespace Ostrel::Testing
