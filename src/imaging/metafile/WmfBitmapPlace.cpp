#include "imaging/metafile/WmfBitmapPlace.h"

namespace tavrix::metafile {
namespace {

constexpr std::uint64_t SmallestDibHeader = 12;
constexpr std::uint64_t DeviceHeader = 10;

}  // namespace

BitmapPlace ReadWmfDib(RecordBytes& bytes, std::uint64_t at, bool paletteIndexes) {
    if (at + SmallestDibHeader > bytes.Length()) {
        bytes.Break();
        return {};
    }
    BitmapPlace place;
    place.kind = BitmapPlace::Kind::Dib;
    place.paletteIndexes = paletteIndexes;
    place.header = bytes.Offset() + at;
    place.headerLength = bytes.Length() - at;
    return place;
}

BitmapPlace ReadWmfDeviceBitmap(RecordBytes& bytes, std::uint64_t at, std::uint64_t gap) {
    if (at + DeviceHeader + gap > bytes.Length()) {
        bytes.Break();
        return {};
    }
    BitmapPlace place;
    place.kind = BitmapPlace::Kind::DeviceBitmap;
    place.header = bytes.Offset() + at;
    place.headerLength = DeviceHeader;
    place.bits = place.header + DeviceHeader + gap;
    place.bitsLength = bytes.Length() - at - DeviceHeader - gap;
    return place;
}

}  // namespace tavrix::metafile
