#include "backends/qt/Displays.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include "backends/qt/peers/Scale.h"

namespace tavrix::qt {

namespace {

QWidget* WindowInUse() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->isVisible() && !window->isMinimized()) return window;
    }
    return nullptr;
}

}  // namespace

QScreen* FullScreenDisplay() {
    if (const QWidget* window = WindowInUse()) return window->screen();
    QScreen* display = QGuiApplication::screenAt(QCursor::pos());
    return display != nullptr ? display : QGuiApplication::primaryScreen();
}

PixelRect PlaceOfDisplay(const QScreen& display) {
    const double ratio = DeviceRatio();
    const QRect place = display.geometry();
    return {ToDevice(place.x(), ratio), ToDevice(place.y(), ratio), ToDevice(place.width(), ratio),
            ToDevice(place.height(), ratio)};
}

QScreen* DisplayAt(const PixelRect& place) {
    const QList<QScreen*> displays = QGuiApplication::screens();
    for (QScreen* display : displays) {
        if (PlaceOfDisplay(*display) == place) return display;
    }
    return QGuiApplication::primaryScreen();
}

}  // namespace tavrix::qt
