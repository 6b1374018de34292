#pragma once

#include <sys/stat.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

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

/// A name in the folder of a path for a file that is being written; RemoveLeftovers knows it.
[[nodiscard]] std::string NameBeside(const std::string& path);

/// Renames, and replaces nothing: the error of the system (errno), EEXIST when anything stands at `to`, or 0. On file
/// systems that do not know how, somebody could come between.
[[nodiscard]] int RenameWithoutReplacing(const std::string& from, const std::string& to);

/// Where a path leads in the end through links, also when nothing is there yet.
[[nodiscard]] std::string FollowLinks(const std::string& path);

/// Whether nobody may write the file, or not this user. Mode bits count for the superuser too.
[[nodiscard]] bool IsReadOnly(const std::string& path, const struct stat& status);

/// Opens a normal file for reading. Devices, pipes and folders fail with 75 and are never waited for.
[[nodiscard]] FileDescriptor OpenForReading(const std::string& path);

/// The largest file that is read as a whole where nobody says otherwise, in bytes.
inline constexpr std::size_t LargestWholeFile = std::size_t{16} << 20U;

/// The whole content of a file; empty when there is none, it cannot be read, or it is larger than `largest`.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path,
                                                       std::size_t largest = LargestWholeFile);

/// Makes a folder and the missing ones above it, private to the user (mode 0700). Failures are left to whoever uses
/// the folder.
void MakeFolders(const std::string& path);

/// Holds the lock of a folder, so that programs of this kind change files in it one after another. The lock is on
/// the folder itself and leaves no file behind; where the file system knows no locks there is none.
class FolderLock {
  public:
    /// How long a healthy program may hold a lock.
    static constexpr std::chrono::milliseconds Patience{1000};

    /// Waits for other programs as long as that. One that holds the lock longer hangs, and is not waited for any more:
    /// what is written under the lock is replaced as a whole, so that without it a change of the other may be lost at
    /// worst.
    explicit FolderLock(const std::string& folder, std::chrono::milliseconds patience = Patience);

    /// Whether nobody held it longer than we waited.
    [[nodiscard]] bool Had() const { return had_; }

  private:
    FileDescriptor folder_;
    bool had_ = true;
};

/// Removes what programs of this kind that were killed have left in a folder while they wrote there. What a live one is
/// writing stays.
void RemoveLeftovers(const std::string& folder);

/// A file that is written as a whole. The content goes to an unnamed file in the same folder and replaces the target
/// on Commit; links are followed, owner and mode are kept. Where the folder takes no new file but the target can
/// be written, and where there is no room for two, it is kept elsewhere, and written over the target on Commit: not before
/// it is known to fit, and on a failure the former content comes back.
///
/// What was not committed, or could not be, is dropped.
class TargetFile {
  public:
    struct Options {
        bool inPlace = false;
        bool sync = true;                    ///< the content is on the disk before it replaces the target
        mode_t newMode = 0666;               ///< of a new file, less the user's mask
        bool keepMode = true;                ///< of the file that is replaced; else newMode counts for it too
        bool exactMode = false;              ///< newMode counts whatever the user's mask
        bool throughLinks = true;            ///< a link is followed; else it is replaced itself
        bool replaces = true;                ///< what stands there on Commit; else that fails with 58
        std::optional<std::uint64_t> limit;  ///< most bytes that the disk takes; beyond it 61
        bool cleanFolder = true;             ///< by RemoveLeftovers
        bool keepsOtherNames = false;        ///< what has another name is never written over: see LinkAsCopy
    };

    /// Tests the target for writing without changing it. Throws 70 when it is protected, 75 when it is no normal
    /// file, 76 when its folder is missing.
    TargetFile(const std::string& path, Options options);

    /// Takes room on the disk for so many bytes at once, where that makes writing them cheaper. Nothing fails by it: what
    /// does not fit fails as it is written.
    void Expect(std::uint64_t bytes);

    void Write(std::span<const std::byte> bytes);
    void Write(std::string_view text) { Write(std::as_bytes(std::span(text))); }
    /// Takes over the rest of an open file, and its date. Asks before it and after each piece of 8 MiB; false when it was
    /// to be given up.
    [[nodiscard]] bool CopyFrom(const FileDescriptor& source, const struct stat& status,
                                const std::function<bool()>& goOn = {});
    /// Puts the content in place. After a failure, of a Write too, nothing is put in place, and each further call fails
    /// likewise.
    void Commit();

  private:
    void OpenBeside();
    void OpenElsewhere();
    /// Whether the content may be written over what stands there.
    [[nodiscard]] bool MayWriteOver() const;
    /// Runs a step; a failure of it is one of the whole.
    template <class Step>
    void Try(Step&& step);
    void Count(std::uint64_t bytes);
    void GiveRoomBack();
    [[nodiscard]] bool TakeOver(const FileDescriptor& source, const std::function<bool()>& goOn);
    void CommitBeside();
    void CommitInPlace();
    void Sync() const;

    std::string path_;
    Options options_;
    FileDescriptor target_;  ///< the file as it stands, if there is one
    struct stat former_ {};
    FileDescriptor content_;                        ///< the new content
    std::string besideName_;                        ///< of the content, once it has a name
    std::optional<std::array<timespec, 2>> times_;  ///< that the file gets
    std::uint64_t written_ = 0;
    bool tookRoom_ = false;  ///< perhaps more than was written
    std::optional<RuntimeError> failure_;
    bool done_ = false;

  public:
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;
    ~TargetFile();
};

}  // namespace tavrix
