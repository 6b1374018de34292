#pragma once

#include <optional>

#include "backends/linux/LateLibrary.h"
#include "backends/qt/idle/IdleStarter.h"

struct _XDisplay;

namespace tavrix::idle {

/// The time since the last input as an X server knows it, by libXss, which is loaded here. A server that goes ends the
/// process: its session is over.
class XIdleTime {
  public:
    /// On the server that DISPLAY names.
    XIdleTime();
    ~XIdleTime();
    XIdleTime(const XIdleTime&) = delete;
    XIdleTime& operator=(const XIdleTime&) = delete;

    /// Whether there is a server that tells it.
    [[nodiscard]] bool Works() const { return display_ != nullptr; }
    [[nodiscard]] std::optional<Milliseconds> IdleTime() const;

    /// Becomes readable when the server has something to say, or is gone; -1 without one.
    [[nodiscard]] int Descriptor() const;
    /// Reads what it says.
    void Read() const;

  private:
    struct Functions;

    void Open();

    LateLibrary x11_{"libX11.so.6"};
    LateLibrary xss_{"libXss.so.1"};
    _XDisplay* display_ = nullptr;
};

/// Whether a saver of the display itself runs on the X server that DISPLAY names, as XScreenSaver marks its window.
[[nodiscard]] bool GuardedByXScreenSaver();

}  // namespace tavrix::idle
