#include "platform/codecs/ImportedImage.h"

#include <new>

#include "platform/base/RuntimeError.h"
#include "platform/codecs/DecodePicture.h"
#include "platform/graphics/Flatten.h"

namespace tavrix {

bool ImportedImage::Load(ByteSource& source, std::string_view name) noexcept {
    Clear();
    try {
        const DecodedPicture decoded = DecodePicture(source, ImportDecoderFor(source, name));
        if (decoded.error) return false;
        picture_ = Flattened(decoded.picture);
        return true;
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace tavrix
