#include <algorithm>
#include <cmath>

#include "imaging/metafile/Replay.h"

namespace tavrix::metafile {

void Replay(DeviceContext& context, const SetValue& record) {
    constexpr std::uint32_t Opaque = 2;
    constexpr std::uint32_t NonZero = 2;
    constexpr std::uint32_t Clockwise = 2;
    DeviceState& state = context.State();
    const std::uint32_t value = record.value;
    switch (record.setting) {
        case Setting::MapMode:
            state.mapping.SetMode(value);
            break;
        case Setting::BackgroundMode:
            state.opaqueBackground = value == Opaque;
            break;
        case Setting::PolyFillMode:
            state.fillRule = value == NonZero ? vector::FillRule::NonZero : vector::FillRule::EvenOdd;
            break;
        case Setting::RasterOperation:
            state.rasterOperation = value;
            break;
        case Setting::StretchMode:
            state.stretchMode = value;
            break;
        case Setting::TextAlign:
            state.textAlign = value;
            break;
        case Setting::TextColour:
            state.textColour = value;
            break;
        case Setting::BackgroundColour:
            state.backgroundColour = value;
            break;
        case Setting::CharacterExtra:
            state.characterExtra = static_cast<std::int32_t>(value);
            break;
        case Setting::ArcDirection:
            state.clockwiseArcs = value == Clockwise;
            break;
    }
}

void Replay(DeviceContext& context, const SetMiterLimit& record) {
    constexpr double Largest = 10'000;
    const double limit = std::isfinite(record.limit) ? record.limit : 1;
    context.State().miterLimit = std::clamp(limit, 1.0, Largest);
}

void Replay(DeviceContext& context, const SetTextJustification& record) {
    context.State().breakExtra =
        record.breaks > 0 ? static_cast<double>(record.extra) / static_cast<double>(record.breaks) : 0;
}

void Replay(DeviceContext& context, const SetFrame& record) {
    if (record.frame == Frame::BrushOrigin) {
        context.State().brushOrigin = record.value;
    } else {
        context.State().mapping.Set(record);
    }
}

void Replay(DeviceContext& context, const ScaleExtent& record) {
    context.State().mapping.Scale(record);
}

void Replay(DeviceContext& context, const SaveState&) {
    context.Save();
}

void Replay(DeviceContext& context, const RestoreState& record) {
    context.Restore(record.which);
}

void Replay(DeviceContext& context, const SetTransform& record) {
    context.State().mapping.SetWorld(record.transform);
}

void Replay(DeviceContext& context, const ModifyTransform& record) {
    context.State().mapping.ModifyWorld(record);
}

}  // namespace tavrix::metafile
