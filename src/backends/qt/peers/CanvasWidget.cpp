#include "backends/qt/peers/CanvasWidget.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "backends/qt/peers/Colours.h"
#include "backends/qt/peers/Contrast.h"
#include "backends/qt/peers/Scale.h"

namespace tavrix::qt {

namespace {

/// A part of a surface as an image that shares its memory.
QImage Wrap(const Surface& surface, const QRect& part, bool transparent) {
    const Pixel* first = surface.Row(part.top()).data() + part.left();
    return {reinterpret_cast<const uchar*>(first), part.width(), part.height(),
            static_cast<qsizetype>(surface.Width()) * static_cast<qsizetype>(sizeof(Pixel)),
            transparent ? QImage::Format_ARGB32 : QImage::Format_RGB32};
}

}  // namespace

CanvasWidget::CanvasWidget(QWidget& parent, const SinkPort& port, const forms::CanvasContent& content)
    : QWidget(&parent), port_(port), content_(&content) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_NoMousePropagation);
    setMouseTracking(true);
    setVisible(false);
}

void CanvasWidget::Detach() {
    port_.Detach();
    content_ = nullptr;
}

void CanvasWidget::SetDeviceBounds(const PixelRect& bounds) {
    const double ratio = DeviceRatio();
    const QRect place = EnclosingLogical(bounds, ratio);
    const QPoint offset(bounds.left - ToDevice(place.left(), ratio),
                        bounds.top - ToDevice(place.top(), ratio));
    const QSize size(bounds.width, bounds.height);
    if (place == geometry() && offset == mouse_.offset && size == deviceSize_) return;
    if (offset != mouse_.offset || size != deviceSize_) update();
    mouse_.offset = offset;
    deviceSize_ = size;
    setGeometry(place);
}

void CanvasWidget::Invalidate(const PixelRect& part) {
    const PixelRect moved{part.left + mouse_.offset.x(), part.top + mouse_.offset.y(), part.width,
                          part.height};
    const QRect logical = EnclosingLogical(moved, DeviceRatio()).intersected(rect());
    if (logical.isEmpty()) return;
    invalid_ += logical;
    update(logical);
}

void CanvasWidget::PaintNow() {
    if (!invalid_.isEmpty() && isVisible()) repaint(invalid_);
}

void CanvasWidget::SetSeeThrough(bool seeThrough) {
    if (seeThrough_ == seeThrough) return;
    seeThrough_ = seeThrough;
    setAttribute(Qt::WA_OpaquePaintEvent, !seeThrough);
    update();
}

QColor CanvasWidget::ColourOf(Colour colour) const {
    return ToQColor(colour, palette());
}

void CanvasWidget::paintEvent(QPaintEvent* event) {
    invalid_ -= event->region();
    if (content_ == nullptr || seeThrough_) return;
    PaintPicture(*event);
    if (printed_.isEmpty()) return;
    QPainter painter(this);
    painter.setPen(TextColourOn(ColourOf(content_->View(0).background)));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop, printed_);
}

void CanvasWidget::SetPrinted(const std::vector<std::string>& lines) {
    QStringList all;
    for (const std::string& line : lines)
        all << QString::fromStdString(line);
    printed_ = all.join(QLatin1Char('\n'));
    setAccessibleDescription(printed_);
    update();
}

void CanvasWidget::PaintPicture(QPaintEvent& event) {
    const double ratio = devicePixelRatioF();
    QPainter painter(this);
    // From here on in device pixels of the canvas.
    const QPointF origin = painter.deviceTransform().map(QPointF(0, 0));
    QTransform toDevice;
    toDevice.translate((std::round(origin.x()) - origin.x()) / ratio,
                       (std::round(origin.y()) - origin.y()) / ratio);
    toDevice.scale(1 / ratio, 1 / ratio);
    toDevice.translate(mouse_.offset.x(), mouse_.offset.y());
    painter.setWorldTransform(toDevice);

    const QRect box = event.rect();
    const QPoint first(static_cast<int>(std::floor(box.left() * ratio)) - mouse_.offset.x(),
                       static_cast<int>(std::floor(box.top() * ratio)) - mouse_.offset.y());
    const QPoint last(static_cast<int>(std::ceil((box.right() + 1) * ratio)) - mouse_.offset.x() - 1,
                      static_cast<int>(std::ceil((box.bottom() + 1) * ratio)) - mouse_.offset.y() - 1);
    const QRect exposed(first, last);

    const forms::CanvasView view = content_->View(std::clamp(last.y() + 1, 0, deviceSize_.height()));
    const QRect place(view.place.left, view.place.top, view.place.width, view.place.height);
    const bool drawn = view.pixels != nullptr && !view.pixels->Empty() && !place.isEmpty();
    const QRect shown = drawn ? exposed.intersected(place) : QRect();
    if (view.transparent || shown != exposed) painter.fillRect(exposed, ColourOf(view.background));
    if (shown.isEmpty()) return;

    const Surface& pixels = *view.pixels;
    if (place.size() == QSize(pixels.Width(), pixels.Height())) {
        const QRect part = shown.translated(-place.topLeft());
        painter.drawImage(shown.topLeft(), Wrap(pixels, part, view.transparent));
    } else {
        painter.setClipRect(shown);
        painter.drawImage(place,
                          Wrap(pixels, QRect(0, 0, pixels.Width(), pixels.Height()), view.transparent));
    }
}

}  // namespace tavrix::qt
