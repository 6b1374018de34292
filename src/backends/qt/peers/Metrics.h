#pragma once

#include "platform/forms/Toolkit.h"

namespace tavrix::qt {

/// The system's metrics in device pixels. They are found out once and then stand for the whole life of the process,
/// since the logic adds them to the sizes that it computes.
class Metrics {
  public:
    Metrics();

    [[nodiscard]] int Of(forms::SystemMetric metric) const;
    /// The menu bar in logical pixels.
    [[nodiscard]] int MenuBarLogical() const { return menuBarLogical_; }

    /// What lies around the inner part of a window, its menu bar not counted.
    [[nodiscard]] int FrameWidth() const { return 2 * borderWidth_; }
    [[nodiscard]] int FrameHeight() const { return 2 * borderHeight_ + caption_; }

  private:
    int caption_ = 20;
    int borderWidth_ = 4;
    int borderHeight_ = 4;
    int menuBarLogical_ = 0;
    int menuBar_ = 0;
};

}  // namespace tavrix::qt
