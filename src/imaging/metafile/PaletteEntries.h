#pragma once

#include <vector>

#include "imaging/metafile/RecordBytes.h"

namespace tavrix::metafile {

/// `count` colours of a palette at `at`, four bytes each: red, green, blue, and flags of no use for drawing. That is as
/// systems write them; the descriptions of both formats name the bytes the other way round. None, and the record broken,
/// where it does not hold them.
[[nodiscard]] inline std::vector<ColourValue> ReadPaletteEntries(RecordBytes& bytes, std::uint64_t at,
                                                                 std::uint64_t count) {
    if (!bytes.Holds(at, count, 4)) return {};
    std::vector<ColourValue> entries(static_cast<std::size_t>(count));
    for (ColourValue& entry : entries) {
        entry = bytes.U32(at) & 0xFFFFFFU;
        at += 4;
    }
    return entries;
}

}  // namespace tavrix::metafile
