#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "imaging/graphics/Colour.h"

namespace tavrix {

/// Turns blue-green-red bytes into opaque pixels. The bytes must be at least three times as many as the pixels.
void PixelsFromBgr24(std::span<const std::byte> from, std::span<Pixel> into);

/// Turns pixels into blue-green-red bytes, three for each; how opaque a pixel is does not count.
void Bgr24FromPixels(std::span<const Pixel> from, std::span<std::byte> into);

/// Turns pixels of 8, 4, 2 or 1 bits (the leftmost in the highest bits) into their palette's colours.
void PixelsFromIndexes(unsigned bits, std::span<const std::byte> from, const std::array<Pixel, 256>& palette,
                       std::span<Pixel> into);

/// One part of a pixel that is split by masks, brought to 0..255: fewer bits are filled up with their own highest
/// ones, more bits are scaled, and of more than 16 the highest 8 count.
class MaskedPart {
  public:
    /// A mask of 0 gives `missing` for every pixel.
    MaskedPart(std::uint32_t mask, unsigned missing);

    [[nodiscard]] unsigned Of(std::uint32_t packed) const {
        const std::uint32_t value = (packed & mask_) >> shift_;
        return highest_ < scaled_.size() ? scaled_[value] : (value * 255U + highest_ / 2) / highest_;
    }

  private:
    std::uint32_t mask_;
    unsigned shift_;
    std::uint32_t highest_;  ///< at most 16 bits
    std::array<std::uint8_t, 256> scaled_{};
};

/// Turns pixels of 16 or 32 bits into pixels, by masks.
class MaskedPixels {
  public:
    /// Masks of red, green, blue and alpha; an alpha mask of 0 makes all pixels opaque.
    MaskedPixels(unsigned bits, const std::array<std::uint32_t, 4>& masks);

    void Convert(std::span<const std::byte> from, std::span<Pixel> into) const;

  private:
    unsigned bits_;
    bool native_;   ///< the masks are those of a Pixel
    Pixel opaque_;  ///< what to add to native pixels: the alpha that they lack
    MaskedPart red_, green_, blue_, alpha_;
};

}  // namespace tavrix
