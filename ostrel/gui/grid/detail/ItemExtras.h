// What few rows have: made on first use, so that the others pay one pointer.
#pragma once

#include <memory>

#include <ostrel/gui/grid/detail/ValueCache.h>

namespace Ostrel::GUI::Detail
{

class ItemExtras
{
public:
    /// Null while the row remembers no values.
    std::unique_ptr<ValueCache> valueCache;
};

} // namespace Ostrel::GUI::Detail
