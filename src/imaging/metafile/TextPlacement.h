#pragma once

#include "imaging/metafile/DeviceContext.h"
#include "imaging/metafile/Records.h"
#include "imaging/vector/TextRun.h"

namespace tavrix::metafile {

/// A text as it is drawn: its characters in the units of the font, and the way from there to the picture.
struct PlacedText {
    vector::TextRun run;  ///< aligned
    vector::Affine toPicture;
};

/// Lays a text out with the selected font. `reference`: logical units. May throw std::bad_alloc.
[[nodiscard]] PlacedText PlaceText(DeviceContext& context, const Text& text, vector::Point reference);

}  // namespace tavrix::metafile
