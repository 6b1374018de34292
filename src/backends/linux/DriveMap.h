#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "backends/linux/FolderNames.h"
#include "backends/linux/MountTable.h"
#include "platform/services/Drives.h"

namespace tavrix {

struct HostPaths;

/// A drive letter and the folder that it stands for.
struct HostDrive {
    char letter = 'C';
    std::string root{};  ///< host path without a slash at the end ("" for /)
    DriveType type = DriveType::Fixed;
    bool floppy =
        false;  ///< a folder that stands for a disk of 1,457,664 bytes, unless a medium is mounted there
    bool blank = false;    ///< the empty folder is a disk, not the lack of one
    bool listed = true;    ///< shown in lists of drives
    bool present = true;   ///< false: an optical drive of whose disc nothing is mounted
    std::string device{};  ///< of an optical drive: the device or disc image with its audio; else empty
};

/// Where a drive path leads.
struct HostLocation {
    HostDrive drive;
    std::string path{};         ///< host path; for what is missing, the path at which it would be made
    bool exists = false;        ///< something is there (links are followed)
    bool parentExists = false;  ///< its folder is there
    bool shared = false;        ///< it is one of the shared files, seen through the program's folder
    struct stat status {};      ///< of what is there

    [[nodiscard]] bool IsFolder() const { return exists && S_ISDIR(status.st_mode); }
    [[nodiscard]] bool IsFile() const { return exists && S_ISREG(status.st_mode); }
};

/// Drive letters to host folders and back.
///
/// Without configuration C: is the whole system (/), A: and B: have no disk, each optical drive and each medium that
/// is mounted below /media or /run/media has a letter from D: on. The first medium of the latter that can be written and,
/// as the system says, taken out has the letter A: until it is gone, unless its disk holds the system, the users' folders
/// or the program. Media that come and go are noticed. The file tavrix/drives in the user's configuration
/// folder changes that, one drive a line ('#' starts a comment):
///
///     A=/home/me/floppy,floppy
///     D=/srv/pictures,fixed
///     E=
///
/// After the folder come words: floppy, removable, fixed, network, cdrom, ram (the type; without one A and B are
/// floppies and the rest is fixed) and disk (an empty folder is an empty disk). A letter without a folder has no
/// drive. The environment variable TAVRIX_DRIVES, with ';' between the drives, takes the place of the file and of all
/// that would be found: then just these drives exist.
///
/// In the place of its folder a CD-ROM may have an optical device or the image of a disc (.cue, .toc, .nrg): its audio can
/// be played, and no files are on it. A device is known without being named, too.
///
/// An empty folder behind a floppy or a CD-ROM is a drive without a disk, unless it is marked with `disk`, holds
/// at least a hidden file (such as .disk) or has a medium mounted on it.
///
/// What has a letter of its own is hidden below other letters, and so are /proc, /sys and /dev. Host paths that no
/// drive reaches belong to a letter that is not listed (Z:, or the next one before it that is free).
///
/// Not for several threads at a time.
class DriveMap {
  public:
    struct Sources {
        std::optional<std::string> drives;  ///< as in TAVRIX_DRIVES; empty: not set
        std::string file;                   ///< of the user's drives; may be missing
        std::string mounts = "/proc/self/mounts";
        std::string devices = "/dev";
        std::string blocks = "/sys/class/block";
        std::vector<std::string> mediaFolders = {"/media", "/run/media"};
        std::string program;  ///< folder in which the files of `shared` are seen too
        std::string shared;
    };

    /// The sources of this system: the variable where it is set, the user's file, and the program's folders.
    [[nodiscard]] static Sources SourcesOf(const HostPaths& paths);

    explicit DriveMap(Sources sources);

    /// The letters of the listed drives, in order; media that came or went are noticed here.
    [[nodiscard]] std::vector<HostDrive> ListedDrives();
    [[nodiscard]] std::optional<HostDrive> Find(char letter);
    [[nodiscard]] static bool HasDisk(const HostDrive& drive);
    /// The host path of the device or disc image of the first optical drive, with or without a disc in it; empty when
    /// there is no such drive.
    [[nodiscard]] std::string CdDevice();
    /// The block device whose removable medium is mounted at a drive's root; empty when there is none.
    [[nodiscard]] std::string MountedDevice(const HostDrive& drive) const;
    /// The door of an optical drive was opened or closed. A disc image whose door is open is a drive without a disk, for
    /// this process alone; devices tell themselves.
    void NoteDoor(const std::string& device, bool open);
    [[nodiscard]] bool IsDoorOpen(const std::string& device) const { return openDoors_.contains(device); }
    /// For after the last file has left a drive: a floppy's folder that is empty now stays a disk.
    static void KeepDisk(const HostDrive& drive);
    /// Free bytes of a drive with a disk.
    [[nodiscard]] static std::int64_t FreeBytes(const HostDrive& drive);

    /// The drive path of an absolute host path, by the longest root. Always succeeds.
    [[nodiscard]] std::string ToDrivePath(std::string_view hostPath);

    /// Looks up a full drive path; each component in its exact spelling first, then the first in list order that is
    /// equal but for case. Throws 52 for a malformed path, 68 for an absent drive, 71 for one without a disk.
    [[nodiscard]] HostLocation Locate(std::string_view drivePath);
    /// The same, without the shared files: where something would be written.
    [[nodiscard]] HostLocation LocateForWriting(std::string_view drivePath);
    /// A file was made at a host path where nothing was, and nothing else was changed in its folder.
    void NoteMade(const std::string& hostPath) { names_.Made(hostPath); }
    /// Something else is about to be made or renamed by this process.
    void NoteChange() { names_.Forget(); }

    /// The host path of what is shared and seen at a path in the program's folder, by the rules of Locate; empty when
    /// nothing is.
    [[nodiscard]] std::string SharedPathOf(const std::string& hostPath);

    /// Whether a host path is out of sight below a drive: it has another letter, or belongs to the system.
    [[nodiscard]] bool IsHidden(const HostDrive& drive, const std::string& hostPath);

  private:
    void AddConfigured(std::string_view line);
    void FindMedia();
    [[nodiscard]] HostDrive WithDoor(HostDrive drive) const;
    /// Looks for media where any has come or gone since.
    void NoticeMedia();
    /// Gives the one letter of a floppy to a medium, which then has no other.
    void FindFloppy(std::map<std::string, HostDrive>& media, const std::vector<Mount>& mounts);
    [[nodiscard]] bool IsFloppy(const Mount& mount, const std::set<std::string>& disksInUse) const;
    /// The disks that hold the system, the users' folders and the program.
    [[nodiscard]] std::set<std::string> DisksInUse(const std::vector<Mount>& mounts) const;
    [[nodiscard]] DriveType TypeOf(const Mount& mount) const;
    [[nodiscard]] char FreeLetter() const;
    [[nodiscard]] bool MayBeOnMedium(std::string_view hostPath) const;
    [[nodiscard]] const HostDrive* OwnerOf(std::string_view hostPath);
    [[nodiscard]] std::optional<HostLocation> LocateShared(const std::string& hostPath);
    [[nodiscard]] HostLocation LocateIn(const HostDrive& drive, const std::vector<std::string>& names);
    void Look(HostLocation& location, const std::string& root, const std::vector<std::string>& names);

    Sources sources_;
    std::map<char, HostDrive> configured_;
    std::map<char, HostDrive> found_;
    std::map<std::string, char> formerLetters_;  ///< a medium that comes back gets its letter again
    std::set<std::string> openDoors_;            ///< of disc images
    MountTable table_;
    FolderNames names_;
    Mount floppy_;              ///< that has the letter of a floppy; an empty one: none
    bool findsFloppy_ = false;  ///< the user has not named one
    bool mediaKnown_ = false;
};

}  // namespace tavrix
