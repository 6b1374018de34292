#include "backends/qt/peers/QtWindow.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "backends/qt/Displays.h"
#include "backends/qt/peers/Colours.h"
#include "backends/qt/peers/Owner.h"
#include "backends/qt/peers/PrepareToPaint.h"
#include "backends/qt/peers/QtMenuItem.h"
#include "backends/qt/x11/HostWindow.h"
#include "backends/qt/x11/X11.h"

namespace tavrix::qt {

using forms::WindowState;

namespace {

/// The logical pixels that a window needs beyond those that hold its device pixels. Where a logical pixel is no whole
/// number of them, Qt rounds once on the way to the window system and once on the way back, and may take one.
int SpareLogical(double ratio) {
    return ratio == std::floor(ratio) ? 0 : 1;
}

/// Whether a window that was asked for has been given; a spare pixel more or less does not count.
bool IsGranted(const QSize& given, const QSize& asked, double ratio) {
    const QSize difference = given - asked;
    const int spare = SpareLogical(ratio);
    return std::abs(difference.width()) <= spare && std::abs(difference.height()) <= spare;
}

}  // namespace

QtWindow::QtWindow(const SinkPort& port, const forms::WindowTraits& traits, const Metrics& metrics,
                   ScreenPointer& pointer, x11::HostWindow* host)
    : QtControl(new WindowWidget(port, traits, traits.menuBar ? metrics.MenuBarLogical() : 0)),
      metrics_(metrics),
      pointer_(pointer),
      host_(host),
      waitWindow_(traits.waitWindow),
      resizable_(traits.resizable),
      fullScreen_(traits.fullScreen) {
    Get().measuredLater = waitWindow_;
    Get().onPlaced = [this] { ScheduleReport(true); };
    Get().onMapped = [this](const QWidget& mapped) {
        if (waitsForOwner_ && owner_ == &mapped) Map();
    };
    Get().onPainted = [this] {
        if (!std::exchange(painted_, true)) {
            QMetaObject::invokeMethod(
                &mapTimer_, [this] { AfterPaint(); }, Qt::QueuedConnection);
        }
    };
    Get().onKey = [this] { MakeMenus(); };
    if (traits.minimumWidth > 0 || traits.minimumHeight > 0) {
        const double ratio = DeviceRatio();
        const auto devicePixels = [ratio](float twips) {
            return static_cast<int>(std::lround(twips / 15 * ratio));
        };
        const PixelRect smallest{0, 0, devicePixels(traits.minimumWidth), devicePixels(traits.minimumHeight)};
        least_ = PlaceOf(smallest).client;
        Get().setMinimumSize(least_);
    }
    mapTimer_.setSingleShot(true);
    mapTimer_.setInterval(150);
    QObject::connect(&mapTimer_, &QTimer::timeout, &mapTimer_, [this] { Map(); });
}

QtWindow::~QtWindow() {
    if (hostHandle_) {
        host_->onResized = [] {};
        Get().windowHandle()->setParent(nullptr);  // or it would go with its parent
    }
    if (toldHiding_) pointer_.WindowHides(false);
}

void QtWindow::SetTitle(const std::string& title) {
    // Qt takes one such mark for its own.
    Get().setWindowTitle(
        QString::fromStdString(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
    if (titleLock_) HoldTitle();
}

void QtWindow::HoldTitle() {
    titleLock_.reset();
    titleLock_.emplace(Get().windowTitle().toStdString());
}

QtWindow::Place QtWindow::PlaceOf(const PixelRect& outer) const {
    const double ratio = DeviceRatio();
    const int spare = SpareLogical(ratio);
    return {QPoint(RoundToLogical(outer.left, ratio), RoundToLogical(outer.top, ratio)),
            QSize(std::max(CeilToLogical(outer.width - FrameWidth(), ratio) + spare, 1),
                  std::max(CeilToLogical(outer.height - FrameHeight(), ratio) + spare, 1))};
}

void QtWindow::SetPlacement(const PixelRect& outer, WindowState state) {
    WindowWidget& window = Get();
    const WindowState before = std::exchange(state_, state);
    const std::optional<Place> old = outer_ ? std::optional(PlaceOf(*outer_)) : std::nullopt;
    outer_ = outer;
    if (fullScreen_) return;
    const Place place = PlaceOf(outer);
    const bool toBeFramed = old && window.isVisible() && x11::Running() && !IsFramedAt(old->corner);
    if (state == WindowState::Normal || !window.isVisible()) {
        if (before != WindowState::Normal) window.setWindowState(Qt::WindowNoState);
        const bool known = std::exchange(placed_, true) && old;
        if (!known || place.corner != old->corner) window.move(place.corner);
        Size(place.client);
        // As long as Qt knows no frame it takes the corner for that of the inside, and the window would go up and left
        // by its frame.
        if (toBeFramed) window.windowHandle()->setFramePosition(place.corner);
    }
    if (state == WindowState::Maximized) window.setWindowState(Qt::WindowMaximized);
    if (state == WindowState::Minimized) window.setWindowState(Qt::WindowMinimized);
    if (!window.isVisible()) return;
    asked_ = true;
    // Without a change the window system has nothing to say, but forms wait for the answer.
    if (old && *old == place && before == state) ScheduleReport(true);
}

bool QtWindow::IsFramedAt(const QPoint& corner) const {
    const QWindow& handle = *Get().windowHandle();
    return !handle.frameMargins().isNull() && handle.framePosition() == corner;
}

void QtWindow::Size(const QSize& client) {
    resizable_ ? Get().resize(client) : Get().setFixedSize(client);
}

void QtWindow::SetInnerSize(const forms::PixelSize& size, const forms::PixelSize& least) {
    const auto outerOf = [this](const forms::PixelSize& inner) {
        const int menuBar = Get().MenuBar() != nullptr ? metrics_.Of(forms::SystemMetric::MenuBarHeight) : 0;
        return PixelRect{0, 0, inner.width + FrameWidth(), inner.height + FrameHeight() + menuBar};
    };
    PixelRect outer = outerOf(size);
    if (outer_) {
        outer.left = outer_->left;
        outer.top = outer_->top;
    }
    const std::optional<Place> old = outer_ ? std::optional(PlaceOf(*outer_)) : std::nullopt;
    outer_ = outer;
    const QSize client = PlaceOf(outer).client;
    if (resizable_) Get().setMinimumSize(PlaceOf(outerOf(least)).client.expandedTo(least_));
    if (old && old->client == client) return;
    Size(client);
    asked_ = Get().isVisible();
}

void QtWindow::SetOwner(forms::WindowPeer* owner) {
    owner_ = owner != nullptr ? NativeOf(*owner).Native() : nullptr;
}

void QtWindow::Show(bool modal) {
    WindowWidget& window = Get();
    window.setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    if (waitWindow_ && !modal) {
        mapTimer_.start();
    } else {
        Map();
    }
}

void QtWindow::SetVisible(bool visible) {
    visible ? Show(false) : Hide();
}

void QtWindow::Map() {
    if (host_ != nullptr) {
        MapInHost();
        return;
    }
    WindowWidget& window = Get();
    if (waitWindow_ && QApplication::activeModalWidget() != nullptr) {
        mapTimer_.start();  // it would cover the box that somebody is reading
        return;
    }
    if (owner_ != nullptr && !owner_->isVisible()) {
        waitsForOwner_ = true;
        return;
    }
    const bool comesWithOwner = std::exchange(waitsForOwner_, false);
    if (std::exchange(window.measuredLater, false)) window.Port().Deliver(forms::FontEvent{});
    if (window.testAttribute(Qt::WA_WState_Created)) {
        window.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost_);
    } else {
        window.setWindowFlag(Qt::WindowStaysOnTopHint, topmost_);
        window.winId();
    }
    window.WatchNative();
    const bool modal = window.windowModality() != Qt::NonModal;
    QWidget* owner = owner_;
    if (owner == nullptr) owner = modal ? OwnerOfModal(window) : QApplication::activeModalWidget();
    if (owner != nullptr) owner->winId();
    qt::SetOwner(window, owner);
    if (fullScreen_) CoverDisplay();
    if (std::exchange(mappedBefore_, true)) PlaceAgain();
    if (comesWithOwner) x11::LeaveKeyboard(static_cast<std::uint32_t>(window.winId()));
    window.show();
    TellPointer();
    if (!waitWindow_ && !comesWithOwner) {
        window.raise();
        window.activateWindow();
    }
    MapWhatWaitsForIt();
    if (x11::Running()) PrepareToPaint(window);
    if (!x11::Running()) HoldTitle();
}

/// A hidden window has no frame. Qt would take the corner of its former frame for that of the inside, and the window would
/// come back up and left by its frame.
void QtWindow::PlaceAgain() {
    if (!x11::Running() || !outer_ || fullScreen_ || state_ != WindowState::Normal) return;
    WindowWidget& window = Get();
    const QPoint corner = PlaceOf(*outer_).corner;
    window.setGeometry(QRect(corner, window.size()));
    window.windowHandle()->resize(window.size());
    window.windowHandle()->setFramePosition(corner);
}

/// Windows that were shown before their owner. The window manager reads whom a window belongs to when it meets it, and
/// by then has to know that one.
void QtWindow::MapWhatWaitsForIt() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* widget : windows) {
        if (const auto* window = dynamic_cast<WindowWidget*>(widget); window != nullptr && window->onMapped) {
            window->onMapped(Get());
        }
    }
}

void QtWindow::CoverDisplay() {
    WindowWidget& window = Get();
    if (QScreen* display = DisplayAt(*outer_)) {
        window.setScreen(display);
        window.setGeometry(display->geometry());
    }
    window.setWindowState(Qt::WindowFullScreen);
}

/// Input goes past it to the window that it fills, and so does the keyboard.
void QtWindow::MapInHost() {
    WindowWidget& window = Get();
    if (!hostHandle_) {
        window.setWindowFlags(window.windowFlags() | Qt::WindowTransparentForInput |
                              Qt::WindowDoesNotAcceptFocus | Qt::X11BypassWindowManagerHint);
        window.setAttribute(Qt::WA_ShowWithoutActivating);
        window.winId();
        hostHandle_.reset(QWindow::fromWinId(host_->Id()));
        window.windowHandle()->setParent(hostHandle_.get());
        window.WatchNative();
        host_->onResized = [this] { FillHost(); };
    }
    FillHost();
    window.show();
    if (host_->IsRoot()) window.lower();  // what stands on a desktop stays in sight
}

void QtWindow::FillHost() {
    const double ratio = DeviceRatio();
    const forms::PixelSize size = host_->Size();
    Get().setGeometry(0, 0, CeilToLogical(size.width, ratio), CeilToLogical(size.height, ratio));
}

void QtWindow::SetPointer(forms::MousePointer pointer) {
    QtControl::SetPointer(pointer);
    hidesPointer_ = pointer == forms::MousePointer::Hidden;
    TellPointer();
}

void QtWindow::TellPointer() {
    const bool hiding = hidesPointer_ && Get().isVisible();
    if (std::exchange(toldHiding_, hiding) != hiding) pointer_.WindowHides(hiding);
}

void QtWindow::Hide() {
    mapTimer_.stop();
    waitsForOwner_ = false;
    titleLock_.reset();
    asked_ = false;
    WindowWidget& window = Get();
    const bool modal = window.isVisible() && window.windowModality() != Qt::NonModal;
    QWindow* owner = modal ? window.windowHandle()->transientParent() : nullptr;
    window.hide();
    TellPointer();
    // Where a box over this window has just gone too, the window manager may leave the keyboard with nobody.
    if (owner != nullptr && owner->isVisible()) owner->requestActivate();
}

void QtWindow::SetTopmost(bool topmost) {
    if (topmost_ == topmost) return;
    topmost_ = topmost;
    WindowWidget& window = Get();
    if (!window.isVisible() || host_ != nullptr) return;  // the next mapping takes it along
    if (x11::Running()) {
        x11::SetAbove(static_cast<std::uint32_t>(window.winId()), topmost);
    } else {
        window.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
    }
}

void QtWindow::SetBackColor(Colour colour) {
    QWidget& content = Get().Content();
    QPalette palette;  // what is not set in it follows the theme
    if (colour != ButtonFace) palette.setColor(QPalette::Window, ToQColor(colour, palette));
    content.setPalette(palette);
    content.setAutoFillBackground(true);
}

void QtWindow::ScheduleReport(bool answered) {
    answered_ = answered_ || answered;
    if (std::exchange(reportComing_, true)) return;
    QMetaObject::invokeMethod(
        &mapTimer_, [this] { Report(); }, Qt::QueuedConnection);
}

void QtWindow::Report() {
    reportComing_ = false;
    const bool confirm = std::exchange(answered_, false) && std::exchange(asked_, false);
    WindowWidget& window = Get();
    if (!window.isVisible() || window.windowHandle() == nullptr) return;

    const Qt::WindowStates states = window.windowState();
    const WindowState state = states.testFlag(Qt::WindowMinimized)   ? WindowState::Minimized
                              : states.testFlag(Qt::WindowMaximized) ? WindowState::Maximized
                                                                     : WindowState::Normal;
    const double ratio = DeviceRatio();
    const QPoint corner = window.windowHandle()->framePosition();
    const QSize client = window.size();
    PixelRect now{ToDevice(corner.x(), ratio), ToDevice(corner.y(), ratio),
                  ToDevice(client.width(), ratio) + FrameWidth(),
                  ToDevice(client.height(), ratio) + FrameHeight()};
    if (outer_) {
        // What was asked for and granted comes back to the pixel, whatever the scale.
        const Place known = PlaceOf(*outer_);
        if (IsGranted(client, known.client, ratio) || state == WindowState::Minimized) {
            now.width = outer_->width;
            now.height = outer_->height;
        }
        if (known.corner == corner || state == WindowState::Minimized) {
            now.left = outer_->left;
            now.top = outer_->top;
        }
    }
    const bool news = !outer_ || *outer_ != now || state_ != state;
    outer_ = now;
    placed_ = true;
    state_ = state;
    if (news || confirm) Get().Port().Deliver(forms::PlacementEvent{now, state});
}

void QtWindow::MakeMenus() {
    menusMade_ = true;
    for (QtMenuItem* menu : barMenus_)
        menu->Fill();
}

void QtWindow::AfterPaint() {
    pointer_.WindowsAreUp();
    MakeMenus();
    if (Get().MenuBar() != nullptr) metrics_.CheckNote();
}

}  // namespace tavrix::qt
