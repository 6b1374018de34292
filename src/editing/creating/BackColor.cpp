#include "editing/creating/BackColor.h"

#include <cstdint>

#include "imaging/graphics/Draw.h"

namespace tavrix {

Colour ColourOf(int red, int green, int blue) {
    const auto part = [](int value) { return static_cast<std::uint32_t>(value); };
    return {part(red) | (part(green) << 8U) | (part(blue) << 16U)};
}

Colour BackColorOf(const AppConfig& config) {
    return ColourOf(config.BackColorR, config.BackColorG, config.BackColorB);
}

void ShowSwatch(forms::PictureBox& swatch, Colour colour) {
    constexpr Pixel Frame = OpaquePixel(0x78, 0x78, 0x74);
    swatch.BackColor = colour;
    swatch.Cls();
    Surface& bitmap = swatch.Bitmap();
    const PixelRect whole{0, 0, bitmap.Width(), bitmap.Height()};
    FillBox(bitmap, whole, Frame);
    FillBox(bitmap, {1, 1, whole.width - 2, whole.height - 2}, ToPixel(colour));
    swatch.Refresh();
}

}  // namespace tavrix
