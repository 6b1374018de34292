#include "platform/vector/RasterOperation.h"

namespace tavrix::vector {

Pixel Combine(TernaryOperation operation, Pixel brush, Pixel source, Pixel destination) {
    constexpr Pixel Alpha = 0xFF000000U;
    switch (operation) {
        case SourceCopy:
            return source | Alpha;
        case PatternCopy:
            return brush | Alpha;
        case Blackness:
            return Alpha;
        case Whiteness:
            return ~Pixel{0};
        default:
            break;
    }
    Pixel result = 0;
    for (unsigned minterm = 0; minterm < 8; ++minterm) {
        if ((operation >> minterm & 1U) == 0) continue;
        const Pixel p = (minterm & 4U) != 0 ? brush : ~brush;
        const Pixel s = (minterm & 2U) != 0 ? source : ~source;
        const Pixel d = (minterm & 1U) != 0 ? destination : ~destination;
        result |= p & s & d;
    }
    return result | Alpha;
}

}  // namespace tavrix::vector
