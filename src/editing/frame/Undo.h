#pragma once

namespace tavrix {

class MainViewFrm;

/// Brings the picture before the last edit back and writes it to the image's file.
void mnuUndo_Click(MainViewFrm& view);

}  // namespace tavrix
