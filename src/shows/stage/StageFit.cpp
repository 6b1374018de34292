#include "shows/stage/StageFit.h"

#include "base/Rounding.h"

namespace tavrix {
namespace {

constexpr float SmallestToEnlarge = 32;  ///< pixels

double AspectRatioOf(const Extent& image) {
    return static_cast<double>(image.width) / static_cast<double>(image.height);
}

float Rounded(double value) {
    return static_cast<float>(RoundToLong(value));
}

}  // namespace

FittedImage ShrinkToStage(const FittedImage& image, const Extent& stage) {
    FittedImage fitted = image;
    Extent& size = fitted.size;
    const double aspectRatio = AspectRatioOf(size);
    if (size.width > stage.width) {
        size.width = stage.width;
        size.height = Rounded(static_cast<double>(size.width) / aspectRatio);
        fitted.stretched = true;
    }
    if (size.height > stage.height) {
        size.height = stage.height;
        size.width = Rounded(static_cast<double>(size.height) * aspectRatio);
        fitted.stretched = true;
    }
    return fitted;
}

bool MayBeEnlarged(const Extent& image, const Extent& stage, const Extent& twipsPerPixel) {
    return image.width / twipsPerPixel.width >= SmallestToEnlarge &&
           image.height / twipsPerPixel.height >= SmallestToEnlarge && image.width < stage.width &&
           image.height < stage.height;
}

FittedImage EnlargeToStage(const Extent& image, const Extent& stage) {
    const double aspectRatio = AspectRatioOf(image);
    const float height = Rounded(static_cast<double>(stage.width) / aspectRatio);
    if (stage.height >= height) return {{stage.width, height}, true};
    return {{Rounded(static_cast<double>(stage.height) * aspectRatio), stage.height}, true};
}

float CentredFirst(float whole, float part) {
    return static_cast<float>(RoundToLong(static_cast<double>(whole - part)) / 2);
}

float Centred(float whole, float part) {
    return (whole - part) / 2;
}

}  // namespace tavrix
