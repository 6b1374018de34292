#pragma once

#include "imaging/codecs/ByteSource.h"

namespace tavrix {

/// How the stored picture lies: the numbers 1 to 8 of the Orientation tag (0x0112) of TIFF 6.0 and Exif 2.3.
/// Named by where the stored top row and left column belong.
enum class Orientation : int {
    TopLeft = 1,
    TopRight = 2,     ///< mirrored left to right
    BottomRight = 3,  ///< half a turn
    BottomLeft = 4,   ///< mirrored top to bottom
    LeftTop = 5,      ///< transposed
    RightTop = 6,     ///< a quarter turn clockwise brings it upright
    RightBottom = 7,
    LeftBottom = 8,  ///< a quarter turn counter-clockwise brings it upright
};

/// Whether rows and columns change places.
[[nodiscard]] constexpr bool Transposes(Orientation orientation) {
    return orientation >= Orientation::LeftTop;
}

/// The orientation that the first Exif segment of a JPEG file tells; TopLeft where there is none or it makes no
/// sense.
[[nodiscard]] Orientation JpegOrientation(ByteSource& source);

}  // namespace tavrix
