#include "imaging/metafile/Regions.h"

#include <algorithm>
#include <vector>

#include "imaging/metafile/Figures.h"
#include "imaging/metafile/Pixels.h"

namespace tavrix::metafile {
namespace {

PixelRect Placed(const Box& box, const vector::Affine& map) {
    const vector::Point a = map.Apply(ToPoint({box.left, box.top}));
    const vector::Point b = map.Apply(ToPoint({box.right, box.bottom}));
    const int left = ToPixelPlace(std::min(a.x, b.x));
    const int top = ToPixelPlace(std::min(a.y, b.y));
    return {left, top, ToPixelPlace(std::max(a.x, b.x)) - left, ToPixelPlace(std::max(a.y, b.y)) - top};
}

vector::Path PathOf(std::span<const Box> boxes) {
    vector::Path path;
    for (const Box& box : boxes)
        path.AddBox({double(box.left), double(box.top), double(box.right), double(box.bottom)});
    return path;
}

}  // namespace

vector::Region RegionOf(DeviceContext& context, std::span<const Box> boxes, const vector::Affine& map) {
    constexpr std::int64_t BoxCost = 20;
    vector::WorkBudget& budget = context.Painter().Budget();
    if (!budget.Spend(BoxCost * std::ssize(boxes))) return {};
    if (!map.KeepsBoxes()) {
        return vector::Region::Of(PathOf(boxes).Transformed(map), vector::FillRule::NonZero,
                                  context.Painter().Bounds(), budget);
    }
    std::vector<PixelRect> rects;
    rects.reserve(boxes.size());
    for (const Box& box : boxes)
        rects.push_back(Placed(box, map));
    return vector::Region::Of(rects, budget);
}

}  // namespace tavrix::metafile
