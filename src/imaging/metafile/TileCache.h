#pragma once

#include <memory>
#include <vector>

#include "imaging/metafile/BitmapLoader.h"

namespace tavrix::metafile {

/// Keeps the decoded tiles of the brushes that were used last.
class TileCache {
  public:
    /// The tile of a brush that `owner` holds; null where its bitmap cannot be decoded or is too large for a tile. May
    /// throw std::bad_alloc.
    [[nodiscard]] std::shared_ptr<const Surface> TileOf(const std::shared_ptr<const Object>& owner,
                                                        const Brush& brush, const BitmapColours& colours,
                                                        ByteSource& file, const Cancellation& sink,
                                                        vector::WorkBudget& budget);

  private:
    struct Entry {
        std::shared_ptr<const Object> owner;  ///< held, so that no other can come to lie there
        Pixel zero;
        Pixel one;
        std::shared_ptr<const Palette> palette;  ///< held for the same reason
        std::shared_ptr<const Surface> tile;
    };

    std::vector<Entry> entries_;
    std::size_t next_ = 0;
};

}  // namespace tavrix::metafile
