#include "imaging/graphics/AreaMeans.h"

#include <algorithm>

namespace tavrix {

AreaMeans::AreaMeans(int fromWidth, int fromHeight, int toWidth, int toHeight)
    : fromWidth_(fromWidth),
      fromHeight_(fromHeight),
      copy_(toWidth, toHeight),
      row_(static_cast<std::size_t>(toWidth)),
      sums_(static_cast<std::size_t>(toWidth)),
      missing_(fromHeight) {}

void AreaMeans::Take(const Surface& picture, int ready) {
    const std::int64_t parts = copy_.Height();
    for (; taken_ < std::min<std::int64_t>(ready, fromHeight_); ++taken_) {
        SumUp(picture.Row(taken_));
        const std::int64_t here = std::min(parts, missing_);
        AddRow(static_cast<std::uint64_t>(here));
        missing_ -= here;
        if (missing_ != 0) continue;
        FinishRow();
        missing_ = fromHeight_ - (parts - here);
        AddRow(static_cast<std::uint64_t>(parts - here));
    }
}

/// A pixel has as many parts as the copy has columns; a column of the copy is filled by as many parts as the picture has
/// columns. So all numbers are whole, and with the limits of a picture far from the end of 64 bits.
void AreaMeans::SumUp(std::span<const Pixel> row) {
    const std::int64_t parts = copy_.Width();
    std::ranges::fill(row_, Sum{});
    std::size_t column = 0;
    std::int64_t missing = fromWidth_;
    for (const Pixel pixel : row) {
        const std::uint64_t alpha = pixel >> 24U;
        const Sum one{((pixel >> 16U) & 0xFFU) * alpha, ((pixel >> 8U) & 0xFFU) * alpha,
                      (pixel & 0xFFU) * alpha, alpha};
        const std::int64_t here = std::min(parts, missing);
        row_[column].Add(one, static_cast<std::uint64_t>(here));
        missing -= here;
        if (missing != 0) continue;
        ++column;
        missing = fromWidth_ - (parts - here);
        if (parts != here) row_[column].Add(one, static_cast<std::uint64_t>(parts - here));
    }
}

void AreaMeans::AddRow(std::uint64_t share) {
    if (share == 0) return;
    for (std::size_t column = 0; column < sums_.size(); ++column)
        sums_[column].Add(row_[column], share);
}

void AreaMeans::FinishRow() {
    const std::span<Pixel> target = copy_.Row(current_++);
    const auto whole = static_cast<std::uint64_t>(fromWidth_) * static_cast<std::uint64_t>(fromHeight_);
    const auto mean = [](std::uint64_t total, std::uint64_t count) {
        return static_cast<Pixel>((total + count / 2) / count);
    };
    for (std::size_t column = 0; column < sums_.size(); ++column) {
        const Sum sum = sums_[column];
        sums_[column] = {};
        if (sum.alpha == 0) continue;
        target[column] = mean(sum.alpha, whole) << 24U | mean(sum.red, sum.alpha) << 16U |
                         mean(sum.green, sum.alpha) << 8U | mean(sum.blue, sum.alpha);
    }
}

}  // namespace tavrix
