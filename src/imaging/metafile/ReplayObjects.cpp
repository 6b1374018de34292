#include <algorithm>

#include "imaging/metafile/Replay.h"

namespace tavrix::metafile {
namespace {

std::shared_ptr<const Palette> PaletteAt(DeviceContext& context, Handle handle) {
    return handle == MostHandles ? context.State().palette : context.FindAs<Palette>(handle);
}

}  // namespace

void Replay(DeviceContext& context, const CreateObject& record) {
    context.Create(record.handle, record.object);
}

void Replay(DeviceContext& context, const SelectObject& record) {
    const auto region = context.FindAs<Region>(record.handle);
    if (region) {
        Replay(context, ClipRegionObject{record.handle});
    } else {
        context.Select(record.handle);
    }
}

void Replay(DeviceContext& context, const DeleteObject& record) {
    context.Delete(record.handle);
}

void Replay(DeviceContext& context, const SelectPalette& record) {
    context.SelectPalette(record.handle);
}

void Replay(DeviceContext& context, const SetPaletteEntries& record) {
    const std::shared_ptr<const Palette> former = PaletteAt(context, record.handle);
    if (!former || record.first >= former->entries.size()) return;
    Palette palette = *former;
    const std::size_t count = std::min(record.entries.size(), palette.entries.size() - record.first);
    std::copy_n(record.entries.begin(), count, palette.entries.begin() + record.first);
    context.ReplacePalette(record.handle, std::move(palette));
}

void Replay(DeviceContext& context, const ResizePalette& record) {
    const std::shared_ptr<const Palette> former = PaletteAt(context, record.handle);
    if (!former) return;
    Palette palette = *former;
    palette.entries.resize(record.count);
    context.ReplacePalette(record.handle, std::move(palette));
}

}  // namespace tavrix::metafile
