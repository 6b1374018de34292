#include "viewer/Commands.h"

#include "core/HelpCommands.h"
#include "viewer/ImageInformation.h"
#include "viewer/MainViewFrm.h"
#include "viewer/OpenFrm.h"
#include "viewer/Opening.h"

namespace tavrix {

void InstallViewerCommands(MainViewFrm& view) {
    view.menu.mnuOpen.Install([&view] { mnuOpen_Click(view); });
    view.menu.mnuReloadImage.Install([&view] { mnuReloadImage_Click(view); });
    view.menu.mnuClear.Install([&view] { mnuClear_Click(view); });
    view.menu.mnuImageSize.Install([&view] { mnuImageSize_Click(view); });
    view.menu.mnuHelpContents.Install([&view] { ShowHelpContents(view.Module()); });
}

}  // namespace tavrix
