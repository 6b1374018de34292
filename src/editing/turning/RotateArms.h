#pragma once

#include <algorithm>
#include <cstdint>

namespace tavrix {

/// A rotation draws four arms at once: for the point (O, I) of its loop the place (O, I) from the centre of the
/// destination, and that place turned by two quarters, by one quarter and by three. Their sources are turned alike.
enum class Arm : std::uint8_t { Right, Left, Up, Down };

struct Offset {
    int x = 0;
    int y = 0;
};

template <Arm arm>
[[nodiscard]] constexpr Offset Turned(int x, int y) {
    if constexpr (arm == Arm::Right) return {x, y};
    if constexpr (arm == Arm::Left) return {-x, -y};
    if constexpr (arm == Arm::Up) return {y, -x};
    if constexpr (arm == Arm::Down) return {-y, x};
}

/// Whole numbers from `low` to `high`, both included; none where `high` is below `low`.
struct Range {
    int low = 0;
    int high = -1;

    [[nodiscard]] bool Empty() const { return high < low; }
    [[nodiscard]] Range Negated() const { return {-high, -low}; }
    [[nodiscard]] Range Within(const Range& other) const {
        return {std::max(low, other.low), std::min(high, other.high)};
    }
};

/// A rectangle of the loop.
struct LoopPart {
    Range o;
    Range i;

    [[nodiscard]] bool Empty() const { return o.Empty() || i.Empty(); }
};

/// The part of the loop whose places in an arm fall into these columns and rows, counted from the centre.
template <Arm arm>
[[nodiscard]] LoopPart PartInside(const LoopPart& part, const Range& columns, const Range& rows) {
    if constexpr (arm == Arm::Right) return {part.o.Within(columns), part.i.Within(rows)};
    if constexpr (arm == Arm::Left) return {part.o.Within(columns.Negated()), part.i.Within(rows.Negated())};
    if constexpr (arm == Arm::Up) return {part.o.Within(rows.Negated()), part.i.Within(columns)};
    if constexpr (arm == Arm::Down) return {part.o.Within(rows), part.i.Within(columns.Negated())};
}

}  // namespace tavrix
