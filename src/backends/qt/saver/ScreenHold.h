#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

#include "backends/qt/x11/InputGrab.h"
#include "backends/qt/x11/WindowStack.h"

namespace tavrix::qt {

/// Holds an X screen for the windows of this process: keyboard and pointer are theirs alone, and they are above all others.
/// Windows that the process makes meanwhile are no window manager's, so that none of its keys and rules reaches them. What
/// other programs map above them comes down again at once.
class ScreenHold final : public QObject {
  public:
    /// `unheard`: a key or a button went down while the process shows no window.
    explicit ScreenHold(std::function<void()> unheard = [] {});

    /// Whether keyboard and pointer could be taken within this time. Before that nothing is held.
    [[nodiscard]] bool Take(std::chrono::milliseconds within);
    /// Goes on trying, however long somebody else holds them.
    void TakeWhenever();
    /// The window, maybe another process's, that lies below all of this process's and above all others.
    void SetCover(std::uint32_t window);
    /// The screen has got another size.
    std::function<void()> onScreenChange = [] {};

  private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The windows of the process that are on the screen, the one that gets the keys last.
    [[nodiscard]] std::vector<std::uint32_t> Windows() const;
    void Restack();
    void Begin();

    std::function<void()> unheard_;
    std::uint32_t cover_ = 0;
    bool begun_ = false;
    x11::InputGrab grab_;
    x11::StackWatch watch_;
    QTimer again_;
};

}  // namespace tavrix::qt
