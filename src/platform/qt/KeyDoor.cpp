#include "platform/qt/KeyDoor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWidget>
#include <utility>

#include "platform/qt/InputMap.h"

namespace tavrix::qt {

bool KeyDoor::MenusHaveKeys() const {
    return QApplication::activePopupWidget() != nullptr ||
           qobject_cast<QMenuBar*>(window_.focusWidget()) != nullptr;
}

bool KeyDoor::Tell(const QKeyEvent& key) {
    const int code = VirtualKeyCode(key);
    if (code == 0) return false;
    bool handled = false;
    port_.Deliver(forms::KeyEvent{key.type() != QEvent::KeyRelease, code, ShiftMaskOf(key), &handled});
    return handled;
}

bool KeyDoor::Filter(QEvent& event) {
    switch (event.type()) {
        case QEvent::ShortcutOverride: {
            if (MenusHaveKeys()) return false;
            const auto& key = static_cast<const QKeyEvent&>(event);
            const int pressed = key.key();
            const auto time = key.timestamp();
            const bool handled = Tell(key);
            told_ = true;
            toldKey_ = pressed;
            toldTime_ = time;
            toldHandled_ = handled;
            if (handled) event.accept();  // and so no shortcut is looked up
            return handled;
        }
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            if (std::exchange(told_, false) && toldKey_ == key.key() && toldTime_ == key.timestamp()) {
                return toldHandled_;
            }
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
