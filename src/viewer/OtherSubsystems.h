#pragma once

#include <functional>
#include <string>

#include "viewer/Opening.h"

namespace tavrix {

/// What commands of one subsystem ask of others, which do not know each other. Who composes the program says who does it.
struct OtherSubsystems {
    /// Shows one image on the stage until the user closes it.
    std::function<void(const std::string& path)> PreviewOnStage;
    /// Lets the user save the shared show under a name; `name` is what it is called so far.
    std::function<void(const std::string& name)> SaveShowAs;
    /// LoadIntoMainView for a kind of file that has to be imported; the image is one that has not been saved then.
    std::function<void(const std::string& path, const OpenFailure& failure)> Import;
};

}  // namespace tavrix
