#pragma once

#include <cstdint>

namespace tavrix {

class MainViewFrm;

void mnu90CW_Click(MainViewFrm& view);
void mnu90CCW_Click(MainViewFrm& view);
void mnu180Degrees_Click(MainViewFrm& view);

void mnuFlipHorizontal_Click(MainViewFrm& view);
void mnuFlipVertically_Click(MainViewFrm& view);

void mnu25Smaller_Click(MainViewFrm& view);
void mnu25Larger_Click(MainViewFrm& view);
void mnu50Smaller_Click(MainViewFrm& view);
void mnu50Larger_Click(MainViewFrm& view);

/// Stretches the image to a new size in twips and commits the edit. Refused with a message when both sides would be
/// below 16 pixels, or both above 10000. The undo copy and the pointer are the caller's business.
void ResizeImage(MainViewFrm& view, std::int32_t NewWidth, std::int32_t NewHeight);

}  // namespace tavrix
