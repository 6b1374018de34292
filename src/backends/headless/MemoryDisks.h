#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/services/DrivePath.h"
#include "platform/services/Drives.h"
#include "platform/services/Files.h"

namespace tavrix::headless {

/// A file or folder of a disk in memory.
struct MemoryNode {
    bool folder = false;
    std::string content{};
    DateTime modified{};
    bool readOnly = false;
    bool hidden = false;
    bool unreadable = false;  ///< a folder that the user may not look into
    std::map<std::string, std::shared_ptr<MemoryNode>> children{};  ///< by exact name
    std::set<std::string> links{};                                  ///< the children that are second paths
};

struct MemoryDisk {
    MemoryDisk() = default;
    /// Empties its folders: a link may lead to one above it, and then they hold each other.
    ~MemoryDisk();
    MemoryDisk(const MemoryDisk&) = delete;
    MemoryDisk& operator=(const MemoryDisk&) = delete;

    std::shared_ptr<MemoryNode> root = std::make_shared<MemoryNode>(MemoryNode{.folder = true});
    std::int64_t capacity = std::numeric_limits<std::int64_t>::max();  ///< bytes of content that it takes
    bool writeProtected = false;

    [[nodiscard]] std::int64_t FreeBytes() const;
};

struct MemoryDrive {
    DriveType type = DriveType::Fixed;
    std::shared_ptr<MemoryDisk> disk;  ///< null: no disk in the drive
    std::string device{};              ///< behind a drive of removable media
};

/// Where a path leads.
struct MemoryPlace {
    std::shared_ptr<MemoryDisk> disk;
    std::shared_ptr<MemoryNode> parent;  ///< null when it is missing, and for the root
    std::string name;                    ///< as it is spelled on the disk, if it is there
    std::shared_ptr<MemoryNode> node;    ///< null when it is missing
    std::string path;                    ///< full, in the disk's spelling as far as there is one
    char letter = 'C';

    [[nodiscard]] bool IsFile() const { return node != nullptr && !node->folder; }
    [[nodiscard]] bool IsFolder() const { return node != nullptr && node->folder; }
};

/// Drives and disks in memory, and what a test does to them behind the program's back. Paths here are full drive
/// paths; these calls count in no fault plan.
class MemoryDisks {
  public:
    static constexpr std::int64_t FloppyCapacity = 1'457'664;

    void AddDrive(char letter, DriveType type);
    void RemoveDrive(char letter);
    void SetDevice(char letter, const std::string& device);
    /// A disk goes into the drive (a blank one by default; a floppy's capacity on A: and B:); whatever was there is out.
    std::shared_ptr<MemoryDisk> InsertDisk(char letter, std::shared_ptr<MemoryDisk> disk = nullptr);
    /// Takes the disk out, so that it can be put in again.
    std::shared_ptr<MemoryDisk> PullDisk(char letter);
    void SetWriteProtected(char letter, bool isProtected);
    void SetCapacity(char letter, std::int64_t bytes);

    /// Puts a file there, making the folders above it.
    void PutFile(const std::string& path, const std::string& content);
    void PutFile(const std::string& path, const std::string& content, const DateTime& modified);
    void PutFolder(const std::string& path);
    /// A second path to a file or folder that is there.
    void PutLink(const std::string& existing, const std::string& path);
    void Remove(const std::string& path) const;
    void SetReadOnly(const std::string& path, bool readOnly);
    void SetHidden(const std::string& path, bool hidden);
    /// A folder that lists nothing and fails; what is in it is still reached by its path.
    void SetUnreadable(const std::string& path, bool unreadable);

    /// The content of a file; nothing when there is none.
    [[nodiscard]] std::optional<std::string> Content(const std::string& path) const;
    [[nodiscard]] bool Exists(const std::string& path) const;
    /// All files of all disks in the drives, by full path: to compare the user's files before and after.
    [[nodiscard]] std::map<std::string, std::string> AllFiles() const;

    /// The date that files get when they are written.
    void SetNow(const DateTime& now) { now_ = now; }
    [[nodiscard]] const DateTime& Now() const { return now_; }

    [[nodiscard]] const std::map<char, MemoryDrive>& Drives() const { return drives_; }
    /// Looks up a path; throws 68 without the drive and 71 without a disk in it.
    [[nodiscard]] MemoryPlace Locate(const DrivePathParts& path) const;
    /// Looks up a place for a change; throws 70 too, when the disk is protected.
    [[nodiscard]] MemoryPlace LocateForWriting(const DrivePathParts& path) const;

  private:
    MemoryDisk& DiskOf(char letter);
    [[nodiscard]] MemoryNode& NodeOf(const std::string& path) const;

    std::map<char, MemoryDrive> drives_;
    DateTime now_{2001, 2, 3, 4, 5, 6};
};

}  // namespace tavrix::headless
