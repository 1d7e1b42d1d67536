// The controls over the cells of one row. The row owns their adapters: they end with it, wherever it is by then.
#pragma once

#include <memory>
#include <vector>

#include <ostrel/gui/edit/EmbeddedControlAdapter.h>
#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/ItemExtras.h>

namespace Ostrel::GUI::Detail
{

struct ReleaseAdapter
{
    void operator()(CEmbeddedControlAdapter* adapter) const
    {
        if (adapter->AutoDelete())
        {
            delete adapter;
        }
    }
};

class RowControls final : public RowControlsBase
{
public:
    struct Entry
    {
        long fieldId = 0;
        std::unique_ptr<CEmbeddedControlAdapter, ReleaseAdapter> adapter;
        bool isShown = true;        ///< the row is visible
        unsigned placementPass = 0; ///< the last one that found the cell on the screen
    };

    /// Null while the row has none.
    [[nodiscard]] static RowControls* Of(CGridItem const& item) noexcept
    {
        ItemExtras const* const extras = item.Extras();
        return extras != nullptr ? static_cast<RowControls*>(extras->controls.get()) : nullptr;
    }
    [[nodiscard]] static RowControls& Need(CGridItem& item)
    {
        if (Of(item) == nullptr)
        {
            item.NeedExtras().controls = std::make_unique<RowControls>();
        }
        return *Of(item);
    }

    /// Null for a cell without a control. Valid until the next change.
    [[nodiscard]] Entry* Find(long fieldId) noexcept
    {
        for (Entry& entry : m_entries)
        {
            if (entry.fieldId == fieldId)
            {
                return &entry;
            }
        }
        return nullptr;
    }
    void Put(Entry entry)
    {
        Entry* const present = Find(entry.fieldId);
        present != nullptr ? static_cast<void>(*present = std::move(entry)) : m_entries.push_back(std::move(entry));
    }

    // By number, since moving and hiding controls runs code that may add some.
    [[nodiscard]] std::size_t Count() const noexcept { return m_entries.size(); }
    [[nodiscard]] Entry& At(std::size_t number) noexcept { return m_entries[number]; }

private:
    std::vector<Entry> m_entries; ///< few: a row has a handful of columns with controls
};

/// The adapter of a cell; null for none.
[[nodiscard]] inline CEmbeddedControlAdapter* AdapterOf(CGridItem const& item, long fieldId) noexcept
{
    RowControls* const controls = RowControls::Of(item);
    RowControls::Entry const* const entry = controls != nullptr ? controls->Find(fieldId) : nullptr;
    return entry != nullptr ? entry->adapter.get() : nullptr;
}

} // namespace Ostrel::GUI::Detail
