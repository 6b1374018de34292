#include "backends/linux/PictureLoader.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <new>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "backends/linux/FileSource.h"
#include "base/RuntimeError.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"

namespace tavrix {
namespace {

/// Up to this many pixels a picture is decoded sooner than a worker is worth.
constexpr std::int64_t SmallPixels = 1'000'000;
constexpr std::size_t MostPrefetched = 2;

/// Learns the size of a picture, and lets the decoder stop there.
class SizeProbe final : public PictureSink {
  public:
    Surface* Begin(const PictureInfo& info) override {
        pixels_ = std::int64_t{info.width} * info.height;
        return nullptr;
    }
    void RowsReady(int) override {}
    [[nodiscard]] bool Cancelled() const override { return false; }

    /// 0: there is no picture.
    [[nodiscard]] std::int64_t Pixels() const { return pixels_; }

  private:
    std::int64_t pixels_ = 0;
};

/// A handle on pixels that asks their worker to stop when the last copy of it goes.
std::shared_ptr<const ArrivingSurface> Held(std::shared_ptr<ArrivingSurface> pixels) {
    ArrivingSurface* const surface = pixels.get();
    return {surface, [owner = std::move(pixels)](const ArrivingSurface*) { owner->Abandon(); }};
}

}  // namespace

/// A picture on its way, made by a worker. Whoever waits for it waits until its first rows stand or it has ended.
class PictureLoader::Job final : public PictureSink {
  public:
    explicit Job(const std::string& hostPath) : source_(hostPath), decoder_(DecoderFor(source_)) {}

    [[nodiscard]] FileSource& Source() { return source_; }
    [[nodiscard]] const FileIdentity& Identity() const { return source_.Identity(); }
    [[nodiscard]] const DecoderEntry* Decoder() const { return decoder_; }

    /// The job must live until Join.
    void Start() {
        worker_ = std::jthread([this] { Work(); });
    }

    /// The picture, or the error that its loading ends with.
    [[nodiscard]] Picture Await(Until until) {
        std::unique_lock lock(mutex_);
        const auto stands = [this, until] { return until == Until::Header ? held_ != nullptr : rowsStand_; };
        changed_.wait(lock, [this, &stands] { return stands() || ended_; });
        if (refused_) throw RuntimeError(ErrorNumber::OutOfMemory);
        if (!stands()) throw NoPicture();
        // The caller's copies alone keep the picture wanted from here on.
        return MakePicture(*decoder_, info_, std::exchange(held_, nullptr));
    }

    void Abandon() {
        const std::scoped_lock lock(mutex_);
        abandoned_ = true;
        if (pixels_) pixels_->Abandon();
        held_ = nullptr;
    }

    /// Why there is no picture. While a worker reads, it alone may ask.
    [[nodiscard]] RuntimeError NoPicture() const {
        return RuntimeError(source_.Error().value_or(ErrorNumber::InvalidPicture));
    }

    [[nodiscard]] bool Ended() {
        const std::scoped_lock lock(mutex_);
        return ended_;
    }

    /// Waits for the worker; not to be called by itself.
    void Join() {
        if (worker_.joinable()) worker_.join();
    }

    Surface* Begin(const PictureInfo& info) override {
        const std::scoped_lock lock(mutex_);
        if (abandoned_) return nullptr;
        info_ = info;
        try {
            pixels_ = std::make_shared<ArrivingSurface>(info.width, info.height);
            held_ = Held(pixels_);
            changed_.notify_all();
        } catch (const RuntimeError&) {
            refused_ = true;
        } catch (const std::bad_alloc&) {
            refused_ = true;
        }
        return refused_ ? nullptr : &pixels_->Canvas();
    }

    void RowsReady(int count) override {
        if (count <= 0) return;
        pixels_->TellReady(count);
        if (told_) return;
        told_ = true;
        const std::scoped_lock lock(mutex_);
        rowsStand_ = true;
        changed_.notify_all();
    }

    [[nodiscard]] bool Cancelled() const override {
        return pixels_ ? pixels_->Abandoned() : abandoned_.load();
    }

  private:
    void Work() {
        DecodeStatus status{Outcome::Corrupt, 0, "no known format", false};
        if (decoder_ != nullptr) status = decoder_->Decode(source_, *this);
        const std::scoped_lock lock(mutex_);
        rowsStand_ = rowsStand_ || (status.someRows && pixels_ != nullptr);
        ended_ = true;
        if (pixels_) pixels_->Finish(EndingOf(source_, status), !rowsStand_);
        pixels_ = nullptr;
        if (!rowsStand_) held_ = nullptr;
        changed_.notify_all();
    }

    FileSource source_;
    const DecoderEntry* decoder_;
    std::atomic<bool> abandoned_{false};

    std::mutex mutex_;
    std::condition_variable changed_;
    PictureInfo info_;
    std::shared_ptr<ArrivingSurface> pixels_;      ///< the worker's own
    std::shared_ptr<const ArrivingSurface> held_;  ///< for the first who takes the picture
    bool refused_ = false;
    bool rowsStand_ = false;
    bool ended_ = false;
    bool told_ = false;  ///< the worker's own
    std::jthread worker_;
};

PictureLoader::PictureLoader(ToHostPath toHostPath) : toHostPath_(std::move(toHostPath)) {}

PictureLoader::~PictureLoader() {
    prefetched_.clear();
    for (const std::shared_ptr<Job>& job : running_)
        job->Abandon();
    for (const std::shared_ptr<Job>& job : running_)
        job->Join();
}

Picture PictureLoader::Load(const std::string& path) {
    return LoadUntil(path, Until::FirstRows);
}

Picture PictureLoader::LoadInBackground(const std::string& path) {
    return LoadUntil(path, Until::Header);
}

Picture PictureLoader::LoadUntil(const std::string& path, Until until) {
    const std::string hostPath = toHostPath_(path);
    ForgetEnded();
    const auto job = std::make_shared<Job>(hostPath);
    if (job->Decoder() == nullptr) throw job->NoPicture();
    if (const auto prefetched = TakePrefetched(hostPath, *job)) return prefetched->Await(until);

    SizeProbe probe;
    static_cast<void>(job->Decoder()->Decode(job->Source(), probe));
    if (probe.Pixels() > SmallPixels) {
        Start(job);
        return job->Await(until);
    }
    DecodedPicture decoded = DecodePicture(job->Source());
    if (decoded.error) throw RuntimeError(*decoded.error);
    return std::move(decoded.picture);
}

void PictureLoader::Prefetch(const std::string& hostPath) {
    ForgetEnded();
    try {
        const auto job = std::make_shared<Job>(hostPath);
        if (job->Decoder() == nullptr) return;
        Start(job);
        const std::scoped_lock lock(mutex_);
        if (prefetched_.size() == MostPrefetched) {
            prefetched_.front().job->Abandon();
            prefetched_.erase(prefetched_.begin());
        }
        prefetched_.push_back({hostPath, job});
    } catch (const RuntimeError&) {  // Load will say it
    }
}

void PictureLoader::Start(const std::shared_ptr<Job>& job) {
    const std::scoped_lock lock(mutex_);
    running_.push_back(job);
    try {
        job->Start();
    } catch (const std::system_error&) {
        running_.pop_back();
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
}

void PictureLoader::ForgetEnded() {
    const std::scoped_lock lock(mutex_);
    running_.remove_if([](const std::shared_ptr<Job>& job) {
        if (!job->Ended()) return false;
        job->Join();
        return true;
    });
}

std::shared_ptr<PictureLoader::Job> PictureLoader::TakePrefetched(const std::string& hostPath,
                                                                  const Job& wanted) {
    const std::scoped_lock lock(mutex_);
    const auto found = std::ranges::find(prefetched_, hostPath, &Prefetched::hostPath);
    if (found == prefetched_.end()) return nullptr;
    std::shared_ptr<Job> job = std::move(found->job);
    prefetched_.erase(found);
    if (job->Identity() == wanted.Identity()) return job;
    job->Abandon();
    return nullptr;
}

}  // namespace tavrix
