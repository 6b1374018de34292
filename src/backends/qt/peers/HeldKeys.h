#pragma once

#include <QObject>
#include <QPointer>
#include <map>

#include "backends/qt/x11/KeyPresses.h"

class QKeyEvent;

namespace tavrix::qt {

/// Keeps the repeated presses of a held key from every window but the one in which the press began: a key that ends a
/// dialog or a menu does not also end what appears below it. Menus and drop-down lists are one place, whichever is open.
/// Likewise a press that a screen reader has held up until a menu was open.
class HeldKeys final : public QObject {
  public:
    HeldKeys();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Place {
        bool menus = false;
        QPointer<QObject> window;  ///< unless the menus have the keys; null once it is gone
        [[nodiscard]] bool Is(const Place& other) const {
            return menus == other.menus && (menus || (window != nullptr && window == other.window));
        }
    };
    struct Key {
        Place began;           ///< where it went down
        quint64 time = 0;      ///< of its last press
        bool inMenus = false;  ///< where that was seen first
        bool kept = false;     ///< whether that press was kept from its window
    };

    [[nodiscard]] static Place PlaceOf(QObject& window);
    [[nodiscard]] bool Keeps(const QKeyEvent& press, QObject& window);

    x11::KeyPresses presses_;
    std::map<quint64, Key> keys_;
};

}  // namespace tavrix::qt
