#include "imaging/codecs/GifAnimation.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "imaging/codecs/GifDecoder.h"
#include "imaging/codecs/GifLimits.h"
#include "imaging/codecs/GifStream.h"
#include "imaging/graphics/Draw.h"

namespace tavrix {
namespace {

using std::chrono::milliseconds;

/// Delays up to this, in hundredths of a second, are no speed that anyone meant.
constexpr int MeantAsNoDelay = 1;
constexpr int UsualDelay = 10;

class GifAnimation final : public Animation {
  public:
    explicit GifAnimation(std::unique_ptr<ByteSource> source) : source_(std::move(source)) {}

    /// Composes the first frame; otherwise why there is none.
    std::optional<ErrorNumber> Start() {
        if (!Rewind()) return ErrorNumber::InvalidPicture;
        for (int passed = 0; passed <= MostGifImagesPassed; ++passed) {
            const Step step = TakeImage();
            if (step == Step::Shown) return std::nullopt;
            if (step == Step::End) break;
        }
        return ErrorNumber::InvalidPicture;
    }

    [[nodiscard]] const Surface& Canvas() const override { return canvas_; }
    [[nodiscard]] bool Transparent() const override { return !opaque_; }
    [[nodiscard]] milliseconds Stay() const override { return milliseconds(10 * delay_); }

    [[nodiscard]] bool Next() noexcept override {
        try {
            for (int passed = 0; !ended_ && passed <= MostGifImagesPassed; ++passed) {
                const Step step = TakeImage();
                if (step == Step::Shown) return true;
                if (step == Step::End && !StartAgain()) break;
            }
        } catch (const RuntimeError&) {    // no memory: the frame on the canvas is the last one
        } catch (const std::bad_alloc&) {  // likewise
        }
        ended_ = true;
        return false;
    }

  private:
    enum class Step : std::uint8_t { Shown, Nothing, End };

    bool Rewind() {
        stream_ = std::make_unique<GifStream>(*source_);
        shown_ = 0;
        return stream_->Open();
    }

    /// Whether there is another round.
    bool StartAgain() {
        if (shown_ < 2) return false;
        const std::optional<int> repetitions = stream_->Repetitions();
        if (!repetitions) return false;
        ++rounds_;
        return (*repetitions == 0 || rounds_ <= *repetitions) && Rewind();
    }

    /// Goes to the next image of the file and lays it on the canvas. Images at the start that show nothing are none.
    Step TakeImage() {
        if (stream_->NextImage() != GifStream::Found::Image) return Step::End;
        const bool sized = MakeCanvas();
        if (!sized) return Step::Nothing;
        if (shown_ == 0) {
            // A canvas that is new costs no memory until something is drawn.
            if (drawn_) canvas_.Fill(0);
            opaque_ = drawn_ = false;
        } else {
            TakeAway();
        }
        last_ = ShownPart();
        Announce(stream_->Control().value_or(GifControl{}));
        const bool some = DrawImage();
        if (shown_ == 0 && !some) return Step::Nothing;
        ++shown_;
        return Step::Shown;
    }

    /// Whether it is known by now how large the canvas is.
    bool MakeCanvas() {
        if (!canvas_.Empty()) return true;
        const bool screen = stream_->ScreenWidth() > 0 && stream_->ScreenHeight() > 0;
        const int width = screen ? stream_->ScreenWidth() : stream_->Image().Width;
        const int height = screen ? stream_->ScreenHeight() : stream_->Image().Height;
        if (width <= 0 || height <= 0) return false;
        canvas_ = Surface(width, height);
        ownOrigin_ = !screen;
        return true;
    }

    [[nodiscard]] PixelRect ShownPart() const {
        const GifImageDesc& image = stream_->Image();
        const int left = ownOrigin_ ? 0 : image.Left;
        const int top = ownOrigin_ ? 0 : image.Top;
        return {left, top, std::clamp(canvas_.Width() - left, 0, std::max(image.Width, 0)),
                std::clamp(canvas_.Height() - top, 0, std::max(image.Height, 0))};
    }

    /// Takes note of what is to become of the image, before it is drawn.
    void Announce(const GifControl& control) {
        delay_ = control.delay <= MeantAsNoDelay ? UsualDelay : control.delay;
        disposal_ = control.disposal;
        if (disposal_ != GifControl::Disposal::Previous) return;
        opaqueBefore_ = opaque_;
        const std::int64_t both =
            std::int64_t{canvas_.Width()} * canvas_.Height() + std::int64_t{last_.width} * last_.height;
        if (both > MaxPicturePixels) {
            disposal_ = GifControl::Disposal::Keep;
            return;
        }
        if (before_.Width() != last_.width || before_.Height() != last_.height) {
            before_ = Surface();  // never two at a time
            before_ = Surface(last_.width, last_.height);
        }
        for (int y = 0; y < last_.height; ++y)
            std::ranges::copy(PartOfRow(y), before_.Row(y).begin());
    }

    /// Takes the frame on the canvas away as it asked for.
    void TakeAway() {
        if (disposal_ == GifControl::Disposal::Background && last_.width > 0 && last_.height > 0) {
            FillBox(canvas_, last_, 0);
            opaque_ = false;
        } else if (disposal_ == GifControl::Disposal::Previous) {
            for (int y = 0; y < last_.height; ++y)
                std::ranges::copy(before_.Row(y), PartOfRow(y).begin());
            opaque_ = opaqueBefore_;
        }
        disposal_ = GifControl::Disposal::Keep;
    }

    std::span<Pixel> PartOfRow(int y) {
        return canvas_.Row(last_.top + y)
            .subspan(static_cast<std::size_t>(last_.left), static_cast<std::size_t>(last_.width));
    }

    /// Draws what there is of the image; whether that shows anything.
    bool DrawImage() {
        if (last_.width == 0 || last_.height == 0) return false;
        std::int64_t pixelsLeft = std::int64_t{canvas_.Width()} * canvas_.Height() + MostHiddenGifPixels;
        const DecodeStatus status = stream_->ReadImage(
            {.into = canvas_, .left = last_.left, .top = last_.top, .pixelsLeft = pixelsLeft});
        const bool solid = !stream_->Control() || !stream_->Control()->transparent;
        const bool covers = last_ == PixelRect{0, 0, canvas_.Width(), canvas_.Height()};
        opaque_ = opaque_ || (covers && solid && status.outcome == Outcome::Complete);
        drawn_ = drawn_ || status.someRows;
        return status.someRows;
    }

    std::unique_ptr<ByteSource> source_;
    std::unique_ptr<GifStream> stream_;

    Surface canvas_;
    Surface before_;          ///< what lay where the frame on the canvas lies
    bool ownOrigin_ = false;  ///< the file has no screen
    bool drawn_ = false;      ///< something on the canvas
    bool opaque_ = false;
    bool opaqueBefore_ = false;
    PixelRect last_;  ///< where the frame on the canvas lies
    GifControl::Disposal disposal_ = GifControl::Disposal::Keep;
    int delay_ = UsualDelay;
    int shown_ = 0;   ///< frames of this round
    int rounds_ = 0;  ///< begun beyond the first
    bool ended_ = false;
};

}  // namespace

OpenedAnimation OpenGifAnimation(std::unique_ptr<ByteSource> source) noexcept {
    try {
        std::array<std::byte, SniffLength> start{};
        const std::size_t length = source->ReadAt(0, start);
        if (!RecognisesGif(std::span(start).first(length))) return {nullptr, ErrorNumber::InvalidPicture};
        auto animation = std::make_unique<GifAnimation>(std::move(source));
        if (const auto error = animation->Start()) return {nullptr, error};
        return {std::move(animation), std::nullopt};
    } catch (const RuntimeError& error) {  // the canvas is over the limits
        return {nullptr, error.Number()};
    } catch (const std::bad_alloc&) {
        return {nullptr, ErrorNumber::OutOfMemory};
    }
}

}  // namespace tavrix
