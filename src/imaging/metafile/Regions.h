#pragma once

#include <span>

#include "imaging/metafile/DeviceContext.h"
#include "imaging/vector/Region.h"

namespace tavrix::metafile {

/// The pixels that boxes fall on under a map, right and lower sides exclusive. Paid from the painter's budget. May throw
/// std::bad_alloc.
[[nodiscard]] vector::Region RegionOf(DeviceContext& context, std::span<const Box> boxes,
                                      const vector::Affine& map);

}  // namespace tavrix::metafile
