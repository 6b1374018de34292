#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tavrix {

/// A moment in the user's own time zone.
struct DateTime {
    int year = 0;
    int month = 0;  ///< 1 to 12
    int day = 0;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const DateTime&, const DateTime&) = default;
};

struct FileInfo {
    std::int64_t length = 0;  ///< bytes
    DateTime modified;
    bool readOnly = false;
    bool folder = false;
};

/// Folders that the desktop or the installation knows.
enum class KnownFolder { Temporary, Windows, System, Program, Documents };

/// Bytes of an open file, from its start to its end.
class FileReader {
  public:
    virtual ~FileReader() = default;
    /// Fills `into` as far as the file goes and gives the number of bytes; 0 at the end.
    virtual std::size_t Read(std::span<std::byte> into) = 0;
};

/// A file that is being written. A writer that is dropped without Close leaves the former file as it was.
class FileWriter {
  public:
    virtual ~FileWriter() = default;
    virtual void Write(std::span<const std::byte> bytes) = 0;
    /// Puts what was written in the place of the former file, as a whole; the word for a part that shall stand, too. After
    /// a Write or a Close that failed it fails again, and the former file stands.
    virtual void Close() = 0;
};

/// What a disk knows a file by, whatever its names are. Files of several disks may have the same number.
using FileNumber = std::uint64_t;
inline constexpr FileNumber UnknownFileNumber = 0;

/// What lies in a folder, the hidden entries left out.
struct FolderContent {
    std::vector<std::string> files;    ///< the names of the normal files that were asked for, in list order
    std::vector<std::string> folders;  ///< the full paths of the subfolders, in list order
    /// By which numbers the disk knows the files: one for each. A link has the number of what it leads to, and all names of
    /// one file have the same.
    std::vector<FileNumber> numbers;
    /// The full paths of the subfolders that do not count in a look, and which Files::Folders lists all the same, in list
    /// order.
    std::vector<std::string> uncounted;
};

/// A look into a folder that goes on while this thread does, since a folder may be large, and its disk slow or dead.
/// Dropping it gives the look up at once.
class FolderLook {
  public:
    FolderLook() = default;
    virtual ~FolderLook() = default;
    FolderLook(const FolderLook&) = delete;
    FolderLook& operator=(const FolderLook&) = delete;

    /// Waits for the end of the look, no longer than so many milliseconds. Whether it has come.
    [[nodiscard]] virtual bool Wait(int milliseconds) = 0;
    /// What was found, once; waits for the end. Throws what Files::List throws.
    [[nodiscard]] virtual FolderContent Take() = 0;
};

/// Asked while a long copy is made, before it begins and after every 8 MiB; false gives it up.
using GoOn = std::function<bool()>;

/// Files and folders under drive paths (C:\Pictures\a.bmp). Look-up ignores case, the exact spelling first. A path
/// without a drive or a leading backslash is taken from the current drive and folder, which the service keeps; the
/// process's own working folder is never changed.
///
/// All failures are RuntimeError: 52 for a malformed path or a pattern look-up without a disk, 53 file missing,
/// 58 target exists, 61 disk full, 68 no such drive, 70 protected or a copy onto itself, 71 no disk in the drive,
/// 75 folder exists or is not empty, 76 folder missing.
class Files {
  public:
    virtual ~Files() = default;

    /// Errors read as "no".
    [[nodiscard]] virtual bool FileExists(const std::string& path) = 0;
    /// The argument may end in a backslash. Errors read as "no".
    [[nodiscard]] virtual bool FolderExists(const std::string& path) = 0;

    /// The name of the first normal file that matches a path with a pattern in its last component ("A:\*.*"; "*.*"
    /// matches names without a point too); empty when there is none. Hidden files are skipped.
    /// Throws 52 when the drive has no disk.
    [[nodiscard]] virtual std::string First(const std::string& pattern) = 0;

    /// The names of a folder's normal files that match one of several patterns ("*.bmp;*.jpg", see PatternList), each
    /// once, in list order (ListsBefore). Hidden files are skipped.
    /// Throws 76 when there is no such folder, 70 when it may not be read, 68 and 71 as everywhere.
    [[nodiscard]] virtual std::vector<std::string> List(const std::string& folder,
                                                        const std::string& patterns) = 0;
    /// The full paths of a folder's subfolders, without a backslash at the end, in list order. Hidden ones are
    /// skipped; failures are those of List.
    [[nodiscard]] virtual std::vector<std::string> Folders(const std::string& folder) = 0;

    /// Begins to read a folder, its files as List does and its subfolders as Folders does, in one pass. Subfolders do
    /// not count that are links or belong to the system and not to a disk, so that a walk through all of them ends. A
    /// folder that was not found fails in Take.
    [[nodiscard]] virtual std::unique_ptr<FolderLook> Look(const std::string& folder,
                                                           const std::string& patterns) = 0;

    /// Copies a file over whatever stands there, keeping the date and dropping the read-only mark. False when it was
    /// given up; what stood there is as it was then.
    virtual bool Copy(const std::string& from, const std::string& to, const GoOn& goOn = {}) = 0;
    /// Gives a file another path, with date, content and marks, also on another drive; another spelling of its own name is
    /// one. A link stays one, and leads where it led. Replaces nothing: 58 when anything else stands at the new path.
    virtual void Rename(const std::string& from, const std::string& to) = 0;
    /// The same, in the place of a file that stands there; 58 when that is a folder or read-only, 70 when it is the same
    /// file. One of the two is there whole at any moment. False when it was given up; nothing has changed then.
    virtual bool Move(const std::string& from, const std::string& to, const GoOn& goOn = {}) = 0;
    /// Deletes the file; 53 when there is none.
    virtual void Delete(const std::string& path) = 0;
    [[nodiscard]] virtual FileInfo Info(const std::string& path) = 0;
    /// Takes the read-only mark from a file. 70 when the user may not.
    virtual void ClearAttributes(const std::string& path) = 0;
    /// Makes one folder; its parent must exist.
    virtual void MakeFolder(const std::string& path) = 0;
    /// Removes an empty folder; 75 for one that holds anything, for the root of a drive, and for a link.
    virtual void RemoveFolder(const std::string& path) = 0;

    /// Makes the drive of the text ("C", "C:", "C:\...") the current one; 68 when it is absent.
    virtual void ChangeDrive(const std::string& drive) = 0;
    /// Makes a folder the current one of its drive; 76 when it is missing.
    virtual void ChangeFolder(const std::string& folder) = 0;
    /// The current folder of the current drive; a backslash at the end only for a root.
    [[nodiscard]] virtual std::string CurrentFolder() = 0;

    /// The folder's canonical spelling with a backslash at the end; empty when it is absent.
    [[nodiscard]] virtual std::string ShortPath(const std::string& folder) = 0;
    /// Empty when there is no such folder; the documents folder is told even if it has yet to be made.
    [[nodiscard]] virtual std::string Folder(KnownFolder folder) = 0;

    [[nodiscard]] virtual std::unique_ptr<FileReader> Open(const std::string& path) = 0;
    /// The target is tested for writing at once, without being changed; its new content stands from Close on.
    [[nodiscard]] virtual std::unique_ptr<FileWriter> Create(const std::string& path) = 0;

    /// Whether two paths lead to one file, by links, letters or spelling.
    [[nodiscard]] virtual bool Same(const std::string& a, const std::string& b) = 0;
    /// The same, but two names that a disk holds for one content (hard links) are two.
    [[nodiscard]] virtual bool SameEntry(const std::string& a, const std::string& b) = 0;
    /// Whether a file is there in exactly this spelling, each folder of the path included. What is chosen from a list is
    /// asked for so before it is deleted, replaced or renamed: a look-alike that stands beside it is another file.
    [[nodiscard]] virtual bool HasExactly(const std::string& path) = 0;
};

}  // namespace tavrix
