#include "core/SlideCountText.h"

#include "core/NumberText.h"

namespace tavrix {

std::string SlideCountText(int count, const NumberFormat& format) {
    if (count == 0) return "Zero slides (images) total...";
    if (count == 1) return "One slide (image) total...";
    return GroupedNumber(count, format) + " slides (images) total...";
}

}  // namespace tavrix
