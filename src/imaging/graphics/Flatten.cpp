#include "imaging/graphics/Flatten.h"

#include <utility>

#include "imaging/graphics/Composite.h"

namespace tavrix {

Picture Flattened(const Picture& picture) {
    if (picture.Empty()) return picture;
    const Surface& pixels = picture.pixels->Whole();
    if (!picture.transparent && picture.pixels->Ending() == Outcome::Complete) return picture;
    Surface flat = pixels.Clone();
    for (Pixel& pixel : flat.Pixels())
        pixel = Over(pixel, ToPixel(SurfaceBackground));
    Picture opaque = PictureOf(std::move(flat));
    opaque.format = picture.format;
    opaque.frames = picture.frames;
    return opaque;
}

}  // namespace tavrix
