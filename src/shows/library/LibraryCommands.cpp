#include "shows/library/LibraryCommands.h"

#include "shows/library/FindSlideFrm.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallShowLibrary(MainViewFrm& view) {
    view.menu.mnuFindSlideShow.Install([&view] { mnuFindSlideShow_Click(view); });
}

}  // namespace tavrix
