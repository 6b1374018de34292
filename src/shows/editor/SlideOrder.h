#pragma once

#include <vector>

#include "core/Random.h"

namespace tavrix {

// Orders of slides, as ShowSlides::ArrangeSlides and ListBox::Reorder take them: at each place stands the former index of the
// slide that comes there.

[[nodiscard]] std::vector<int> ReverseOrder(int count);

/// The slide `from` comes to the place `to`; those between make room. Both: 0 to count - 1.
[[nodiscard]] std::vector<int> MoveOrder(int count, int from, int to);

/// Slides, told by indices that rise, come together in front of the one at `before` (0 to count), in the order in which
/// they stood.
[[nodiscard]] std::vector<int> GatherOrder(int count, const std::vector<int>& slides, int before);

/// The mix of the editor: from the first place to the last, the slide that is there by then goes to a random place, but for
/// the last ones, which are reached by shifting alone. It takes a number for each slide. Two slides stay as they are.
[[nodiscard]] std::vector<int> RandomOrder(int count, Random& random);

}  // namespace tavrix
