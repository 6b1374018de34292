#include "editing/saving/SavingCommands.h"

#include "editing/importing/Importing.h"
#include "editing/importing/OpenPaletteFrm.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void InstallSavingCommands(MainViewFrm& view) {
    view.menu.mnuSaveCopy.Install([&view] { mnuSaveCopy_Click(view); });
    view.menu.mnuExportBMP.Install([&view] { mnuExportBMP_Click(view); });
    view.menu.mnuExportJPG.Install([&view] { mnuExportJPG_Click(view); });
    view.menu.mnuImportTGA.Install([&view] { mnuImportTGA_Click(view); });
    view.menu.mnuImportPCX.Install([&view] { mnuImportPCX_Click(view); });
    view.menu.mnuTempFile.Install([&view] { mnuTempFile_Click(view); });
    view.menu.mnuImportPalette.Install([&view] { mnuImportPalette_Click(view); });
}

}  // namespace tavrix
