#pragma once

#include <memory>
#include <string>

#include "imaging/graphics/ArrivingSurface.h"

namespace tavrix {

/// What the picture loader gives: the decoded pixels and what is known of the file. A value; copies share the
/// pixels, which nobody changes any more (except for rows that are still arriving).
struct Picture {
    std::shared_ptr<const ArrivingSurface> pixels;  ///< null: no picture
    std::string format;  ///< "bmp", "jpg", "gif", "png", "ico", "cur", "wmf", "emf"
    int frames = 1;
    bool transparent = false;  ///< some pixels are not opaque

    [[nodiscard]] bool Empty() const { return pixels == nullptr; }
    /// Natural size in pixels; 0 without a picture.
    [[nodiscard]] int Width() const { return pixels ? pixels->Width() : 0; }
    [[nodiscard]] int Height() const { return pixels ? pixels->Height() : 0; }

    /// Whether two pictures are the same pixels in memory.
    friend bool operator==(const Picture& a, const Picture& b) { return a.pixels == b.pixels; }
};

/// A picture of pixels that are whole already.
[[nodiscard]] inline Picture PictureOf(Surface surface) {
    Picture picture;
    picture.pixels = std::make_shared<const ArrivingSurface>(std::move(surface));
    return picture;
}

}  // namespace tavrix
