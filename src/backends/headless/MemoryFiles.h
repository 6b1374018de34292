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
    void Copy(const std::string& from, const std::string& to) override;
    void Delete(const std::string& path) override;
    FileInfo Info(const std::string& path) override;
    void MakeFolder(const std::string& path) override;
    void ChangeDrive(const std::string& drive) override;
    void ChangeFolder(const std::string& folder) override;
    std::string CurrentFolder() override;
    std::string ShortPath(const std::string& folder) override;
    std::string Folder(KnownFolder folder) override;
    std::unique_ptr<FileReader> Open(const std::string& path) override;
    std::unique_ptr<FileWriter> Create(const std::string& path) override;
    bool Same(const std::string& a, const std::string& b) override;

  private:
    [[nodiscard]] MemoryPlace Locate(const std::string& path) const;
    [[nodiscard]] MemoryPlace LocateNode(const std::string& path) const;
    [[nodiscard]] MemoryPlace LocateToList(const std::string& folder) const;

    MemoryDisks& disks_;
    FaultPlan& faults_;
    CurrentFolders current_;
    std::map<KnownFolder, std::string> folders_;
};

/// Puts content into a file that was looked up for writing, making it if it is missing. Throws 61 when the disk is
/// full, 70 for a read-only file, 75 for a folder, 76 without a parent folder; nothing has changed then.
void ReplaceContent(const MemoryPlace& place, const std::string& content, const DateTime& modified);

}  // namespace tavrix::headless
