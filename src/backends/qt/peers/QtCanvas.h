#pragma once

#include "backends/qt/peers/CanvasWidget.h"
#include "backends/qt/peers/QtControl.h"

namespace tavrix::qt {

class QtCanvas final : public QtControl<forms::CanvasPeer, CanvasWidget> {
  public:
    QtCanvas(const SinkPort& port, const NativePeer& container, const forms::CanvasContent& content)
        : QtControl(new CanvasWidget(*container.ControlParent(), port, content)) {}

    void SetBounds(const PixelRect& bounds) override { Get().SetDeviceBounds(bounds); }
    void Invalidate(const PixelRect& part) override { Get().Invalidate(part); }
    void PaintNow() override { Get().PaintNow(); }
    void SetPrinted(const std::vector<std::string>& lines) override { Get().SetPrinted(lines); }
    void SetSeeThrough(bool seeThrough) override { Get().SetSeeThrough(seeThrough); }
};

}  // namespace tavrix::qt
