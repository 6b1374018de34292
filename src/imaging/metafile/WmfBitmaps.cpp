#include "imaging/metafile/WmfBitmapPlace.h"
#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Function : std::uint16_t {
    PatBlt = 0x061D,
    BitBlt = 0x0922,
    DibBitBlt = 0x0940,
    StretchBlt = 0x0B23,
    DibStretchBlt = 0x0B41,
    SetDibToDev = 0x0D33,
    StretchDib = 0x0F43,
};

constexpr std::uint64_t At = WmfParameters;

using BlitRecord = std::unique_ptr<const Blit>;
using DibRecord = std::unique_ptr<const DrawDib>;

Record ReadPatBlt(RecordBytes& bytes) {
    auto blit = std::make_unique<Blit>();
    blit->operation = bytes.U32(At);
    blit->toSize = WmfPlace(bytes, At + 4);
    blit->to = WmfPlace(bytes, At + 8);
    return BlitRecord(std::move(blit));
}

/// The short form of a blit has no bitmap, but a word of no use before the destination. The high half of the function
/// tells the number of parameter words of the other form, so that the length tells the two apart. The format names the
/// picture itself as the source of this form, and lets the record fail where its operation needs a source: so it draws
/// with the brush or not at all.
bool LacksBitmap(std::uint16_t function, const RecordBytes& bytes) {
    return bytes.Length() / 2 == static_cast<std::uint64_t>(function >> 8U) + 3;
}

Record ReadBlit(std::uint16_t function, RecordBytes& bytes) {
    auto blit = std::make_unique<Blit>();
    const bool none = LacksBitmap(function, bytes);
    const bool stretched = function == StretchBlt || function == DibStretchBlt;
    std::uint64_t at = At;
    blit->operation = bytes.U32(at);
    at += 4;
    if (stretched) {
        blit->fromSize = WmfPlace(bytes, at);
        at += 4;
    }
    blit->from = WmfPlace(bytes, at);
    at += none ? 6 : 4;
    blit->toSize = WmfPlace(bytes, at);
    blit->to = WmfPlace(bytes, at + 4);
    if (!stretched) blit->fromSize = blit->toSize;
    if (none) return BlitRecord(std::move(blit));
    const bool dib = function == DibBitBlt || function == DibStretchBlt;
    blit->bitmap = dib ? ReadWmfDib(bytes, at + 8, false) : ReadWmfDeviceBitmap(bytes, at + 8, 0);
    return BlitRecord(std::move(blit));
}

Record ReadSetDibToDev(RecordBytes& bytes) {
    constexpr std::uint32_t SourceCopy = 0x00CC0020U;
    auto draw = std::make_unique<DrawDib>();
    draw->toDevice = true;
    draw->operation = SourceCopy;
    draw->rows = bytes.U16(At + 2);
    draw->firstRow = bytes.U16(At + 4);
    draw->from = WmfPlace(bytes, At + 6);
    draw->fromSize = WmfPlace(bytes, At + 10);
    draw->toSize = draw->fromSize;
    draw->to = WmfPlace(bytes, At + 14);
    draw->bitmap = ReadWmfDib(bytes, At + 18, bytes.U16(At) == UsesPaletteIndexes);
    return DibRecord(std::move(draw));
}

Record ReadStretchDib(RecordBytes& bytes) {
    auto draw = std::make_unique<DrawDib>();
    draw->operation = bytes.U32(At);
    draw->fromSize = WmfPlace(bytes, At + 6);
    draw->from = WmfPlace(bytes, At + 10);
    draw->toSize = WmfPlace(bytes, At + 14);
    draw->to = WmfPlace(bytes, At + 18);
    // Without a bitmap the operation needs none.
    if (bytes.Length() > At + 22)
        draw->bitmap = ReadWmfDib(bytes, At + 22, bytes.U16(At + 4) == UsesPaletteIndexes);
    return DibRecord(std::move(draw));
}

}  // namespace

std::optional<Record> ReadWmfBitmap(std::uint16_t function, RecordBytes& bytes) {
    switch (function) {
        case PatBlt:
            return ReadPatBlt(bytes);
        case BitBlt:
        case DibBitBlt:
        case StretchBlt:
        case DibStretchBlt:
            return ReadBlit(function, bytes);
        case SetDibToDev:
            return ReadSetDibToDev(bytes);
        case StretchDib:
            return ReadStretchDib(bytes);
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
