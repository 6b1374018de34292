#pragma once

#include <sys/stat.h>

#include <chrono>
#include <ctime>
#include <string>
#include <unordered_set>

namespace tavrix {

/// Which names the folder that was looked into last does not hold, in whatever case of letters. A copy of many files asks
/// that for each of them, and reading a folder takes as long as a copy does.
///
/// It is known for a quarter of a second, and only while the folder's date says that nobody but this process has changed
/// it. What another process makes in the same tick of that date may be missed as long.
///
/// Not for several threads at a time.
class FolderNames {
  public:
    /// Whether a folder certainly holds no such name, as drive paths show it. Only a second question about a folder has
    /// it read, since most are asked once.
    [[nodiscard]] bool Lacks(const std::string& folder, const std::string& shownName);
    /// This process has made a file at a host path, and changed nothing else in its folder since it last asked there.
    void Made(const std::string& path);
    /// This process is about to change a folder in another way.
    void Forget();

  private:
    using Clock = std::chrono::steady_clock;

    /// What a folder's date and place are.
    struct Stamp {
        dev_t device = 0;
        ino_t number = 0;
        time_t seconds = 0;
        long nanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] static Stamp StampOf(const std::string& folder);
    [[nodiscard]] bool Recent(Clock::time_point moment) const;
    /// Whether the next change of the folder is sure to change the stamp.
    [[nodiscard]] bool Tells(const Stamp& stamp) const;
    void Read(const Stamp& stamp);

    std::string folder_;
    Clock::time_point asked_;
    Clock::time_point read_;
    bool known_ = false;  ///< names_ are those of the folder at stamp_
    Stamp stamp_;
    Stamp made_;  ///< after the last change of our own
    std::unordered_set<std::string> names_;
};

}  // namespace tavrix
