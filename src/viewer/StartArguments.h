#pragma once

namespace tavrix {

class MainViewFrm;

/// Reads the command line into the main view that is being loaded: an image to show, or a word for a dialog; without
/// either perhaps the image of the last time.
void ReadCommandText(MainViewFrm& view);

}  // namespace tavrix
