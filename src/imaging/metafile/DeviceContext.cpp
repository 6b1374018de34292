#include "imaging/metafile/DeviceContext.h"

#include <utility>

#include "imaging/metafile/StockObjects.h"

namespace tavrix::metafile {
namespace {

/// More than any drawing nests.
constexpr std::size_t MostSaved = 4096;

std::shared_ptr<const Palette> PaletteOf(const std::shared_ptr<const Object>& object) {
    const auto* palette = object ? std::get_if<Palette>(object.get()) : nullptr;
    return palette == nullptr ? nullptr : std::shared_ptr<const Palette>(object, palette);
}

}  // namespace

DeviceContext::DeviceContext(vector::Painter& painter, const Placement& placement, ByteSource& file,
                             const Cancellation& sink)
    : painter_(painter), placement_(placement), file_(file), sink_(sink), state_(placement) {
    state_.pen = StockObjectOf(StockBlackPen);
    state_.brush = StockObjectOf(StockWhiteBrush);
    state_.font = StockObjectOf(StockSystemFont);
    state_.palette = PaletteOf(StockObjectOf(StockPalette));
}

vector::Affine DeviceContext::ToPicture() const {
    return state_.mapping.ToDevice().Then(placement_.deviceToPicture);
}

void DeviceContext::Save() {
    if (saved_.size() < MostSaved) saved_.push_back(state_);
}

void DeviceContext::Restore(std::int32_t which) {
    const auto count = static_cast<std::int64_t>(saved_.size());
    const std::int64_t index = which < 0 ? count + which : std::int64_t{which} - 1;
    if (which == 0 || index < 0 || index >= count) return;
    state_ = std::move(saved_[static_cast<std::size_t>(index)]);
    saved_.erase(saved_.begin() + index, saved_.end());
    ApplyClip();
}

void DeviceContext::Create(Handle handle, std::shared_ptr<const Object> object) {
    if (handle >= MostHandles) return;
    if (handle >= objects_.size()) objects_.resize(handle + 1);
    objects_[handle] = std::move(object);
}

void DeviceContext::Delete(Handle handle) {
    if (handle < objects_.size()) objects_[handle] = nullptr;
}

std::shared_ptr<const Object> DeviceContext::Find(Handle handle) const {
    if ((handle & StockObject) != 0) return StockObjectOf(handle & ~StockObject);
    return handle < objects_.size() ? objects_[handle] : nullptr;
}

void DeviceContext::Select(Handle handle) {
    std::shared_ptr<const Object> object = Find(handle);
    if (!object) return;
    if (std::holds_alternative<Pen>(*object)) {
        state_.pen = std::move(object);
    } else if (std::holds_alternative<Brush>(*object)) {
        state_.brush = std::move(object);
    } else if (std::holds_alternative<Font>(*object)) {
        state_.font = std::move(object);
    }
}

void DeviceContext::SelectPalette(Handle handle) {
    if (auto palette = PaletteOf(Find(handle))) state_.palette = std::move(palette);
}

void DeviceContext::ReplacePalette(Handle handle, Palette palette) {
    const std::shared_ptr<const Palette> former =
        handle == MostHandles ? state_.palette : PaletteOf(Find(handle));
    if (!former) return;
    if (!painter_.Budget().Spend(static_cast<std::int64_t>(objects_.size() + palette.entries.size()))) return;
    auto object = std::make_shared<const Object>(std::move(palette));
    for (std::shared_ptr<const Object>& each : objects_) {
        if (PaletteOf(each) == former) each = object;
    }
    if (state_.palette == former) state_.palette = PaletteOf(object);
}

void DeviceContext::ApplyClip() {
    if (!state_.clip && !state_.metaClip) return painter_.ClearClip();
    if (!state_.clip) return painter_.SetClip(*state_.metaClip);
    if (!state_.metaClip) return painter_.SetClip(*state_.clip);
    painter_.SetClip(state_.clip->Combined(vector::RegionMode::And, *state_.metaClip, painter_.Budget()));
}

}  // namespace tavrix::metafile
