#include "imaging/codecs/BmpDecoder.h"

#include <new>

#include "imaging/codecs/BmpRle.h"
#include "imaging/codecs/BmpRows.h"
#include "imaging/codecs/JpegDecoder.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/codecs/SourcePart.h"

namespace tavrix {
namespace {

/// Up to here the skipped pixels of run-length data get a colour. In larger pictures they stay transparent, so that
/// a few bytes cannot make the program touch a gigabyte.
constexpr std::int64_t FillSkippedUpTo = 16LL << 20U;

DecodeStatus DecodeRuns(ByteSource& source, const BmpHeader& header, PictureSink& sink) {
    if (source.Size() < header.pixelOffset + 2)
        return {Outcome::Truncated, source.Size(), "no pixels", false};
    const bool fill = std::int64_t{header.width} * header.height <= FillSkippedUpTo;
    Surface* surface = sink.Begin({.width = header.width, .height = header.height, .transparent = !fill});
    if (surface == nullptr) return {Outcome::Corrupt, 0, "surface refused", false};
    if (fill) surface->Fill(header.palette[0]);
    return DecodeBmpRle(source, header, *surface, sink);
}

}  // namespace

bool RecognisesBmp(std::span<const std::byte> start) {
    return start.size() >= 2 && start[0] == std::byte{'B'} &&
           (start[1] == std::byte{'M'} || start[1] == std::byte{'A'});
}

DecodeStatus DecodeBmpPixels(ByteSource& source, const BmpHeader& header, PictureSink& sink) {
    switch (header.storage) {
        case BmpStorage::Rle4:
        case BmpStorage::Rle8:
        case BmpStorage::Rle24:
            return DecodeRuns(source, header, sink);
        case BmpStorage::Jpeg: {
            SourcePart inside(source, header.pixelOffset);
            return DecodeJpeg(inside, sink);
        }
        case BmpStorage::Png: {
            SourcePart inside(source, header.pixelOffset);
            return DecodePng(inside, sink);
        }
        default:
            return DecodeBmpRows(source, header, sink);
    }
}

PictureHeader ReadBmpSize(ByteSource& source, const Cancellation& waiting) {
    const BmpHeader header = ReadBmpHeader(source);
    if (!header.trouble.empty()) return {.reason = header.trouble};
    // A file inside has a size of its own.
    SourcePart inside(source, header.pixelOffset);
    if (header.storage == BmpStorage::Jpeg) return ReadJpegSize(inside, waiting);
    if (header.storage == BmpStorage::Png) return ReadPngSize(inside, waiting);
    return {.info = {.width = header.width, .height = header.height}, .known = true};
}

DecodeStatus DecodeBmp(ByteSource& source, PictureSink& sink) {
    try {
        const BmpHeader header = ReadBmpHeader(source);
        if (!header.trouble.empty()) return {Outcome::Corrupt, 0, header.trouble, false};
        return DecodeBmpPixels(source, header, sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
