// Turning the message loop by hand.
#pragma once

#include <optional>

namespace Ostrel::Testing::Detail
{

/// Handles everything that is there - messages, input, timers that are due, painting - without waiting and without the
/// thread's idle hook: when the hook is called meanwhile, a handler waits in a loop of its own. The code of a WM_QUIT
/// that was among it, which is taken out. DriverError when a window asks to be painted again for ever.
std::optional<int> HandleWhatIsThere();

} // namespace Ostrel::Testing::Detail
