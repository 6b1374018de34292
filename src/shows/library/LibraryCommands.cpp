#include "shows/library/LibraryCommands.h"

#include "shows/library/DeleteSlideFrm.h"
#include "shows/library/FindSlideFrm.h"
#include "shows/library/frmRenameShow.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallShowLibrary(MainViewFrm& view) {
    view.menu.mnuFindSlideShow.Install([&view] { mnuFindSlideShow_Click(view); });
    view.menu.mnuDeleteSlideShow.Install([&view] { mnuDeleteSlideShow_Click(view); });
    view.menu.mnuRenameShow.Install([&view] { mnuRenameShow_Click(view); });
}

}  // namespace tavrix
