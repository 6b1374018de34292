#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"

#include <memory>
#include <new>

namespace tavrix {
namespace {

class WholePicture final : public PictureSink {
  public:
    Surface* Begin(const PictureInfo& info) override {
        info_ = info;
        try {
            pixels_ = std::make_shared<ArrivingSurface>(info.width, info.height);
        } catch (const RuntimeError&) {
            refused_ = true;
            return nullptr;
        } catch (const std::bad_alloc&) {
            refused_ = true;
            return nullptr;
        }
        return &pixels_->Canvas();
    }
    void RowsReady(int) override {}
    [[nodiscard]] bool Cancelled() const override { return false; }

    [[nodiscard]] bool Refused() const { return refused_; }
    [[nodiscard]] const PictureInfo& Info() const { return info_; }
    [[nodiscard]] std::shared_ptr<ArrivingSurface> Pixels() const { return pixels_; }

  private:
    PictureInfo info_;
    std::shared_ptr<ArrivingSurface> pixels_;
    bool refused_ = false;
};

}  // namespace

DecodedPicture DecodePicture(ByteSource& source) noexcept {
    return DecodePicture(source, DecoderFor(source));
}

DecodedPicture DecodePicture(ByteSource& source, const DecoderEntry* decoder) noexcept {
    DecodedPicture result;
    if (decoder == nullptr) {
        result.status = {Outcome::Corrupt, 0, "no known format", false};
        result.error = source.Error().value_or(ErrorNumber::InvalidPicture);
        return result;
    }
    WholePicture sink;
    result.status = decoder->Decode(source, sink);
    result.status.outcome = EndingOf(source, result.status);
    if (sink.Refused()) {
        result.error = ErrorNumber::OutOfMemory;
    } else if (sink.Pixels() == nullptr || !result.status.someRows) {
        result.error = source.Error().value_or(ErrorNumber::InvalidPicture);
    } else {
        sink.Pixels()->Finish(result.status.outcome);
        result.picture = MakePicture(*decoder, sink.Info(), sink.Pixels());
    }
    return result;
}

}  // namespace tavrix
