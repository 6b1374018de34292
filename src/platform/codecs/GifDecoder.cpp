#include "platform/codecs/GifDecoder.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/GifImages.h"

namespace tavrix {
namespace {

static_assert(std::numeric_limits<GifPixelType>::max() == 255);

/// Images that show nothing and are passed over on the way to the first one that does.
constexpr int MostImagesPassed = 1000;
/// Bytes of 0 between blocks, in all.
constexpr int MostPadding = 1 << 16;
/// Images that are laid on one another for the first view.
constexpr int MostParts = 20'000;
constexpr int RowsBetweenReports = 32;
/// Pixels that are not on the screen, or lie under others, cost time, too. So many there may be.
constexpr std::int64_t MostHiddenPixels = 64LL << 20U;

/// What the library reads from.
class Input {
  public:
    Input(ByteSource& source, const PictureSink& sink) : reader_(source, 0), source_(source), sink_(sink) {}

    int Read(std::span<std::byte> into) {
        if (sink_.Cancelled()) return 0;
        const std::size_t got = inPixels_ ? ReadPixelData(into) : reader_.Read(into);
        if (got != 0) last_ = into[got - 1];
        return static_cast<int>(got);
    }

    /// From here on the library reads a chain of blocks.
    void StartPixels() { inPixels_ = true; }
    void EndPixels() {
        inPixels_ = false;
        pixelsEnded_ = false;
        blockLeft_ = 0;
    }
    /// All pixel data were given out, or the library was told so.
    [[nodiscard]] bool PixelsEnded() const { return pixelsEnded_; }
    [[nodiscard]] std::byte Last() const { return last_; }
    [[nodiscard]] std::uint64_t Offset() const { return reader_.Offset(); }
    [[nodiscard]] bool AtEnd() const { return Offset() >= source_.Size(); }

  private:
    /// The library refuses a block that is cut off. It is told a block as long as there are bytes, and an end behind
    /// it, so that no pixel is lost.
    std::size_t ReadPixelData(std::span<std::byte> into) {
        if (blockLeft_ != 0) {
            const std::size_t got = reader_.Read(into.first(std::min(into.size(), blockLeft_)));
            blockLeft_ = got < into.size() ? 0 : blockLeft_ - got;
            return got;
        }
        if (into.empty()) return 0;
        const auto length = reader_.Next();
        const std::uint64_t there = AtEnd() ? 0 : source_.Size() - Offset();
        blockLeft_ = static_cast<std::size_t>(std::min<std::uint64_t>(length.value_or(0), there));
        pixelsEnded_ = blockLeft_ == 0;
        into[0] = static_cast<std::byte>(blockLeft_);
        return 1;
    }

    ByteReader reader_;
    ByteSource& source_;
    const PictureSink& sink_;
    std::byte last_{};
    bool inPixels_ = false;
    bool pixelsEnded_ = false;
    std::size_t blockLeft_ = 0;
};

int ReadInput(GifFileType* file, GifByteType* into, int count) {
    if (count <= 0) return 0;
    const std::span bytes(into, static_cast<std::size_t>(count));
    return static_cast<Input*>(file->UserData)->Read(std::as_writable_bytes(bytes));
}

struct CloseGif {
    void operator()(GifFileType* file) const {
        int ignored = 0;
        DGifCloseFile(file, &ignored);
    }
};

struct Pass {
    int first;
    int step;
};
constexpr std::array<Pass, 1> RowByRow{{{0, 1}}};
constexpr std::array<Pass, 4> Interlaced{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};

class GifReader {
  public:
    GifReader(ByteSource& source, PictureSink& sink) : source_(source), sink_(sink), input_(source, sink) {}

    DecodeStatus Run() {
        int error = 0;
        file_.reset(DGifOpen(&input_, ReadInput, &error));
        if (file_ == nullptr) return Broken("header refused by the library");
        if (const auto ended = FindImage()) return *ended;

        const GifImageDesc& image = file_->Image;
        const bool covers = left_ == 0 && top_ == 0 && image.Width >= width_ && image.Height >= height_;
        frames_ = images_ + CountGifImagesBehind(source_, input_.Offset(), sink_);
        surface_ = sink_.Begin({.width = width_,
                                .height = height_,
                                .frames = frames_,
                                .transparent = !covers || transparent_.has_value()});
        if (surface_ == nullptr) return Ended(Outcome::Corrupt, "surface refused");
        pixelsLeft_ = std::int64_t{width_} * height_ + MostHiddenPixels;
        // An image without a control extension has no time of its own: the next one belongs to the same view.
        for (int parts = 1;; ++parts) {
            TakeColours();
            input_.StartPixels();
            const DecodeStatus status = ReadRows();
            if (status.outcome != Outcome::Complete) return status;
            if (LastPart() || parts == MostParts || !SkipPixels()) break;
            input_.EndPixels();
            if (FindImage()) break;
        }
        sink_.RowsReady(height_);
        return Ended(Outcome::Complete, {});
    }

  private:
    [[nodiscard]] DecodeStatus Ended(Outcome outcome, std::string_view reason) const {
        return {outcome, outcome == Outcome::Complete ? 0 : input_.Offset(), reason, somePixels_};
    }

    [[nodiscard]] DecodeStatus Broken(std::string_view reason) const {
        if (sink_.Cancelled()) return Ended(Outcome::Truncated, "cancelled");
        return Ended(input_.AtEnd() ? Outcome::Truncated : Outcome::Corrupt, reason);
    }

    /// Goes behind the header of the image to show; otherwise how it ended.
    std::optional<DecodeStatus> FindImage() {
        transparent_.reset();
        controlled_ = false;
        for (;;) {
            GifRecordType type = UNDEFINED_RECORD_TYPE;
            if (DGifGetRecordType(file_.get(), &type) == GIF_ERROR) {
                const bool padding = file_->Error == D_GIF_ERR_WRONG_RECORD && input_.Last() == std::byte{0};
                if (padding && ++padding_ <= MostPadding && !input_.AtEnd()) continue;
                return Broken("no image");
            }
            if (type == TERMINATE_RECORD_TYPE) return Ended(Outcome::Corrupt, "no image");
            if (type == EXTENSION_RECORD_TYPE) {
                if (!ReadExtension()) return Broken("extension refused by the library");
                continue;
            }
            if (DGifGetImageDesc(file_.get()) == GIF_ERROR) return Broken("image refused by the library");
            ++images_;
            allRows_ = false;
            if (PlaceImage()) return std::nullopt;
            if (++passed_ > MostImagesPassed || !SkipPixels()) return Broken("no image on the screen");
            transparent_.reset();
            controlled_ = false;
        }
    }

    /// Sets the screen and where the image lies on it; false where it does not show.
    bool PlaceImage() {
        const GifImageDesc& image = file_->Image;
        if (image.Width <= 0 || image.Height <= 0) return false;
        const bool screen = file_->SWidth > 0 && file_->SHeight > 0;
        if (surface_ == nullptr) {
            width_ = screen ? file_->SWidth : image.Width;
            height_ = screen ? file_->SHeight : image.Height;
        }
        left_ = screen ? image.Left : 0;
        top_ = screen ? image.Top : 0;
        return left_ < width_ && top_ < height_;
    }

    /// Goes behind the pixel data of an image, or what is left of them.
    bool SkipPixels() {
        if (allRows_) return true;  // the library has done it
        GifByteType* block = nullptr;
        do {
            if (DGifGetCodeNext(file_.get(), &block) == GIF_ERROR) return false;
        } while (block != nullptr);
        return true;
    }

    bool ReadExtension() {
        int kind = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(file_.get(), &kind, &block) == GIF_ERROR) return false;
        const bool control = kind == GRAPHICS_EXT_FUNC_CODE && block != nullptr && block[0] >= 4;
        if (kind == PLAINTEXT_EXT_FUNC_CODE || control) {
            // A text takes what was told before it for itself.
            transparent_.reset();
            controlled_ = control;
        }
        if (control) {
            if ((block[1] & 1U) != 0) transparent_ = block[4];
        }
        while (block != nullptr) {
            if (DGifGetExtensionNext(file_.get(), &block) == GIF_ERROR) return false;
        }
        return true;
    }

    void TakeColours() {
        const ColorMapObject* table =
            file_->Image.ColorMap != nullptr ? file_->Image.ColorMap : file_->SColorMap;
        palette_.fill(OpaquePixel(0, 0, 0));
        if (table != nullptr) {
            const auto count = std::min(palette_.size(), static_cast<std::size_t>(table->ColorCount));
            for (std::size_t i = 0; i < count; ++i) {
                const GifColorType& colour = table->Colors[i];
                palette_[i] = OpaquePixel(colour.Red, colour.Green, colour.Blue);
            }
        } else {
            for (unsigned i = 2; i < palette_.size(); ++i)
                palette_[i] = OpaquePixel(i, i, i);
            palette_[1] = OpaquePixel(255, 255, 255);
        }
    }

    [[nodiscard]] bool LastPart() const { return controlled_ || images_ >= frames_; }

    DecodeStatus ReadRows() {
        const GifImageDesc& image = file_->Image;
        const bool rowsAreFinal = LastPart() && !image.Interlace;
        line_.resize(static_cast<std::size_t>(image.Width));
        const std::span<const Pass> passes =
            image.Interlace ? std::span<const Pass>(Interlaced) : std::span<const Pass>(RowByRow);
        for (const Pass& pass : passes) {
            for (int row = pass.first; row < image.Height; row += pass.step) {
                // The rows below the screen need not be looked at.
                if (!image.Interlace && row >= height_ - top_) return Ended(Outcome::Complete, {});
                pixelsLeft_ -= image.Width;
                if (pixelsLeft_ < 0) return Ended(Outcome::Corrupt, "image over the limits");
                if (!ReadRow(row)) return Failed();
                if (rowsAreFinal && row % RowsBetweenReports == 0) sink_.RowsReady(top_ + row + 1);
            }
        }
        allRows_ = true;
        return Ended(Outcome::Complete, {});
    }

    [[nodiscard]] DecodeStatus Failed() const {
        if (sink_.Cancelled()) return Ended(Outcome::Truncated, "cancelled");
        if (input_.PixelsEnded() || file_->Error == D_GIF_ERR_EOF_TOO_SOON)
            return Ended(Outcome::Truncated, "pixels end early");
        return Ended(Outcome::Corrupt, "pixel data make no sense");
    }

    bool ReadRow(int row) {
        // The library does not say how far it came. Only pixels that have the value of the filling, at the end of the
        // last row, are lost by that.
        constexpr GifPixelType Filling = 0xFF;
        std::ranges::fill(line_, Filling);
        const bool whole = DGifGetLine(file_.get(), line_.data(), file_->Image.Width) == GIF_OK;
        std::span<const GifPixelType> pixels = line_;
        while (!whole && !pixels.empty() && pixels.back() == Filling)
            pixels = pixels.first(pixels.size() - 1);
        somePixels_ = somePixels_ || !pixels.empty();
        if (row < height_ - top_) {
            const auto room = static_cast<std::size_t>(width_ - left_);
            const std::span<Pixel> into = surface_->Row(top_ + row).subspan(static_cast<std::size_t>(left_));
            Draw(pixels.first(std::min(room, pixels.size())), into);
        }
        return whole;
    }

    void Draw(std::span<const GifPixelType> from, std::span<Pixel> into) const {
        if (!transparent_) {
            std::ranges::transform(from, into.begin(), [&](GifPixelType index) { return palette_[index]; });
            return;
        }
        for (std::size_t i = 0; i < from.size(); ++i) {
            if (from[i] != *transparent_) into[i] = palette_[from[i]];
        }
    }

    ByteSource& source_;
    PictureSink& sink_;
    Input input_;
    std::unique_ptr<GifFileType, CloseGif> file_;

    int images_ = 0;  ///< up to the one to show
    int frames_ = 0;  ///< images in the file
    int passed_ = 0;  ///< images that showed nothing
    int padding_ = 0;
    int width_ = 0;   ///< of the screen
    int height_ = 0;  ///< of the screen
    int left_ = 0;    ///< of the image on the screen
    int top_ = 0;     ///< of the image on the screen
    std::optional<GifByteType> transparent_;
    bool controlled_ = false;  ///< a control extension was told for the image
    std::array<Pixel, 256> palette_{};
    std::vector<GifPixelType> line_;
    Surface* surface_ = nullptr;
    std::int64_t pixelsLeft_ = 0;
    bool allRows_ = false;  ///< of the image
    bool somePixels_ = false;
};

}  // namespace

bool RecognisesGif(std::span<const std::byte> start) {
    return start.size() >= 6 &&
           (std::memcmp(start.data(), "GIF87a", 6) == 0 || std::memcmp(start.data(), "GIF89a", 6) == 0);
}

DecodeStatus DecodeGif(ByteSource& source, PictureSink& sink) {
    try {
        return std::make_unique<GifReader>(source, sink)->Run();
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
