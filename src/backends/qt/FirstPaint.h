#pragma once

#include <functional>

namespace tavrix::qt {

/// Has work done once, soon after the first window was painted, when the first picture has been handed to the screen.
void AfterFirstPaint(std::function<void()> work);

}  // namespace tavrix::qt
