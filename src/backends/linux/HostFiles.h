#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "backends/linux/DriveMap.h"
#include "backends/linux/FileMove.h"
#include "backends/linux/FolderReader.h"
#include "backends/linux/HostFile.h"
#include "backends/linux/HostFolder.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/TemporaryFolder.h"
#include "platform/services/BesideCopy.h"
#include "platform/services/DrivePath.h"
#include "platform/services/Files.h"

namespace tavrix {

/// The files of this system behind drive letters. On A: and B: a new content is written over the old one once it is
/// whole and known to fit; elsewhere it takes its place. Files in the temporary folder are not synced to the disk.
class HostFiles final : public Files, public BesideCopies {
  public:
    HostFiles(DriveMap& drives, HostPaths paths);

    bool FileExists(const std::string& path) override;
    bool FolderExists(const std::string& path) override;
    std::string First(const std::string& pattern) override;
    std::vector<std::string> List(const std::string& folder, const std::string& patterns) override;
    std::vector<std::string> Folders(const std::string& folder) override;
    std::unique_ptr<FolderLook> Look(const std::string& folder, const std::string& patterns) override;
    bool Copy(const std::string& from, const std::string& to, const GoOn& goOn = {}) override;
    /// Large files are copied by a thread. This must live longer than the copy.
    std::unique_ptr<BesideCopy> BeginCopy(const std::string& from, const std::string& to) override;
    void Rename(const std::string& from, const std::string& to) override;
    bool Move(const std::string& from, const std::string& to, const GoOn& goOn = {}) override;
    void Delete(const std::string& path) override;
    FileInfo Info(const std::string& path) override;
    void ClearAttributes(const std::string& path) override;
    void MakeFolder(const std::string& path) override;
    void RemoveFolder(const std::string& path) override;
    void ChangeDrive(const std::string& drive) override;
    void ChangeFolder(const std::string& folder) override;
    std::string CurrentFolder() override;
    std::string ShortPath(const std::string& folder) override;
    std::string Folder(KnownFolder folder) override;
    std::unique_ptr<FileReader> Open(const std::string& path) override;
    std::unique_ptr<FileWriter> Create(const std::string& path) override { return Create(path, 0); }
    /// The same for a file that will have so many bytes, as far as is known; it is written faster then.
    std::unique_ptr<FileWriter> Create(const std::string& path, std::uint64_t bytes);
    bool Same(const std::string& a, const std::string& b) override;
    bool SameEntry(const std::string& a, const std::string& b) override;
    bool HasExactly(const std::string& path) override;

    /// The host path of a file for other parts of this system; throws as Open does for what is not there.
    [[nodiscard]] std::string HostPathOf(const std::string& path);

  private:
    struct CopyPlan;
    class ThreadedCopy;

    [[nodiscard]] CurrentFolders& Current();
    [[nodiscard]] HostLocation Locate(const std::string& path);
    [[nodiscard]] HostLocation LocateFile(const std::string& path);
    [[nodiscard]] HostLocation LocateForWriting(const std::string& path);
    [[nodiscard]] TargetFile::Options OptionsFor(const HostLocation& location);
    /// Whether this names a file in the temporary folder itself, where nobody else writes.
    [[nodiscard]] bool IsOwn(const HostLocation& location) const;
    [[nodiscard]] const std::string& TemporaryPath();
    [[nodiscard]] HostLocation LocateToList(const std::string& folder);
    [[nodiscard]] CopyPlan PlanCopy(const std::string& from, const std::string& to);
    void NoteCopied(const CopyPlan& plan);
    [[nodiscard]] FileMove PrepareMove(const std::string& from, const std::string& to);
    /// The folder's drive path in its canonical spelling.
    [[nodiscard]] std::string Spelled(const HostLocation& location, const std::string& folder);
    /// ReadFolder for a folder that was found, and for the shared files that are seen through it.
    void ReadAll(const HostLocation& folder, EntryKind kind,
                 const std::function<bool(const std::string&)>& wanted,
                 const std::function<void(std::string&&)>& take);

    DriveMap& drives_;
    HostPaths paths_;
    std::optional<TemporaryFolder> temporary_;
    std::optional<CurrentFolders> current_;
    std::set<std::string> cleaned_;  ///< the folders where RemoveLeftovers has run
    FolderReader reader_;
};

}  // namespace tavrix
