// One connection to an X server: its screen, the atoms we speak, the extensions it has. Knows no windows of ours.
#pragma once

#include <array>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace Ostrel::Platform::X11
{

struct FreeReply
{
    void operator()(void* reply) const noexcept { std::free(reply); } // NOLINT: xcb allocates with malloc
};
/// What xcb hands out, freed at the end of the scope.
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

enum class Atom
{
    WmProtocols,
    WmDeleteWindow,
    WmTakeFocus,
    WmState,
    NetSupported,
    NetSupportingWmCheck,
    NetActiveWindow,
    NetWmName,
    NetWmPing,
    NetWmPid,
    NetWmState,
    NetWmStateMaximizedHorz,
    NetWmStateMaximizedVert,
    NetWmStateAbove,
    NetWmStateSkipTaskbar,
    NetWmWindowType,
    NetWmWindowTypeNormal,
    NetWmWindowTypeUtility,
    NetWmWindowTypePopupMenu,
    NetWorkarea,
    WmChangeState,
    MotifWmHints,
    Utf8String,
    TextPlainUtf8,
    Clipboard,
    Targets,
    Timestamp,
    OstrelTransfer,
    Count
};

class Connection
{
public:
    /// Null, with the reason, when no server answers or its pixels are not ours (24 bits deep, red on top).
    static std::unique_ptr<Connection> Open(std::string& whyNot);
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;
    ~Connection();

    [[nodiscard]] xcb_connection_t* Get() const noexcept { return m_connection; }
    [[nodiscard]] xcb_screen_t const& Screen() const noexcept { return *m_screen; }
    [[nodiscard]] xcb_window_t Root() const noexcept { return m_screen->root; }
    [[nodiscard]] int ScreenNumber() const noexcept { return m_screenNumber; }
    [[nodiscard]] xcb_atom_t operator[](Atom atom) const noexcept { return m_atoms[static_cast<std::size_t>(atom)]; }
    [[nodiscard]] xcb_atom_t Intern(std::string const& name) const;
    [[nodiscard]] bool IsAlive() const noexcept { return xcb_connection_has_error(m_connection) == 0; }

    /// True when the server takes segments by file descriptor; then the number of its completion event.
    [[nodiscard]] bool HasSharedMemory() const noexcept { return m_hasSharedMemory; }
    void GiveUpSharedMemory() noexcept { m_hasSharedMemory = false; }
    [[nodiscard]] std::uint8_t CompletionEvent() const noexcept { return m_completionEvent; }

    /// True while a window manager runs: it, not we, gives focus and places windows.
    [[nodiscard]] bool HasWindowManager() const;
    /// A property's 32-bit values or bytes; empty when there is none.
    [[nodiscard]] std::vector<std::uint32_t> Words(xcb_window_t window, xcb_atom_t property) const;
    [[nodiscard]] std::string Text(xcb_window_t window, xcb_atom_t property) const;
    /// The number behind "Xft.dpi:" in the resource database, 96 when it is not set.
    [[nodiscard]] double DotsPerInch() const;

private:
    Connection(xcb_connection_t* connection, int screenNumber);
    void InternAtoms();
    void LookForSharedMemory();

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    int m_screenNumber;
    std::array<xcb_atom_t, static_cast<std::size_t>(Atom::Count)> m_atoms{};
    bool m_hasSharedMemory = false;
    std::uint8_t m_completionEvent = 0;
};

} // namespace Ostrel::Platform::X11
