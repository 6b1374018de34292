#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "backends/shared/NameList.h"
#include "base/RuntimeError.h"
#include "platform/services/Files.h"

namespace tavrix {

/// A look that failed before it began.
class FailedLook final : public FolderLook {
  public:
    explicit FailedLook(RuntimeError failure) : failure_(std::move(failure)) {}

    bool Wait(int /*milliseconds*/) override { return true; }
    FolderContent Take() override { throw RuntimeError(failure_); }

  private:
    RuntimeError failure_;
};

/// A look that has been taken already.
class ReadyLook final : public FolderLook {
  public:
    explicit ReadyLook(FolderContent content) : content_(std::move(content)) {}

    bool Wait(int /*milliseconds*/) override { return true; }
    FolderContent Take() override { return std::move(content_); }

  private:
    FolderContent content_;
};

/// Makes what was read the answer of a look: the names of subfolders become paths, and which of them do not count is seen to.
using FinishLook = std::function<void(FolderContent& content)>;

/// Reads folders of this system in a thread of its own, one after the other. A system call that does not come back (a disk
/// that sleeps, a server that is gone) holds up nobody: the thread is left to itself once its look is given up, and ends
/// when the call does. Used by one thread.
class FolderReader {
  public:
    FolderReader() = default;
    ~FolderReader();
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;

    /// Begins to read a folder by its host path. `finish` runs in Take, in the caller's thread, on the names of the files
    /// that match and of all subfolders, those that are links as uncounted; all are in list order.
    [[nodiscard]] std::unique_ptr<FolderLook> Begin(const std::string& hostPath, PatternList patterns,
                                                    FinishLook finish);

  private:
    class Worker;
    class Job;
    class WorkersLook;

    std::shared_ptr<Worker> worker_;  ///< null until it is needed
};

}  // namespace tavrix
