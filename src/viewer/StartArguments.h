#pragma once

namespace tavrix {

class MainViewFrm;

/// Reads the command line into the main view that is being loaded: an image to show, or a word for a dialog; without
/// either perhaps the image of the last time.
void ReadCommandText(MainViewFrm& view);

/// Opens the file that the desktop's menus started the program with, at the first activation, as a drop would. False where
/// it was started otherwise.
bool OpenFromDesktop(MainViewFrm& view);

}  // namespace tavrix
