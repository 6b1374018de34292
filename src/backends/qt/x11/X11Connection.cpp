#include "backends/qt/x11/X11Connection.h"

#include <QGuiApplication>
#include <cstring>

namespace tavrix::qt::x11 {

xcb_connection_t* QtConnection() {
    auto* x11 = qGuiApp != nullptr ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}

const xcb_screen_t& ScreenOf(xcb_connection_t* connection) {
    return *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
}

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

Reply<xcb_get_property_reply_t> PropertyOf(xcb_connection_t* connection, xcb_window_t window,
                                           xcb_atom_t property) {
    constexpr std::uint32_t MostWords = 16384;
    const auto cookie = xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, MostWords);
    return Reply<xcb_get_property_reply_t>(xcb_get_property_reply(connection, cookie, nullptr));
}

std::vector<std::uint32_t> Words(const xcb_get_property_reply_t* reply) {
    if (reply == nullptr || reply->format != 32) return {};
    std::vector<std::uint32_t> words(static_cast<std::size_t>(xcb_get_property_value_length(reply)) / 4);
    if (!words.empty()) {
        std::memcpy(words.data(), xcb_get_property_value(reply), words.size() * sizeof(std::uint32_t));
    }
    return words;
}

}  // namespace tavrix::qt::x11
