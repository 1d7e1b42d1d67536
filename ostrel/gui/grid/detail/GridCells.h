// What a row's cells hold: values and texts, read from the object or, where the notifying threads take snapshots, from
// the row's own copies.
#pragma once

#include <string>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/grid/detail/ValueCache.h>
#include <ostrel/platform/base/String.h>

namespace Ostrel::Common
{
class CFormat;
}

namespace Ostrel::GUI::Detail
{
class GridCore;

class GridCells final : public IRowValues
{
public:
    explicit GridCells(GridCore& core) noexcept : m_core(core) {}

    [[nodiscard]] Common::CValue Value(CGridItem const& item, long fieldId) const;
    /// By the format, else the column's text format, else the field's own.
    [[nodiscard]] std::string StlText(CGridItem const& item, long fieldId, Common::CFormat const* format) const;
    [[nodiscard]] CString MfcText(CGridItem const& item, long fieldId, Common::CFormat const* format) const;

    /// The given format, else the column's text format, else null for the field's own.
    [[nodiscard]] Common::CFormat const* FormatInUse(long fieldId, Common::CFormat const* format) const;

    /// Formats the row's copies again with the columns' text formats: one field, or all for a field below 0.
    void Reformat(CGridItem& item, long fieldId) const;

    // IRowValues
    Common::CValue GetSortValue(CGridItem& item, long fieldId) override;

private:
    [[nodiscard]] Common::CFormat const* FormatOf(long fieldId) const;

    GridCore& m_core;
};
} // namespace Ostrel::GUI::Detail
