#include "imaging/metafile/EmfBitmapPlace.h"

namespace tavrix::metafile {
namespace {

bool Within(std::uint64_t offset, std::uint64_t length, std::uint64_t whole) {
    return offset <= whole && length <= whole - offset;
}

}  // namespace

BitmapPlace ReadEmfBitmapPlace(RecordBytes& bytes, std::uint64_t at, std::uint64_t usage) {
    const std::uint64_t header = bytes.U32(at);
    const std::uint64_t headerLength = bytes.U32(at + 4);
    const std::uint64_t bits = bytes.U32(at + 8);
    const std::uint64_t bitsLength = bytes.U32(at + 12);
    BitmapPlace place;
    if (header == 0 || headerLength == 0) return place;
    if (!Within(header, headerLength, bytes.Length()) || !Within(bits, bitsLength, bytes.Length())) {
        bytes.Break();
        return place;
    }
    place.kind = BitmapPlace::Kind::Dib;
    place.paletteIndexes = bytes.U32(usage) == UsesPaletteIndexes;
    place.header = bytes.Offset() + header;
    place.headerLength = headerLength;
    place.bits = bits == 0 ? 0 : bytes.Offset() + bits;
    place.bitsLength = bitsLength;
    return place;
}

}  // namespace tavrix::metafile
