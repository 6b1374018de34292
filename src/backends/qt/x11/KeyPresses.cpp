#include "backends/qt/x11/KeyPresses.h"

#include <QCoreApplication>
#include <algorithm>

#include "backends/qt/x11/X11Connection.h"

namespace tavrix::qt::x11 {
namespace {

constexpr std::size_t MostPresses = 64;

}  // namespace

KeyPresses::KeyPresses() : running_(QtConnection() != nullptr) {
    if (running_) QCoreApplication::instance()->installNativeEventFilter(this);
}

std::optional<bool> KeyPresses::Repeats(std::uint32_t keyCode, std::uint64_t time) const {
    const auto key = keys_.find(keyCode);
    if (key == keys_.end()) return std::nullopt;
    const auto press = std::ranges::find(key->second.presses, time, &Press::time);
    return press != key->second.presses.end() ? std::optional(press->repeats) : std::nullopt;
}

bool KeyPresses::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & 0x7FU) {
        case XCB_KEY_PRESS: {
            const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event);
            Key& key = keys_[press->detail];
            const bool repeats = key.down && (!key.released || key.released == press->time);
            key.down = true;
            key.released.reset();
            key.presses.push_back({press->time, repeats});
            if (key.presses.size() > MostPresses) key.presses.pop_front();
            break;
        }
        case XCB_KEY_RELEASE: {
            const auto* release = reinterpret_cast<const xcb_key_release_event_t*>(event);
            keys_[release->detail].released = release->time;
            break;
        }
        case XCB_FOCUS_IN:
            ForgetReleased();
            break;
        default:
            break;
    }
    return false;
}

/// A release that came while no window of the program had the keyboard was not told.
void KeyPresses::ForgetReleased() {
    const auto held = [](const auto& key) { return key.second.down && !key.second.released; };
    if (std::ranges::none_of(keys_, held)) return;
    const Reply<xcb_query_keymap_reply_t> now(
        xcb_query_keymap_reply(QtConnection(), xcb_query_keymap(QtConnection()), nullptr));
    if (!now) return;
    constexpr std::uint32_t Bits = 8;
    for (auto& [code, key] : keys_)
        key.down = ((now->keys[code / Bits] >> (code % Bits)) & 1) != 0;
}

}  // namespace tavrix::qt::x11
