#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Whether the show has but one slide, by the rows of its editor, or by its record while the editor is not loaded.
[[nodiscard]] bool IsLastSlide(const MainModule& module);

/// Takes the slides with this path out of the show and out of the editor, where that is loaded, with their
/// descriptions. Of two that follow each other directly the second one stays.
void RemoveSlides(MainModule& module, const std::string& path);

/// How many slides a show has, in the words of the editor.
[[nodiscard]] std::string SlideCountText(const MainModule& module, int count);

}  // namespace tavrix
