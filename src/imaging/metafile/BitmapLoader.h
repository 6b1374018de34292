#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "imaging/codecs/Decoder.h"
#include "imaging/graphics/Surface.h"
#include "imaging/metafile/Objects.h"
#include "imaging/vector/Work.h"

namespace tavrix::metafile {

/// How the pixels of a bitmap become colours.
struct BitmapColours {
    enum class Mono : std::uint8_t {
        AsTold,         ///< a bitmap of two colours has those of its own palette
        BlackAndWhite,  ///< in place of black and white come the colours given
        Always,         ///< the colours given come in place of any
    };

    std::shared_ptr<const Palette> palette;  ///< the selected one
    Mono mono = Mono::AsTold;
    Pixel zero = 0xFF000000U;  ///< in place of a 0
    Pixel one = 0xFFFFFFFFU;   ///< in place of a 1
    bool alpha = false;        ///< the highest byte of 32 bits counts, even where the header does not say so
};

struct LoadedBitmap {
    Surface pixels;        ///< empty where the bitmap cannot be decoded
    bool topDown = false;  ///< rows are counted from the top
};

/// Decodes a bitmap inside a metafile. `rows`: how many rows lie in the file, where it is not the whole bitmap; then
/// the pixels have that many. Paid from the budget. May throw std::bad_alloc.
[[nodiscard]] LoadedBitmap LoadBitmap(ByteSource& file, const BitmapPlace& place,
                                      const BitmapColours& colours, const Cancellation& sink,
                                      vector::WorkBudget& budget,
                                      std::optional<std::uint32_t> rows = std::nullopt);

}  // namespace tavrix::metafile
