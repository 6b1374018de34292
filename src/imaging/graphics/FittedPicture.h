#pragma once

#include "imaging/graphics/Picture.h"

namespace tavrix {

/// The box that a picture is made to fit; pixels, 1 or more.
struct FitBox {
    int width = 1;
    int height = 1;
    /// So many columns and rows at the picture's right and lower edge do not count where it is copied.
    int trimmed = 0;
};

/// A picture no larger than a box, and what it was made from.
struct FittedPicture {
    Picture picture;
    int width = 0;   ///< natural size in pixels, as the file tells it
    int height = 0;  ///< pixels
};

/// A picture on its way into a box. Dropping it ends the work soon.
class PictureToFit {
  public:
    PictureToFit() = default;
    virtual ~PictureToFit() = default;
    PictureToFit(const PictureToFit&) = delete;
    PictureToFit& operator=(const PictureToFit&) = delete;

    /// Whether Take would not have to wait any more.
    [[nodiscard]] virtual bool Ended() const = 0;
    /// The picture, once, when it is done. Throws RuntimeError 481 for content that is no picture, 7 above the limits,
    /// and what reading the file fails with.
    [[nodiscard]] virtual FittedPicture Take() = 0;
};

}  // namespace tavrix
