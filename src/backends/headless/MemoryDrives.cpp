#include "backends/headless/MemoryDrives.h"

#include "backends/shared/DiskFigures.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix::headless {
namespace {

const MemoryDrive* DriveOf(const MemoryDisks& disks, const std::string& root) {
    const auto found = root.empty() ? disks.Drives().end() : disks.Drives().find(UpperCase(root)[0]);
    return found == disks.Drives().end() ? nullptr : &found->second;
}

}  // namespace

std::string MemoryDrives::Roots() {
    if (!faults_.EnterQuietly(Service::Drives, "Roots")) return {};
    std::string roots;
    for (const auto& [letter, drive] : disks_.Drives()) {
        roots.push_back(letter);
        roots.append(":\\").push_back('\0');
    }
    return roots;
}

DriveType MemoryDrives::Type(const std::string& root) {
    if (!faults_.EnterQuietly(Service::Drives, "Type", root)) return DriveType::Unknown;
    const MemoryDrive* const drive = DriveOf(disks_, root);
    return drive != nullptr ? drive->type : DriveType::NoRoot;
}

DiskSpace MemoryDrives::Space(const std::string& root) {
    faults_.Enter(Service::Drives, "Space", root);
    return ExactSpaceOfBytes(DiskOf(root).FreeBytes());
}

std::int64_t MemoryDrives::FreeBytes(const std::string& root) {
    faults_.Enter(Service::Drives, "FreeBytes", root);
    return WholeSectors(DiskOf(root).FreeBytes());
}

std::string MemoryDrives::RemovableDevice(const std::string& root) {
    if (!faults_.EnterQuietly(Service::Drives, "RemovableDevice", root)) return {};
    const MemoryDrive* const drive = DriveOf(disks_, root);
    return drive != nullptr && drive->type == DriveType::Removable ? drive->device : std::string();
}

const MemoryDisk& MemoryDrives::DiskOf(const std::string& root) const {
    const MemoryDrive* const drive = DriveOf(disks_, root);
    if (drive == nullptr) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    if (!drive->disk) throw RuntimeError(ErrorNumber::DiskNotReady);
    return *drive->disk;
}

}  // namespace tavrix::headless
