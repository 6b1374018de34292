#pragma once

namespace tavrix {

class MainViewFrm;

/// Shows a box with the size, the file and the type of the image on show.
void mnuImageSize_Click(MainViewFrm& view);

}  // namespace tavrix
