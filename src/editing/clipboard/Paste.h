#pragma once

namespace tavrix {

class MainViewFrm;

/// Brings the picture on the clipboard into what is selected, or onto the middle of the image; a larger one takes the
/// image's place.
void mnuPaste_Click(MainViewFrm& view);

}  // namespace tavrix
