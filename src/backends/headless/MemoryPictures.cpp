#include "backends/headless/MemoryPictures.h"

#include <span>
#include <utility>

#include "base/Text.h"
#include "imaging/codecs/BmpWriter.h"
#include "imaging/codecs/GifAnimation.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"
#include "imaging/loading/FitPicture.h"
#include "platform/services/DrivePath.h"

namespace tavrix::headless {
namespace {

/// A picture as an animation of one frame.
class StillAnimation final : public Animation {
  public:
    explicit StillAnimation(Picture picture) : picture_(std::move(picture)) {}

    [[nodiscard]] const Surface& Canvas() const override { return picture_.pixels->Whole(); }
    [[nodiscard]] bool Transparent() const override { return picture_.transparent; }
    [[nodiscard]] std::chrono::milliseconds Stay() const override { return std::chrono::milliseconds(100); }
    [[nodiscard]] bool Next() noexcept override { return false; }

  private:
    Picture picture_;
};

/// The bytes that a file had at some time.
class KeptSource final : public ByteSource {
  public:
    explicit KeptSource(std::string bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] std::uint64_t Size() const override { return source_.Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        return source_.ReadAt(offset, into);
    }

  private:
    std::string bytes_;
    MemorySource source_{std::as_bytes(std::span(bytes_))};
};

/// A picture that has come, or has failed.
class EndedFit final : public PictureToFit {
  public:
    explicit EndedFit(DecodedFit result) : result_(std::move(result)) {}

    [[nodiscard]] bool Ended() const override { return true; }
    [[nodiscard]] FittedPicture Take() override {
        if (result_.error) throw RuntimeError(*result_.error);
        return std::move(result_.fitted);
    }

  private:
    DecodedFit result_;
};

}  // namespace

std::string MemoryPictures::SetPicture(const std::string& path, const Picture& picture) {
    std::string content = "a picture of a test, number " + std::to_string(pictures_.size() + 1);
    pictures_[content] = picture;
    disks_.PutFile(path, content);
    failures_.erase(UpperCase(path));
    return content;
}

void MemoryPictures::SetFailure(const std::string& path, const RuntimeError& error) {
    failures_.insert_or_assign(UpperCase(path), error);
}

const std::string& MemoryPictures::ContentFor(const std::string& operation, const std::string& path) {
    faults_.Enter(Service::Pictures, operation, path);
    if (const auto failure = failures_.find(UpperCase(path)); failure != failures_.end()) {
        throw RuntimeError(failure->second);
    }
    const MemoryPlace place = disks_.Locate(PartsOf(path));
    if (!place.node) throw RuntimeError(place.parent ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
    if (place.IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccessError);
    return place.node->content;
}

Picture MemoryPictures::Load(const std::string& path) {
    const std::string& content = ContentFor("Load", path);
    const auto known = pictures_.find(content);
    if (known != pictures_.end()) return known->second;

    MemorySource source(std::as_bytes(std::span(content)));
    DecodedPicture decoded = DecodePicture(source);
    if (decoded.error) throw RuntimeError(*decoded.error);
    return std::move(decoded.picture);
}

std::unique_ptr<PictureToFit> MemoryPictures::LoadToFit(const std::string& path, const FitBox& box) {
    const std::string& content = ContentFor("LoadToFit", path);
    const auto known = pictures_.find(content);
    if (known != pictures_.end())
        return std::make_unique<EndedFit>(DecodedFit{FitPicture(known->second, box), std::nullopt});

    MemorySource source(std::as_bytes(std::span(content)));
    const DecoderEntry* decoder = DecoderFor(source);
    if (decoder == nullptr) throw RuntimeError(ErrorNumber::InvalidPicture);
    return std::make_unique<EndedFit>(DecodeToFit(source, *decoder, box));
}

std::unique_ptr<Animation> MemoryPictures::OpenAnimation(const std::string& path) {
    const std::string& content = ContentFor("OpenAnimation", path);
    const auto known = pictures_.find(content);
    if (known != pictures_.end()) return std::make_unique<StillAnimation>(known->second);

    OpenedAnimation opened = OpenGifAnimation(std::make_unique<KeptSource>(content));
    if (opened.error) throw RuntimeError(*opened.error);
    return std::move(opened.animation);
}

void MemoryPictures::SaveBitmap(const Surface& surface, const std::string& path) {
    faults_.Enter(Service::Pictures, "SaveBitmap", path);
    const std::unique_ptr<FileWriter> file = files_.Create(path);
    WriteBmp(surface, [&file](std::span<const std::byte> bytes) { file->Write(bytes); });
    file->Close();
}

}  // namespace tavrix::headless
