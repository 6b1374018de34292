#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "imaging/graphics/Colour.h"

namespace tavrix {

/// The largest picture that is loaded or made. Beyond it an operation fails with a message instead of
/// driving the machine into its swap space.
inline constexpr std::int64_t MaxPicturePixels = 256LL * 1024 * 1024;
inline constexpr int MaxPictureSide = 1 << 24;

/// Whether a picture of this size is within the limits.
[[nodiscard]] constexpr bool WithinPictureLimits(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= MaxPictureSide && height <= MaxPictureSide &&
           width <= MaxPicturePixels / height;
}

struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Gives the memory of a surface back.
struct PixelRelease {
    std::size_t mappedBytes = 0;  ///< 0: from the heap
    void operator()(Pixel* pixels) const;
};

/// A buffer of 32-bit pixels, rows from the top, without gaps between the rows.
class Surface {
  public:
    Surface() = default;
    /// All pixels are 0 (transparent black). Sizes in pixels. Throws RuntimeError 380 for a negative size, and
    /// 7 (Out of memory) above the limits or where the memory is refused.
    Surface(int width, int height);

    Surface(Surface&&) noexcept = default;
    Surface& operator=(Surface&&) noexcept = default;
    [[nodiscard]] Surface Clone() const;

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    [[nodiscard]] bool Empty() const { return width_ == 0 || height_ == 0; }

    [[nodiscard]] std::span<Pixel> Row(int y) {
        return {pixels_.get() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_),
                static_cast<std::size_t>(width_)};
    }
    [[nodiscard]] std::span<const Pixel> Row(int y) const {
        return {pixels_.get() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_),
                static_cast<std::size_t>(width_)};
    }
    [[nodiscard]] std::span<const Pixel> Pixels() const { return {pixels_.get(), Count()}; }
    [[nodiscard]] std::span<Pixel> Pixels() { return {pixels_.get(), Count()}; }

    void Fill(Pixel pixel);

  private:
    [[nodiscard]] std::size_t Count() const {
        return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
    }

    int width_ = 0;
    int height_ = 0;
    std::unique_ptr<Pixel[], PixelRelease> pixels_;
};

}  // namespace tavrix
