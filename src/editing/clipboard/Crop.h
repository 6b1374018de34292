#pragma once

namespace tavrix {

class MainViewFrm;

/// Cuts the image to what is selected. The selection keeps its mark, though no outline is on the new image.
void mnuCrop_Click(MainViewFrm& view);

}  // namespace tavrix
