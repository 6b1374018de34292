#pragma once

#include <cstdint>
#include <string>

namespace tavrix {

enum class DriveType : int {
    Unknown = 0,
    NoRoot = 1,
    Removable = 2,
    Fixed = 3,
    Network = 4,
    CdRom = 5,
    RamDisk = 6
};

/// The figures from which free space is worked out.
struct DiskSpace {
    std::int32_t sectorsPerCluster = 0;
    std::int32_t bytesPerSector = 0;
    std::int32_t freeClusters = 0;
};

/// The bytes in the whole sectors of so many.
[[nodiscard]] constexpr std::int64_t WholeSectors(std::int64_t bytes) {
    return bytes > 0 ? bytes / 512 * 512 : 0;
}

/// The figures for a number of free bytes, cut to 2,147,450,880.
[[nodiscard]] constexpr DiskSpace SpaceOfBytes(std::int64_t freeBytes) {
    constexpr DiskSpace Most{64, 512, 65535};
    constexpr std::int64_t MostBytes = 2'147'450'880;
    if (freeBytes >= MostBytes) return Most;
    return {1, 512, static_cast<std::int32_t>(freeBytes > 0 ? freeBytes / 512 : 0)};
}

class Drives {
  public:
    virtual ~Drives() = default;

    /// The roots of all drives, four characters each: "A:\" and a NUL.
    [[nodiscard]] virtual std::string Roots() = 0;
    [[nodiscard]] virtual DriveType Type(const std::string& root) = 0;
    /// Free space never exceeds 2,147,450,880 bytes. Throws RuntimeError 71 when the drive has no disk.
    [[nodiscard]] virtual DiskSpace Space(const std::string& root) = 0;
    /// The free space of a disk of any size, in bytes of whole sectors. Throws as Space does.
    [[nodiscard]] virtual std::int64_t FreeBytes(const std::string& root) = 0;
    /// The system's name for the device behind a drive whose medium can be taken out; empty for any other drive, which no
    /// tool is to be started on.
    [[nodiscard]] virtual std::string RemovableDevice(const std::string& root) = 0;
};

}  // namespace tavrix
