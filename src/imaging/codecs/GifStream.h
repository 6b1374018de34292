#pragma once

#include <gif_lib.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/Decoder.h"
#include "imaging/graphics/Surface.h"

namespace tavrix {

/// What a control extension says of the image behind it.
struct GifControl {
    enum class Disposal : std::uint8_t { Keep, Background, Previous };

    Disposal disposal = Disposal::Keep;
    int delay = 0;  ///< hundredths of a second
    std::optional<GifPixelType> transparent{};
};

/// The images of a GIF file one after the other, by the library. Holds one row of pixels.
class GifStream {
  public:
    enum class Found : std::uint8_t { Image, Trailer, Nothing };

    /// The data end as soon as `cancelled` says yes.
    explicit GifStream(
        ByteSource& source, std::function<bool()> cancelled = [] { return false; });
    ~GifStream();

    GifStream(const GifStream&) = delete;
    GifStream& operator=(const GifStream&) = delete;

    /// Reads the header and what belongs to it; first of all. False where the library refuses it.
    [[nodiscard]] bool Open();

    /// Goes to the next image, over what is left of the one before and over extensions. Nothing: the data end, or
    /// make no sense.
    [[nodiscard]] Found NextImage();

    /// The logical screen, in pixels; may be 0.
    [[nodiscard]] int ScreenWidth() const { return file_->SWidth; }
    [[nodiscard]] int ScreenHeight() const { return file_->SHeight; }
    /// How often the images are to be repeated, as far as the extensions up to here tell; 0: for ever.
    [[nodiscard]] std::optional<int> Repetitions() const { return repetitions_; }

    /// The header of the image.
    [[nodiscard]] const GifImageDesc& Image() const { return file_->Image; }
    /// What a control extension says of the image; nothing without one.
    [[nodiscard]] const std::optional<GifControl>& Control() const { return control_; }

    struct Reading {
        Surface& into;
        int left = 0;  ///< where the image goes, within the surface
        int top = 0;
        /// Pixels, shown or not, that may be decoded; it is lowered by what was.
        std::int64_t& pixelsLeft;
        /// Told now and then how many rows from the top of the surface are drawn, where they come in order.
        std::function<void(int)> rowsReady{};
    };
    /// Draws the image, clipped to the surface; transparent pixels leave the surface as it is. The status tells
    /// whether pixels were decoded, shown or not.
    [[nodiscard]] DecodeStatus ReadImage(const Reading& reading);

    [[nodiscard]] std::uint64_t Offset() const { return input_.Offset(); }
    /// How it ends when something does not go on.
    [[nodiscard]] DecodeStatus Broken(std::string_view reason) const;

  private:
    /// What the library reads from.
    class Input {
      public:
        Input(ByteSource& source, std::function<bool()> cancelled)
            : reader_(source, 0), source_(source), cancelled_(std::move(cancelled)) {}

        int Read(std::span<std::byte> into);
        /// From here on the library reads a chain of blocks.
        void StartPixels();
        /// Goes behind the chain.
        void EndPixels();
        /// All pixel data were given out, or the library was told so.
        [[nodiscard]] bool PixelsEnded() const { return pixelsEnded_; }
        [[nodiscard]] std::byte Last() const { return last_; }
        [[nodiscard]] std::uint64_t Offset() const { return reader_.Offset(); }
        [[nodiscard]] bool AtEnd() const { return Offset() >= source_.Size(); }
        [[nodiscard]] bool Cancelled() const { return cancelled_(); }

      private:
        std::size_t ReadPixelData(std::span<std::byte> into);

        ByteReader reader_;
        ByteSource& source_;
        std::function<bool()> cancelled_;
        std::byte last_{};
        bool inPixels_ = false;
        bool pixelsEnded_ = false;
        std::size_t blockLeft_ = 0;
    };
    struct Close {
        void operator()(GifFileType* file) const;
    };

    static int ReadInput(GifFileType* file, GifByteType* into, int count);
    [[nodiscard]] bool ReadExtension();
    void TakeControl(const GifByteType* block);
    void TakeColours();
    [[nodiscard]] DecodeStatus RowsFailed() const;
    [[nodiscard]] std::span<const GifPixelType> ReadRow(bool& whole);
    void Draw(std::span<const GifPixelType> from, std::span<Pixel> into) const;

    Input input_;
    std::unique_ptr<GifFileType, Close> file_;
    std::optional<GifControl> control_;
    std::optional<int> repetitions_;
    int padding_ = 0;
    std::array<Pixel, 256> palette_{};
    std::vector<GifPixelType> line_;
    bool somePixels_ = false;  ///< of the image
};

}  // namespace tavrix
