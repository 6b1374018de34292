#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "backends/headless/MemoryDisks.h"
#include "platform/services/DrivePath.h"
#include "platform/services/Files.h"

namespace tavrix::headless {

/// Files on disks in memory. As on a real system, new content replaces the old as a whole on Close; on A: and B: the room
/// of the old one counts as free meanwhile, elsewhere there must be room for both.
class MemoryFiles final : public Files {
  public:
    MemoryFiles(MemoryDisks& disks, FaultPlan& faults) : disks_(disks), faults_(faults) {}

    /// A full drive path, or empty for none.
    void SetFolder(KnownFolder folder, const std::string& path) { folders_[folder] = path; }

    bool FileExists(const std::string& path) override;
    bool FolderExists(const std::string& path) override;
    std::string First(const std::string& pattern) override;
    std::vector<std::string> List(const std::string& folder, const std::string& patterns) override;
    std::vector<std::string> Folders(const std::string& folder) override;
    std::unique_ptr<FolderLook> Look(const std::string& folder, const std::string& patterns) override;
    bool Copy(const std::string& from, const std::string& to, const GoOn& goOn = {}) override;
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
    std::unique_ptr<FileWriter> Create(const std::string& path) override;
    bool Same(const std::string& a, const std::string& b) override;
    bool SameEntry(const std::string& a, const std::string& b) override;
    bool HasExactly(const std::string& path) override;

  private:
    [[nodiscard]] MemoryPlace Locate(const std::string& path) const;
    [[nodiscard]] MemoryPlace LocateNode(const std::string& path) const;
    [[nodiscard]] MemoryPlace LocateToList(const std::string& folder) const;
    [[nodiscard]] FolderContent ContentOf(const std::string& folder, const std::string& patterns) const;
    /// A file and the place that it is to get.
    struct Relocation {
        MemoryPlace source;
        MemoryPlace target;
        std::string newName;
        bool ontoItself = false;  ///< the new path is another spelling of the present one, or the very same
    };
    [[nodiscard]] Relocation LocateMove(const std::string& from, const std::string& to) const;
    static void Relocate(const Relocation& move);

    MemoryDisks& disks_;
    FaultPlan& faults_;
    CurrentFolders current_;
    std::map<KnownFolder, std::string> folders_;
};

/// Puts content into a file that was looked up for writing, making it if it is missing. Throws 61 when the disk is
/// full, 70 for a read-only file, 75 for a folder, 76 without a parent folder; nothing has changed then.
void ReplaceContent(const MemoryPlace& place, const std::string& content, const DateTime& modified);

}  // namespace tavrix::headless
