#pragma once

namespace tavrix {

/// The value in the user's store that names the show of the screen saver, by its path; empty for none.
inline constexpr const char* CurrentSaver = "CurrentSaver";

}  // namespace tavrix
