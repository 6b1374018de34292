#include <bit>

#include "imaging/metafile/EmfReaders.h"

namespace tavrix::metafile {
namespace {

enum Type : std::uint32_t {
    SetWindowExtEx = 9,
    SetWindowOrgEx = 10,
    SetViewportExtEx = 11,
    SetViewportOrgEx = 12,
    SetBrushOrgEx = 13,
    SetMapMode = 17,
    SetBkMode = 18,
    SetPolyFillMode = 19,
    SetRop2 = 20,
    SetStretchBltMode = 21,
    SetTextAlign = 22,
    SetTextColor = 24,
    SetBkColor = 25,
    ScaleViewportExtEx = 31,
    ScaleWindowExtEx = 32,
    SaveDc = 33,
    RestoreDc = 34,
    SetWorldTransform = 35,
    ModifyWorldTransform = 36,
    SetArcDirection = 57,
    SetMiterLimitType = 58,
    SetTextJustificationType = 120,
};

Record Value(Setting setting, RecordBytes& bytes) {
    return SetValue{setting, bytes.U32(8)};
}

Record Scale(Frame frame, RecordBytes& bytes) {
    return ScaleExtent{frame, {bytes.I32(8), bytes.I32(16)}, {bytes.I32(12), bytes.I32(20)}};
}

/// A floating-point number in some files and an integer in others; no sensible limit is both.
Record MiterLimit(RecordBytes& bytes) {
    const std::uint32_t raw = bytes.U32(8);
    constexpr std::uint32_t LargestInteger = 0x00FFFFFFU;
    return SetMiterLimit{raw <= LargestInteger ? static_cast<double>(raw)
                                               : static_cast<double>(bytes.F32(8))};
}

Record Modify(RecordBytes& bytes) {
    const std::uint32_t mode = bytes.U32(32);
    if (mode < 1 || mode > 4) bytes.Break();
    return ModifyTransform{bytes.Matrix(8), static_cast<ModifyTransform::Mode>(mode)};
}

}  // namespace

// SetLayout (115) is passed over. From right to left it mirrors what follows, but the format tells neither about which
// line nor what becomes of texts, and systems mirror about the window that they play in, which a picture does not have.
// Nearly all of these records set the order from left to right, which is as it was.
std::optional<Record> ReadEmfState(std::uint32_t type, RecordBytes& bytes) {
    switch (type) {
        case SetWindowExtEx:
            return SetFrame{Frame::WindowExtent, bytes.P32(8)};
        case SetWindowOrgEx:
            return SetFrame{Frame::WindowOrigin, bytes.P32(8)};
        case SetViewportExtEx:
            return SetFrame{Frame::ViewportExtent, bytes.P32(8)};
        case SetViewportOrgEx:
            return SetFrame{Frame::ViewportOrigin, bytes.P32(8)};
        case SetBrushOrgEx:
            return SetFrame{Frame::BrushOrigin, bytes.P32(8)};
        case SetMapMode:
            return Value(Setting::MapMode, bytes);
        case SetBkMode:
            return Value(Setting::BackgroundMode, bytes);
        case SetPolyFillMode:
            return Value(Setting::PolyFillMode, bytes);
        case SetRop2:
            return Value(Setting::RasterOperation, bytes);
        case SetStretchBltMode:
            return Value(Setting::StretchMode, bytes);
        case SetTextAlign:
            return Value(Setting::TextAlign, bytes);
        case SetTextColor:
            return Value(Setting::TextColour, bytes);
        case SetBkColor:
            return Value(Setting::BackgroundColour, bytes);
        case SetArcDirection:
            return Value(Setting::ArcDirection, bytes);
        case ScaleViewportExtEx:
            return Scale(Frame::ViewportExtent, bytes);
        case ScaleWindowExtEx:
            return Scale(Frame::WindowExtent, bytes);
        case SaveDc:
            return SaveState{};
        case RestoreDc:
            return RestoreState{bytes.I32(8)};
        case SetWorldTransform:
            return SetTransform{bytes.Matrix(8)};
        case ModifyWorldTransform:
            return Modify(bytes);
        case SetMiterLimitType:
            return MiterLimit(bytes);
        case SetTextJustificationType:
            return SetTextJustification{bytes.I32(8), bytes.I32(12)};
        default:
            return std::nullopt;
    }
}

}  // namespace tavrix::metafile
