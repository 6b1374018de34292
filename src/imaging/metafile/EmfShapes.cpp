#include "imaging/metafile/EmfReaders.h"
#include "imaging/metafile/PointLists.h"

namespace tavrix::metafile {
namespace {

enum Type : std::uint32_t {
    PolyBezier = 2,
    Polygon = 3,
    Polyline = 4,
    PolyBezierTo = 5,
    PolylineTo = 6,
    PolyPolyline = 7,
    PolyPolygon = 8,
    SetPixelV = 15,
    MoveToEx = 27,
    AngleArcType = 41,
    EllipseType = 42,
    RectangleType = 43,
    RoundRect = 44,
    ArcType = 45,
    ChordType = 46,
    PieType = 47,
    ExtFloodFill = 53,
    LineToType = 54,
    ArcToType = 55,
    PolyDrawType = 56,
    PolyBezier16 = 85,
    Polygon16 = 86,
    Polyline16 = 87,
    PolyBezierTo16 = 88,
    PolylineTo16 = 89,
    PolyPolyline16 = 90,
    PolyPolygon16 = 91,
    PolyDraw16 = 92,
};

Record Poly(PolyShape::Kind kind, RecordBytes& bytes, PointSize size) {
    return PolyShape{kind, ReadPoints(bytes, 28, bytes.U32(24), size)};
}

Record PolyPoly(bool closed, RecordBytes& bytes, PointSize size) {
    const std::uint64_t shapes = bytes.U32(24);
    PolyPolyShape shape{closed, {}, {}};
    std::uint64_t sum = 0;
    shape.counts = ReadCounts(bytes, 32, shapes, 4, sum);
    if (!bytes.Broken()) shape.points = ReadPoints(bytes, 32 + 4 * shapes, sum, size);
    return shape;
}

Record Draw(RecordBytes& bytes, PointSize size) {
    const std::uint64_t count = bytes.U32(24);
    PolyDraw draw;
    draw.points = ReadPoints(bytes, 28, count, size);
    if (bytes.Broken()) return draw;
    for (const std::byte type : bytes.Span(28 + count * static_cast<std::uint64_t>(size), count))
        draw.types.push_back(std::to_integer<std::uint8_t>(type));
    return draw;
}

Record Arc(ArcShape::Kind kind, RecordBytes& bytes) {
    return ArcShape{kind, bytes.Box32(8), bytes.P32(24), bytes.P32(32)};
}

std::optional<Record> ReadPoly(std::uint32_t type, RecordBytes& bytes) {
    using Kind = PolyShape::Kind;
    switch (type) {
        case PolyBezier:
            return Poly(Kind::Bezier, bytes, PointSize::Longs);
        case Polygon:
            return Poly(Kind::Polygon, bytes, PointSize::Longs);
        case Polyline:
            return Poly(Kind::Polyline, bytes, PointSize::Longs);
        case PolyBezierTo:
            return Poly(Kind::BezierTo, bytes, PointSize::Longs);
        case PolylineTo:
            return Poly(Kind::PolylineTo, bytes, PointSize::Longs);
        case PolyPolyline:
        case PolyPolygon:
            return PolyPoly(type == PolyPolygon, bytes, PointSize::Longs);
        case PolyDrawType:
            return Draw(bytes, PointSize::Longs);
        case PolyBezier16:
            return Poly(Kind::Bezier, bytes, PointSize::Words);
        case Polygon16:
            return Poly(Kind::Polygon, bytes, PointSize::Words);
        case Polyline16:
            return Poly(Kind::Polyline, bytes, PointSize::Words);
        case PolyBezierTo16:
            return Poly(Kind::BezierTo, bytes, PointSize::Words);
        case PolylineTo16:
            return Poly(Kind::PolylineTo, bytes, PointSize::Words);
        case PolyPolyline16:
        case PolyPolygon16:
            return PolyPoly(type == PolyPolygon16, bytes, PointSize::Words);
        case PolyDraw16:
            return Draw(bytes, PointSize::Words);
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<Record> ReadEmfShape(std::uint32_t type, RecordBytes& bytes) {
    switch (type) {
        case SetPixelV:
            return SetPixelColour{bytes.P32(8), bytes.U32(16)};
        case MoveToEx:
            return MoveTo{bytes.P32(8)};
        case LineToType:
            return LineTo{bytes.P32(8)};
        case AngleArcType:
            return AngleArc{bytes.P32(8), bytes.U32(16), bytes.F32(20), bytes.F32(24)};
        case EllipseType:
            return BoxShape{BoxShape::Kind::Ellipse, bytes.Box32(8)};
        case RectangleType:
            return BoxShape{BoxShape::Kind::Rectangle, bytes.Box32(8)};
        case RoundRect:
            return RoundBox{bytes.Box32(8), bytes.P32(24)};
        case ArcType:
            return Arc(ArcShape::Kind::Arc, bytes);
        case ChordType:
            return Arc(ArcShape::Kind::Chord, bytes);
        case PieType:
            return Arc(ArcShape::Kind::Pie, bytes);
        case ArcToType:
            return Arc(ArcShape::Kind::ArcTo, bytes);
        case ExtFloodFill:
            return FloodFill{bytes.P32(8), bytes.U32(16), bytes.U32(20) == 1};
        default:
            return ReadPoly(type, bytes);
    }
}

}  // namespace tavrix::metafile
