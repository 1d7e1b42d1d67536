#include "GridItem.h"

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/detail/ItemExtras.h>

namespace Ostrel::GUI
{

namespace Detail
{
void ItemExtrasDeleter::operator()(ItemExtras* extras) const noexcept
{
    delete extras;
}

void SortValuesDeleter::operator()(Common::CValue* values) const noexcept
{
    delete[] values;
}
} // namespace Detail

Detail::ItemExtras& CGridItem::NeedExtras()
{
    if (!m_extras)
    {
        m_extras.reset(new Detail::ItemExtras());
    }
    return *m_extras;
}

} // namespace Ostrel::GUI
