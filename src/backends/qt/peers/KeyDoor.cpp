#include "backends/qt/peers/KeyDoor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWidget>
#include <algorithm>

#include "backends/qt/peers/InputMap.h"

namespace tavrix::qt {
namespace {

constexpr std::size_t MostTold = 32;

}  // namespace

bool KeyDoor::MenusHaveKeys() const {
    return QApplication::activePopupWidget() != nullptr ||
           qobject_cast<QMenuBar*>(window_.focusWidget()) != nullptr;
}

bool KeyDoor::Tell(const QKeyEvent& key) {
    bool handled = false;
    port_.Deliver(
        forms::KeyEvent{key.type() != QEvent::KeyRelease, VirtualKeyCode(key), ShiftMaskOf(key), &handled});
    return handled;
}

/// Whether the press was told and handled already; nothing when it was not told. With a screen reader the toolkit holds
/// a press back and sends a copy without its time, perhaps after the next press has been looked up.
std::optional<bool> KeyDoor::TakeTold(const QKeyEvent& key) {
    const auto found = std::ranges::find_if(told_, [&](const Told& told) {
        return told.key == key.key() && (key.timestamp() == 0 || told.time == key.timestamp());
    });
    if (found == told_.end()) return std::nullopt;
    const bool handled = found->handled;
    // Presses come in order: those before it were shortcuts, and come no more.
    told_.erase(told_.begin(), found + 1);
    return handled;
}

bool KeyDoor::Filter(QEvent& event) {
    switch (event.type()) {
        case QEvent::ShortcutOverride: {
            if (MenusHaveKeys()) return false;
            const auto& key = static_cast<const QKeyEvent&>(event);
            const Told told{key.key(), key.timestamp(), Tell(key)};
            const bool handled = told.handled;
            told_.push_back(told);
            if (told_.size() > MostTold) told_.pop_front();
            if (handled) event.accept();  // and so no shortcut is looked up
            return handled;
        }
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            if (const auto handled = TakeTold(key)) return *handled;
            return !MenusHaveKeys() && Tell(key);
        }
        case QEvent::KeyRelease: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            return !key.isAutoRepeat() && !MenusHaveKeys() && Tell(key);
        }
        default:
            return false;
    }
}

}  // namespace tavrix::qt
