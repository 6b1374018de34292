#include <algorithm>

#include "imaging/metafile/PaletteEntries.h"
#include "imaging/metafile/WmfBitmapPlace.h"
#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Function : std::uint16_t {
    CreatePalette = 0x00F7,
    CreateBrush = 0x00F8,
    CreateBitmap = 0x06FE,
    CreateBitmapIndirect = 0x02FD,
    SelectObjectFunction = 0x012D,
    DibCreatePatternBrush = 0x0142,
    DeleteObjectFunction = 0x01F0,
    CreatePatternBrush = 0x01F9,
    SelectPaletteFunction = 0x0234,
    CreatePenIndirect = 0x02FA,
    CreateFontIndirect = 0x02FB,
    CreateBrushIndirect = 0x02FC,
    CreateRegion = 0x06FF,
};

constexpr std::uint64_t At = WmfParameters;
constexpr std::size_t FaceLength = 32;

/// The place in the table is found when the record's neighbours are known.
Record Create(Object object) {
    return CreateObject{0, std::make_shared<const Object>(std::move(object))};
}

Pen ReadPen(RecordBytes& bytes) {
    Pen pen;
    pen.style = bytes.U16(At);
    pen.width = bytes.I16(At + 2);
    pen.brush.colour = bytes.U32(At + 6);
    return pen;
}

Brush ReadBrush(RecordBytes& bytes) {
    Brush brush;
    brush.style = bytes.U16(At);
    brush.colour = bytes.U32(At + 2);
    // Brushes that paint nothing may come without the last word.
    if (brush.style == brush::Hatched) brush.hatch = bytes.U16(At + 6);
    return brush;
}

Font ReadFont(RecordBytes& bytes) {
    Font font;
    font.height = bytes.I16(At);
    font.width = bytes.I16(At + 2);
    font.escapement = bytes.I16(At + 4);
    font.orientation = bytes.I16(At + 6);
    font.weight = bytes.I16(At + 8);
    font.italic = bytes.U8(At + 10) != 0;
    font.underline = bytes.U8(At + 11) != 0;
    font.strikeOut = bytes.U8(At + 12) != 0;
    font.charset = bytes.U8(At + 13);
    font.pitchAndFamily = bytes.U8(At + 17);
    const std::uint64_t length =
        std::min<std::uint64_t>(bytes.Length() - std::min(bytes.Length(), At + 18), FaceLength);
    for (const std::byte character : bytes.Span(At + 18, length)) {
        if (character == std::byte{0}) break;
        font.face.push_back(static_cast<char>(character));
    }
    return font;
}

Brush ReadDibBrush(RecordBytes& bytes) {
    Brush brush;
    brush.style = brush::DibPattern;
    // What was a pattern of the screen's two colours takes those of the text again.
    brush.mono = bytes.U16(At) == brush::Pattern;
    brush.bitmap = ReadWmfDib(bytes, At + 4, bytes.U16(At + 2) == UsesPaletteIndexes);
    return brush;
}

Brush ReadPatternBrush(RecordBytes& bytes) {
    constexpr std::uint64_t BitsAndReserved = 4 + 18;
    Brush brush;
    brush.style = brush::Pattern;
    brush.mono = true;
    brush.bitmap = ReadWmfDeviceBitmap(bytes, At, BitsAndReserved);
    return brush;
}

/// Bands of rows, each with the spans that lie in it.
Region ReadRegion(RecordBytes& bytes) {
    Region region;
    const std::uint64_t bands = bytes.U16(At + 10);
    std::uint64_t at = At + 22;
    for (std::uint64_t band = 0; band < bands && !bytes.Broken(); ++band) {
        const std::uint64_t numbers = bytes.U16(at);
        const std::int32_t top = bytes.I16(at + 2);
        const std::int32_t bottom = bytes.I16(at + 4);
        at += 6;
        if (!bytes.Holds(at, numbers + 1, 2)) break;
        for (std::uint64_t i = 0; i + 1 < numbers; i += 2)
            region.boxes.push_back({bytes.I16(at + 2 * i), top, bytes.I16(at + 2 * i + 2), bottom});
        at += 2 * numbers + 2;
    }
    return region;
}

}  // namespace

std::optional<Record> ReadWmfObject(std::uint16_t function, RecordBytes& bytes) {
    switch (function) {
        case SelectObjectFunction:
            return SelectObject{bytes.U16(At)};
        case DeleteObjectFunction:
            return DeleteObject{bytes.U16(At)};
        case SelectPaletteFunction:
            return SelectPalette{bytes.U16(At)};
        case CreatePenIndirect:
            return Create(ReadPen(bytes));
        case CreateBrushIndirect:
            return Create(ReadBrush(bytes));
        case CreateFontIndirect:
            return Create(ReadFont(bytes));
        case CreatePalette:
            return Create(Palette{ReadPaletteEntries(bytes, At + 4, bytes.U16(At + 2))});
        case DibCreatePatternBrush:
            return Create(ReadDibBrush(bytes));
        case CreatePatternBrush:
            return Create(ReadPatternBrush(bytes));
        case CreateRegion:
            return Create(ReadRegion(bytes));
        case CreateBrush:
        case CreateBitmap:
        case CreateBitmapIndirect:
            return CreateObject{0, nullptr};
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
