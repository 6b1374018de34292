#include "imaging/codecs/PixelRows.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include "imaging/codecs/LittleEndian.h"

namespace tavrix {
namespace {

constexpr Pixel Opaque = 0xFF000000U;

#if defined(__x86_64__)
/// Sixteen pixels at a time; gives how many were turned.
__attribute__((target("ssse3"))) std::size_t ManyFromBgr24(const std::byte* from, std::span<Pixel> into) {
    const __m128i spread = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    const __m128i alpha = _mm_set1_epi32(static_cast<int>(Opaque));
    std::size_t done = 0;
    for (; done + 16 <= into.size(); done += 16) {
        const auto* in = reinterpret_cast<const __m128i*>(from + 3 * done);
        const __m128i a = _mm_loadu_si128(in);
        const __m128i b = _mm_loadu_si128(in + 1);
        const __m128i c = _mm_loadu_si128(in + 2);
        auto* out = reinterpret_cast<__m128i*>(&into[done]);
        const auto put = [&](int at, __m128i bytes) __attribute__((target("ssse3"), always_inline)) {
            _mm_storeu_si128(out + at, _mm_or_si128(_mm_shuffle_epi8(bytes, spread), alpha));
        };
        put(0, a);
        put(1, _mm_alignr_epi8(b, a, 12));
        put(2, _mm_alignr_epi8(c, b, 8));
        put(3, _mm_srli_si128(c, 4));
    }
    return done;
}

/// The reverse of ManyFromBgr24.
__attribute__((target("ssse3"))) std::size_t ManyToBgr24(std::span<const Pixel> from, std::byte* into) {
    const __m128i gather = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    std::size_t done = 0;
    for (; done + 16 <= from.size(); done += 16) {
        const auto* in = reinterpret_cast<const __m128i*>(&from[done]);
        const auto get = [&](int at) __attribute__((target("ssse3"), always_inline)) {
            return _mm_shuffle_epi8(_mm_loadu_si128(in + at), gather);
        };
        const __m128i a = get(0);
        const __m128i b = get(1);
        const __m128i c = get(2);
        const __m128i d = get(3);
        auto* out = reinterpret_cast<__m128i*>(into + 3 * done);
        _mm_storeu_si128(out, _mm_or_si128(a, _mm_slli_si128(b, 12)));
        _mm_storeu_si128(out + 1, _mm_or_si128(_mm_srli_si128(b, 4), _mm_slli_si128(c, 8)));
        _mm_storeu_si128(out + 2, _mm_or_si128(_mm_srli_si128(c, 8), _mm_slli_si128(d, 4)));
    }
    return done;
}
#endif

template <unsigned Bits>
void FromIndexes(std::span<const std::byte> from, const std::array<Pixel, 256>& palette,
                 std::span<Pixel> into) {
    constexpr unsigned Mask = (1U << Bits) - 1U;
    constexpr std::size_t PerByte = 8U / Bits;
    const std::size_t whole = into.size() / PerByte;
    Pixel* out = into.data();
    for (std::size_t i = 0; i < whole; ++i) {
        const auto byte = std::to_integer<unsigned>(from[i]);
        for (std::size_t part = 0; part < PerByte; ++part) {
            *out++ = palette[(byte >> (8U - Bits - Bits * part)) & Mask];
        }
    }
    for (std::size_t part = 0; part < into.size() % PerByte; ++part) {
        *out++ = palette[(std::to_integer<unsigned>(from[whole]) >> (8U - Bits - Bits * part)) & Mask];
    }
}

}  // namespace

void PixelsFromBgr24(std::span<const std::byte> from, std::span<Pixel> into) {
    std::size_t done = 0;
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3")) done = ManyFromBgr24(from.data(), into);
#endif
    for (; done < into.size(); ++done) {
        const std::byte* in = from.data() + 3 * done;
        into[done] = OpaquePixel(std::to_integer<unsigned>(in[2]), std::to_integer<unsigned>(in[1]),
                                 std::to_integer<unsigned>(in[0]));
    }
}

void Bgr24FromPixels(std::span<const Pixel> from, std::span<std::byte> into) {
    std::size_t done = 0;
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3")) done = ManyToBgr24(from, into.data());
#endif
    for (; done < from.size(); ++done) {
        into[3 * done] = static_cast<std::byte>(from[done]);
        into[3 * done + 1] = static_cast<std::byte>(from[done] >> 8U);
        into[3 * done + 2] = static_cast<std::byte>(from[done] >> 16U);
    }
}

void PixelsFromIndexes(unsigned bits, std::span<const std::byte> from, const std::array<Pixel, 256>& palette,
                       std::span<Pixel> into) {
    switch (bits) {
        case 1:
            return FromIndexes<1>(from, palette, into);
        case 2:
            return FromIndexes<2>(from, palette, into);
        case 4:
            return FromIndexes<4>(from, palette, into);
        default:
            return FromIndexes<8>(from, palette, into);
    }
}

MaskedPart::MaskedPart(std::uint32_t mask, unsigned missing)
    : mask_(mask), shift_(mask == 0 ? 0U : static_cast<unsigned>(std::countr_zero(mask))) {
    const auto bits = static_cast<unsigned>(std::bit_width(mask >> shift_));
    if (bits > 16) shift_ += bits - 8;
    highest_ = mask >> shift_;
    if (bits == 0) scaled_[0] = static_cast<std::uint8_t>(missing);
    if (bits == 0 || highest_ >= scaled_.size()) return;

    const unsigned kept = std::min(bits, 8U);
    for (std::uint32_t value = 0; value <= highest_; ++value) {
        std::uint32_t filled = value << (8 - kept);
        for (unsigned width = kept; width < 8; width *= 2)
            filled |= filled >> width;
        scaled_[value] = static_cast<std::uint8_t>(filled);
    }
}

MaskedPixels::MaskedPixels(unsigned bits, const std::array<std::uint32_t, 4>& masks)
    : bits_(bits),
      native_(bits == 32 && masks[0] == 0xFF0000U && masks[1] == 0xFF00U && masks[2] == 0xFFU &&
              (masks[3] == 0 || masks[3] == Opaque)),
      opaque_(masks[3] == 0 ? Opaque : 0U),
      red_(masks[0], 0),
      green_(masks[1], 0),
      blue_(masks[2], 0),
      alpha_(masks[3], 255) {}

void MaskedPixels::Convert(std::span<const std::byte> from, std::span<Pixel> into) const {
    if (native_ && std::endian::native == std::endian::little) {
        std::memcpy(into.data(), from.data(), into.size_bytes());
        if (opaque_ != 0) {
            for (Pixel& pixel : into)
                pixel |= opaque_;
        }
        return;
    }
    for (std::size_t i = 0; i < into.size(); ++i) {
        const std::uint32_t packed = bits_ == 16 ? U16(from, 2 * i) : U32(from, 4 * i);
        into[i] = (alpha_.Of(packed) << 24U) | (red_.Of(packed) << 16U) | (green_.Of(packed) << 8U) |
                  blue_.Of(packed);
    }
}

}  // namespace tavrix
