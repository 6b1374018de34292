#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Regions.h"
#include "imaging/metafile/Replay.h"
#include "imaging/metafile/TextPlacement.h"

namespace tavrix::metafile {
namespace {

/// Fills the record's box where that is asked for.
void FillBackground(DeviceContext& context, const Text& text) {
    if ((text.options & Text::Opaque) == 0) return;
    const Pixel colour = context.Colour(context.State().backgroundColour);
    const vector::Region box = RegionOf(context, std::span(&text.box, 1), context.ToPicture());
    context.Painter().FillRegion(box, vector::Brush::Solid(colour));
}

/// Clips to the record's box as long as it lives.
class BoxClip {
  public:
    BoxClip(DeviceContext& context, const Text& text)
        : painter_(context.Painter()), former_(painter_.Clip()), clips_((text.options & Text::Clipped) != 0) {
        if (!clips_) return;
        const vector::Region box = RegionOf(context, std::span(&text.box, 1), context.ToPicture());
        painter_.SetClip(former_.Combined(vector::RegionMode::And, box, painter_.Budget()));
    }
    ~BoxClip() {
        if (clips_) painter_.SetClip(former_);
    }
    BoxClip(const BoxClip&) = delete;
    BoxClip& operator=(const BoxClip&) = delete;
    BoxClip(BoxClip&&) = delete;
    BoxClip& operator=(BoxClip&&) = delete;

  private:
    vector::Painter& painter_;
    vector::Region former_;
    bool clips_;
};

void DrawRun(DeviceContext& context, const PlacedText& placed) {
    vector::Painter& painter = context.Painter();
    const DeviceState& state = context.State();
    if (context.Bracket().Open()) {
        if (painter.Budget().Spend(vector::OutlineCost(placed.run)))
            context.Bracket().Add(vector::OutlineOf(placed.run, placed.toPicture));
        return;
    }
    if (state.opaqueBackground) {
        painter.Fill(vector::CellsOf(placed.run, placed.toPicture), vector::FillRule::NonZero,
                     vector::Brush::Solid(context.Colour(state.backgroundColour)));
    }
    painter.DrawText(placed.run, placed.toPicture, vector::Brush::Solid(context.Colour(state.textColour)));
}

void Draw(DeviceContext& context, const Text& text) {
    FillBackground(context, text);
    const bool updates = (context.State().textAlign & DeviceState::AlignUpdatesPosition) != 0;
    const vector::Point reference = updates ? context.State().position : ToPoint(text.at);
    const PlacedText placed = PlaceText(context, text, reference);
    {
        const BoxClip clip(context, text);
        DrawRun(context, placed);
    }
    if (!updates) return;
    const vector::Affine map = context.ToPicture();
    if (const auto back = map.Inverse())
        context.State().position =
            context.State().position + back->ApplyToVector(vector::AdvanceOf(placed.run, placed.toPicture));
}

}  // namespace

void Replay(DeviceContext& context, const std::unique_ptr<const Text>& record) {
    Draw(context, *record);
}

void Replay(DeviceContext& context, const Texts& record) {
    for (const Text& text : record.texts)
        Draw(context, text);
}

}  // namespace tavrix::metafile
