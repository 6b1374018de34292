#include <algorithm>

#include "imaging/metafile/EmfBitmapPlace.h"
#include "imaging/metafile/EmfReaders.h"
#include "imaging/metafile/PaletteEntries.h"

namespace tavrix::metafile {
namespace {

enum Type : std::uint32_t {
    SelectObjectType = 37,
    CreatePen = 38,
    CreateBrushIndirect = 39,
    DeleteObjectType = 40,
    SelectPaletteType = 48,
    CreatePalette = 49,
    SetPaletteEntriesType = 50,
    ResizePaletteType = 51,
    ExtCreateFontIndirectW = 82,
    CreateMonoBrush = 93,
    CreateDibPatternBrushPt = 94,
    ExtCreatePen = 95,
    CreateColorSpace = 99,
    CreateColorSpaceW = 122,
};

constexpr std::size_t FaceLength = 32;
/// Systems take no more than 16. A line with more is drawn solid; each use of a pen would go through them all.
constexpr std::uint32_t MostDashes = 64;

Handle ReadHandle(RecordBytes& bytes) {
    const Handle handle = bytes.U32(8);
    if ((handle & ~StockObject) >= MostHandles) bytes.Break();
    return handle;
}

Record Create(RecordBytes& bytes, Object object) {
    const Handle handle = ReadHandle(bytes);
    // Place 0 is the metafile's own.
    if (handle == 0 || (handle & StockObject) != 0) bytes.Break();
    return CreateObject{handle, std::make_shared<const Object>(std::move(object))};
}

Pen SimplePen(RecordBytes& bytes) {
    Pen pen;
    pen.style = bytes.U32(12) & pen::StyleMask;
    pen.width = bytes.I32(16);
    pen.brush.colour = bytes.U32(24);
    return pen;
}

Pen ExtendedPen(RecordBytes& bytes) {
    Pen pen;
    pen.extended = true;
    pen.style = bytes.U32(28);
    pen.width = bytes.I32(32);
    pen.brush.style = bytes.U32(36);
    pen.brush.colour = bytes.U32(40);
    pen.brush.hatch = bytes.U32(44);
    pen.brush.bitmap = ReadEmfBitmapPlace(bytes, 12, 40);
    const std::uint32_t count = bytes.U32(48);
    if (!bytes.Holds(52, count, 4) || count > MostDashes) return pen;
    for (std::uint32_t i = 0; i < count; ++i)
        pen.dashes.push_back(bytes.U32(52 + std::uint64_t{4} * i));
    return pen;
}

Brush SimpleBrush(RecordBytes& bytes) {
    Brush brush;
    brush.style = bytes.U32(12);
    brush.colour = bytes.U32(16);
    brush.hatch = bytes.U32(20);
    return brush;
}

Brush PatternBrush(RecordBytes& bytes, bool mono) {
    Brush brush;
    brush.style = brush::DibPattern;
    brush.mono = mono;
    brush.bitmap = ReadEmfBitmapPlace(bytes, 16, 12);
    return brush;
}

Font ReadFont(RecordBytes& bytes) {
    Font font;
    font.height = bytes.I32(12);
    font.width = bytes.I32(16);
    font.escapement = bytes.I32(20);
    font.orientation = bytes.I32(24);
    font.weight = bytes.I32(28);
    font.italic = bytes.U8(32) != 0;
    font.underline = bytes.U8(33) != 0;
    font.strikeOut = bytes.U8(34) != 0;
    font.charset = bytes.U8(35);
    font.pitchAndFamily = bytes.U8(39);
    for (std::size_t i = 0; i < FaceLength; ++i) {
        const char16_t unit = bytes.U16(40 + 2 * i);
        if (unit == 0) break;
        font.wideFace.push_back(unit);
    }
    return font;
}

/// A palette has no more entries than 16 bits can count. Writers do not look whether it has; such a record is passed
/// over.
std::optional<Record> Resize(RecordBytes& bytes) {
    const std::uint32_t count = bytes.U32(12);
    if (count > MostHandles) return std::nullopt;
    return ResizePalette{ReadHandle(bytes), count};
}

}  // namespace

std::optional<Record> ReadEmfObject(std::uint32_t type, RecordBytes& bytes) {
    switch (type) {
        case SelectObjectType:
            return SelectObject{ReadHandle(bytes)};
        case DeleteObjectType:
            return DeleteObject{ReadHandle(bytes)};
        case SelectPaletteType:
            return SelectPalette{ReadHandle(bytes)};
        case CreatePen:
            return Create(bytes, SimplePen(bytes));
        case ExtCreatePen:
            return Create(bytes, ExtendedPen(bytes));
        case CreateBrushIndirect:
            return Create(bytes, SimpleBrush(bytes));
        case CreateMonoBrush:
        case CreateDibPatternBrushPt:
            return Create(bytes, PatternBrush(bytes, type == CreateMonoBrush));
        case ExtCreateFontIndirectW:
            return Create(bytes, ReadFont(bytes));
        case CreatePalette:
            return Create(bytes, Palette{ReadPaletteEntries(bytes, 16, bytes.U16(14))});
        case SetPaletteEntriesType:
            return SetPaletteEntries{ReadHandle(bytes), bytes.U32(12),
                                     ReadPaletteEntries(bytes, 20, bytes.U32(16))};
        case ResizePaletteType:
            return Resize(bytes);
        case CreateColorSpace:
        case CreateColorSpaceW:
            return CreateObject{ReadHandle(bytes), nullptr};
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
