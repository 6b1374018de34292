#include "backends/qt/peers/ManualDrag.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <cstring>

#include "backends/qt/peers/Scale.h"

namespace tavrix::qt {

namespace {

constexpr int Again = 60;  ///< milliseconds

QCursor CursorOf(const Surface& icon) {
    QImage image(icon.Width(), icon.Height(), QImage::Format_ARGB32);
    for (int y = 0; y < icon.Height(); ++y)
        std::memcpy(image.scanLine(y), icon.Row(y).data(), icon.Row(y).size_bytes());
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(DeviceRatio());
    return QCursor(pixmap);
}

bool IsEscape(const QEvent& event) {
    const bool key = event.type() == QEvent::ShortcutOverride || event.type() == QEvent::KeyPress ||
                     event.type() == QEvent::KeyRelease;
    return key && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

ManualDrag::ManualDrag(DropDoor& source, QWidget& mouse, const Surface* icon)
    : source_(&source), mouse_(&mouse), place_(QCursor::pos()), hasIcon_(icon != nullptr) {
    if (mouse.testAttribute(Qt::WA_SetCursor)) former_ = mouse.cursor();
    if (icon != nullptr) mouse.setCursor(CursorOf(*icon));
    qApp->installEventFilter(this);
    connect(&again_, &QTimer::timeout, this, [this] { MoveTo(place_); });
    if (QGuiApplication::mouseButtons() == Qt::NoButton) Cancel();
}

ManualDrag::~ManualDrag() {
    if (mouse_ == nullptr) return;
    if (former_) {
        mouse_->setCursor(*former_);
    } else {
        mouse_->unsetCursor();
    }
}

bool ManualDrag::eventFilter(QObject* watched, QEvent* event) {
    if (ended_) return false;
    if (source_ == nullptr || mouse_ == nullptr) {
        Cancel();
        return false;
    }
    if (IsEscape(*event)) {
        if (event->type() == QEvent::KeyPress) Cancel();
        return true;
    }
    if (watched != mouse_) return false;
    switch (event->type()) {
        case QEvent::MouseMove:
            MoveTo(static_cast<const QMouseEvent&>(*event).globalPosition().toPoint());
            return true;
        case QEvent::MouseButtonRelease:
            MoveTo(static_cast<const QMouseEvent&>(*event).globalPosition().toPoint());
            Finish(over_);
            return false;  // the widget knows nothing of the drag, and waits for it
        case QEvent::Hide:
        case QEvent::WindowDeactivate:
            Cancel();
            return false;
        default:
            return false;
    }
}

void ManualDrag::MoveTo(QPoint screenPlace) {
    if (mouse_ == nullptr) return;
    place_ = screenPlace;
    if (!again_.isActive()) again_.start(Again);
    DropDoor* const now = DropDoor::At(screenPlace);
    if (over_ != nullptr && over_ != now) over_->Leave();
    over_ = now;
    const bool wanted = now != nullptr && now->Over(screenPlace);
    if (!hasIcon_ && mouse_ != nullptr) mouse_->setCursor(wanted ? Qt::DragMoveCursor : Qt::ForbiddenCursor);
}

void ManualDrag::Cancel() {
    if (over_ != nullptr) over_->Leave();
    Finish(nullptr);
}

void ManualDrag::Finish(DropDoor* target) {
    ended_ = true;
    again_.stop();
    // The release is to have been handled before anything opens a window.
    const auto tell = [target = QPointer(target), source = source_, place = place_] {
        if (target != nullptr) target->Drop(place);
        if (source != nullptr) source->Ended();
    };
    QMetaObject::invokeMethod(qApp, tell, Qt::QueuedConnection);
    deleteLater();
}

}  // namespace tavrix::qt
