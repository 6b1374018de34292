#include "imaging/loading/PictureLoader.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "base/RuntimeError.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"
#include "imaging/loading/FitPicture.h"

namespace tavrix {
namespace {

/// Up to this many pixels a picture is decoded sooner than a worker is worth.
constexpr std::int64_t SmallPixels = 1'000'000;

/// A handle on pixels that asks their worker to stop when the last copy of it goes.
std::shared_ptr<const ArrivingSurface> Held(std::shared_ptr<ArrivingSurface> pixels) {
    ArrivingSurface* const surface = pixels.get();
    return {surface, [owner = std::move(pixels)](const ArrivingSurface*) { owner->Abandon(); }};
}

/// Why there is no picture. While a worker reads, it alone may ask.
RuntimeError NoPicture(const ByteSource& source) {
    return RuntimeError(source.Error().value_or(ErrorNumber::InvalidPicture));
}

/// Whether a worker is worth it.
bool IsLarge(const DecoderEntry& decoder, ByteSource& source) {
    const PictureHeader header = decoder.ReadHeader(source, NeverCancelled());
    return header.known && std::int64_t{header.info.width} * header.info.height > SmallPixels;
}

}  // namespace

/// What a worker does, in a thread of its own.
class PictureLoader::Work {
  public:
    Work() = default;
    virtual ~Work() = default;
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

    /// Starts when another one, if there is any, has ended. Must live until Join.
    void Start() {
        worker_ = std::jthread([this] {
            if (const auto former = std::exchange(former_, nullptr)) former->WaitForEnd();
            Run();
            ended_.store(true);
            ended_.notify_all();
        });
    }
    void StartAfter(std::shared_ptr<Work> former) { former_ = std::move(former); }
    virtual void Abandon() = 0;
    [[nodiscard]] bool Ended() const { return ended_.load(); }
    void WaitForEnd() const { ended_.wait(false); }
    /// Waits for the worker; not to be called by itself.
    void Join() {
        if (worker_.joinable()) worker_.join();
    }

  protected:
    virtual void Run() = 0;

  private:
    std::shared_ptr<Work> former_;
    std::atomic<bool> ended_{false};
    std::jthread worker_;
};

/// A picture on its way. Whoever waits for it waits until its first rows stand or it has ended.
class PictureLoader::Job final : public Work, public PictureSink {
  public:
    Job(IdentifiedSource source, const DecoderEntry& decoder)
        : source_(std::move(source)), decoder_(decoder) {}

    [[nodiscard]] const std::string& Identity() const { return source_.identity; }

    /// The picture, or the error that its loading ends with.
    [[nodiscard]] Picture Await(Until until) {
        std::unique_lock lock(mutex_);
        const auto stands = [this, until] { return until == Until::Header ? held_ != nullptr : rowsStand_; };
        changed_.wait(lock, [this, &stands] { return stands() || decoded_; });
        if (refused_) throw RuntimeError(ErrorNumber::OutOfMemory);
        if (!stands()) throw NoPicture(*source_.bytes);
        // The caller's copies alone keep the picture wanted from here on.
        return MakePicture(decoder_, info_, std::exchange(held_, nullptr));
    }

    void Abandon() override {
        const std::scoped_lock lock(mutex_);
        abandoned_ = true;
        if (pixels_) pixels_->Abandon();
        held_ = nullptr;
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
    void Run() override {
        DecodeStatus status{Outcome::Truncated, 0, "cancelled", false};
        if (!abandoned_) status = decoder_.Decode(*source_.bytes, *this);
        const std::scoped_lock lock(mutex_);
        rowsStand_ = rowsStand_ || (status.someRows && pixels_ != nullptr);
        decoded_ = true;
        if (pixels_) pixels_->Finish(EndingOf(*source_.bytes, status), !rowsStand_);
        pixels_ = nullptr;
        if (!rowsStand_) held_ = nullptr;
        changed_.notify_all();
    }

    IdentifiedSource source_;
    const DecoderEntry& decoder_;
    std::atomic<bool> abandoned_{false};

    std::mutex mutex_;
    std::condition_variable changed_;
    PictureInfo info_;
    std::shared_ptr<ArrivingSurface> pixels_;      ///< the worker's own
    std::shared_ptr<const ArrivingSurface> held_;  ///< for the first who takes the picture
    bool refused_ = false;
    bool rowsStand_ = false;
    bool decoded_ = false;
    bool told_ = false;  ///< the worker's own
};

/// A picture on its way into a box.
class PictureLoader::FitJob final : public Work {
  public:
    FitJob(IdentifiedSource source, const DecoderEntry& decoder, const FitBox& box)
        : source_(std::move(source)), decoder_(decoder), box_(box) {}

    void Abandon() override { abandoned_ = true; }
    /// Once Ended.
    [[nodiscard]] FittedPicture Take() {
        if (result_.error) throw RuntimeError(*result_.error);
        return std::move(result_.fitted);
    }

  private:
    void Run() override {
        result_ = DecodeToFit(*source_.bytes, decoder_, box_, [this] { return abandoned_.load(); });
    }

    IdentifiedSource source_;
    const DecoderEntry& decoder_;
    FitBox box_;
    std::atomic<bool> abandoned_{false};
    DecodedFit result_;
};

class PictureLoader::HeldFit final : public PictureToFit {
  public:
    explicit HeldFit(std::shared_ptr<FitJob> job) : job_(std::move(job)) {}
    ~HeldFit() override { job_->Abandon(); }
    HeldFit(const HeldFit&) = delete;
    HeldFit& operator=(const HeldFit&) = delete;

    [[nodiscard]] bool Ended() const override { return job_->Ended(); }
    [[nodiscard]] FittedPicture Take() override {
        job_->WaitForEnd();
        return job_->Take();
    }

  private:
    std::shared_ptr<FitJob> job_;
};

PictureLoader::PictureLoader(OpenSource open) : open_(std::move(open)) {}

PictureLoader::~PictureLoader() {
    expected_ = nullptr;
    for (const std::shared_ptr<Work>& work : running_)
        work->Abandon();
    for (const std::shared_ptr<Work>& work : running_)
        work->Join();
}

Picture PictureLoader::Load(const std::string& path) {
    return LoadUntil(path, Until::FirstRows);
}

Picture PictureLoader::LoadInBackground(const std::string& path) {
    return LoadUntil(path, Until::Header);
}

Picture PictureLoader::LoadUntil(const std::string& path, Until until) {
    IdentifiedSource source = open_(path);
    ForgetEnded();
    if (const auto expected = TakeExpected(source.identity)) return expected->Await(until);

    const DecoderEntry* decoder = DecoderFor(*source.bytes);
    if (decoder == nullptr) throw NoPicture(*source.bytes);
    if (IsLarge(*decoder, *source.bytes)) {
        const auto job = std::make_shared<Job>(std::move(source), *decoder);
        Start(job);
        return job->Await(until);
    }
    DecodedPicture decoded = DecodePicture(*source.bytes, decoder);
    if (decoded.error) throw RuntimeError(*decoded.error);
    return std::move(decoded.picture);
}

std::unique_ptr<PictureToFit> PictureLoader::LoadToFit(const std::string& path, const FitBox& box) {
    IdentifiedSource source = open_(path);
    ForgetEnded();
    const DecoderEntry* decoder = DecoderFor(*source.bytes);
    if (decoder == nullptr) throw NoPicture(*source.bytes);
    const auto job = std::make_shared<FitJob>(std::move(source), *decoder, box);
    auto held = std::make_unique<HeldFit>(job);
    Start(job);
    return held;
}

void PictureLoader::Expect(const std::string& path) {
    ForgetEnded();
    std::shared_ptr<Job> job;
    try {
        IdentifiedSource source = path.empty() ? IdentifiedSource() : open_(path);
        if (expected_ && source.bytes && expected_->Identity() == source.identity) return;
        const DecoderEntry* decoder = source.bytes ? DecoderFor(*source.bytes) : nullptr;
        if (decoder != nullptr) job = std::make_shared<Job>(std::move(source), *decoder);
    } catch (const RuntimeError&) {  // Load will say it
    }
    if (const auto former = std::exchange(expected_, nullptr)) {
        former->Abandon();
        if (job) job->StartAfter(former);
    }
    if (!job) return;
    try {
        Start(job);
        expected_ = job;
    } catch (const RuntimeError&) {  // it will be loaded when it is asked for
    }
}

void PictureLoader::Start(const std::shared_ptr<Work>& work) {
    running_.push_back(work);
    try {
        work->Start();
    } catch (const std::system_error&) {
        running_.pop_back();
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
}

void PictureLoader::ForgetEnded() {
    running_.remove_if([](const std::shared_ptr<Work>& work) {
        if (!work->Ended()) return false;
        work->Join();
        return true;
    });
}

std::shared_ptr<PictureLoader::Job> PictureLoader::TakeExpected(const std::string& identity) {
    if (!expected_) return nullptr;
    if (expected_->Identity() == identity) return std::exchange(expected_, nullptr);
    return nullptr;
}

}  // namespace tavrix
