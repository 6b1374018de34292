#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// A smaller copy of a picture, made row by row as the rows of the picture become final. Each pixel is the average of
/// the pixels that fall on it.
class Shrink {
  public:
    /// Sizes in pixels, none of them 0; neither side of the copy is larger than that of the picture.
    Shrink(int fromWidth, int fromHeight, int toWidth, int toHeight);

    /// Takes in the rows of the picture from the first that was not taken yet up to `ready`, exclusive.
    void Take(const Surface& picture, int ready);
    /// How many rows of the picture have been taken in.
    [[nodiscard]] int Taken() const { return taken_; }
    [[nodiscard]] bool Whole() const { return taken_ == fromHeight_; }
    /// The copy; rows that are still to come are transparent.
    [[nodiscard]] const Surface& Copy() const { return copy_; }

  private:
    /// Sums over the pixels that fall on one pixel of the copy, each colour weighted by its alpha.
    struct Sum {
        std::uint64_t red = 0;
        std::uint64_t green = 0;
        std::uint64_t blue = 0;
        std::uint64_t alpha = 0;
    };

    void AddRow(std::span<const Pixel> row);
    void FinishRow(int row, int rowsInIt);

    int fromHeight_;
    Surface copy_;
    std::vector<int>
        columns_;            ///< where each column of the copy starts in the picture, and the end of the last
    std::vector<Sum> sums_;  ///< of the row of the copy that is under way
    int taken_ = 0;
    int rowStart_ = 0;  ///< the first row of the picture that falls on the row under way
};

}  // namespace tavrix
