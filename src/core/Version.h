#pragma once

namespace tavrix {

/// The release of the program: major, minor and revision number.
inline constexpr const char* VersionText = "1.0.0";

}  // namespace tavrix
