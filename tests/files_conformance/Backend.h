#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/services/Files.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {

/// A file service and what a test does to its disks behind its back. Paths are full drive paths of plain names. To
/// begin with C: and D: are empty, and A: is a floppy drive without a disk.
class Backend {
  public:
    virtual ~Backend() = default;

    [[nodiscard]] virtual Files& Service() = 0;
    /// Puts a file there, making the folders above it; another spelling of its name is another file.
    virtual void PutFile(const std::string& path, const std::string& content) = 0;
    virtual void PutFolder(const std::string& path) = 0;
    /// A second path to a file or folder that is there.
    virtual void PutLink(const std::string& existing, const std::string& path) = 0;
    virtual void Remove(const std::string& path) = 0;
    /// The content of a file in its exact spelling.
    [[nodiscard]] virtual std::optional<std::string> Content(const std::string& path) = 0;
    virtual void InsertDisk() = 0;
    virtual void PullDisk() = 0;
    virtual void SetReadOnly(const std::string& path, bool readOnly) = 0;
    /// Forbids the user to look into a folder, or allows it again.
    virtual void SetUnreadable(const std::string& folder, bool unreadable) = 0;
    /// ErrorOfCall for a user who has no special rights. What the call changes in memory may be lost.
    [[nodiscard]] virtual int ErrorForUser(const std::function<void()>& call) = 0;
};

struct BackendKind {
    const char* name;
    std::unique_ptr<Backend> (*make)();
};

/// Cases for each kind of backend.
class FilesConformance : public testing::TestWithParam<BackendKind> {
  protected:
    void Write(const std::string& path, const std::string& content) {
        const auto writer = files.Create(path);
        writer->Write(std::as_bytes(std::span(content)));
        writer->Close();
    }
    std::string Read(const std::string& path);

    std::unique_ptr<Backend> backend = GetParam().make();
    Files& files = backend->Service();
};

}  // namespace tavrix::test
