#pragma once

#include <deque>
#include <optional>

#include "backends/qt/peers/SinkPort.h"

class QEvent;
class QKeyEvent;
class QWidget;

namespace tavrix::qt {

/// Shows each key of a window to its sink before any control, shortcut or mnemonic sees it.
class KeyDoor {
  public:
    KeyDoor(SinkPort& port, const QWidget& window) : port_(port), window_(window) {}

    /// To be asked for every event of the native window; true: the event must go no further.
    bool Filter(QEvent& event);

  private:
    bool Tell(const QKeyEvent& key);
    [[nodiscard]] bool MenusHaveKeys() const;

    SinkPort& port_;
    const QWidget& window_;
    /// A press that was told when shortcuts were looked up, and that comes again as a key.
    struct Told {
        int key;
        unsigned long long time;
        bool handled;
    };
    [[nodiscard]] std::optional<bool> TakeTold(const QKeyEvent& key);

    std::deque<Told> told_;
};

}  // namespace tavrix::qt
