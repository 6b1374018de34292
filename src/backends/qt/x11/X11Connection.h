#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace tavrix::qt::x11 {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
/// What the server answered.
template <class T>
using Reply = std::unique_ptr<T, Free>;

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
/// A connection besides that of the windows.
using OwnConnection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// The connection that the windows of the process are shown by; null on other window systems.
[[nodiscard]] xcb_connection_t* QtConnection();

[[nodiscard]] const xcb_screen_t& ScreenOf(xcb_connection_t* connection);
[[nodiscard]] inline xcb_window_t RootOf(xcb_connection_t* connection) {
    return ScreenOf(connection).root;
}

[[nodiscard]] xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name);

[[nodiscard]] Reply<xcb_get_property_reply_t> PropertyOf(xcb_connection_t* connection, xcb_window_t window,
                                                         xcb_atom_t property);
/// The numbers that a property holds; none for a property of another kind.
[[nodiscard]] std::vector<std::uint32_t> Words(const xcb_get_property_reply_t* reply);

}  // namespace tavrix::qt::x11
