#include "backends/qt/help/AlwaysUsable.h"

#include <QEvent>
#include <QGuiApplication>
#include <QVariant>
#include <QWidget>
#include <QWindow>

namespace tavrix::qt {
namespace {

constexpr const char* Mark = "alwaysUsable";

}  // namespace

AlwaysUsable::AlwaysUsable(QWidget& window) : window_(window) {
    window.setProperty(Mark, true);
    window.installEventFilter(this);
}

bool AlwaysUsable::Is(const QWidget& window) {
    return window.property(Mark).toBool();
}

void AlwaysUsable::AttachSoon() {
    if (!window_.isVisible()) return;
    QMetaObject::invokeMethod(
        this, [this] { Attach(); }, Qt::QueuedConnection);
}

void AlwaysUsable::Attach() {
    QWindow* window = window_.windowHandle();
    if (window == nullptr || !window_.isVisible()) return;
    QWindow* modal = QGuiApplication::modalWindow();
    if (window->transientParent() == modal) return;
    window->setTransientParent(modal);
    // The next one, or none, takes its place when it goes.
    if (modal != nullptr) connect(modal, &QWindow::visibleChanged, this, [this] { AttachSoon(); });
}

bool AlwaysUsable::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::WindowBlocked) AttachSoon();
    return QObject::eventFilter(watched, event);
}

}  // namespace tavrix::qt
