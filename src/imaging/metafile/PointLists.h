#pragma once

#include <numeric>
#include <vector>

#include "imaging/metafile/RecordBytes.h"

namespace tavrix::metafile {

/// The width of coordinates in a record's list of points.
enum class PointSize : std::uint8_t { Words = 4, Longs = 8 };

/// `count` points at `at`; none, and the record broken, where it does not hold them.
[[nodiscard]] inline std::vector<Point> ReadPoints(RecordBytes& bytes, std::uint64_t at, std::uint64_t count,
                                                   PointSize size) {
    const auto step = static_cast<std::uint64_t>(size);
    if (!bytes.Holds(at, count, step)) return {};
    std::vector<Point> points(static_cast<std::size_t>(count));
    for (Point& point : points) {
        point = size == PointSize::Words ? bytes.P16(at) : bytes.P32(at);
        at += step;
    }
    return points;
}

/// `count` counts at `at`, of two or four bytes each, whose sum is given; none, and the record broken, where the
/// record is too short for them.
[[nodiscard]] inline std::vector<std::uint32_t> ReadCounts(RecordBytes& bytes, std::uint64_t at,
                                                           std::uint64_t count, unsigned size,
                                                           std::uint64_t& sum) {
    sum = 0;
    if (!bytes.Holds(at, count, size)) return {};
    std::vector<std::uint32_t> counts(static_cast<std::size_t>(count));
    for (std::uint32_t& each : counts) {
        each = size == 2 ? bytes.U16(at) : bytes.U32(at);
        at += size;
        sum += each;
    }
    return counts;
}

}  // namespace tavrix::metafile
