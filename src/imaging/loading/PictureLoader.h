#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>

#include "imaging/graphics/FittedPicture.h"
#include "imaging/graphics/Picture.h"
#include "imaging/loading/IdentifiedSource.h"

namespace tavrix {

/// Loads pictures from wherever their bytes are. Small ones are decoded on the spot; large ones by a worker, and Load
/// returns as soon as their first rows stand. A worker whose picture nobody holds any more stops soon. Used by one thread.
class PictureLoader {
  public:
    /// Opens what a path leads to; what it throws passes through Load. The source is read by one thread at a time.
    using OpenSource = std::function<IdentifiedSource(const std::string& path)>;

    explicit PictureLoader(OpenSource open);
    /// Stops and joins all workers. Pictures that are still arriving end there, truncated.
    ~PictureLoader();

    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;

    /// As the service Pictures says, besides what opening throws. Decoding that ends without a row is 481.
    [[nodiscard]] Picture Load(const std::string& path);
    [[nodiscard]] Picture LoadInBackground(const std::string& path);
    /// Always by a worker. Dropping what this gives ends its work soon.
    [[nodiscard]] std::unique_ptr<PictureToFit> LoadToFit(const std::string& path, const FitBox& box);

    /// Starts decoding at once, for a picture that will be asked for soon. Load takes the result if the data are still
    /// the same. Failures are left for Load to report. One picture is expected at a time: another one takes its place,
    /// and is begun when the worker of the former has stopped; an empty path leaves none.
    void Expect(const std::string& path);

  private:
    class Work;
    class Job;
    class FitJob;
    class HeldFit;
    enum class Until : std::uint8_t { FirstRows, Header };

    [[nodiscard]] Picture LoadUntil(const std::string& path, Until until);
    void Start(const std::shared_ptr<Work>& work);
    void ForgetEnded();
    /// The picture that is expected if it is this one; then none is expected any more.
    [[nodiscard]] std::shared_ptr<Job> TakeExpected(const std::string& identity);

    OpenSource open_;
    std::list<std::shared_ptr<Work>> running_;
    std::shared_ptr<Job> expected_;
};

}  // namespace tavrix
