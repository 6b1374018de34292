#pragma once

#include <QImage>

namespace tavrix {

/// The picture with a palette of 256 of its most frequent colours, each of the others being the nearest of these: windows have
/// few colours but for the edges of their letters, and a file of a palette is half as large.
[[nodiscard]] QImage WithFewColours(const QImage& picture);

}  // namespace tavrix
