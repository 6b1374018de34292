
#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Pixels.h"
#include "imaging/metafile/Replay.h"

namespace tavrix::metafile {

void Replay(DeviceContext& context, const SetPixelColour& record) {
    const vector::Point place = context.ToPicture(record.at);
    context.Painter().SetPixel(ToPixelPlace(place.x), ToPixelPlace(place.y), context.Colour(record.colour));
}

void Replay(DeviceContext& context, const FloodFill& record) {
    const vector::Point place = context.ToPicture(record.at);
    const int x = ToPixelPlace(place.x);
    const int y = ToPixelPlace(place.y);
    const Pixel colour = context.Colour(record.colour);
    const vector::Brush brush = SelectedBrush(context);
    if (record.surface) {
        context.Painter().FloodFillOver(x, y, colour, brush);
    } else {
        context.Painter().FloodFillUpTo(x, y, colour, brush);
    }
}

void Replay(DeviceContext& context, const GradientFill& record) {
    const vector::Affine map = context.ToPicture();
    const auto vertex = [&](std::uint32_t index) {
        const GradientFill::Vertex& told = record.vertices[index];
        return vector::GradientVertex{ToPoint(told.at), double(told.red), double(told.green),
                                      double(told.blue)};
    };
    if (record.mode != GradientFill::Mode::Triangle) {
        const bool vertical = record.mode == GradientFill::Mode::Vertical;
        for (std::size_t i = 0; i + 1 < record.indexes.size(); i += 2)
            context.Painter().GradientBox(vertex(record.indexes[i]), vertex(record.indexes[i + 1]), vertical,
                                          map);
        return;
    }
    for (std::size_t i = 0; i + 2 < record.indexes.size(); i += 3) {
        vector::GradientTriangle corners{vertex(record.indexes[i]), vertex(record.indexes[i + 1]),
                                         vertex(record.indexes[i + 2])};
        for (vector::GradientVertex& corner : corners)
            corner.at = map.Apply(corner.at);
        context.Painter().Gradient(corners);
    }
}

}  // namespace tavrix::metafile
