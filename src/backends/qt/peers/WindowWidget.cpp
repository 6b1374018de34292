#include "backends/qt/peers/WindowWidget.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "backends/qt/peers/QtButton.h"
#include "backends/qt/peers/QtScrollBar.h"

namespace tavrix::qt {

namespace {

Qt::WindowFlags FlagsOf(const forms::WindowTraits& traits) {
    if (traits.fullScreen) return Qt::Window | Qt::FramelessWindowHint;
    if (traits.resizable) return Qt::Window;
    return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
           Qt::WindowCloseButtonHint;
}

/// The first usable control of a kind that fits.
template <class Widget, class Fits>
Widget* FindUsable(QWidget& window, Fits fits) {
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        auto* candidate = dynamic_cast<Widget*>(widget);
        if (candidate != nullptr && candidate->isVisible() && candidate->isEnabled() && fits(*candidate)) {
            return candidate;
        }
    }
    return nullptr;
}

/// Whether the wheel over a part of the window is for a control there, and not for the window's scroll bars.
bool ScrollsByItself(const QWidget* part) {
    for (; part != nullptr && !part->isWindow(); part = part->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(part) != nullptr ||
            qobject_cast<const QComboBox*>(part) != nullptr ||
            qobject_cast<const QLineEdit*>(part) != nullptr) {
            return true;
        }
    }
    return false;
}

}  // namespace

ContentWidget::ContentWidget(QWidget& parent, SinkPort& port) : QWidget(&parent), mouse_(port) {
    setAttribute(Qt::WA_NoMousePropagation);
    setMouseTracking(true);
}

WindowWidget::WindowWidget(const SinkPort& port, const forms::WindowTraits& traits, int menuBarHeight)
    : QWidget(nullptr, FlagsOf(traits)),
      port_(port),
      menuBarHeight_(menuBarHeight),
      content_(new ContentWidget(*this, port_)) {
    const QString name = QString::fromStdString(traits.name);
    setObjectName(name);
    setWindowRole(name);
    if (traits.waitWindow) setAttribute(Qt::WA_ShowWithoutActivating);
    if (!traits.menuBar) return;
    menuBar_ = new QMenuBar(this);
    menuBar_->setNativeMenuBar(false);
}

void WindowWidget::Detach() {
    port_.Detach();
    onPlaced = nullptr;
    onMapped = nullptr;
    onPainted = nullptr;
    onKey = nullptr;
}

void WindowWidget::WatchNative() {
    windowHandle()->removeEventFilter(this);
    windowHandle()->installEventFilter(this);
}

bool WindowWidget::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::StyleChange) {
        // The controls hear of it after their window.
        QMetaObject::invokeMethod(
            this, [this] { port_.Deliver(forms::FontEvent{}); }, Qt::QueuedConnection);
    }
    if (event->type() == QEvent::ShortcutOverride) {
        if (const auto first = std::exchange(onKey, nullptr)) first();
    }
    if (event->type() == QEvent::WindowActivate) {
        const bool done = QWidget::event(event);
        port_.Deliver(forms::ActivateEvent{});
        return done;
    }
    return QWidget::event(event);
}

bool WindowWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched != windowHandle()) return QWidget::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::WindowStateChange:
            if (onPlaced) onPlaced();
            return false;
        case QEvent::Wheel:
            return TurnWheel(static_cast<const QWheelEvent&>(*event));
        default:
            return keys_.Filter(*event);
    }
}

bool WindowWidget::TurnWheel(const QWheelEvent& wheel) {
    if (QApplication::activePopupWidget() != nullptr) return false;
    if (ScrollsByItself(childAt(wheel.position().toPoint()))) return false;
    constexpr double Notch = 120;
    QPoint turn = wheel.angleDelta();
    if (wheel.modifiers().testFlag(Qt::ShiftModifier) && turn.x() == 0) turn = turn.transposed();
    bool turned = false;
    for (const auto& [orientation, amount] :
         {std::pair(Qt::Vertical, turn.y()), {Qt::Horizontal, turn.x()}}) {
        if (amount == 0) continue;
        auto* bar = FindUsable<ScrollBarWidget>(
            *this, [orientation = orientation](auto& found) { return found.orientation() == orientation; });
        if (bar == nullptr) continue;
        bar->Turn(amount / Notch);
        turned = true;
    }
    return turned;
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::NoModifier && menuBar_ != nullptr) {
        OpenMenuBar();
        return;
    }
    ButtonWidget* pressed = nullptr;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        pressed = dynamic_cast<ButtonWidget*>(focusWidget());
        if (pressed == nullptr) {
            pressed = FindUsable<ButtonWidget>(*this, [](auto& button) { return button.isDefault(); });
        }
    } else if (event->key() == Qt::Key_Escape) {
        pressed = FindUsable<ButtonWidget>(*this, [](auto& button) { return button.isCancel; });
    }
    if (pressed != nullptr) {
        pressed->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void WindowWidget::OpenMenuBar() {
    const QList<QAction*> menus = menuBar_->actions();
    const auto first = std::ranges::find_if(
        menus, [](const QAction* action) { return action->isVisible() && action->isEnabled(); });
    if (first != menus.end()) menuBar_->setActiveAction(*first);
}

void WindowWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int top = menuBar_ != nullptr ? menuBarHeight_ : 0;
    if (menuBar_ != nullptr) menuBar_->setGeometry(0, 0, width(), top);
    content_->setGeometry(0, top, width(), height() - top);
}

void WindowWidget::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (onPainted) onPainted();
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    port_.Deliver(forms::CloseEvent{});
}

}  // namespace tavrix::qt
