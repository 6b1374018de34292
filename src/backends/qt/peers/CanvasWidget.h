#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "backends/qt/peers/MouseRelay.h"
#include "backends/qt/peers/SinkPort.h"
#include "platform/forms/Peers.h"

namespace tavrix::qt {

/// The widget of a picture box or an image. It paints from what the content says at that moment, pixel for pixel.
class CanvasWidget final : public QWidget {
  public:
    CanvasWidget(QWidget& parent, const SinkPort& port, const forms::CanvasContent& content);

    /// The peer has gone.
    void Detach();
    /// Place within the container, in device pixels.
    void SetDeviceBounds(const PixelRect& bounds);
    /// Where the canvas begins within the widget, in device pixels; not 0 where a device pixel is not a whole
    /// logical one.
    [[nodiscard]] QPoint DeviceOffset() const { return mouse_.offset; }
    [[nodiscard]] QSize DeviceSize() const { return deviceSize_; }
    /// Marks a part, in device pixels of the canvas, as changed.
    void Invalidate(const PixelRect& part);
    void PaintNow();
    void SetSeeThrough(bool seeThrough);
    /// Lines of text over the picture.
    void SetPrinted(const std::vector<std::string>& lines);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { mouse_.Move(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { mouse_.Release(*event, *this); }

  private:
    [[nodiscard]] QColor ColourOf(Colour colour) const;
    void PaintPicture(QPaintEvent& event);

    SinkPort port_;
    const forms::CanvasContent* content_;
    MouseRelay mouse_{port_};
    QSize deviceSize_;
    QRegion invalid_;
    bool seeThrough_ = false;
    QString printed_;
};

}  // namespace tavrix::qt
