#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "backends/qt/x11/X11Connection.h"
#include "platform/forms/LayoutItem.h"

class QSocketNotifier;

namespace tavrix::qt::x11 {

/// A window of another program, or the root window, that a window of ours is to fill.
class HostWindow {
  public:
    /// The window system must have been started. Where there is no such window, or no X server, it is gone from the
    /// beginning.
    explicit HostWindow(std::uint32_t window);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    [[nodiscard]] std::uint32_t Id() const { return window_; }
    [[nodiscard]] bool Gone() const { return gone_; }
    [[nodiscard]] bool IsRoot() const;
    /// Of the inside, in device pixels.
    [[nodiscard]] forms::PixelSize Size() const { return size_; }

    std::function<void()> onResized = [] {};
    /// The window, or its server, is gone; told once, and not of one that was gone from the beginning.
    std::function<void()> onGone = [] {};

  private:
    void Watch();
    void Read();
    void TakeSize(int width, int height);

    std::uint32_t window_;
    OwnConnection connection_;
    bool gone_ = true;
    forms::PixelSize size_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

/// The window that the desktop's manager shows in the place of the root window, or the root window itself.
[[nodiscard]] std::uint32_t WindowOfRoot();

/// Takes a mark on the display that one client has at a time. True for whoever is first; it is the process's to its end.
[[nodiscard]] bool TakeMark(const char* name);

}  // namespace tavrix::qt::x11
