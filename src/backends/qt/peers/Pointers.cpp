#include "backends/qt/peers/Pointers.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>

#include "backends/qt/peers/Scale.h"
#include "backends/qt/peers/SurfaceImage.h"

namespace tavrix::qt {

using forms::MousePointer;

Qt::CursorShape ShapeOf(MousePointer pointer) {
    switch (pointer) {
        case MousePointer::Hourglass:
            return Qt::WaitCursor;
        case MousePointer::ArrowHourglass:
            return Qt::BusyCursor;
        case MousePointer::Hand:
            return Qt::PointingHandCursor;
        case MousePointer::Hidden:
            return Qt::BlankCursor;
        case MousePointer::Default:
        case MousePointer::Custom:
        case MousePointer::Arrow:
            break;
    }
    return Qt::ArrowCursor;
}

QCursor PicturePointer(const Surface& pixels, int hotX, int hotY) {
    const double ratio = DeviceRatio();
    QImage image = ImageOf(pixels);
    image.setDevicePixelRatio(ratio);
    return QCursor(QPixmap::fromImage(image), FloorToLogical(hotX, ratio), FloorToLogical(hotY, ratio));
}

void SetWidgetPointer(QWidget& widget, MousePointer pointer) {
    if (pointer == MousePointer::Default) {
        widget.unsetCursor();
    } else {
        widget.setCursor(ShapeOf(pointer));
    }
}

void ScreenPointer::Set(MousePointer pointer) {
    wanted_ = pointer;
    Apply();
}

void ScreenPointer::WindowsAreUp() {
    if (windowsAreUp_) return;
    windowsAreUp_ = true;
    Apply();
}

void ScreenPointer::BoxOpened() {
    ++openBoxes_;
    Apply();
}

void ScreenPointer::BoxClosed() {
    --openBoxes_;
    Apply();
}

void ScreenPointer::WindowHides(bool hides) {
    hidingWindows_ += hides ? 1 : -1;
    Apply();
}

void ScreenPointer::Apply() {
    const bool free = windowsAreUp_ && openBoxes_ == 0 && hidingWindows_ == 0;
    const MousePointer now = free ? wanted_ : MousePointer::Default;
    if (now == shown_) return;
    if (shown_ == MousePointer::Default) {
        QGuiApplication::setOverrideCursor(ShapeOf(now));
    } else if (now == MousePointer::Default) {
        QGuiApplication::restoreOverrideCursor();
    } else {
        QGuiApplication::changeOverrideCursor(ShapeOf(now));
    }
    shown_ = now;
}

}  // namespace tavrix::qt
