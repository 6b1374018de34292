#pragma once

#include "core/AppConfig.h"
#include "imaging/graphics/Colour.h"
#include "platform/forms/PictureBox.h"

namespace tavrix {

/// The background colour of the settings.
[[nodiscard]] Colour BackColorOf(const AppConfig& config);
/// The colour of three parts from 0 to 255.
[[nodiscard]] Colour ColourOf(int red, int green, int blue);

/// Makes a small surface show a colour, its BackColor, in a thin frame that tells it from the window around it.
void ShowSwatch(forms::PictureBox& swatch, Colour colour);

/// The size of a swatch beside a button, in twips.
inline constexpr float SwatchWidth = 720;
inline constexpr float SwatchHeight = 360;

}  // namespace tavrix
