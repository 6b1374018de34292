#include "imaging/metafile/PointLists.h"
#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Function : std::uint16_t {
    LineToFunction = 0x0213,
    MoveToFunction = 0x0214,
    Polygon = 0x0324,
    Polyline = 0x0325,
    Ellipse = 0x0418,
    FloodFillFunction = 0x0419,
    Rectangle = 0x041B,
    SetPixel = 0x041F,
    PolyPolygon = 0x0538,
    ExtFloodFill = 0x0548,
    RoundRect = 0x061C,
    Arc = 0x0817,
    Pie = 0x081A,
    Chord = 0x0830,
};

constexpr std::uint64_t At = WmfParameters;

Record Poly(PolyShape::Kind kind, RecordBytes& bytes) {
    return PolyShape{kind, ReadPoints(bytes, At + 2, bytes.U16(At), PointSize::Words)};
}

Record PolyPoly(RecordBytes& bytes) {
    const std::uint64_t shapes = bytes.U16(At);
    PolyPolyShape shape{true, {}, {}};
    std::uint64_t sum = 0;
    shape.counts = ReadCounts(bytes, At + 2, shapes, 2, sum);
    if (!bytes.Broken()) shape.points = ReadPoints(bytes, At + 2 + 2 * shapes, sum, PointSize::Words);
    return shape;
}

Record ReadArc(ArcShape::Kind kind, RecordBytes& bytes) {
    return ArcShape{kind, WmfBox(bytes, At + 8), WmfPlace(bytes, At + 4), WmfPlace(bytes, At)};
}

}  // namespace

std::optional<Record> ReadWmfShape(std::uint16_t function, RecordBytes& bytes) {
    switch (function) {
        case LineToFunction:
            return LineTo{WmfPlace(bytes, At)};
        case MoveToFunction:
            return MoveTo{WmfPlace(bytes, At)};
        case Polygon:
            return Poly(PolyShape::Kind::Polygon, bytes);
        case Polyline:
            return Poly(PolyShape::Kind::Polyline, bytes);
        case PolyPolygon:
            return PolyPoly(bytes);
        case Ellipse:
            return BoxShape{BoxShape::Kind::Ellipse, WmfBox(bytes, At)};
        case Rectangle:
            return BoxShape{BoxShape::Kind::Rectangle, WmfBox(bytes, At)};
        case RoundRect:
            return RoundBox{WmfBox(bytes, At + 4), WmfPlace(bytes, At)};
        case Arc:
            return ReadArc(ArcShape::Kind::Arc, bytes);
        case Pie:
            return ReadArc(ArcShape::Kind::Pie, bytes);
        case Chord:
            return ReadArc(ArcShape::Kind::Chord, bytes);
        case SetPixel:
            return SetPixelColour{WmfPlace(bytes, At + 4), bytes.U32(At)};
        case FloodFillFunction:
            return FloodFill{WmfPlace(bytes, At + 4), bytes.U32(At), false};
        case ExtFloodFill:
            return FloodFill{WmfPlace(bytes, At + 6), bytes.U32(At + 2), bytes.U16(At) == 1};
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
