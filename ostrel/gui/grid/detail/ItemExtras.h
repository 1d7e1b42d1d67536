// What few rows have: made on first use, so that the others pay one pointer.
#pragma once

#include <memory>

#include <ostrel/gui/grid/detail/ValueCache.h>

namespace Ostrel::GUI::Detail
{

/// The embedded controls of a row (RowControls.h), of which the row tree knows only that they end with the row.
class RowControlsBase
{
public:
    RowControlsBase() = default;
    RowControlsBase(RowControlsBase const&) = delete;
    RowControlsBase& operator=(RowControlsBase const&) = delete;
    virtual ~RowControlsBase() = default;
};

class ItemExtras
{
public:
    /// Null while the row remembers no values.
    std::unique_ptr<ValueCache> valueCache;
    /// Null while no control lies over a cell of the row.
    std::unique_ptr<RowControlsBase> controls;
};

} // namespace Ostrel::GUI::Detail
