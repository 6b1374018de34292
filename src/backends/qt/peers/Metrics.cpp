#include "backends/qt/peers/Metrics.h"

#include <QMenuBar>
#include <algorithm>

#include "backends/qt/peers/Scale.h"
#include "backends/qt/x11/X11.h"

namespace tavrix::qt {

Metrics::Metrics() {
    const x11::FrameQuestion question;
    // The first font is loaded here, which takes longer than the window manager's answer.
    QMenuBar sample;
    sample.addAction(QStringLiteral("X"));
    menuBarLogical_ = sample.sizeHint().height();
    menuBar_ = CeilToDevice(menuBarLogical_, DeviceRatio());
    if (const auto frame = question.Answer()) {
        borderWidth_ = (frame->left + frame->right + 1) / 2;
        borderHeight_ = std::min(frame->top, frame->bottom);
        caption_ = frame->top + frame->bottom - 2 * borderHeight_;
    }
}

int Metrics::Of(forms::SystemMetric metric) const {
    switch (metric) {
        case forms::SystemMetric::CaptionHeight:
            return caption_;
        case forms::SystemMetric::MenuBarHeight:
            return menuBar_;
        case forms::SystemMetric::SizingBorderWidth:
            return borderWidth_;
        case forms::SystemMetric::SizingBorderHeight:
            return borderHeight_;
    }
    return 0;
}

}  // namespace tavrix::qt
