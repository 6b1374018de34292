#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/services/Files.h"

namespace tavrix {

/// Hands all on to other files: for those that differ from them in little.
class ForwardingFiles : public Files {
  public:
    /// `files` outlives this object.
    explicit ForwardingFiles(Files& files) : files_(files) {}

    bool FileExists(const std::string& path) override { return files_.FileExists(path); }
    bool FolderExists(const std::string& path) override { return files_.FolderExists(path); }
    std::string First(const std::string& pattern) override { return files_.First(pattern); }
    std::vector<std::string> List(const std::string& folder, const std::string& patterns) override {
        return files_.List(folder, patterns);
    }
    std::vector<std::string> Folders(const std::string& folder) override { return files_.Folders(folder); }
    std::unique_ptr<FolderLook> Look(const std::string& folder, const std::string& patterns) override {
        return files_.Look(folder, patterns);
    }
    bool Copy(const std::string& from, const std::string& to, const GoOn& goOn) override {
        return files_.Copy(from, to, goOn);
    }
    void Rename(const std::string& from, const std::string& to) override { files_.Rename(from, to); }
    bool Move(const std::string& from, const std::string& to, const GoOn& goOn) override {
        return files_.Move(from, to, goOn);
    }
    void Delete(const std::string& path) override { files_.Delete(path); }
    FileInfo Info(const std::string& path) override { return files_.Info(path); }
    void ClearAttributes(const std::string& path) override { files_.ClearAttributes(path); }
    void MakeFolder(const std::string& path) override { files_.MakeFolder(path); }
    void RemoveFolder(const std::string& path) override { files_.RemoveFolder(path); }
    void ChangeDrive(const std::string& drive) override { files_.ChangeDrive(drive); }
    void ChangeFolder(const std::string& folder) override { files_.ChangeFolder(folder); }
    std::string CurrentFolder() override { return files_.CurrentFolder(); }
    std::string ShortPath(const std::string& folder) override { return files_.ShortPath(folder); }
    std::string Folder(KnownFolder folder) override { return files_.Folder(folder); }
    std::unique_ptr<FileReader> Open(const std::string& path) override { return files_.Open(path); }
    std::unique_ptr<FileWriter> Create(const std::string& path) override { return files_.Create(path); }
    bool Same(const std::string& a, const std::string& b) override { return files_.Same(a, b); }
    bool SameEntry(const std::string& a, const std::string& b) override { return files_.SameEntry(a, b); }
    bool HasExactly(const std::string& path) override { return files_.HasExactly(path); }

  private:
    Files& files_;
};

}  // namespace tavrix
