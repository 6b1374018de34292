#include "backends/linux/HostDrives.h"

#include <optional>

#include "backends/shared/DiskFigures.h"
#include "base/RuntimeError.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

std::optional<HostDrive> DriveOf(DriveMap& drives, const std::string& root) {
    if (root.empty() || !IsDriveLetter(root[0])) return std::nullopt;
    return drives.Find(root[0]);
}

std::int64_t FreeBytesOf(const std::optional<HostDrive>& drive) {
    if (!drive) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    if (!DriveMap::HasDisk(*drive)) throw RuntimeError(ErrorNumber::DiskNotReady);
    return DriveMap::FreeBytes(*drive);
}

}  // namespace

std::string HostDrives::Roots() {
    std::string roots;
    for (const HostDrive& drive : drives_.ListedDrives()) {
        roots.push_back(drive.letter);
        roots.append(":\\").push_back('\0');
    }
    return roots;
}

DriveType HostDrives::Type(const std::string& root) {
    const std::optional<HostDrive> drive = DriveOf(drives_, root);
    return drive ? drive->type : DriveType::NoRoot;
}

DiskSpace HostDrives::Space(const std::string& root) {
    return ExactSpaceOfBytes(FreeBytesOf(DriveOf(drives_, root)));
}

std::int64_t HostDrives::FreeBytes(const std::string& root) {
    return WholeSectors(FreeBytesOf(DriveOf(drives_, root)));
}

std::string HostDrives::RemovableDevice(const std::string& root) {
    const std::optional<HostDrive> drive = DriveOf(drives_, root);
    return drive && drive->type == DriveType::Removable ? drives_.MountedDevice(*drive) : std::string();
}

}  // namespace tavrix
