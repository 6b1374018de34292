#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scenes/Scenery.h"

namespace tavrix::scenes {

/// What a picture of the help shows: a window in the midst of its work.
struct HelpScene {
    std::string name;                            ///< of the picture, as the help file has it
    std::function<forms::Form&(Scenery&)> load;  ///< in a program that has not been started
};

/// All pictures of the help.
[[nodiscard]] std::vector<HelpScene> HelpScenes();

}  // namespace tavrix::scenes
