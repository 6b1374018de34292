#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace tavrix::bench {

/// An empty folder of this run in a folder, among the temporary ones (TMPDIR) unless told otherwise, gone with all that is in it at the end.
class BenchFolder {
  public:
    explicit BenchFolder(const std::string& name,
                         const std::filesystem::path& in = std::filesystem::temp_directory_path())
        : path_(in / (name + "." + std::to_string(::getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~BenchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace tavrix::bench
