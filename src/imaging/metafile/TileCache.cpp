#include "imaging/metafile/TileCache.h"

#include <algorithm>

namespace tavrix::metafile {
namespace {

constexpr std::size_t MostEntries = 8;
constexpr std::int64_t LargestTile = 4LL << 20U;

}  // namespace

std::shared_ptr<const Surface> TileCache::TileOf(const std::shared_ptr<const Object>& owner,
                                                 const Brush& brush, const BitmapColours& colours,
                                                 ByteSource& file, const Cancellation& sink,
                                                 vector::WorkBudget& budget) {
    const auto found = std::ranges::find_if(entries_, [&](const Entry& entry) {
        return entry.owner == owner && entry.zero == colours.zero && entry.one == colours.one &&
               entry.palette == colours.palette;
    });
    if (found != entries_.end()) return found->tile;

    LoadedBitmap loaded = LoadBitmap(file, brush.bitmap, colours, sink, budget);
    std::shared_ptr<const Surface> tile;
    const std::int64_t area = std::int64_t{loaded.pixels.Width()} * loaded.pixels.Height();
    if (area > 0 && area <= LargestTile) tile = std::make_shared<const Surface>(std::move(loaded.pixels));
    Entry entry{owner, colours.zero, colours.one, colours.palette, tile};
    if (entries_.size() < MostEntries) {
        entries_.push_back(std::move(entry));
    } else {
        entries_[next_] = std::move(entry);
        next_ = (next_ + 1) % MostEntries;
    }
    return tile;
}

}  // namespace tavrix::metafile
