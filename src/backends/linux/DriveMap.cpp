#include "backends/linux/DriveMap.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <sstream>
#include <system_error>
#include <utility>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostNames.h"
#include "backends/linux/HostPaths.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

constexpr std::int64_t FloppyBytes = 1'457'664;
constexpr std::int64_t SectorBytes = 512;
/// The letter of the medium that stands for a floppy where the user has named none.
constexpr char FoundFloppy = 'A';
constexpr std::array<std::string_view, 3> SystemFolders{"/proc", "/sys", "/dev"};

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

std::string WithoutSlashes(std::string path) {
    while (path.ends_with('/'))
        path.pop_back();
    return path;
}

bool IsOneOf(const std::string& text, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, text) != words.end();
}

HostDrive NoFloppy(char letter) {
    return {.letter = letter, .root = {}, .type = DriveType::Removable, .floppy = true, .present = false};
}

bool IsMountPoint(const std::string& folder) {
    struct stat own {};
    struct stat above {};
    return ::stat(folder.c_str(), &own) == 0 && ::stat((folder + "/..").c_str(), &above) == 0 &&
           own.st_dev != above.st_dev;
}

bool IsEmptyFolder(const std::string& folder) {
    const OpenFolder open(::opendir(folder.c_str()));
    if (!open) return true;
    while (const dirent* entry = ::readdir(open.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") return false;
    }
    return true;
}

/// Whether an optical device or a disc image has audio tracks. An image is taken at its word.
bool HasAudio(const HostDrive& drive) {
    struct stat status {};
    if (drive.device.empty() || ::stat(drive.device.c_str(), &status) != 0) return false;
    if (S_ISREG(status.st_mode)) return drive.present;
    if (!S_ISBLK(status.st_mode)) return false;
    const FileDescriptor device(::open(drive.device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!device) return false;
    const int disc = ::ioctl(device.Number(), CDROM_DISC_STATUS);
    return disc == CDS_AUDIO || disc == CDS_MIXED;
}

std::int64_t BytesIn(const std::string& folder) {
    std::int64_t bytes = 0;
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error)) {
        struct stat status {};
        if (::lstat(at->path().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
        bytes += (status.st_size + SectorBytes - 1) / SectorBytes * SectorBytes;
    }
    return bytes;
}

/// The name in a folder that is equal to `wanted` but for case, the first in list order; empty when there is none.
std::string NameIgnoringCase(const std::string& folder, const std::string& wanted) {
    const OpenFolder open(::opendir(folder.c_str()));
    if (!open) return {};
    // All look-alikes are beyond ASCII, so that a plain name can only be equal to one that shows as itself.
    const bool plain =
        std::ranges::all_of(wanted, [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
    std::string best;
    std::string bestShown;
    while (const dirent* entry = ::readdir(open.get())) {
        const std::string_view name = entry->d_name;
        if (plain && (name.size() != wanted.size() || !EqualIgnoringCase(name, wanted))) continue;
        const std::string shown = ToDriveName(name);
        if (!EqualIgnoringCase(shown, wanted)) continue;
        if (best.empty() || ListsBefore(shown, bestShown)) {
            best = entry->d_name;
            bestShown = shown;
        }
    }
    return best;
}

}  // namespace

DriveMap::Sources DriveMap::SourcesOf(const HostPaths& paths) {
    const std::string variable = EnvironmentValue("TAVRIX_DRIVES");
    Sources sources;
    if (!variable.empty()) sources.drives = variable;
    sources.file = paths.config + "/drives";
    sources.program = paths.program;
    sources.shared = paths.shared;
    return sources;
}

DriveMap::DriveMap(Sources sources) : sources_(std::move(sources)), table_(sources_.mounts, sources_.blocks) {
    const auto addAll = [this](const std::string& text, char separator) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line, separator);)
            AddConfigured(line);
    };
    if (sources_.drives) {
        mediaKnown_ = true;
        addAll(*sources_.drives, ';');
    } else {
        configured_['A'] = NoFloppy('A');
        configured_['B'] = NoFloppy('B');
        configured_['C'] = {.letter = 'C', .root = {}};
        findsFloppy_ = true;
        if (const auto text = ReadWholeFile(sources_.file)) addAll(*text, '\n');
    }
    const bool whole = std::ranges::any_of(
        configured_, [](const auto& entry) { return entry.second.root.empty() && entry.second.present; });
    if (!whole) {
        char letter = 'Z';
        while (letter > 'C' && configured_.contains(letter))
            --letter;
        configured_[letter] = {.letter = letter, .root = {}, .listed = false};
    }
}

void DriveMap::AddConfigured(std::string_view line) {
    std::string text = Trim(line);
    while (text.ends_with('\r'))
        text.pop_back();
    if (text.size() < 2 || !IsDriveLetter(text[0])) return;
    const char letter = UpperCase(text)[0];
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || (!Trim(text.substr(1, equals - 1)).empty() && text[1] != ':')) return;

    std::string rest = Trim(text.substr(equals + 1));
    HostDrive drive{.letter = letter};
    drive.floppy = letter == 'A' || letter == 'B';
    if (drive.floppy) drive.type = DriveType::Removable;
    // Words are taken from the end, so that a folder may have commas in its name.
    for (std::size_t comma = rest.rfind(','); comma != std::string::npos; comma = rest.rfind(',')) {
        const std::string word = Trim(rest.substr(comma + 1));
        const bool type = IsOneOf(word, {"floppy", "removable", "fixed", "network", "cdrom", "ram"});
        if (!type && word != "disk") break;
        if (word == "disk") drive.blank = true;
        if (type) drive.floppy = word == "floppy";
        if (word == "floppy" || word == "removable") drive.type = DriveType::Removable;
        if (word == "fixed") drive.type = DriveType::Fixed;
        if (word == "network") drive.type = DriveType::Network;
        if (word == "cdrom") drive.type = DriveType::CdRom;
        if (word == "ram") drive.type = DriveType::RamDisk;
        rest = Trim(rest.substr(0, comma));
    }
    if (letter == FoundFloppy) findsFloppy_ = false;
    configured_.erase(letter);
    if (!rest.starts_with('/')) return;
    drive.root = WithoutSlashes(std::filesystem::path(rest).lexically_normal().string());
    if (drive.type == DriveType::CdRom) drive.device = drive.root;
    configured_[letter] = drive;
}

char DriveMap::FreeLetter() const {
    for (char letter = 'D'; letter <= 'Z'; ++letter) {
        const bool kept =
            std::ranges::any_of(formerLetters_, [&](const auto& entry) { return entry.second == letter; });
        if (!configured_.contains(letter) && !found_.contains(letter) && !kept) return letter;
    }
    return '\0';
}

DriveType DriveMap::TypeOf(const Mount& mount) const {
    if (IsOneOf(mount.system, {"iso9660", "udf"})) return DriveType::CdRom;
    if (IsOneOf(mount.system, {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs", "9p", "afs", "ceph"})) {
        return DriveType::Network;
    }
    if (IsOneOf(mount.system, {"tmpfs", "ramfs"})) return DriveType::RamDisk;
    return table_.Removable(mount.device).value_or(true) ? DriveType::Removable : DriveType::Fixed;
}

std::set<std::string> DriveMap::DisksInUse(const std::vector<Mount>& mounts) const {
    std::set<std::string> disks;
    for (const std::string& path : {std::string("/"), std::string("/home"), sources_.program}) {
        const Mount* const mount = path.empty() ? nullptr : MountOf(mounts, path);
        if (mount != nullptr) disks.insert(table_.DiskOf(mount->device));
    }
    return disks;
}

bool DriveMap::IsFloppy(const Mount& mount, const std::set<std::string>& disksInUse) const {
    return mount.writable && TypeOf(mount) == DriveType::Removable &&
           table_.Removable(mount.device) == std::optional(true) &&
           !disksInUse.contains(table_.DiskOf(mount.device));
}

void DriveMap::FindFloppy(std::map<std::string, HostDrive>& media, const std::vector<Mount>& mounts) {
    // Where nothing could be one, no disk is looked for: each start asks.
    const std::set<std::string> inUse = media.empty() ? std::set<std::string>() : DisksInUse(mounts);
    const auto isFloppy = [&](const Mount& mount) {
        return media.contains(mount.folder) && IsFloppy(mount, inUse);
    };
    const auto sameMedium = [&](const Mount& mount) {
        return mount.folder == floppy_.folder && mount.device == floppy_.device && isFloppy(mount);
    };
    // What is there with another letter keeps that: a path in use would lead elsewhere.
    const auto newMedium = [&](const Mount& mount) {
        return isFloppy(mount) && !std::ranges::any_of(found_, [&](const auto& entry) {
                   return entry.second.root == mount.folder;
               });
    };
    auto chosen = std::ranges::find_if(mounts, sameMedium);
    if (chosen == mounts.end()) chosen = std::ranges::find_if(mounts, newMedium);
    floppy_ = {};
    configured_[FoundFloppy] = NoFloppy(FoundFloppy);
    if (chosen == mounts.end()) return;
    floppy_ = *chosen;
    configured_[FoundFloppy] = {
        .letter = FoundFloppy, .root = WithoutSlashes(chosen->folder), .type = DriveType::Removable};
    media.erase(chosen->folder);
}

void DriveMap::FindMedia() {
    if (sources_.drives) return;
    mediaKnown_ = true;
    static_cast<void>(table_.Changed());     // what comes from here on is news
    std::map<std::string, HostDrive> media;  // by device, or by folder where the device is none
    for (int i = 0; i < 8; ++i) {
        const std::string device = sources_.devices + "/sr" + std::to_string(i);
        struct stat status {};
        if (::stat(device.c_str(), &status) != 0) break;
        media[device] = {.root = device, .type = DriveType::CdRom, .present = false, .device = device};
    }
    if (findsFloppy_) configured_[FoundFloppy] = NoFloppy(FoundFloppy);
    const std::vector<Mount> mounts = table_.Read();
    for (const Mount& mount : mounts) {
        const bool optical = media.contains(mount.device);
        const bool below = std::ranges::any_of(sources_.mediaFolders, [&](const std::string& mediaFolder) {
            return mount.folder != mediaFolder && IsAtOrBelow(mount.folder, mediaFolder);
        });
        const bool configured = std::ranges::any_of(configured_, [&](const auto& entry) {
            return entry.second.present && entry.second.root == mount.folder;
        });
        if ((!optical && !below) || configured) continue;
        media[optical ? mount.device : mount.folder] = {.root = mount.folder,
                                                        .type = optical ? DriveType::CdRom : TypeOf(mount),
                                                        .device = optical ? mount.device : std::string()};
    }
    if (findsFloppy_) FindFloppy(media, mounts);
    found_.clear();
    for (auto& [key, drive] : media) {
        const auto former = formerLetters_.find(key);
        drive.letter = former != formerLetters_.end() ? former->second : FreeLetter();
        if (drive.letter == '\0') continue;
        formerLetters_[key] = drive.letter;
        found_[drive.letter] = drive;
    }
}

void DriveMap::NoticeMedia() {
    if (!sources_.drives && (!mediaKnown_ || table_.Changed())) FindMedia();
}

std::vector<HostDrive> DriveMap::ListedDrives() {
    FindMedia();
    std::map<char, HostDrive> all = found_;
    all.insert(configured_.begin(), configured_.end());
    std::vector<HostDrive> listed;
    for (const auto& [letter, drive] : all) {
        if (drive.listed) listed.push_back(WithDoor(drive));
    }
    return listed;
}

std::optional<HostDrive> DriveMap::Find(char letter) {
    const char upper = UpperCase(std::string(1, letter))[0];
    const bool findable = findsFloppy_ && upper == FoundFloppy;
    if (findable || !configured_.contains(upper)) NoticeMedia();
    if (const auto found = configured_.find(upper); found != configured_.end()) {
        return WithDoor(found->second);
    }
    auto found = found_.find(upper);
    if (found == found_.end()) {  // a drive without a disk may have come
        FindMedia();
        found = found_.find(upper);
    }
    if (found == found_.end()) return std::nullopt;
    return found->second;
}

bool DriveMap::HasDisk(const HostDrive& drive) {
    if (HasAudio(drive)) return true;
    if (!drive.present) return false;
    struct stat status {};
    const std::string root = drive.root + "/";
    if (::stat(root.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
    if (drive.blank || (!drive.floppy && drive.type != DriveType::CdRom)) return true;
    // A medium is not read for this, which may take it seconds.
    return IsMountPoint(root) || !IsEmptyFolder(root);
}

std::string DriveMap::CdDevice() {
    for (const HostDrive& drive : ListedDrives()) {
        std::error_code error;
        if (!drive.device.empty() && !std::filesystem::is_directory(drive.device, error)) return drive.device;
    }
    return {};
}

std::string DriveMap::MountedDevice(const HostDrive& drive) const {
    const std::vector<Mount> mounts = table_.Read();
    const Mount* const mount = MountOf(mounts, drive.root);
    if (mount == nullptr || mount->folder != drive.root) return {};
    struct stat status {};
    const bool block = ::stat(mount->device.c_str(), &status) == 0 && S_ISBLK(status.st_mode);
    const bool removable = table_.Removable(mount->device) == std::optional(true);
    return block && removable && !DisksInUse(mounts).contains(table_.DiskOf(mount->device)) ? mount->device
                                                                                            : std::string();
}

void DriveMap::NoteDoor(const std::string& device, bool open) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(device, error)) return;
    if (open) {
        openDoors_.insert(device);
    } else {
        openDoors_.erase(device);
    }
}

HostDrive DriveMap::WithDoor(HostDrive drive) const {
    if (IsDoorOpen(drive.device)) drive.present = false;
    return drive;
}

void DriveMap::KeepDisk(const HostDrive& drive) {
    if (!drive.floppy || HasDisk(drive)) return;
    const std::string marker = drive.root + "/.disk";
    FileDescriptor(::open(marker.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
}

std::int64_t DriveMap::FreeBytes(const HostDrive& drive) {
    if (drive.type == DriveType::CdRom) return 0;
    const std::string root = drive.root + "/";
    struct statvfs space {};
    if (::statvfs(root.c_str(), &space) != 0) throw ErrorOf(errno);
    const auto free = static_cast<std::int64_t>(space.f_bavail) * static_cast<std::int64_t>(space.f_frsize);
    if (!drive.floppy || IsMountPoint(root)) return free;
    return std::clamp<std::int64_t>(FloppyBytes - BytesIn(root), 0, free);
}

bool DriveMap::MayBeOnMedium(std::string_view hostPath) const {
    return std::ranges::any_of(sources_.mediaFolders,
                               [&](const std::string& folder) { return IsAtOrBelow(hostPath, folder); });
}

const HostDrive* DriveMap::OwnerOf(std::string_view hostPath) {
    if (MayBeOnMedium(hostPath)) NoticeMedia();
    const HostDrive* owner = nullptr;
    for (const auto* drives : {&configured_, &found_}) {
        for (const auto& [letter, drive] : *drives) {
            if (!drive.present || !IsAtOrBelow(hostPath, drive.root)) continue;
            if (owner == nullptr || drive.root.size() > owner->root.size()) owner = &drive;
        }
    }
    return owner;
}

bool DriveMap::IsHidden(const HostDrive& drive, const std::string& hostPath) {
    const HostDrive* owner = OwnerOf(hostPath);
    if (owner != nullptr && owner->root.size() > drive.root.size()) return true;
    return std::ranges::any_of(SystemFolders, [&](std::string_view folder) {
        return IsAtOrBelow(hostPath, folder) && !IsAtOrBelow(drive.root, folder);
    });
}

std::string DriveMap::ToDrivePath(std::string_view hostPath) {
    const std::string path = WithoutSlashes(std::filesystem::path(hostPath).lexically_normal().string());
    // A path from outside may lie on a medium that came a moment ago; as C:\... it would be hidden soon.
    if (MayBeOnMedium(path)) NoticeMedia();
    const HostDrive* owner = OwnerOf(path);
    std::string drivePath = owner != nullptr ? std::string(1, owner->letter) : std::string("C");
    drivePath += ":\\";
    std::istringstream names(path.substr(owner != nullptr ? owner->root.size() : 0));
    bool first = true;
    for (std::string name; std::getline(names, name, '/');) {
        if (name.empty()) continue;
        if (!first) drivePath.push_back('\\');
        first = false;
        drivePath += ToDriveName(name);
    }
    return drivePath;
}

std::optional<HostLocation> DriveMap::LocateShared(const std::string& hostPath) {
    if (sources_.shared.empty() || !IsAtOrBelow(hostPath, sources_.program)) return std::nullopt;
    std::vector<std::string> names;
    std::istringstream rest(hostPath.substr(sources_.program.size()));
    for (std::string name; std::getline(rest, name, '/');) {
        if (!name.empty()) names.push_back(ToDriveName(name));
    }
    HostLocation seen;
    Look(seen, sources_.shared, names);
    if (!seen.exists) return std::nullopt;
    seen.shared = true;
    return seen;
}

std::string DriveMap::SharedPathOf(const std::string& hostPath) {
    const std::optional<HostLocation> seen = LocateShared(hostPath);
    return seen ? seen->path : std::string();
}

void DriveMap::Look(HostLocation& location, const std::string& root, const std::vector<std::string>& names) {
    std::string path = root;
    for (const std::string& name : names)
        path.append("/").append(FromDriveName(name));
    location.path = path.empty() ? "/" : path;
    location.exists = ::stat(location.path.c_str(), &location.status) == 0;
    location.parentExists = location.exists;
    if (location.exists) return;

    path = root;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool last = i + 1 == names.size();
        const std::string folder = path.empty() ? "/" : path;
        std::string name = FromDriveName(names[i]);
        struct stat status {};
        if (::lstat((path + "/" + name).c_str(), &status) != 0) {
            const bool lacks = names_.Lacks(folder, names[i]);
            const std::string other = lacks ? std::string() : NameIgnoringCase(folder, names[i]);
            if (!other.empty()) name = other;
        }
        path.append("/").append(name);
        location.exists = ::stat(path.c_str(), &location.status) == 0;
        location.parentExists = last && (::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode));
        if (location.exists) continue;
        for (std::size_t rest = i + 1; rest < names.size(); ++rest)
            path.append("/").append(FromDriveName(names[rest]));
        break;
    }
    location.path = path.empty() ? "/" : path;
}

HostLocation DriveMap::LocateIn(const HostDrive& drive, const std::vector<std::string>& names) {
    HostLocation location{.drive = drive};
    Look(location, drive.root, names);
    if (IsHidden(drive, location.path == "/" ? "" : location.path)) {
        location.exists = false;
        location.parentExists = false;
    }
    return location;
}

HostLocation DriveMap::LocateForWriting(std::string_view drivePath) {
    const DrivePathParts parts = PartsOf(drivePath);
    const std::optional<HostDrive> drive = Find(parts.letter);
    if (!drive) throw RuntimeError(ErrorNumber::DeviceUnavailable);
    if (!HasDisk(*drive)) throw RuntimeError(ErrorNumber::DiskNotReady);
    return LocateIn(*drive, parts.names);
}

HostLocation DriveMap::Locate(std::string_view drivePath) {
    HostLocation location = LocateForWriting(drivePath);
    if (location.exists) return location;
    std::optional<HostLocation> seen = LocateShared(location.path);
    if (!seen) return location;
    seen->drive = location.drive;
    return *seen;
}

}  // namespace tavrix
