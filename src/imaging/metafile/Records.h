#pragma once

#include <array>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "imaging/metafile/Objects.h"
#include "imaging/metafile/Values.h"

/// What the records of both formats say, checked against the file and ready to be replayed.
namespace tavrix::metafile {

// State

enum class Setting : std::uint8_t {
    MapMode,
    BackgroundMode,
    PolyFillMode,
    RasterOperation,
    StretchMode,
    TextAlign,
    TextColour,
    BackgroundColour,
    CharacterExtra,
    ArcDirection,
};
struct SetValue {
    Setting setting;
    std::uint32_t value;
};
struct SetMiterLimit {
    double limit;
};
struct SetTextJustification {
    std::int32_t extra;  ///< logical units, for all breaks together
    std::int32_t breaks;
};
enum class Frame : std::uint8_t { WindowOrigin, WindowExtent, ViewportOrigin, ViewportExtent, BrushOrigin };
struct SetFrame {
    Frame frame;
    Point value;
    bool relative = false;
};
struct ScaleExtent {
    Frame frame;
    Point multiply;
    Point divide;
};
struct SaveState {};
struct RestoreState {
    std::int32_t which;  ///< below 0: so many back; above: the which-th that was saved
};
struct SetTransform {
    Transform transform;
};
struct ModifyTransform {
    enum class Mode : std::uint8_t { Identity = 1, Left = 2, Right = 3, Set = 4 };
    Transform transform;
    Mode mode;
};

// Objects

struct CreateObject {
    Handle handle;
    std::shared_ptr<const Object> object;  ///< null: of a kind that is not drawn with
};
struct SelectObject {
    Handle handle;
};
struct DeleteObject {
    Handle handle;
};
struct SelectPalette {
    Handle handle;
};
struct SetPaletteEntries {
    Handle handle;  ///< MostHandles: the selected palette
    std::uint32_t first;
    std::vector<ColourValue> entries;
};
struct ResizePalette {
    Handle handle;  ///< MostHandles: the selected palette
    std::uint32_t count;
};

// Shapes

struct MoveTo {
    Point to;
};
struct LineTo {
    Point to;
};
struct PolyShape {
    enum class Kind : std::uint8_t { Polygon, Polyline, PolylineTo, Bezier, BezierTo };
    Kind kind;
    std::vector<Point> points;
};
struct PolyPolyShape {
    bool closed;
    std::vector<std::uint32_t> counts;  ///< their sum is the number of points
    std::vector<Point> points;
};
struct PolyDraw {
    std::vector<Point> points;
    std::vector<std::uint8_t> types;  ///< one a point: 2 line, 4 bezier, 6 move; 1 added: closes
};
struct BoxShape {
    enum class Kind : std::uint8_t { Rectangle, Ellipse };
    Kind kind;
    Box box;
};
struct RoundBox {
    Box box;
    Point corner;  ///< width and height of the corners' ellipse
};
struct ArcShape {
    enum class Kind : std::uint8_t { Arc, Chord, Pie, ArcTo };
    Kind kind;
    Box box;
    Point start;
    Point end;
};
struct AngleArc {
    Point centre;
    std::uint32_t radius;
    float start;  ///< degrees, counter-clockwise
    float sweep;  ///< degrees
};
struct SetPixelColour {
    Point at;
    ColourValue colour;
};
struct FloodFill {
    Point at;
    ColourValue colour;
    bool surface;  ///< fills what has the colour; otherwise up to a border of the colour
};

// Paths and clipping

enum class PathStep : std::uint8_t {
    Begin,
    End,
    CloseFigure,
    Fill,
    StrokeAndFill,
    Stroke,
    Flatten,
    Widen,
    Abort,
};
struct DoPath {
    PathStep step;
};
/// The numbers of RGN_.
enum class CombineMode : std::uint8_t { And = 1, Or = 2, Xor = 3, Minus = 4, Copy = 5 };
struct SelectClipPath {
    CombineMode mode;
};
struct ClipBox {
    bool exclude;
    Box box;
};
struct OffsetClip {
    Point by;
};
struct ClipRegion {
    CombineMode mode;
    std::unique_ptr<const Region> region;  ///< null: clips nothing
};
struct ClipRegionObject {
    Handle handle;  ///< 0: clips nothing
};
struct SetMetaRegion {};
struct DrawRegion {
    enum class Kind : std::uint8_t { Fill, Frame, Invert, Paint };
    Kind kind;
    Handle brush = 0;
    Point frame;
    Handle regionObject = MostHandles;  ///< where there is no region of its own
    std::unique_ptr<const Region> region;
};

// Bitmaps

struct Blit {
    enum class Kind : std::uint8_t { Rop, AlphaBlend, Transparent };
    Kind kind = Kind::Rop;
    std::uint32_t operation = 0;  ///< the raster operation, the blend function or the transparent colour
    Point to;
    Point toSize;
    Point from;
    Point fromSize;
    BitmapPlace bitmap;
    Transform sourceTransform;
    ColourValue sourceBackground = 0xFFFFFFU;
    BitmapPlace mask;
    Point maskFrom;
};
struct Plg {
    std::array<Point, 3> corners;  ///< of the upper left, upper right and lower left
    Point from;
    Point fromSize;
    BitmapPlace bitmap;
    Transform sourceTransform;
    BitmapPlace mask;
    Point maskFrom;
};
/// StretchDIBits and SetDIBitsToDevice: a picture whose rows are counted from its lower edge.
struct DrawDib {
    std::uint32_t operation = 0;
    Point to;
    Point toSize;
    Point from;
    Point fromSize;
    BitmapPlace bitmap;
    bool toDevice = false;  ///< the sizes are pixels of the device, and only some rows are there
    std::uint32_t firstRow = 0;
    std::uint32_t rows = 0;
};
struct GradientFill {
    enum class Mode : std::uint8_t { Horizontal = 0, Vertical = 1, Triangle = 2 };
    struct Vertex {
        Point at;
        std::uint16_t red, green, blue, alpha;
    };
    Mode mode;
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indexes;  ///< two or three a shape, each below the number of vertices
};

// Text

struct Text {
    static constexpr std::uint32_t Opaque = 2;
    static constexpr std::uint32_t Clipped = 4;
    static constexpr std::uint32_t GlyphIndexes = 0x10;
    static constexpr std::uint32_t Advance2d = 0x2000;

    Point at;
    std::uint32_t options = 0;
    Box box;
    std::string bytes;                   ///< in the code page of the selected font
    std::u16string wide;                 ///< in place of bytes; with GlyphIndexes, numbers of glyphs
    std::vector<std::int32_t> advances;  ///< one a code unit, or with Advance2d two; or none
    bool compatible = false;             ///< upright and undistorted whatever the map
};
struct Texts {
    std::vector<Text> texts;
};

using Record =
    std::variant<SetValue, SetMiterLimit, SetTextJustification, SetFrame, ScaleExtent, SaveState,
                 RestoreState, SetTransform, ModifyTransform, CreateObject, SelectObject, DeleteObject,
                 SelectPalette, SetPaletteEntries, ResizePalette, MoveTo, LineTo, PolyShape, PolyPolyShape,
                 PolyDraw, BoxShape, RoundBox, ArcShape, AngleArc, SetPixelColour, FloodFill, DoPath,
                 SelectClipPath, ClipBox, OffsetClip, ClipRegion, ClipRegionObject, SetMetaRegion, DrawRegion,
                 std::unique_ptr<const Blit>, std::unique_ptr<const Plg>, std::unique_ptr<const DrawDib>,
                 GradientFill, std::unique_ptr<const Text>, Texts>;

}  // namespace tavrix::metafile
