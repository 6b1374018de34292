#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "imaging/vector/Region.h"

namespace tavrix::vector {

/// The areas that a shape covers in one row of pixels, as differences from each pixel to the next. Only
/// the columns that a border runs through are touched, so that the row of a wide shape costs little.
class AreaRow {
  public:
    explicit AreaRow(int width)
        : width_(width),
          steps_(static_cast<std::size_t>(width) + 2),
          touched_(static_cast<std::size_t>(width) / 64 + 1) {}

    /// A piece of a border from x1 to x2, both between 0 and the width; `height`: the part of the row that it
    /// crosses, signed by its direction.
    void Add(double x1, double x2, double height) {
        if (x1 > x2) std::swap(x1, x2);
        const int first = Column(x1);
        const int last = Column(x2);
        cost_ += last - first + 2;
        if (first == last) {
            AddIn(first, (x1 + x2) / 2 - first, height);
            return;
        }
        const double rate = height / (x2 - x1);
        AddIn(first, (x1 + first + 1) / 2 - first, (first + 1 - x1) * rate);
        for (int column = first + 1; column < last; ++column)
            AddIn(column, 0.5, rate);
        AddIn(last, (x2 - last) / 2, (x2 - last) * rate);
    }

    /// A border that counts as a whole: from the column on, the winding is another one.
    void AddWhole(int column, int winding) {
        steps_[static_cast<std::size_t>(column)] += winding;
        Touch(static_cast<std::size_t>(column));
    }

    /// What has been done since the last call, in units of work.
    [[nodiscard]] std::int64_t TakeCost() { return std::exchange(cost_, 0) * 8; }

    /// Tells the covered runs (x, count, coverage) and begins anew.
    template <class Teller>
    void Tell(FillRule rule, Teller tell) {
        double area = 0;
        int from = 0;
        std::uint8_t coverage = 0;
        const auto end = [&](int to) {
            if (coverage != 0 && to > from) tell(from, to - from, coverage);
            from = to;
        };
        ForTouched([&](int column) {
            area += std::exchange(steps_[static_cast<std::size_t>(column)], 0);
            const std::uint8_t now = Coverage(rule, area);
            if (now == coverage) return;
            end(std::min(column, width_));
            coverage = now;
        });
        end(width_);
        ClearEnd();
    }

    void Clear() {
        ForTouched([&](int column) { steps_[static_cast<std::size_t>(column)] = 0; });
        ClearEnd();
    }

  private:
    [[nodiscard]] int Column(double x) const { return std::min(static_cast<int>(x), width_); }

    /// A piece of a border in one column, at a mean distance of 0 to 1 from the column's left side.
    void AddIn(int column, double distance, double height) {
        const auto index = static_cast<std::size_t>(column);
        steps_[index] += height * (1 - distance);
        steps_[index + 1] += height * distance;
        Touch(index);
        Touch(index + 1);
    }

    void Touch(std::size_t column) {
        const std::size_t word = column / 64;
        if (word >= touched_.size()) return;
        touched_[word] |= std::uint64_t{1} << (column % 64);
        firstWord_ = std::min(firstWord_, word);
        lastWord_ = std::max(lastWord_, word);
    }

    /// What lies right of the row is not marked as touched.
    void ClearEnd() {
        steps_[static_cast<std::size_t>(width_)] = 0;
        steps_[static_cast<std::size_t>(width_) + 1] = 0;
    }

    template <class Visitor>
    void ForTouched(Visitor visit) {
        for (std::size_t word = firstWord_; word <= lastWord_ && word < touched_.size(); ++word) {
            for (std::uint64_t bits = std::exchange(touched_[word], 0); bits != 0; bits &= bits - 1)
                visit(static_cast<int>(word * 64) + std::countr_zero(bits));
        }
        firstWord_ = touched_.size();
        lastWord_ = 0;
    }

    [[nodiscard]] static std::uint8_t Coverage(FillRule rule, double area) {
        double covered = std::abs(area);
        if (rule == FillRule::EvenOdd) {
            covered = std::fmod(covered, 2.0);
            if (covered > 1) covered = 2 - covered;
        }
        return static_cast<std::uint8_t>(std::min(covered, 1.0) * 255 + 0.5);
    }

    int width_;
    std::vector<double> steps_;
    std::vector<std::uint64_t> touched_;
    std::size_t firstWord_ = 0;
    std::size_t lastWord_ = 0;
    std::int64_t cost_ = 0;
};

}  // namespace tavrix::vector
