#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/testing/detail/Pump.h>

namespace Ostrel::Testing::Detail
{

std::optional<int> HandleWhatIsThere()
{
    std::optional<int> quitCode;
    MSG message;
    while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE))
    {
        if (message.message == WM_QUIT)
        {
            quitCode = static_cast<int>(message.wParam);
        }
        else if (!Platform::PreTranslate(message))
        {
            TranslateMessage(&message);
            DispatchMessage(&message);
        }
    }
    return quitCode;
}

} // namespace Ostrel::Testing::Detail
