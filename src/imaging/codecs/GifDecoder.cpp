#include "imaging/codecs/GifDecoder.h"

#include <cstring>
#include <memory>
#include <new>
#include <optional>

#include "imaging/codecs/GifImages.h"
#include "imaging/codecs/GifLimits.h"
#include "imaging/codecs/GifStream.h"

namespace tavrix {
namespace {

/// Images that are laid on one another for the first view.
constexpr int MostParts = 20'000;

class GifReader {
  public:
    GifReader(ByteSource& source, const Cancellation& waiting)
        : source_(source), waiting_(waiting), stream_(source, [&waiting] { return waiting.Cancelled(); }) {}

    PictureHeader ReadHeader() {
        if (const auto ended = GoToImage()) return {.reason = ended->reason};
        return {.info = {.width = width_, .height = height_, .frames = frames_}, .known = true};
    }

    DecodeStatus Run(PictureSink& sink) {
        if (const auto ended = GoToImage()) return *ended;

        const GifImageDesc& image = stream_.Image();
        const bool covers = left_ == 0 && top_ == 0 && image.Width >= width_ && image.Height >= height_;
        const bool transparent = !covers || (stream_.Control() && stream_.Control()->transparent);
        surface_ =
            sink.Begin({.width = width_, .height = height_, .frames = frames_, .transparent = transparent});
        if (surface_ == nullptr) return {Outcome::Corrupt, stream_.Offset(), "surface refused", false};
        return ReadFirstView(sink);
    }

  private:
    /// Goes behind the header of the image to show, and looks at what follows; otherwise how it ended.
    std::optional<DecodeStatus> GoToImage() {
        if (!stream_.Open()) return stream_.Broken("header refused by the library");
        if (auto ended = FindImage()) return ended;
        const GifImagesBehind behind = LookBehindGifImage(source_, stream_.Offset(), waiting_);
        frames_ = images_ + behind.images;
        laysNextOn_ = behind.timed;
        return std::nullopt;
    }

    DecodeStatus ReadFirstView(PictureSink& sink) {
        std::int64_t pixelsLeft = std::int64_t{width_} * height_ + MostHiddenGifPixels;
        bool somePixels = false;
        // In a file that gives times, an image without one belongs to the same view as the next. Where none has one, each
        // is a view of its own.
        for (int parts = 1;; ++parts) {
            const bool last = !laysNextOn_ || stream_.Control() || images_ >= frames_;
            std::function<void(int)> rowsReady;
            if (last) rowsReady = [&sink](int count) { sink.RowsReady(count); };
            DecodeStatus status = stream_.ReadImage({.into = *surface_,
                                                     .left = left_,
                                                     .top = top_,
                                                     .pixelsLeft = pixelsLeft,
                                                     .rowsReady = rowsReady});
            somePixels = status.someRows = somePixels || status.someRows;
            if (status.outcome != Outcome::Complete) return status;
            if (last || parts == MostParts || FindImage()) break;
        }
        sink.RowsReady(height_);
        return {Outcome::Complete, 0, {}, somePixels};
    }

    /// Goes behind the header of the image to show; otherwise how it ended.
    std::optional<DecodeStatus> FindImage() {
        for (;;) {
            const GifStream::Found found = stream_.NextImage();
            if (found == GifStream::Found::Trailer)
                return DecodeStatus{Outcome::Corrupt, stream_.Offset(), "no image", false};
            if (found == GifStream::Found::Nothing) return stream_.Broken("no image");
            ++images_;
            if (PlaceImage()) return std::nullopt;
            if (++passed_ > MostGifImagesPassed) return stream_.Broken("no image on the screen");
        }
    }

    /// Sets the screen and where the image lies on it; false where it does not show.
    bool PlaceImage() {
        const GifImageDesc& image = stream_.Image();
        if (image.Width <= 0 || image.Height <= 0) return false;
        const bool screen = stream_.ScreenWidth() > 0 && stream_.ScreenHeight() > 0;
        if (surface_ == nullptr) {
            width_ = screen ? stream_.ScreenWidth() : image.Width;
            height_ = screen ? stream_.ScreenHeight() : image.Height;
        }
        left_ = screen ? image.Left : 0;
        top_ = screen ? image.Top : 0;
        return left_ < width_ && top_ < height_;
    }

    ByteSource& source_;
    const Cancellation& waiting_;
    GifStream stream_;

    int images_ = 0;           ///< up to the one to show
    int frames_ = 0;           ///< images in the file
    int passed_ = 0;           ///< images that showed nothing
    bool laysNextOn_ = false;  ///< behind the first image stand some with a time
    int width_ = 0;            ///< of the screen
    int height_ = 0;           ///< of the screen
    int left_ = 0;             ///< of the image on the screen
    int top_ = 0;              ///< of the image on the screen
    Surface* surface_ = nullptr;
};

}  // namespace

bool RecognisesGif(std::span<const std::byte> start) {
    return start.size() >= 6 &&
           (std::memcmp(start.data(), "GIF87a", 6) == 0 || std::memcmp(start.data(), "GIF89a", 6) == 0);
}

PictureHeader ReadGifSize(ByteSource& source, const Cancellation& waiting) {
    try {
        return std::make_unique<GifReader>(source, waiting)->ReadHeader();
    } catch (const std::bad_alloc&) {
        return {.reason = "memory refused"};
    }
}

DecodeStatus DecodeGif(ByteSource& source, PictureSink& sink) {
    try {
        return std::make_unique<GifReader>(source, sink)->Run(sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
