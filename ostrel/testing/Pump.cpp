#include <string>

#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/WindowApi.h>
#include <ostrel/testing/DriverError.h>
#include <ostrel/testing/detail/Pump.h>

namespace Ostrel::Testing::Detail
{
namespace
{

/// Ends the handling of a window that asks to be painted again whatever is done for it.
class PaintGuard
{
public:
    /// Call when a window has been painted.
    void CheckPainted(HWND window)
    {
        if (GetUpdateRect(window, nullptr) == FALSE)
        {
            m_paints = 0;
        }
        else if (++m_paints == kMaxPaints)
        {
            char title[64] = "";
            GetWindowText(window, title, sizeof title);
            throw DriverError("a window with the title \"" + std::string(title) +
                              "\" is never painted to the end: its WM_PAINT leaves something to paint");
        }
    }

private:
    static constexpr int kMaxPaints = 10'000;

    int m_paints = 0; ///< since one left nothing to paint
};

} // namespace

std::optional<int> HandleWhatIsThere()
{
    std::optional<int> quitCode;
    PaintGuard guard;
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
            if (message.message == WM_PAINT)
            {
                guard.CheckPainted(message.hwnd);
            }
        }
    }
    return quitCode;
}

} // namespace Ostrel::Testing::Detail
