#pragma once

#include <QMenuBar>
#include <QWidget>
#include <functional>

#include "backends/qt/peers/KeyDoor.h"
#include "backends/qt/peers/MouseRelay.h"
#include "backends/qt/peers/SinkPort.h"
#include "platform/forms/Peers.h"

namespace tavrix::qt {

/// The background of a window, in which its controls lie.
class ContentWidget final : public QWidget {
  public:
    ContentWidget(QWidget& parent, SinkPort& port);

  protected:
    void mousePressEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { mouse_.Move(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { mouse_.Release(*event, *this); }

  private:
    MouseRelay mouse_;
};

/// A top-level widget: a menu bar, placed by hand, and the content below it.
class WindowWidget final : public QWidget {
  public:
    WindowWidget(const SinkPort& port, const forms::WindowTraits& traits, int menuBarHeight);

    void Detach();
    /// Watches the native window, once there is one.
    void WatchNative();

    [[nodiscard]] ContentWidget& Content() { return *content_; }
    /// Null for a window without one.
    [[nodiscard]] QMenuBar* MenuBar() { return menuBar_; }
    [[nodiscard]] const SinkPort& Port() const { return port_; }

    /// It waits to be mapped, and perhaps never is. What stands in it is measured when it is, since that loads fonts.
    bool measuredLater = false;

    /// The window system told a new place, size or state.
    std::function<void()> onPlaced;
    /// A window of the program has come to the screen.
    std::function<void(const QWidget& mapped)> onMapped;
    /// The window was painted.
    std::function<void()> onPainted;
    /// The first key was pressed, which may be the letter of a menu.
    std::function<void()> onKey;

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    bool TurnWheel(const QWheelEvent& wheel);
    void OpenMenuBar();

    SinkPort port_;
    KeyDoor keys_{port_, *this};
    int menuBarHeight_ = 0;
    QMenuBar* menuBar_ = nullptr;
    ContentWidget* content_;
};

}  // namespace tavrix::qt
