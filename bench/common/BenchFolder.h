#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "backends/linux/ProcessFolder.h"

namespace tavrix::bench {

/// An empty folder of this run in a folder, among the temporary ones (TMPDIR) unless told otherwise, gone with all that is
/// in it at the end, or at the next run where this one is killed.
class BenchFolder {
  public:
    explicit BenchFolder(const std::string& name,
                         const std::filesystem::path& in = std::filesystem::temp_directory_path())
        : folder_(in.string(), name), path_(folder_.Path()) {
        constexpr mode_t Private = 0700;
        folder_.Make(Private);
    }
    ~BenchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  private:
    ProcessFolder folder_;
    std::filesystem::path path_;
};

}  // namespace tavrix::bench
