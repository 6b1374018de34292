#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "base/RuntimeError.h"

namespace tavrix {

/// An open file of the system, closed at the end.
class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    ~FileDescriptor() { Close(); }

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] explicit operator bool() const { return number_ >= 0; }
    void Close();

  private:
    int number_ = -1;
};

/// The run-time error that stands for an error of the system (errno).
[[nodiscard]] RuntimeError ErrorOf(int systemError);

/// The folder that holds a host path; "/" for a path directly below it.
[[nodiscard]] std::string HostFolderOf(const std::string& path);

/// Where a path leads in the end through links, also when nothing is there yet.
[[nodiscard]] std::string FollowLinks(const std::string& path);

/// Whether nobody may write the file, or not this user. Mode bits count for the superuser too.
[[nodiscard]] bool IsReadOnly(const std::string& path, const struct stat& status);

/// Opens a normal file for reading. Devices, pipes and folders fail with 75 and are never waited for.
[[nodiscard]] FileDescriptor OpenForReading(const std::string& path);

/// The whole content of a file; empty when there is none or it cannot be read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path);

/// Makes a folder and the missing ones above it, private to the user (mode 0700). Failures are left to whoever uses
/// the folder.
void MakeFolders(const std::string& path);

/// Holds the lock of a folder, so that programs of this kind change files in it one after another. The lock is on
/// the folder itself and leaves no file behind; where the file system knows no locks there is none.
class FolderLock {
  public:
    /// Waits up to five seconds, then throws 70.
    explicit FolderLock(const std::string& folder);

  private:
    FileDescriptor folder_;
};

/// A file that is written as a whole. The content goes to an unnamed file in the same folder and replaces the target
/// on Commit; links are followed, owner and mode are kept. Where the folder takes no new file but the target can
/// be written, and where there is no room for two, it is written in place.
class TargetFile {
  public:
    struct Options {
        bool inPlace = false;
        bool sync = true;                    ///< the content is on the disk before it replaces the target
        mode_t newMode = 0666;               ///< of a new file, less the user's mask
        bool keepMode = true;                ///< of the file that is replaced; else newMode counts for it too
        std::optional<std::uint64_t> limit;  ///< most bytes that the disk takes; beyond it 61
    };

    /// Tests the target for writing without changing it. Throws 70 when it is protected, 75 when it is no normal
    /// file, 76 when its folder is missing.
    TargetFile(const std::string& path, Options options);

    void Write(std::span<const std::byte> bytes);
    void Write(std::string_view text) { Write(std::as_bytes(std::span(text))); }
    /// Takes over the rest of an open file, and its date.
    void CopyFrom(const FileDescriptor& source, const struct stat& status);
    /// Puts the content in place. After a failed Write nothing is put in place.
    void Commit();

  private:
    void OpenBeside();
    void BeginInPlace();
    void Count(std::uint64_t bytes);

    std::string path_;
    Options options_;
    FileDescriptor target_;  ///< the file as it stands, if there is one
    struct stat former_ {};
    FileDescriptor content_;  ///< the new content; target_ holds it when written in place
    std::string besideName_;  ///< of the content, where it could not be left unnamed
    std::uint64_t written_ = 0;
    bool emptied_ = false;
    bool failed_ = false;
    bool done_ = false;

  public:
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;
    /// Takes back what was not committed.
    ~TargetFile();
};

}  // namespace tavrix
