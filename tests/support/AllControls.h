#pragma once

#include <vector>

#include "platform/forms/Control.h"

namespace tavrix::test {

/// The controls of a window or a frame, in the order in which they were made; what lies in one comes behind it.
inline std::vector<forms::Control*> AllControls(const forms::Container& container) {
    std::vector<forms::Control*> all;
    for (forms::Control* control : container.Controls()) {
        all.push_back(control);
        if (const auto* inner = dynamic_cast<const forms::Container*>(control)) {
            const std::vector<forms::Control*> deeper = AllControls(*inner);
            all.insert(all.end(), deeper.begin(), deeper.end());
        }
    }
    return all;
}

}  // namespace tavrix::test
