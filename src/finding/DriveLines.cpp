#include "finding/DriveLines.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

const char* LabelOf(DriveType type) {
    switch (type) {
        case DriveType::Removable:
            return RemovableLabel;
        case DriveType::Fixed:
            return FixedLabel;
        case DriveType::Network:
            return NetworkLabel;
        case DriveType::CdRom:
            return CdRomLabel;
        case DriveType::RamDisk:
            return "  [RAM Disk]";
        case DriveType::Unknown:
        case DriveType::NoRoot:
            break;
    }
    return "  [Unknown]";
}

/// One blank before the label, so that no button that selects a type takes a drive for what it may not be.
std::vector<std::string> UsualDrives(const MainModule& module) {
    std::vector<std::string> lines{module.config.DefaultFloppy + " [Removable]", "C:\\ [Fixed Disk]"};
    const std::string own = UpperCase(Left(module.AppPath, 3));
    if (own != "C:\\") lines.push_back(own + " [Unknown]");
    return lines;
}

}  // namespace

std::vector<std::string> DriveLines(const MainModule& module) {
    constexpr std::size_t RootLength = 3;
    constexpr std::size_t EntryLength = RootLength + 1;
    Drives& drives = module.platform.drives;
    std::string roots;
    SkipFailure([&] { roots = drives.Roots(); });
    std::vector<std::string> lines;
    for (std::size_t at = 0; at + RootLength <= roots.size() && roots[at] != '\0'; at += EntryLength) {
        const std::string root = roots.substr(at, RootLength);
        DriveType type = DriveType::Unknown;
        SkipFailure([&] { type = drives.Type(root); });
        lines.push_back(UpperCase(root) + LabelOf(type));
    }
    return lines.empty() ? UsualDrives(module) : lines;
}

}  // namespace tavrix
