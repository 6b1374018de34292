#include "imaging/graphics/Draw.h"

#include <algorithm>
#include <cstdint>

#include "imaging/graphics/Composite.h"

namespace tavrix {
namespace {

void InvertRun(Surface& surface, int y, int from, int to) {
    if (y < 0 || y >= surface.Height()) return;
    const auto row = surface.Row(y);
    for (int x = std::max(from, 0); x <= std::min(to, surface.Width() - 1); ++x) {
        row[static_cast<std::size_t>(x)] ^= 0x00FFFFFFU;
    }
}

}  // namespace

void DrawOver(Surface& surface, int left, int top, const Surface& picture) {
    const int firstX = std::max(0, -left);
    const int lastX = std::min<int>(picture.Width(), surface.Width() - left);
    for (int y = std::max(0, -top); y < std::min<int>(picture.Height(), surface.Height() - top); ++y) {
        const auto from = picture.Row(y);
        const auto to = surface.Row(y + top);
        for (int x = firstX; x < lastX; ++x) {
            const Pixel above = from[static_cast<std::size_t>(x)];
            Pixel& pixel = to[static_cast<std::size_t>(x + left)];
            if (above >= 0xFF000000U) {
                pixel = above;
            } else if (above >= 0x01000000U) {
                pixel = Over(above, pixel);
            }
        }
    }
}

void FillBox(Surface& surface, const PixelRect& box, Pixel pixel) {
    const int fromX = std::max(box.left, 0);
    const int toX =
        static_cast<int>(std::min<std::int64_t>(std::int64_t{box.left} + box.width, surface.Width()));
    const int toY =
        static_cast<int>(std::min<std::int64_t>(std::int64_t{box.top} + box.height, surface.Height()));
    if (fromX >= toX) return;
    for (int y = std::max(box.top, 0); y < toY; ++y) {
        std::ranges::fill(
            surface.Row(y).subspan(static_cast<std::size_t>(fromX), static_cast<std::size_t>(toX - fromX)),
            pixel);
    }
}

void InvertOutline(Surface& surface, int x1, int y1, int x2, int y2) {
    const auto [left, right] = std::minmax(x1, x2);
    const auto [top, bottom] = std::minmax(y1, y2);
    InvertRun(surface, top, left, right);
    if (bottom != top) InvertRun(surface, bottom, left, right);
    for (int y = std::max(top + 1, 0); y < std::min(bottom, surface.Height()); ++y) {
        InvertRun(surface, y, left, left);
        if (right != left) InvertRun(surface, y, right, right);
    }
}

}  // namespace tavrix
