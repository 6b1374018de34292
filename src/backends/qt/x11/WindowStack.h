#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "backends/qt/x11/X11Connection.h"

class QSocketNotifier;

namespace tavrix::qt::x11 {

/// Tells, a moment later, that windows came, went or changed places on the X server, or that its screen changed its size.
class StackWatch {
  public:
    explicit StackWatch(std::function<void()> changed);
    ~StackWatch();
    StackWatch(const StackWatch&) = delete;
    StackWatch& operator=(const StackWatch&) = delete;

  private:
    void Drain();

    OwnConnection connection_;
    std::unique_ptr<QSocketNotifier> notifier_;
    QTimer soon_;
};

/// Puts unmanaged windows above all others, the last one uppermost. Where they are so already nothing is changed.
void PutOnTop(std::span<const std::uint32_t> windows);

/// Gives the keyboard to a window that is mapped.
void FocusOn(std::uint32_t window);
/// The window that has the keyboard.
[[nodiscard]] std::uint32_t Focused();

/// A black window that no window manager manages, over the whole of the X server's screen, with all of its displays.
class BlackCover {
  public:
    /// On the screen when this returns.
    BlackCover();
    ~BlackCover();
    BlackCover(const BlackCover&) = delete;
    BlackCover& operator=(const BlackCover&) = delete;

    [[nodiscard]] std::uint32_t Window() const { return window_; }
    /// Takes the size that the screen has now.
    void Fit() const;

  private:
    std::uint32_t window_ = 0;
};

}  // namespace tavrix::qt::x11
