#include "backends/qt/x11/LatinKeys.h"

#include "backends/qt/x11/X11Connection.h"

namespace tavrix::qt::x11 {
namespace {

/// Symbols of printed ASCII characters are their codes.
bool IsPrinted(std::uint32_t symbol) {
    return symbol > 0x20 && symbol < 0x7F;
}

bool IsLetter(std::uint32_t symbol) {
    return (symbol >= 'a' && symbol <= 'z') || (symbol >= 'A' && symbol <= 'Z');
}

}  // namespace

char LatinOf(std::span<const std::uint32_t> symbols) {
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        // Beyond the plain symbols of two layouts come those with AltGr, where only a letter says something.
        const bool plain = i == 0 || i == 2;
        if (IsLetter(symbols[i]) || (plain && IsPrinted(symbols[i]))) return static_cast<char>(symbols[i]);
    }
    return 0;
}

char LatinOfKey(std::uint32_t keyCode) {
    xcb_connection_t* connection = QtConnection();
    if (connection == nullptr) return 0;
    const xcb_setup_t* setup = xcb_get_setup(connection);
    if (keyCode < setup->min_keycode || keyCode > setup->max_keycode) return 0;
    const Reply<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
        connection, xcb_get_keyboard_mapping(connection, static_cast<xcb_keycode_t>(keyCode), 1), nullptr));
    if (!map) return 0;
    return LatinOf({xcb_get_keyboard_mapping_keysyms(map.get()),
                    static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(map.get()))});
}

}  // namespace tavrix::qt::x11
