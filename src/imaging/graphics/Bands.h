#pragma once

#include <cstdint>
#include <functional>

namespace tavrix {

/// Carries out `work(first, end)` for the rows 0 to `rows` in bands that follow one another, those of a large picture by
/// several threads at once. `pixels` is how many are touched in all. The work must not throw, and its bands must not
/// need each other. Returns when all is done.
void InBands(int rows, std::int64_t pixels, const std::function<void(int first, int end)>& work);

}  // namespace tavrix
