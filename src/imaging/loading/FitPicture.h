#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "imaging/codecs/Decoder.h"
#include "imaging/graphics/AreaMeans.h"
#include "imaging/graphics/FittedPicture.h"

namespace tavrix {

struct FittedSize {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels

    friend bool operator==(const FittedSize&, const FittedSize&) = default;
};

/// The size of a picture in a box: first the width is brought down, then the height, each with its ratio kept and the
/// other side rounded, halves to the even number. No picture is enlarged; no side becomes 0.
[[nodiscard]] FittedSize SizeInBox(int width, int height, const FitBox& box);

/// Makes what is decoded into it fit a box. Up to twice the fitted size it is the plain stretch copy of the whole; above
/// that, each pixel is the mean of those that fall on it, and decoders that can do so decode less. Besides the picture
/// as it is decoded, and the small one, it holds nothing.
class FittingSink final : public PictureSink {
  public:
    FittingSink(const FitBox& box, std::function<bool()> cancelled)
        : box_(box), cancelled_(std::move(cancelled)) {}

    [[nodiscard]] int Reduction(const PictureInfo& whole) override;
    [[nodiscard]] Surface* Begin(const PictureInfo& info) override;
    void RowsReady(int count) override;
    [[nodiscard]] bool Cancelled() const override { return cancelled_(); }

    /// Whether memory was refused, or the picture is above the limits.
    [[nodiscard]] bool Refused() const { return refused_; }
    /// The fitted picture, once decoding has ended; it says how. Empty without a surface. Throws RuntimeError 7 without
    /// the memory for it.
    [[nodiscard]] FittedPicture Take(const DecoderEntry& decoder, Outcome outcome);

  private:
    void Note(const PictureInfo& whole);

    FitBox box_;
    std::function<bool()> cancelled_;
    std::optional<PictureInfo> whole_;
    FittedSize size_;
    bool exact_ = true;
    PictureInfo info_;  ///< as it is decoded
    Surface surface_;
    std::optional<AreaMeans> means_;
    bool refused_ = false;
};

/// A fitted picture or an error, never both.
struct DecodedFit {
    FittedPicture fitted;
    /// InvalidPicture for content that is no picture or has nothing to show, OutOfMemory above the limits; the source's
    /// own error where one came before anything could be shown.
    std::optional<ErrorNumber> error;
};
/// Decodes a picture into a box. Throws nothing.
[[nodiscard]] DecodedFit DecodeToFit(
    ByteSource& source, const DecoderEntry& decoder, const FitBox& box,
    std::function<bool()> cancelled = [] { return false; }) noexcept;

/// The same of a picture that is there already. Waits for its rows.
[[nodiscard]] FittedPicture FitPicture(const Picture& whole, const FitBox& box);

}  // namespace tavrix
