#include "imaging/metafile/EmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Type : std::uint32_t {
    OffsetClipRgn = 26,
    SetMetaRgn = 28,
    ExcludeClipRect = 29,
    IntersectClipRect = 30,
    BeginPath = 59,
    EndPath = 60,
    CloseFigure = 61,
    FillPath = 62,
    StrokeAndFillPath = 63,
    StrokePath = 64,
    FlattenPath = 65,
    WidenPath = 66,
    SelectClipPathType = 67,
    AbortPath = 68,
    FillRgn = 71,
    FrameRgn = 72,
    InvertRgn = 73,
    PaintRgn = 74,
    ExtSelectClipRgn = 75,
};

constexpr std::uint32_t RegionHeaderSize = 32;

CombineMode Mode(RecordBytes& bytes, std::uint64_t at) {
    const std::uint32_t mode = bytes.U32(at);
    if (mode < 1 || mode > 5) bytes.Break();
    return static_cast<CombineMode>(mode);
}

/// A region of `size` bytes at `at`: a header of 32 bytes, then rectangles.
std::unique_ptr<const Region> ReadRegion(RecordBytes& bytes, std::uint64_t at, std::uint64_t size) {
    auto region = std::make_unique<Region>();
    const std::uint64_t headerSize = bytes.U32(at);
    const std::uint64_t count = bytes.U32(at + 8);
    const bool sane = headerSize >= RegionHeaderSize && headerSize <= size && bytes.Holds(at, 1, size) &&
                      count <= (size - headerSize) / 16;
    if (!sane) {
        bytes.Break();
        return region;
    }
    region->boxes.reserve(static_cast<std::size_t>(count));
    for (std::uint64_t i = 0; i < count; ++i)
        region->boxes.push_back(bytes.Box32(at + headerSize + 16 * i));
    return region;
}

Record SelectRegion(RecordBytes& bytes) {
    const CombineMode mode = Mode(bytes, 12);
    const std::uint32_t size = bytes.U32(8);
    if (size == 0 && mode == CombineMode::Copy) return ClipRegion{mode, nullptr};
    return ClipRegion{mode, ReadRegion(bytes, 16, size)};
}

Handle BrushHandle(RecordBytes& bytes) {
    const Handle handle = bytes.U32(28);
    if ((handle & ~StockObject) >= MostHandles) bytes.Break();
    return handle;
}

Record Draw(std::uint32_t type, RecordBytes& bytes) {
    DrawRegion draw;
    const std::uint32_t size = bytes.U32(24);
    if (type == FillRgn) {
        draw.kind = DrawRegion::Kind::Fill;
        draw.brush = BrushHandle(bytes);
        draw.region = ReadRegion(bytes, 32, size);
    } else if (type == FrameRgn) {
        draw.kind = DrawRegion::Kind::Frame;
        draw.brush = BrushHandle(bytes);
        draw.frame = bytes.P32(32);
        draw.region = ReadRegion(bytes, 40, size);
    } else {
        draw.kind = type == InvertRgn ? DrawRegion::Kind::Invert : DrawRegion::Kind::Paint;
        draw.region = ReadRegion(bytes, 28, size);
    }
    return draw;
}

}  // namespace

std::optional<Record> ReadEmfClip(std::uint32_t type, RecordBytes& bytes) {
    switch (type) {
        case OffsetClipRgn:
            return OffsetClip{bytes.P32(8)};
        case SetMetaRgn:
            return SetMetaRegion{};
        case ExcludeClipRect:
        case IntersectClipRect:
            return ClipBox{type == ExcludeClipRect, bytes.Box32(8)};
        case BeginPath:
            return DoPath{PathStep::Begin};
        case EndPath:
            return DoPath{PathStep::End};
        case CloseFigure:
            return DoPath{PathStep::CloseFigure};
        case FillPath:
            return DoPath{PathStep::Fill};
        case StrokeAndFillPath:
            return DoPath{PathStep::StrokeAndFill};
        case StrokePath:
            return DoPath{PathStep::Stroke};
        case FlattenPath:
            return DoPath{PathStep::Flatten};
        case WidenPath:
            return DoPath{PathStep::Widen};
        case AbortPath:
            return DoPath{PathStep::Abort};
        case SelectClipPathType:
            return SelectClipPath{Mode(bytes, 8)};
        case FillRgn:
        case FrameRgn:
        case InvertRgn:
        case PaintRgn:
            return Draw(type, bytes);
        case ExtSelectClipRgn:
            return SelectRegion(bytes);
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
