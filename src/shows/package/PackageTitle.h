#pragma once

namespace tavrix {

/// The title of the window that makes packages, and of its boxes.
inline constexpr const char* PackageTitle = "Tavrix - [Package Slide Show]";

}  // namespace tavrix
