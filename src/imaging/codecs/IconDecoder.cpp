#include "imaging/codecs/IconDecoder.h"

#include <algorithm>
#include <new>
#include <optional>
#include <vector>

#include "base/RuntimeError.h"
#include "imaging/codecs/BmpRows.h"
#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/IconDirectory.h"
#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/codecs/SourcePart.h"
#include "imaging/codecs/SurfaceSink.h"

namespace tavrix {
namespace {

/// Work that broken images may cause before the rest is left alone.
constexpr std::size_t MostAttempts = 64;
constexpr std::int64_t MostPixelsTried = 2 * MostIconPixels;

/// Makes the pixels transparent whose bit in the mask is set. The mask lies behind the colours, in the same order.
/// Rows that it lacks stay as they are.
void ApplyMask(ByteSource& source, const BmpHeader& header, Surface& surface) {
    ByteReader reader(source,
                      header.pixelOffset + header.Stride() * static_cast<std::uint64_t>(header.height));
    const auto width = static_cast<std::size_t>(header.width);
    std::vector<std::byte> bits((width + 31) / 32 * 4);
    for (int row = 0; row < header.height; ++row) {
        const std::size_t there = std::min(reader.Read(bits) * 8, width);
        const std::span<Pixel> pixels = surface.Row(header.topDown ? row : header.height - 1 - row);
        for (std::size_t x = 0; x < there; ++x) {
            if ((std::to_integer<unsigned>(bits[x / 8]) & (0x80U >> (x % 8))) != 0) pixels[x] = 0;
        }
        if (there < width) break;
    }
}

DecodeStatus DecodeImage(ByteSource& source, const IconImage& image, SurfaceSink& sink) {
    SourcePart inside(source, image.offset);
    if (image.png) return DecodePng(inside, sink);
    const BmpHeader header = ReadIconBitmap(inside);
    const DecodeStatus status = DecodeBmpRows(inside, header, sink);
    // Transparent by now: alpha counts, or the file ends before the mask.
    if (status.someRows && !sink.info.transparent) ApplyMask(inside, header, sink.surface);
    return status;
}

DecodeStatus Deliver(const SurfaceSink& image, DecodeStatus status, PictureSink& sink) {
    PictureInfo info = image.info;
    info.transparent =
        std::ranges::any_of(image.surface.Pixels(), [](Pixel pixel) { return pixel >> 24U != 0xFFU; });
    Surface* surface = sink.Begin(info);
    if (surface == nullptr) return {Outcome::Corrupt, 0, "surface refused", false};
    std::ranges::copy(image.surface.Pixels(), surface->Pixels().begin());
    sink.RowsReady(surface->Height());
    return status;
}

DecodeStatus Decode(ByteSource& source, PictureSink& sink) {
    std::optional<SurfaceSink> partial;
    DecodeStatus partialStatus;
    DecodeStatus firstFailure{Outcome::Corrupt, 0, "no image", false};
    std::vector<std::uint64_t> tried;
    std::int64_t pixelsTried = 0;
    for (const IconImage& image : ReadIconDirectory(source)) {
        if (std::ranges::find(tried, image.offset) != tried.end()) continue;
        pixelsTried += image.Area();
        if (tried.size() == MostAttempts || pixelsTried > MostPixelsTried) break;
        SurfaceSink own(sink, MostIconPixels);
        DecodeStatus status = DecodeImage(source, image, own);
        if (sink.Cancelled()) return {Outcome::Truncated, image.offset, "cancelled", false};
        if (status.outcome == Outcome::Complete) return Deliver(own, status, sink);
        status.offset = std::min(image.offset + status.offset, source.Size());
        if (tried.empty()) firstFailure = status;
        if (status.someRows && !partial) {
            partial.emplace(std::move(own));
            partialStatus = status;
        }
        tried.push_back(image.offset);
    }
    if (partial) return Deliver(*partial, partialStatus, sink);
    firstFailure.someRows = false;
    return firstFailure;
}

bool Recognises(std::span<const std::byte> start, unsigned kind) {
    return start.size() >= 6 && U16(start, 0) == 0 && U16(start, 2) == kind && U16(start, 4) != 0;
}

}  // namespace

bool RecognisesIcon(std::span<const std::byte> start) {
    return Recognises(start, 1);
}

bool RecognisesCursor(std::span<const std::byte> start) {
    return Recognises(start, 2);
}

PictureHeader ReadIconSize(ByteSource& source, const Cancellation&) {
    const std::vector<IconImage> images = ReadIconDirectory(source);
    if (images.empty()) return {.reason = "no image"};
    return {.info = {.width = images.front().width, .height = images.front().height}, .known = true};
}

DecodeStatus DecodeIcon(ByteSource& source, PictureSink& sink) {
    try {
        return Decode(source, sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    } catch (const RuntimeError&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
