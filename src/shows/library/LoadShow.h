#pragma once

#include <cstdint>

#include "shows/library/ShowTarget.h"

namespace tavrix {

/// How a dialog that loads shows was left.
enum class LoadEnd : std::uint8_t {
    GaveUp,
    Loaded,  ///< or tried: the target knows what came of it
    Other,   ///< the user wants the other dialog
};

/// Lets the user choose a show, in LoadSlideFile and in LoadRecentFile, which lead to each other, and loads it into the
/// target. Whether one was chosen.
bool LoadShow(MainModule& module, ShowTarget& target);

}  // namespace tavrix
