#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Function : std::uint16_t {
    InvertRegion = 0x012A,
    PaintRegion = 0x012B,
    SelectClipRegion = 0x012C,
    OffsetClipRgn = 0x0220,
    FillRegion = 0x0228,
    ExcludeClipRect = 0x0415,
    IntersectClipRect = 0x0416,
    FrameRegion = 0x0429,
};

constexpr std::uint64_t At = WmfParameters;

Record Draw(DrawRegion::Kind kind, RecordBytes& bytes) {
    DrawRegion draw;
    draw.kind = kind;
    draw.regionObject = bytes.U16(At);
    if (kind == DrawRegion::Kind::Fill || kind == DrawRegion::Kind::Frame) draw.brush = bytes.U16(At + 2);
    if (kind == DrawRegion::Kind::Frame) draw.frame = WmfPlace(bytes, At + 4);
    return draw;
}

}  // namespace

std::optional<Record> ReadWmfClip(std::uint16_t function, RecordBytes& bytes) {
    switch (function) {
        case InvertRegion:
            return Draw(DrawRegion::Kind::Invert, bytes);
        case PaintRegion:
            return Draw(DrawRegion::Kind::Paint, bytes);
        case FillRegion:
            return Draw(DrawRegion::Kind::Fill, bytes);
        case FrameRegion:
            return Draw(DrawRegion::Kind::Frame, bytes);
        case SelectClipRegion:
            return ClipRegionObject{bytes.U16(At)};
        case OffsetClipRgn:
            return OffsetClip{WmfPlace(bytes, At)};
        case ExcludeClipRect:
        case IntersectClipRect:
            return ClipBox{function == ExcludeClipRect, WmfBox(bytes, At)};
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
