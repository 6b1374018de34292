#include "backends/qt/peers/Metrics.h"

#include <QMenuBar>
#include <algorithm>
#include <utility>

#include "backends/qt/peers/Scale.h"
#include "backends/qt/x11/X11.h"

namespace tavrix::qt {

Metrics::Metrics(std::shared_ptr<x11::FrameQuestion> asked) {
    if (!x11::Running()) return;
    question_ = asked ? std::move(asked) : std::make_shared<x11::FrameQuestion>();
}

const Metrics::Frame& Metrics::TheFrame() const {
    if (frame_) return *frame_;
    frame_.emplace();
    if (const auto told = question_ ? question_->Answer() : std::nullopt) {
        frame_->borderWidth = (told->left + told->right + 1) / 2;
        frame_->borderHeight = std::min(told->top, told->bottom);
        frame_->caption = told->top + told->bottom - 2 * frame_->borderHeight;
    }
    question_.reset();
    return *frame_;
}

const Metrics::MenuBar& Metrics::TheMenuBar() const {
    if (menuBar_) return *menuBar_;
    // The first font is loaded here.
    QMenuBar sample;
    sample.addAction(QStringLiteral("X"));
    const int height = sample.sizeHint().height();
    menuBar_ = MenuBar{height, CeilToDevice(height, DeviceRatio())};
    return *menuBar_;
}

int Metrics::Of(forms::SystemMetric metric) const {
    switch (metric) {
        case forms::SystemMetric::CaptionHeight:
            return TheFrame().caption;
        case forms::SystemMetric::MenuBarHeight:
            return TheMenuBar().device;
        case forms::SystemMetric::SizingBorderWidth:
            return TheFrame().borderWidth;
        case forms::SystemMetric::SizingBorderHeight:
            return TheFrame().borderHeight;
    }
    return 0;
}

}  // namespace tavrix::qt
