#include "platform/forms/DriveListBox.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/forms/StartFolder.h"

namespace tavrix::forms {
namespace {

constexpr std::size_t RootLength = 4;  ///< "A:\" and a NUL

RowIcon IconOf(DriveType type) {
    switch (type) {
        case DriveType::Removable:
            return RowIcon::FloppyDrive;
        case DriveType::Network:
            return RowIcon::NetworkDrive;
        case DriveType::CdRom:
            return RowIcon::CdDrive;
        case DriveType::RamDisk:
            return RowIcon::RamDrive;
        case DriveType::Unknown:
        case DriveType::NoRoot:
        case DriveType::Fixed:
            break;
    }
    return RowIcon::FixedDrive;
}

std::string DriveOf(const std::string& path) {
    return UpperCase(path.substr(0, 1)) + ":";
}

}  // namespace

DriveListBox::DriveListBox(Container& container, std::string name, Files& files, Drives& drives)
    : RowControl(container, std::move(name), Look::DropDown) {
    const std::string roots = drives.Roots();
    for (std::size_t at = 0; at + RootLength <= roots.size(); at += RootLength) {
        const std::string root = roots.substr(at, RootLength - 1);
        entries_.push_back({DriveOf(root), IconOf(drives.Type(root))});
    }
    Drive.Store(DriveOf(StartFolder(files)));
    ListIndex.Store(RowOf(Drive));
}

ListRow DriveListBox::Row(int row) const {
    const Entry& entry = entries_.at(static_cast<std::size_t>(row));
    return {entry.drive, entry.icon};
}

int DriveListBox::RowOf(const std::string& drive) const {
    const auto found = std::ranges::find(entries_, drive, &Entry::drive);
    return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

void DriveListBox::RowChosen() {
    RowControl::RowChosen();
    if (Drive.Store(entries_.at(static_cast<std::size_t>(ListIndex.Get())).drive) && OnChange) OnChange();
}

void DriveListBox::AssignDrive(const std::string& value) {
    const std::string drive = DriveOf(value);
    const int row = RowOf(drive);
    if (row < 0) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    if (!Drive.Store(drive)) return;
    ListIndex = row;
    if (OnChange) OnChange();
}

}  // namespace tavrix::forms
