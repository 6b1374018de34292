#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "browsing/ThumbnailList.h"
#include "core/Main.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

namespace scenes {

/// A program on services in memory, with a folder of pictures, for one picture of the help.
class Scenery {
  public:
    explicit Scenery(forms::Toolkit& toolkit);

    /// Starts the program, with a picture on show unless the path is empty.
    MainViewFrm& Start(const std::string& path = "");

    headless::HeadlessServices platform;
    ThumbnailList thumbnails;  ///< of a thumbnail browser
    forms::Application app;
    MainModule module;
    Lives lives;
};

/// What a picture of the help shows: a window in the midst of its work.
struct HelpScene {
    std::string name;  ///< of the picture, as the help file has it
    std::function<forms::Form&(Scenery&)> load;
};

/// All pictures of the help.
[[nodiscard]] std::vector<HelpScene> HelpScenes();

}  // namespace scenes
}  // namespace tavrix
