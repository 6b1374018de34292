#pragma once

#include "dialogs/FileChooser.h"

namespace tavrix {

/// Sends the lists of a dialog to the show that was loaded or saved last and selects its file; without such a show, to the
/// folder of shows, else to the program's. Where that file is not there, the first one is selected.
void StartAtLastShow(const MainModule& module, FileChooser& chooser);

}  // namespace tavrix
