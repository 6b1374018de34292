#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tavrix::test {

/// Faults of the system under the services: calls on files below a folder are counted, and the one that was chosen
/// fails. The calls are open, read, pread, write, pwrite, copy_file_range, fsync, ftruncate, posix_fallocate, linkat,
/// rename, unlink and opendir, as far as this program makes them itself. There is one plan at a time.
class SystemFaults {
  public:
    explicit SystemFaults(std::string folder);
    SystemFaults(const SystemFaults&) = delete;
    SystemFaults& operator=(const SystemFaults&) = delete;
    ~SystemFaults();

    /// The nth call (from 1) from now on fails with an error of the system (errno).
    void FailNth(int nth, int error);
    /// Each call of this name fails.
    void FailAlways(std::string_view call, int error);
    /// No file can be made in the folder or below, as in one that belongs to somebody else.
    void ForbidNewFiles() { forbidden_ = true; }
    /// A write beyond this length fails, as it does on a full disk.
    void LimitLength(std::size_t bytes) { longest_ = bytes; }

    /// Is told the name of each call that is counted, before it is made.
    void Watch(std::function<void(std::string_view call)> watch) { watch_ = std::move(watch); }

    [[nodiscard]] bool Fired() const { return fired_; }
    /// The call that failed, such as "fsync"; empty when none did.
    [[nodiscard]] std::string_view Failed() const { return failed_; }
    [[nodiscard]] int Calls() const { return calls_; }

    /// For the calls: the error with which one ends, 0 when it is let through.
    [[nodiscard]] int ErrorOf(std::string_view call, std::string_view path, bool makesFile = false);
    [[nodiscard]] std::optional<std::size_t> Longest() const { return longest_; }

  private:
    std::string folder_;
    std::atomic<int> calls_{0};
    int nth_ = 0;
    int error_ = 0;
    std::string always_;
    int alwaysError_ = 0;
    bool forbidden_ = false;
    std::optional<std::size_t> longest_;
    std::atomic<bool> fired_{false};
    std::string failed_;
    std::function<void(std::string_view call)> watch_;
};

}  // namespace tavrix::test
