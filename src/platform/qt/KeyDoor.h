#pragma once

#include "platform/qt/SinkPort.h"

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
    // The press that was told when shortcuts were looked up, and comes again as a key.
    bool told_ = false;
    int toldKey_ = 0;
    unsigned long long toldTime_ = 0;
    bool toldHandled_ = false;
};

}  // namespace tavrix::qt
