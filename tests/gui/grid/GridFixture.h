// A grid in a window on a screen in memory, with rows made from short texts.
#pragma once

#include <functional>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/IGridFilter.h>
#include <ostrel/gui/header/SortInfo.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/testing/GridWindow.h>
#include <ostrel/testing/Workers.h>

namespace Ostrel::Testing
{
/// Hides the rows of the objects that a function chooses.
class HideIf : public GUI::IGridFilter
{
public:
    explicit HideIf(std::function<bool(TestObject&)> isHidden) : m_isHidden(std::move(isHidden)) {}

    bool AutoDelete() const override { return false; }
    bool IsFiltered(GUI::CGrid* /*grid*/, GUI::CGridItem* /*item*/, Common::CDataObject* object) override
    {
        return m_isHidden(static_cast<TestObject&>(*object));
    }

private:
    std::function<bool(TestObject&)> m_isHidden;
};

class GridTest : public testing::Test
{
protected:
    static constexpr long kPrice = TestObject::Price;
    static constexpr long kQuantity = TestObject::Quantity;

    GUI::CGrid& Grid() { return grid.Grid(); }

    void SortByPrice(bool descending = false) { Grid().SetSort(0, GUI::CSortInfo(kPrice, descending), true); }

    /// What the parent was told since the last call.
    std::string Told()
    {
        std::string text = grid.Notifications().Text();
        grid.Notifications().Clear();
        return text;
    }

    GUI::CGridItem* Item(std::string_view name) { return grid.Item(name); }

    Driver driver;
    GridWindow grid{driver};
};
} // namespace Ostrel::Testing
