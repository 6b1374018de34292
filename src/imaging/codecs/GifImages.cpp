#include "imaging/codecs/GifImages.h"

#include "imaging/codecs/ByteReader.h"

namespace tavrix {
namespace {

constexpr std::uint64_t MostBytes = 256U << 20U;
constexpr unsigned ControlExtension = 0xF9;

/// Passes over a chain of blocks, each behind its length; an empty one ends it.
void SkipBlocks(ByteReader& reader, std::uint64_t end) {
    while (reader.Offset() < end) {
        const auto length = reader.Next();
        if (!length || *length == 0) return;
        reader.Skip(*length);
    }
}

/// Whether the header of an image is there; then the reader stands at its pixel data.
bool SkipImageHeader(ByteReader& reader) {
    std::array<std::byte, 9> header{};
    if (reader.Read(header) != header.size()) return false;
    const auto flags = std::to_integer<unsigned>(header[8]);
    if ((flags & 0x80U) != 0) reader.Skip(3ULL << ((flags & 7U) + 1U));
    reader.Skip(1);  // the code size
    return true;
}

}  // namespace

GifImagesBehind LookBehindGifImage(ByteSource& source, std::uint64_t offset, const Cancellation& sink) {
    ByteReader reader(source, offset);
    const std::uint64_t end = offset + MostBytes;
    SkipBlocks(reader, end);
    GifImagesBehind behind;
    while (reader.Offset() < end && !sink.Cancelled()) {
        const auto kind = reader.Next();
        if (!kind) break;
        if (*kind == 0) continue;  // some writers pad
        if (*kind == '!') {
            behind.timed = reader.Next() == ControlExtension || behind.timed;
        } else if (*kind == ',' && SkipImageHeader(reader)) {
            ++behind.images;
        } else {
            break;
        }
        SkipBlocks(reader, end);
    }
    return behind;
}

}  // namespace tavrix
