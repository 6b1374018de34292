#include <algorithm>

#include "imaging/metafile/Pixels.h"
#include "imaging/metafile/Regions.h"
#include "imaging/metafile/Replay.h"
#include "imaging/metafile/Tools.h"

namespace tavrix::metafile {
namespace {

using vector::RegionMode;

void Combine(DeviceContext& context, RegionMode mode, const vector::Region& region) {
    std::optional<vector::Region>& clip = context.State().clip;
    const vector::Region former = clip.value_or(vector::Region(context.Painter().Bounds()));
    clip = former.Combined(mode, region, context.Painter().Budget());
    context.ApplyClip();
}

void ClearClip(DeviceContext& context) {
    context.State().clip.reset();
    context.ApplyClip();
}

/// The pixels of the region that are not so far from its border as the frame is wide.
vector::Region FrameOf(DeviceContext& context, const vector::Region& region, Point frame) {
    vector::WorkBudget& budget = context.Painter().Budget();
    const vector::Point size = context.ToPicture().ApplyToVector({double(frame.x), double(frame.y)});
    const int width = std::max(ToPixelPlace(std::abs(size.x)), 1);
    const int height = std::max(ToPixelPlace(std::abs(size.y)), 1);
    const auto shifted = [&](int x, int y) { return region.Shifted(x, y, budget); };
    const vector::Region columns = shifted(width, 0).Combined(RegionMode::And, shifted(-width, 0), budget);
    const vector::Region rows = shifted(0, height).Combined(RegionMode::And, shifted(0, -height), budget);
    return region.Combined(RegionMode::Difference, columns.Combined(RegionMode::And, rows, budget), budget);
}

}  // namespace

void Replay(DeviceContext& context, const ClipBox& record) {
    const vector::Region box = RegionOf(context, std::span(&record.box, 1), context.ToPicture());
    Combine(context, record.exclude ? RegionMode::Difference : RegionMode::And, box);
}

void Replay(DeviceContext& context, const OffsetClip& record) {
    std::optional<vector::Region>& clip = context.State().clip;
    if (!clip) return;
    const vector::Point by = context.ToPicture().ApplyToVector({double(record.by.x), double(record.by.y)});
    clip = clip->Shifted(ToPixelPlace(by.x), ToPixelPlace(by.y), context.Painter().Budget());
    context.ApplyClip();
}

void Replay(DeviceContext& context, const ClipRegion& record) {
    if (!record.region) return ClearClip(context);
    const vector::Region region = RegionOf(context, record.region->boxes, context.Place().deviceToPicture);
    Combine(context, static_cast<RegionMode>(record.mode), region);
}

void Replay(DeviceContext& context, const ClipRegionObject& record) {
    const auto region = context.FindAs<Region>(record.handle);
    if (!region) return ClearClip(context);
    Combine(context, RegionMode::Copy, RegionOf(context, region->boxes, context.Place().deviceToPicture));
}

void Replay(DeviceContext& context, const SetMetaRegion&) {
    DeviceState& state = context.State();
    if (!state.clip) return;
    state.metaClip = state.metaClip.value_or(vector::Region(context.Painter().Bounds()))
                         .Combined(RegionMode::And, *state.clip, context.Painter().Budget());
    state.clip.reset();
    context.ApplyClip();
}

void Replay(DeviceContext& context, const DrawRegion& record) {
    const auto object = context.FindAs<Region>(record.regionObject);
    const Region* region = record.region ? record.region.get() : object.get();
    if (region == nullptr) return;
    const vector::Region pixels = RegionOf(context, region->boxes, context.ToPicture());
    vector::Painter& painter = context.Painter();
    switch (record.kind) {
        case DrawRegion::Kind::Paint:
            return painter.FillRegion(pixels, SelectedBrush(context), context.Operation());
        case DrawRegion::Kind::Invert:
            return painter.FillRegion(pixels, vector::Brush::Solid(0xFF000000U),
                                      vector::BinaryOperation::Not);
        case DrawRegion::Kind::Fill:
            return painter.FillRegion(pixels, BrushOf(context, context.Find(record.brush)),
                                      context.Operation());
        case DrawRegion::Kind::Frame:
            return painter.FillRegion(FrameOf(context, pixels, record.frame),
                                      BrushOf(context, context.Find(record.brush)), context.Operation());
    }
}

}  // namespace tavrix::metafile
