#include "filing/Commands.h"

#include "filing/FilingDialog.h"
#include "filing/deleting/DeleteCurrentImage.h"
#include "filing/deleting/DeleteFolderFrm.h"
#include "filing/deleting/DeleteImgFrm.h"
#include "filing/deleting/RenameImgFrm.h"
#include "filing/floppies/FloppyCommands.h"
#include "filing/moving/frmCopyImages.h"
#include "filing/moving/frmMoveCurrentImg.h"
#include "filing/moving/frmMoveImages.h"
#include "filing/shell/ShellCommands.h"

namespace tavrix {

void InstallFilingCommands(MainViewFrm& view) {
    MainModule& module = view.Module();
    view.menu.mnuMoveImages.Install([&view, &module] { RunFilingDialog<frmMoveImages>(view, module); });
    view.menu.mnuFileCopyImages.Install([&view, &module] { RunFilingDialog<frmCopyImages>(view, module); });
    view.menu.mnuMoveCurrentImg.Install([&view] { mnuMoveCurrentImg_Click(view); });
    view.menu.mnuDeleteImages.Install([&view, &module] { RunFilingDialog<DeleteImgFrm>(view, module); });
    view.menu.mnuDelEmptyFolder.Install([&view, &module] { RunFilingDialog<DeleteFolderFrm>(view, module); });
    view.menu.mnuDeleteCurrentImage.Install([&view] { mnuDeleteCurrentImage_Click(view); });
    view.menu.mnuRenameImg.Install([&view] { RunFilingDialog<RenameImgFrm>(view, view); });
    view.menu.mnuRenameCurrentImg.Install([&view] { mnuRenameCurrentImg_Click(view); });
    InstallFloppyCommands(view);
    InstallShellCommands(view);
}

}  // namespace tavrix
