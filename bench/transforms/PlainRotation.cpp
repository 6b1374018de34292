#include "PlainRotation.h"

#include <cmath>

namespace tavrix::bench {

void PlainRotation(const Surface& source, Surface& dest, double angle) {
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const int width = source.Width();
    const int height = source.Height();
    const Pixel* pixels = source.Pixels().data();
    for (int v = 0; v < dest.Height(); ++v) {
        Pixel* to = dest.Row(v).data();
        const double down = v - dest.Height() / 2;
        const double across = -(dest.Width() / 2);
        // Half a pixel on top, so that cutting rounds; what is cut toward zero from below is off by a pixel at the
        // edge, which does not matter here.
        double x = across * cosine - down * sine + width / 2 + 0.5;
        double y = across * sine + down * cosine + height / 2 + 0.5;
        for (int u = 0; u < dest.Width(); ++u, x += cosine, y += sine) {
            const int fromX = static_cast<int>(x);
            const int fromY = static_cast<int>(y);
            if (fromX >= 0 && fromX < width && fromY >= 0 && fromY < height)
                to[u] = pixels[static_cast<std::ptrdiff_t>(fromY) * width + fromX];
        }
    }
}

}  // namespace tavrix::bench
