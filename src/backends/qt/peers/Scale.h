#pragma once

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <cmath>

#include "imaging/graphics/Surface.h"

namespace tavrix::qt {

// Forms count device pixels, Qt counts logical ones.

/// Device pixels to the logical pixel.
[[nodiscard]] inline double DeviceRatio() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->devicePixelRatio() : 1.0;
}

[[nodiscard]] inline int ToDevice(double logical, double ratio) {
    return static_cast<int>(std::lround(logical * ratio));
}
[[nodiscard]] inline int CeilToDevice(double logical, double ratio) {
    return static_cast<int>(std::ceil(logical * ratio));
}
[[nodiscard]] inline int RoundToLogical(int device, double ratio) {
    return static_cast<int>(std::lround(device / ratio));
}
[[nodiscard]] inline int FloorToLogical(int device, double ratio) {
    return static_cast<int>(std::floor(device / ratio));
}
[[nodiscard]] inline int CeilToLogical(int device, double ratio) {
    return static_cast<int>(std::ceil(device / ratio));
}

/// The nearest logical rectangle.
[[nodiscard]] inline QRect NearestLogical(const PixelRect& device, double ratio) {
    const QPoint topLeft(RoundToLogical(device.left, ratio), RoundToLogical(device.top, ratio));
    return {topLeft, QSize(RoundToLogical(device.left + device.width, ratio) - topLeft.x(),
                           RoundToLogical(device.top + device.height, ratio) - topLeft.y())};
}

/// The smallest logical rectangle that holds all of the device pixels.
[[nodiscard]] inline QRect EnclosingLogical(const PixelRect& device, double ratio) {
    const QPoint topLeft(FloorToLogical(device.left, ratio), FloorToLogical(device.top, ratio));
    return {topLeft, QSize(CeilToLogical(device.left + device.width, ratio) - topLeft.x(),
                           CeilToLogical(device.top + device.height, ratio) - topLeft.y())};
}

}  // namespace tavrix::qt
