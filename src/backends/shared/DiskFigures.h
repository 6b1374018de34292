#pragma once

#include <cstdint>

#include "platform/services/Drives.h"

namespace tavrix {

/// The figures for a number of free bytes, to the byte: where a disk has no sectors of 512, a file that just fits is not
/// to be refused for the rest beyond the last of them. Cut as SpaceOfBytes does.
[[nodiscard]] constexpr DiskSpace ExactSpaceOfBytes(std::int64_t freeBytes) {
    DiskSpace space = SpaceOfBytes(freeBytes);
    if (space.sectorsPerCluster != 1 || freeBytes <= 0) return space;
    while (freeBytes % space.bytesPerSector != 0)
        space.bytesPerSector /= 2;
    space.freeClusters = static_cast<std::int32_t>(freeBytes / space.bytesPerSector);
    return space;
}

}  // namespace tavrix
