#include "imaging/loading/ImportedImage.h"

#include <new>

#include "base/RuntimeError.h"
#include "imaging/graphics/Flatten.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"

namespace tavrix {

bool ImportedImage::Load(ByteSource& source, std::string_view name) noexcept {
    Clear();
    try {
        const DecodedPicture decoded = DecodePicture(source, ImportDecoderFor(source, name));
        if (decoded.error || decoded.status.outcome == Outcome::Unread) return false;
        picture_ = Flattened(decoded.picture);
        return true;
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace tavrix
