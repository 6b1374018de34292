#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/services/Pictures.h"

namespace tavrix {

/// Loads pictures from the host's files. Small ones are decoded on the spot; large ones by a worker, and Load returns
/// as soon as their first rows stand. A worker whose picture nobody holds any more stops soon.
class PictureLoader {
  public:
    /// Turns a drive path into a host path; what it throws passes through Load.
    using ToHostPath = std::function<std::string(const std::string&)>;

    explicit PictureLoader(ToHostPath toHostPath);
    /// Stops and joins all workers. Pictures that are still arriving end there, truncated.
    ~PictureLoader();

    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;

    /// As Pictures says; besides, 75 for a folder or anything else that is no ordinary file. Decoding that ends
    /// without a row is 481, and the system's error where the file could not be read.
    [[nodiscard]] Picture Load(const std::string& path);
    [[nodiscard]] Picture LoadInBackground(const std::string& path);

    /// Starts decoding at once, for a picture that will be asked for soon. Load takes the result if the file is
    /// still the same. Failures are left for Load to report. Only the latest few are kept.
    void Prefetch(const std::string& hostPath);

  private:
    class Job;
    enum class Until : std::uint8_t { FirstRows, Header };
    struct Prefetched {
        std::string hostPath;
        std::shared_ptr<Job> job;
    };

    [[nodiscard]] Picture LoadUntil(const std::string& path, Until until);
    void Start(const std::shared_ptr<Job>& job);
    void ForgetEnded();
    [[nodiscard]] std::shared_ptr<Job> TakePrefetched(const std::string& hostPath, const Job& wanted);

    ToHostPath toHostPath_;
    std::mutex mutex_;  ///< guards what follows
    std::list<std::shared_ptr<Job>> running_;
    std::vector<Prefetched> prefetched_;
};

}  // namespace tavrix
