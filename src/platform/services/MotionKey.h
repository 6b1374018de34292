#pragma once

namespace tavrix {

/// Where the registry tells whether what only pleases may move: "0" says that it may not.
inline constexpr const char* MotionKey = "Control Panel\\Desktop\\WindowMetrics";
inline constexpr const char* MotionName = "MinAnimate";

}  // namespace tavrix
