#include <atomic>

#include <ostrel/platform/window/SystemParameters.h>

namespace
{
constexpr UINT kUsualWheelLines = 3;

std::atomic<UINT> g_wheelLines{kUsualWheelLines};
} // namespace

BOOL SystemParametersInfo(UINT action, UINT parameter, void* value, UINT /*flags*/)
{
    if (action == SPI_SETWHEELSCROLLLINES)
    {
        g_wheelLines.store(parameter, std::memory_order_relaxed);
        return TRUE;
    }
    if (action == SPI_GETWHEELSCROLLLINES && value != nullptr)
    {
        *static_cast<UINT*>(value) = g_wheelLines.load(std::memory_order_relaxed);
        return TRUE;
    }
    return FALSE;
}
