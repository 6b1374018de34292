#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// A smaller copy of a picture, made row by row as the rows of the picture become final. Each pixel is the mean of the
/// area that falls on it, pixels on a border by their share; Shrink is coarser there, and quicker.
class AreaMeans {
  public:
    /// Sizes in pixels, none of them 0; neither side of the copy is larger than that of the picture.
    AreaMeans(int fromWidth, int fromHeight, int toWidth, int toHeight);

    /// Takes in the rows of the picture from the first that was not taken yet up to `ready`, exclusive.
    void Take(const Surface& picture, int ready);
    /// The copy; rows that are still to come are transparent.
    [[nodiscard]] const Surface& Copy() const { return copy_; }

  private:
    /// Sums over what falls on one pixel of the copy, each colour weighted by its alpha.
    struct Sum {
        std::uint64_t red = 0;
        std::uint64_t green = 0;
        std::uint64_t blue = 0;
        std::uint64_t alpha = 0;

        void Add(const Sum& other, std::uint64_t share) {
            red += other.red * share;
            green += other.green * share;
            blue += other.blue * share;
            alpha += other.alpha * share;
        }
    };

    void SumUp(std::span<const Pixel> row);
    void AddRow(std::uint64_t share);
    void FinishRow();

    std::int64_t fromWidth_;
    std::int64_t fromHeight_;
    Surface copy_;
    std::vector<Sum> row_;   ///< of the picture's row that was taken last, a column of the copy each
    std::vector<Sum> sums_;  ///< of the row of the copy that is under way
    int taken_ = 0;
    int current_ = 0;  ///< the row of the copy
    std::int64_t
        missing_;  ///< of the row under way, in parts of which a row of the picture has as many as the copy rows
};

}  // namespace tavrix
