#include "ItemPool.h"

#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/SlabPool.h>

namespace Ostrel::GUI::Detail
{
namespace
{

/// Never destroyed: rows may outlive every static object.
SlabPool<sizeof(CGridItem)>& ThePool()
{
    static auto* const pool = new SlabPool<sizeof(CGridItem)>();
    return *pool;
}

} // namespace

CGridItem* ItemPool::Create(Common::CDataObject* object)
{
    return new (ThePool().Allocate()) CGridItem(object);
}

void ItemPool::Destroy(CGridItem* item) noexcept
{
    item->~CGridItem();
    ThePool().Free(item);
}

bool ItemPool::IsLive(CGridItem const* item) noexcept
{
    return ThePool().IsLive(item);
}

std::size_t ItemPool::LiveCount() noexcept
{
    return ThePool().LiveCount();
}

} // namespace Ostrel::GUI::Detail
