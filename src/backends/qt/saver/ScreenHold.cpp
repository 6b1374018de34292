#include "backends/qt/saver/ScreenHold.h"

#include <QApplication>
#include <QPlatformSurfaceEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace tavrix::qt {
namespace {

constexpr int RenewInterval = 250;  ///< milliseconds

bool IsOnScreen(const QWindow& window) {
    return window.handle() != nullptr && window.isVisible() && window.parent() == nullptr;
}

/// The window that keys are for: the modal one, else the active one, else any.
const QWindow* KeyWindow() {
    if (const QWidget* modal = QApplication::activeModalWidget();
        modal != nullptr && modal->windowHandle() != nullptr)
        return modal->windowHandle();
    if (const QWindow* focused = QGuiApplication::focusWindow()) return focused;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto shown =
        std::ranges::find_if(windows, [](const QWindow* window) { return IsOnScreen(*window); });
    return shown != windows.end() ? *shown : nullptr;
}

}  // namespace

ScreenHold::ScreenHold(std::function<void()> unheard)
    : unheard_(std::move(unheard)),
      grab_({.heir =
                 [] {
                     const QWindow* window = KeyWindow();
                     return window != nullptr && IsOnScreen(*window)
                                ? static_cast<std::uint32_t>(window->winId())
                                : 0U;
                 },
             .unheard = [this] { unheard_(); }}),
      watch_([this] {
          onScreenChange();
          Restack();
      }) {
    again_.setInterval(RenewInterval);
    connect(&again_, &QTimer::timeout, this, [this] {
        grab_.Renew();
        Restack();
    });
}

bool ScreenHold::Take(std::chrono::milliseconds within) {
    if (!grab_.Take(within)) return false;
    Begin();
    return true;
}

void ScreenHold::TakeWhenever() {
    // Whoever had them may have ended just now.
    static_cast<void>(grab_.Take(std::chrono::milliseconds(500)));
    Begin();
}

void ScreenHold::Begin() {
    if (std::exchange(begun_, true)) return;
    qApp->installEventFilter(this);
    again_.start();
}

void ScreenHold::SetCover(std::uint32_t window) {
    cover_ = window;
    Restack();
}

bool ScreenHold::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::PlatformSurface) return false;
    auto* window = qobject_cast<QWindow*>(watched);
    const bool made = static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
                      QPlatformSurfaceEvent::SurfaceCreated;
    if (window != nullptr && made && window->parent() == nullptr)
        window->setFlag(Qt::BypassWindowManagerHint);
    return false;
}

std::vector<std::uint32_t> ScreenHold::Windows() const {
    std::vector<std::uint32_t> windows;
    const QWindow* keyWindow = KeyWindow();
    const QWindowList all = QGuiApplication::topLevelWindows();
    for (const QWindow* window : all) {
        if (window != keyWindow && IsOnScreen(*window))
            windows.push_back(static_cast<std::uint32_t>(window->winId()));
    }
    if (keyWindow != nullptr && IsOnScreen(*keyWindow))
        windows.push_back(static_cast<std::uint32_t>(keyWindow->winId()));
    return windows;
}

void ScreenHold::Restack() {
    if (!begun_) return;
    std::vector<std::uint32_t> windows = Windows();
    const std::uint32_t key = windows.empty() ? 0 : windows.back();
    if (cover_ != 0) windows.insert(windows.begin(), cover_);
    x11::PutOnTop(windows);
    if (key != 0 && x11::Focused() != key) x11::FocusOn(key);
}

}  // namespace tavrix::qt
