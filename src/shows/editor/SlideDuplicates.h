#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/ShowFolder.h"

namespace tavrix {

/// The paths that stand more than once in a list of slides: in upper case, each once, in the order in which they come for
/// the second time. A path without a drive is seen from the folder of the show, where there is one.
[[nodiscard]] std::vector<std::string> DuplicateSlides(std::span<const std::string> slides,
                                                       const ShowFolder& folder);

/// The rows of all slides that have one of these paths, in upper case, as they stand or seen from the show's folder; rising.
[[nodiscard]] std::vector<int> RowsOfSlides(std::span<const std::string> paths,
                                            std::span<const std::string> slides, const ShowFolder& folder);

}  // namespace tavrix
