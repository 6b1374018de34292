#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Takes the slides with this path out of the show, with their descriptions, and tells the editor where that is loaded. Of
/// two that follow each other directly the second one stays.
void RemoveSlides(MainModule& module, const std::string& path);

}  // namespace tavrix
