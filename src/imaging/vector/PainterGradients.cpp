// The operations of the painter that fill with a gradient.
#include <cmath>

#include "imaging/vector/GradientPlane.h"
#include "imaging/vector/PaintSink.h"
#include "imaging/vector/Painter.h"
#include "imaging/vector/Snap.h"

namespace tavrix::vector {
namespace {

double TamedPart(double part) {
    return std::isnan(part) ? 0 : std::clamp(part, 0.0, 65535.0);
}

GradientVertex Tamed(GradientVertex vertex) {
    return {vector::Tamed(vertex.at), TamedPart(vertex.red), TamedPart(vertex.green), TamedPart(vertex.blue)};
}

}  // namespace

std::optional<GradientPlane> GradientPlane::Through(const GradientTriangle& corners) {
    const Point ab = corners[1].at - corners[0].at;
    const Point ac = corners[2].at - corners[0].at;
    const double area = ab.x * ac.y - ab.y * ac.x;
    if (!(std::abs(area) > 1e-9)) return std::nullopt;
    const auto channel = [&](double GradientVertex::*part) {
        const double a = corners[0].*part;
        const double b = corners[1].*part - a;
        const double c = corners[2].*part - a;
        Channel result{(b * ac.y - c * ab.y) / area, (c * ab.x - b * ac.x) / area, 0};
        result.start = a - corners[0].at.x * result.byX - corners[0].at.y * result.byY;
        return result;
    };
    return GradientPlane{channel(&GradientVertex::red), channel(&GradientVertex::green),
                         channel(&GradientVertex::blue)};
}

void Painter::FillGradient(const Path& path, const GradientPlane& colours) {
    const Path snapped = Snapped(path, {});
    Rasteriser rasteriser(Intersection(TouchedRect(snapped.Bounds()), clip_.Bounds()), budget_);
    rasteriser.Add(Flatten(snapped, ClipBox(), budget_));
    PaintSink sink(target_, clip_, budget_, 8,
                   [&](int x, int y, Pixel, unsigned) { return colours.At(x, y); });
    rasteriser.ScanCentres(FillRule::NonZero, sink);
}

void Painter::GradientBox(const GradientVertex& first, const GradientVertex& second, bool vertical,
                          const Affine& map) noexcept {
    Guarded([&] {
        const GradientVertex a = Tamed(first);
        const GradientVertex b = Tamed(second);
        // The corner beside the first one has its colour too.
        GradientVertex beside = a;
        GradientVertex opposite = b;
        if (vertical) {
            beside.at.x = b.at.x;
        } else {
            beside.at.y = b.at.y;
        }
        GradientTriangle corners{a, beside, opposite};
        for (GradientVertex& corner : corners)
            corner.at = vector::Tamed(map.Apply(corner.at));
        Path path;
        path.AddBox({a.at.x, a.at.y, b.at.x, b.at.y});
        if (const auto plane = GradientPlane::Through(corners)) FillGradient(path.Transformed(map), *plane);
    });
}

void Painter::Gradient(const GradientTriangle& corners) noexcept {
    Guarded([&] {
        GradientTriangle tamed;
        Path path;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            tamed[i] = Tamed(corners[i]);
            path.LineTo(tamed[i].at);
            if (i == 0) {
                path.Clear();
                path.MoveTo(tamed[0].at);
            }
        }
        path.Close();
        if (const auto plane = GradientPlane::Through(tamed)) FillGradient(path, *plane);
    });
}

}  // namespace tavrix::vector
