#include "imaging/graphics/Shrink.h"

#include <algorithm>

namespace tavrix {
namespace {

/// Where the part `index` of `parts` starts in a length.
int PartStart(int length, int parts, int index) {
    return static_cast<int>(std::int64_t{length} * index / parts);
}

}  // namespace

Shrink::Shrink(int fromWidth, int fromHeight, int toWidth, int toHeight)
    : fromHeight_(fromHeight), copy_(toWidth, toHeight), sums_(static_cast<std::size_t>(toWidth)) {
    for (int column = 0; column <= toWidth; ++column)
        columns_.push_back(PartStart(fromWidth, toWidth, column));
}

void Shrink::Take(const Surface& picture, int ready) {
    for (; taken_ < std::min(ready, fromHeight_);) {
        AddRow(picture.Row(taken_));
        ++taken_;
        // The row of the copy on which the one just taken fell.
        const int row = static_cast<int>((std::int64_t{taken_} * copy_.Height() - 1) / fromHeight_);
        if (taken_ != PartStart(fromHeight_, copy_.Height(), row + 1)) continue;
        FinishRow(row, taken_ - rowStart_);
        rowStart_ = taken_;
    }
}

void Shrink::AddRow(std::span<const Pixel> row) {
    for (std::size_t column = 0; column < sums_.size(); ++column) {
        Sum sum;
        for (int x = columns_[column]; x < columns_[column + 1]; ++x) {
            const Pixel pixel = row[static_cast<std::size_t>(x)];
            const std::uint64_t alpha = pixel >> 24U;
            sum.red += ((pixel >> 16U) & 0xFFU) * alpha;
            sum.green += ((pixel >> 8U) & 0xFFU) * alpha;
            sum.blue += (pixel & 0xFFU) * alpha;
            sum.alpha += alpha;
        }
        sums_[column].red += sum.red;
        sums_[column].green += sum.green;
        sums_[column].blue += sum.blue;
        sums_[column].alpha += sum.alpha;
    }
}

void Shrink::FinishRow(int row, int rowsInIt) {
    const std::span<Pixel> target = copy_.Row(row);
    for (std::size_t column = 0; column < sums_.size(); ++column) {
        const Sum sum = sums_[column];
        sums_[column] = {};
        if (sum.alpha == 0) continue;
        const auto pixels = static_cast<std::uint64_t>(columns_[column + 1] - columns_[column]) *
                            static_cast<std::uint64_t>(rowsInIt);
        const auto mean = [](std::uint64_t total, std::uint64_t count) {
            return static_cast<Pixel>((total + count / 2) / count);
        };
        target[column] = mean(sum.alpha, pixels) << 24U | mean(sum.red, sum.alpha) << 16U |
                         mean(sum.green, sum.alpha) << 8U | mean(sum.blue, sum.alpha);
    }
}

}  // namespace tavrix
