#pragma once

#include <array>
#include <cstdint>

#include "imaging/graphics/Colour.h"

namespace tavrix::vector {

/// How a pen or a brush is combined with what is there, by the numbers of the metafile formats.
enum class BinaryOperation : std::uint8_t {
    Black = 1,
    NotMergePen = 2,
    MaskNotPen = 3,
    NotCopyPen = 4,
    MaskPenNot = 5,
    Not = 6,
    XorPen = 7,
    NotMaskPen = 8,
    MaskPen = 9,
    NotXorPen = 10,
    Nop = 11,
    MergeNotPen = 12,
    CopyPen = 13,
    MergePenNot = 14,
    MergePen = 15,
    White = 16,
};

/// The operation of a number in a file; CopyPen for a number that is none.
[[nodiscard]] constexpr BinaryOperation ToBinaryOperation(std::uint32_t number) {
    return number >= 1 && number <= 16 ? static_cast<BinaryOperation>(number) : BinaryOperation::CopyPen;
}

/// How source, brush and destination are combined: bit p * 4 + s * 2 + d of the operation is what comes of the bits p
/// of the brush, s of the source and d of the destination. It is the third byte of the number in a file
/// (0x00CC0020 -> 0xCC).
using TernaryOperation = std::uint8_t;

inline constexpr TernaryOperation Blackness = 0x00;
inline constexpr TernaryOperation NotSourceCopy = 0x33;
inline constexpr TernaryOperation DestinationInvert = 0x55;
inline constexpr TernaryOperation DestinationKept = 0xAA;
inline constexpr TernaryOperation SourceCopy = 0xCC;
inline constexpr TernaryOperation PatternCopy = 0xF0;
inline constexpr TernaryOperation Whiteness = 0xFF;

/// What a binary operation is among the ternary ones.
[[nodiscard]] constexpr TernaryOperation ToTernary(BinaryOperation operation) {
    // Bit p * 2 + d of the number less one, for both values of the source.
    const auto bits = static_cast<unsigned>(operation) - 1U;
    const unsigned low = bits & 3U;
    const unsigned high = bits >> 2U;
    return static_cast<TernaryOperation>(low | (low << 2U) | (high << 4U) | (high << 6U));
}

[[nodiscard]] constexpr bool UsesSource(TernaryOperation operation) {
    return (((operation >> 2U) ^ operation) & 0x33U) != 0;
}
[[nodiscard]] constexpr bool UsesBrush(TernaryOperation operation) {
    return (((operation >> 4U) ^ operation) & 0x0FU) != 0;
}
[[nodiscard]] constexpr bool UsesDestination(TernaryOperation operation) {
    return (((operation >> 1U) ^ operation) & 0x55U) != 0;
}

/// A ternary operation made ready for many pixels.
class Combiner {
  public:
    explicit constexpr Combiner(TernaryOperation operation) {
        // The operation as an exclusive or of products: term t is the product of those of brush (4), source (2) and
        // destination (1) whose bits t has.
        unsigned terms = operation;
        for (const unsigned step : {1U, 2U, 4U})
            for (unsigned t = 0; t < 8; ++t)
                if ((t & step) != 0) terms ^= (terms >> (t - step) & 1U) << t;
        for (unsigned t = 0; t < 8; ++t)
            masks_[t] = (terms >> t & 1U) != 0 ? 0x00FFFFFFU : 0;
    }

    /// Combines the colours; the result is opaque.
    [[nodiscard]] constexpr Pixel operator()(Pixel brush, Pixel source, Pixel destination) const {
        const Pixel without =
            masks_[0] ^ (masks_[1] & destination) ^ ((masks_[2] ^ (masks_[3] & destination)) & source);
        const Pixel with =
            masks_[4] ^ (masks_[5] & destination) ^ ((masks_[6] ^ (masks_[7] & destination)) & source);
        return 0xFF000000U | (without ^ (with & brush));
    }

  private:
    std::array<Pixel, 8> masks_{};
};

/// Combines the colours of three pixels; the result is opaque.
[[nodiscard]] constexpr Pixel Combine(TernaryOperation operation, Pixel brush, Pixel source,
                                      Pixel destination) {
    return Combiner(operation)(brush, source, destination);
}

}  // namespace tavrix::vector
