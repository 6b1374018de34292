#include "imaging/metafile/BitmapLoader.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/RuntimeError.h"
#include "imaging/codecs/BmpDecoder.h"
#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PixelRows.h"
#include "imaging/codecs/SourcePart.h"
#include "imaging/codecs/SurfaceSink.h"
#include "imaging/metafile/Colours.h"
#include "imaging/vector/Pixels.h"

namespace tavrix::metafile {
namespace {

constexpr std::int64_t MostPixels = 64LL << 20U;
/// Nanoseconds, roughly, for the budget: of a bitmap, of a pixel, and of one of a JPEG or PNG file inside, which may
/// come in many passes.
constexpr std::int64_t BitmapCost = 5'000;
constexpr std::int64_t PixelCost = 4;
constexpr std::int64_t FilePixelCost = 60;

/// Pays for a bitmap. One that costs more than there is left is left away, so that what follows it is drawn.
bool Affordable(std::int64_t width, std::int64_t height, std::int64_t pixelCost, vector::WorkBudget& budget) {
    if (!budget.Spend(BitmapCost) || width > MostPixels / height) return false;
    const std::int64_t cost = width * height * pixelCost;
    return cost < budget.Left() && budget.Spend(cost);
}

void UsePaletteIndexes(ByteSource& file, const Palette& palette, BmpHeader& header) {
    std::array<std::byte, 512> indexes{};
    const std::uint64_t count = std::min<std::uint64_t>(header.paletteCount, 256);
    const std::size_t got = file.ReadAt(header.paletteOffset, std::span(indexes).first(2 * count));
    for (std::size_t i = 0; i < got / 2; ++i)
        header.palette[i] = ToPixel(0x01000000U | U16(indexes, 2 * i), palette);
}

bool IsBlackAndWhite(const BmpHeader& header) {
    return header.palette[0] == OpaquePixel(0, 0, 0) && header.palette[1] == OpaquePixel(255, 255, 255);
}

void UseMonoColours(const BitmapColours& colours, BmpHeader& header) {
    const bool replaced = colours.mono == BitmapColours::Mono::Always ||
                          (colours.mono == BitmapColours::Mono::BlackAndWhite && IsBlackAndWhite(header));
    if (header.bits != 1 || !replaced) return;
    header.palette[0] = colours.zero;
    header.palette[1] = colours.one;
}

/// A bitmap whose alpha counts, and is 0 throughout, is seen through; decoding takes it for opaque.
void ClearAlpha(Surface& pixels) {
    // Pixels that were not reached are 0, and cost no memory as long as they are not written.
    for (Pixel& pixel : pixels.Pixels())
        if (pixel != 0) pixel &= 0xFFFFFFU;
}

/// Bitmaps are drawn without a look at their alpha, for which a PNG file may have any colour where it is seen through.
void LayOnPaper(Surface& pixels) {
    constexpr Pixel Paper = 0xFFFFFFFFU;
    for (Pixel& pixel : pixels.Pixels())
        pixel = vector::Mixed(pixel, Paper, pixel >> 24U);
}

LoadedBitmap LoadDib(ByteSource& source, const BitmapPlace& place, const BitmapColours& colours,
                     const Cancellation& sink, vector::WorkBudget& budget,
                     std::optional<std::uint32_t> rows) {
    const std::uint64_t end = std::max(place.header + place.headerLength, place.bits + place.bitsLength);
    SourcePart part(source, 0, end);
    BmpHeader header = ReadBmpInfo(part, place.header, place.bits);
    if (!header.trouble.empty()) return {};
    if (place.paletteIndexes && header.bits <= 8) {
        UsePaletteIndexes(part, *colours.palette, header);
        if (place.bits == 0) header.pixelOffset = header.paletteOffset + 2 * header.paletteCount;
    }
    if (place.bits != 0) header.pixelOffset = place.bits;
    UseMonoColours(colours, header);
    const bool forceAlpha = colours.alpha && header.storage == BmpStorage::Packed && header.bits == 32;
    if (forceAlpha) header.masks[3] = 0xFF000000U;
    if (rows) header.height = static_cast<int>(std::min<std::int64_t>(*rows, header.height));
    const bool file = header.storage == BmpStorage::Jpeg || header.storage == BmpStorage::Png;
    const std::int64_t cost = file ? FilePixelCost : PixelCost;
    if (header.height == 0 || !Affordable(header.width, header.height, cost, budget)) return {};

    // A file inside has a size of its own, which must not be larger than what was paid for.
    SurfaceSink kept(sink, std::int64_t{header.width} * header.height);
    const DecodeStatus status = DecodeBmpPixels(part, header, kept);
    if (!status.someRows) return {};
    if (forceAlpha && !kept.info.transparent) ClearAlpha(kept.surface);
    if (header.storage == BmpStorage::Png) LayOnPaper(kept.surface);
    return {std::move(kept.surface), header.topDown};
}

/// Rows of a device are whole 16-bit words, from the top. Of the kinds that depended on the device of their time only
/// those are known that look the same on all.
LoadedBitmap LoadDeviceBitmap(ByteSource& file, const BitmapPlace& place, const BitmapColours& colours,
                              vector::WorkBudget& budget) {
    std::array<std::byte, 10> header{};
    if (file.ReadAt(place.header, header) < header.size()) return {};
    const int width = U16(header, 2);
    const int height = U16(header, 4);
    const std::size_t stride = U16(header, 6);
    const auto planes = std::to_integer<unsigned>(header[8]);
    const auto bits = std::to_integer<unsigned>(header[9]);
    const std::size_t needed = (static_cast<std::size_t>(width) * bits + 7) / 8;
    const bool known = planes == 1 && (bits == 1 || bits == 24 || bits == 32);
    if (!known || width == 0 || height == 0 || stride < needed) return {};
    if (stride * static_cast<std::uint64_t>(height) > place.bitsLength + stride - needed) return {};
    if (!Affordable(width, height, PixelCost, budget)) return {};

    std::array<Pixel, 256> palette{colours.zero, colours.one};
    const MaskedPixels masked(32, {0xFF0000U, 0xFF00U, 0xFFU, 0U});
    Surface pixels(width, height);
    std::vector<std::byte> row(needed);
    for (int y = 0; y < height; ++y) {
        if (file.ReadAt(place.bits + static_cast<std::uint64_t>(y) * stride, row) < needed) return {};
        if (bits == 1) {
            PixelsFromIndexes(1, row, palette, pixels.Row(y));
        } else if (bits == 24) {
            PixelsFromBgr24(row, pixels.Row(y));
        } else {
            masked.Convert(row, pixels.Row(y));
        }
    }
    return {std::move(pixels), true};
}

}  // namespace

LoadedBitmap LoadBitmap(ByteSource& file, const BitmapPlace& place, const BitmapColours& colours,
                        const Cancellation& sink, vector::WorkBudget& budget,
                        std::optional<std::uint32_t> rows) {
    try {
        switch (place.kind) {
            case BitmapPlace::Kind::Dib:
                return LoadDib(file, place, colours, sink, budget, rows);
            case BitmapPlace::Kind::DeviceBitmap:
                return LoadDeviceBitmap(file, place, colours, budget);
            case BitmapPlace::Kind::None:
                break;
        }
    } catch (const RuntimeError&) {
        // Memory refused to one bitmap: the rest of the drawing may still be shown.
    }
    return {};
}

}  // namespace tavrix::metafile
