#include "platform/codecs/ImportedImage.h"

#include <new>
#include <utility>

#include "platform/base/RuntimeError.h"
#include "platform/codecs/DecodePicture.h"
#include "platform/graphics/Composite.h"

namespace tavrix {
namespace {

Surface Flattened(const Surface& surface) {
    Surface flat = surface.Clone();
    for (Pixel& pixel : flat.Pixels())
        pixel = Over(pixel, ToPixel(SurfaceBackground));
    return flat;
}

}  // namespace

bool ImportedImage::Load(ByteSource& source, std::string_view name) noexcept {
    Clear();
    try {
        DecodedPicture decoded = DecodePicture(source, ImportDecoderFor(source, name));
        if (decoded.error) return false;
        const bool opaque = !decoded.picture.transparent && !decoded.picture.pixels->Damaged();
        picture_ =
            opaque ? std::move(decoded.picture) : PictureOf(Flattened(decoded.picture.pixels->Whole()));
        return true;
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace tavrix
