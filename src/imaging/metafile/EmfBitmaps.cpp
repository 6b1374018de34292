#include "imaging/metafile/EmfBitmapPlace.h"
#include "imaging/metafile/EmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Type : std::uint32_t {
    BitBlt = 76,
    StretchBlt = 77,
    MaskBlt = 78,
    PlgBlt = 79,
    SetDibitsToDevice = 80,
    StretchDibits = 81,
    AlphaBlend = 114,
    TransparentBlt = 116,
    GradientFillType = 118,
};

/// The format lets the bitmap be left away only where the operation needs none, so that a record without one that
/// needs it draws nothing.
Record ReadBlit(std::uint32_t type, RecordBytes& bytes) {
    auto blit = std::make_unique<Blit>();
    blit->to = bytes.P32(24);
    blit->toSize = bytes.P32(32);
    blit->operation = bytes.U32(40);
    blit->from = bytes.P32(44);
    blit->fromSize = blit->toSize;
    blit->sourceTransform = bytes.Matrix(52);
    blit->sourceBackground = bytes.U32(76);
    blit->bitmap = ReadEmfBitmapPlace(bytes, 84, 80);
    if (type == MaskBlt) {
        blit->maskFrom = bytes.P32(100);
        blit->mask = ReadEmfBitmapPlace(bytes, 112, 108);
    } else if (type != BitBlt) {
        blit->fromSize = bytes.P32(100);
    }
    if (type == AlphaBlend) blit->kind = Blit::Kind::AlphaBlend;
    if (type == TransparentBlt) blit->kind = Blit::Kind::Transparent;
    return std::unique_ptr<const Blit>(std::move(blit));
}

Record ReadPlg(RecordBytes& bytes) {
    auto blit = std::make_unique<Plg>();
    blit->corners = {bytes.P32(24), bytes.P32(32), bytes.P32(40)};
    blit->from = bytes.P32(48);
    blit->fromSize = bytes.P32(56);
    blit->sourceTransform = bytes.Matrix(64);
    blit->bitmap = ReadEmfBitmapPlace(bytes, 96, 92);
    blit->maskFrom = bytes.P32(112);
    blit->mask = ReadEmfBitmapPlace(bytes, 124, 120);
    return std::unique_ptr<const Plg>(std::move(blit));
}

Record ReadDib(std::uint32_t type, RecordBytes& bytes) {
    constexpr std::uint32_t SourceCopy = 0x00CC0020U;
    auto draw = std::make_unique<DrawDib>();
    draw->to = bytes.P32(24);
    draw->from = bytes.P32(32);
    draw->fromSize = bytes.P32(40);
    draw->bitmap = ReadEmfBitmapPlace(bytes, 48, 64);
    if (type == StretchDibits) {
        draw->operation = bytes.U32(68);
        draw->toSize = bytes.P32(72);
    } else {
        draw->toDevice = true;
        draw->operation = SourceCopy;
        draw->toSize = draw->fromSize;
        draw->firstRow = bytes.U32(68);
        draw->rows = bytes.U32(72);
    }
    return std::unique_ptr<const DrawDib>(std::move(draw));
}

GradientFill::Vertex ReadVertex(RecordBytes& bytes, std::uint64_t at) {
    return {bytes.P32(at), bytes.U16(at + 8), bytes.U16(at + 10), bytes.U16(at + 12), bytes.U16(at + 14)};
}

Record ReadGradient(RecordBytes& bytes) {
    const std::uint64_t vertices = bytes.U32(24);
    const std::uint64_t shapes = bytes.U32(28);
    const std::uint32_t mode = bytes.U32(32);
    GradientFill fill{static_cast<GradientFill::Mode>(mode), {}, {}};
    if (mode > 2) bytes.Break();
    const std::uint64_t indexes = shapes * (mode == 2 ? 3 : 2);
    if (bytes.Broken() || !bytes.Holds(36, vertices, 16) || !bytes.Holds(36 + 16 * vertices, indexes, 4))
        return fill;
    for (std::uint64_t i = 0; i < vertices; ++i)
        fill.vertices.push_back(ReadVertex(bytes, 36 + 16 * i));
    for (std::uint64_t i = 0; i < indexes; ++i) {
        fill.indexes.push_back(bytes.U32(36 + 16 * vertices + 4 * i));
        if (fill.indexes.back() >= vertices) bytes.Break();
    }
    return fill;
}

}  // namespace

std::optional<Record> ReadEmfBitmap(std::uint32_t type, RecordBytes& bytes) {
    switch (type) {
        case BitBlt:
        case StretchBlt:
        case MaskBlt:
        case AlphaBlend:
        case TransparentBlt:
            return ReadBlit(type, bytes);
        case PlgBlt:
            return ReadPlg(bytes);
        case SetDibitsToDevice:
        case StretchDibits:
            return ReadDib(type, bytes);
        case GradientFillType:
            return ReadGradient(bytes);
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
