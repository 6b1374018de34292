#pragma once

namespace tavrix {

/// A size in twips.
struct WallpaperSize {
    float width = 0;
    float height = 0;

    friend bool operator==(const WallpaperSize&, const WallpaperSize&) = default;
};

/// The largest size of a picture's shape that the screen holds, each side at least one of `pixel`. The side that reaches
/// the screen's edge first is that of the screen, the other is rounded to whole twips, halves to even. A picture that is
/// smaller than the screen is enlarged, so that the result does not depend on whether one side, both or none exceed it;
/// where both sides reach the edge at once, both are those of the screen.
[[nodiscard]] WallpaperSize FitWallpaper(const WallpaperSize& picture, const WallpaperSize& screen,
                                         const WallpaperSize& pixel);

}  // namespace tavrix
