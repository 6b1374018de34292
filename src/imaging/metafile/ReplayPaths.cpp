#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Replay.h"
#include "imaging/vector/Widen.h"

namespace tavrix::metafile {
namespace {

void Draw(DeviceContext& context, bool fill, bool stroke) {
    const vector::Path path = context.Bracket().Take();
    const DrawingPen pen = stroke ? SelectedPen(context) : DrawingPen{vector::Pen::None(), {}};
    const vector::Brush brush = fill ? SelectedBrush(context) : vector::Brush::None();
    context.Painter().FillAndStroke(path, context.State().fillRule, brush, pen.pen, pen.toPicture,
                                    context.Operation());
}

void Widen(DeviceContext& context) {
    const DrawingPen pen = SelectedPen(context);
    const PixelRect bounds = context.Painter().Bounds();
    // Twice as far as the picture reaches, so that the ends that are cut off stay out of sight.
    const vector::Box reach{double(-bounds.width), double(-bounds.height), 2.0 * bounds.width,
                            2.0 * bounds.height};
    context.Bracket().Replace(
        vector::Widen(context.Bracket().Path(), pen.pen, pen.toPicture, reach, context.Painter().Budget()));
}

}  // namespace

void Replay(DeviceContext& context, const DoPath& record) {
    PathBracket& bracket = context.Bracket();
    switch (record.step) {
        case PathStep::Begin:
            return bracket.Begin();
        case PathStep::End:
            return bracket.End();
        case PathStep::Abort:
            return bracket.Abort();
        case PathStep::CloseFigure:
            if (bracket.Open()) bracket.CloseFigure();
            return;
        case PathStep::Fill:
            return Draw(context, true, false);
        case PathStep::StrokeAndFill:
            return Draw(context, true, true);
        case PathStep::Stroke:
            return Draw(context, false, true);
        case PathStep::Flatten:
            if (context.Painter().Budget().Spend(static_cast<std::int64_t>(bracket.Path().Points().size()) *
                                                 100))
                bracket.Replace(vector::Flattened(bracket.Path()));
            return;
        case PathStep::Widen:
            return Widen(context);
    }
}

void Replay(DeviceContext& context, const SelectClipPath& record) {
    const vector::Path path = context.Bracket().Take();
    const PixelRect bounds = context.Painter().Bounds();
    vector::WorkBudget& budget = context.Painter().Budget();
    const vector::Region inside = vector::Region::Of(path, context.State().fillRule, bounds, budget);
    std::optional<vector::Region>& clip = context.State().clip;
    clip = clip.value_or(vector::Region(bounds))
               .Combined(static_cast<vector::RegionMode>(record.mode), inside, budget);
    context.ApplyClip();
}

}  // namespace tavrix::metafile
