#include "imaging/metafile/PaletteEntries.h"
#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Function : std::uint16_t {
    SaveDc = 0x001E,
    SetPalEntries = 0x0037,
    AnimatePalette = 0x0436,
    SetBkMode = 0x0102,
    SetMapMode = 0x0103,
    SetRop2 = 0x0104,
    SetPolyFillMode = 0x0106,
    SetStretchBltMode = 0x0107,
    SetTextCharExtra = 0x0108,
    RestoreDc = 0x0127,
    SetTextAlign = 0x012E,
    ResizePaletteFunction = 0x0139,
    SetBkColor = 0x0201,
    SetTextColor = 0x0209,
    SetTextJustificationFunction = 0x020A,
    SetWindowOrg = 0x020B,
    SetWindowExt = 0x020C,
    SetViewportOrg = 0x020D,
    SetViewportExt = 0x020E,
    OffsetWindowOrg = 0x020F,
    OffsetViewportOrg = 0x0211,
    ScaleWindowExt = 0x0410,
    ScaleViewportExt = 0x0412,
};

Record Value(Setting setting, RecordBytes& bytes) {
    return SetValue{setting, bytes.U16(WmfParameters)};
}

Record Colour(Setting setting, RecordBytes& bytes) {
    return SetValue{setting, bytes.U32(WmfParameters)};
}

Record Place(Frame frame, RecordBytes& bytes, bool relative = false) {
    return SetFrame{frame, WmfPlace(bytes, WmfParameters), relative};
}

/// Told as: y divided by, y multiplied by, x divided by, x multiplied by.
Record Scale(Frame frame, RecordBytes& bytes) {
    const std::uint64_t at = WmfParameters;
    return ScaleExtent{frame, {bytes.I16(at + 6), bytes.I16(at + 2)}, {bytes.I16(at + 4), bytes.I16(at)}};
}

Record Entries(RecordBytes& bytes) {
    const std::uint64_t at = WmfParameters;
    return SetPaletteEntries{MostHandles, bytes.U16(at),
                             ReadPaletteEntries(bytes, at + 4, bytes.U16(at + 2))};
}

}  // namespace

// SetLayout (0x0149) is passed over, as its like among the enhanced records is (EmfState.cpp).
std::optional<Record> ReadWmfState(std::uint16_t function, RecordBytes& bytes) {
    switch (function) {
        case SaveDc:
            return SaveState{};
        case RestoreDc:
            return RestoreState{bytes.I16(WmfParameters)};
        case SetBkMode:
            return Value(Setting::BackgroundMode, bytes);
        case SetMapMode:
            return Value(Setting::MapMode, bytes);
        case SetRop2:
            return Value(Setting::RasterOperation, bytes);
        case SetPolyFillMode:
            return Value(Setting::PolyFillMode, bytes);
        case SetStretchBltMode:
            return Value(Setting::StretchMode, bytes);
        case SetTextAlign:
            return Value(Setting::TextAlign, bytes);
        case SetTextCharExtra:
            return SetValue{Setting::CharacterExtra, static_cast<std::uint32_t>(bytes.I16(WmfParameters))};
        case SetBkColor:
            return Colour(Setting::BackgroundColour, bytes);
        case SetTextColor:
            return Colour(Setting::TextColour, bytes);
        case SetTextJustificationFunction:
            return SetTextJustification{bytes.I16(WmfParameters + 2), bytes.I16(WmfParameters)};
        case SetWindowOrg:
            return Place(Frame::WindowOrigin, bytes);
        case SetWindowExt:
            return Place(Frame::WindowExtent, bytes);
        case SetViewportOrg:
            return Place(Frame::ViewportOrigin, bytes);
        case SetViewportExt:
            return Place(Frame::ViewportExtent, bytes);
        case OffsetWindowOrg:
            return Place(Frame::WindowOrigin, bytes, true);
        case OffsetViewportOrg:
            return Place(Frame::ViewportOrigin, bytes, true);
        case ScaleWindowExt:
            return Scale(Frame::WindowExtent, bytes);
        case ScaleViewportExt:
            return Scale(Frame::ViewportExtent, bytes);
        case SetPalEntries:
        case AnimatePalette:
            return Entries(bytes);
        case ResizePaletteFunction:
            return ResizePalette{MostHandles, bytes.U16(WmfParameters)};
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
