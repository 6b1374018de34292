#pragma once

#include <string_view>

#include "imaging/codecs/ByteSource.h"
#include "imaging/graphics/Picture.h"

namespace tavrix {

/// A picture that was imported, whole and opaque: what is transparent or missing has become SurfaceBackground.
class ImportedImage {
  public:
    /// Decodes the data, by the import decoder of the name if there is one. False for data that are no picture, above
    /// the limits or not to be read to their end, and where memory is refused; the image is empty then. Throws nothing.
    [[nodiscard]] bool Load(ByteSource& source, std::string_view name) noexcept;
    void Clear() { picture_ = {}; }

    /// Empty without an image.
    [[nodiscard]] const Surface& Pixels() const {
        return picture_.Empty() ? none_ : picture_.pixels->Whole();
    }

  private:
    Picture picture_;
    Surface none_;
};

}  // namespace tavrix
