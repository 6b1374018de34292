#pragma once

namespace tavrix {

/// A size on the stage, in twips.
struct Extent {
    float width = 0;
    float height = 0;

    friend bool operator==(const Extent&, const Extent&) = default;
};

struct FittedImage {
    Extent size;
    bool stretched = false;  ///< it is no longer of its natural size

    friend bool operator==(const FittedImage&, const FittedImage&) = default;
};

/// Shrinks an image that is larger than the stage in two passes: its width first, and then its height. Heights and
/// widths that follow are rounded, halves to the even neighbour.
[[nodiscard]] FittedImage ShrinkToStage(const FittedImage& image, const Extent& stage);

/// Whether an image is large enough to be enlarged, 32 pixels in each direction, and smaller than the stage in both.
[[nodiscard]] bool MayBeEnlarged(const Extent& image, const Extent& stage, const Extent& twipsPerPixel);

/// Enlarges an image until it meets the stage in one direction.
[[nodiscard]] FittedImage EnlargeToStage(const Extent& image, const Extent& stage);

/// How the first image of a stage is centred: the difference is rounded to a whole number and halved with truncation.
[[nodiscard]] float CentredFirst(float whole, float part);
/// How all later ones are: by exact halves.
[[nodiscard]] float Centred(float whole, float part);

}  // namespace tavrix
