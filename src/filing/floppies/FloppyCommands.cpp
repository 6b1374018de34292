#include "filing/floppies/FloppyCommands.h"

#include <optional>
#include <string>

#include "base/Text.h"
#include "filing/floppies/FloppyDisk.h"
#include "filing/floppies/frmCopyFloppy.h"
#include "filing/floppies/frmDeleteFloppy.h"
#include "filing/floppies/frmDiskcopy.h"
#include "filing/floppies/frmPutOnFloppy.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// Shows a dialog about the disk in the floppy drive once there is one. `noFiles` is said of a disk without files;
/// empty: the dialog needs none.
template <class Dialog>
void ShowFloppyDialog(MainViewFrm& view, const std::string& noFiles) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    forms::BusyGuard busy(module.Screen());
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    const FloppyDisk disk(module);
    const std::optional<bool> anyFile = disk.HasFiles(view, [&] { return disk.AsksToInsert(); });
    if (!anyFile) return;
    if (!*anyFile && !noFiles.empty()) {
        module.app.MessageBox(
            {.text = noFiles + std::string(NewLine2) + "Insert another disk and then try again..."});
        return;
    }
    auto& dialog = module.app.Load<Dialog>(module);
    busy.Release();
    dialog.ShowModal();
}

}  // namespace

void InstallFloppyCommands(MainViewFrm& view) {
    const std::string nothingToCopy = "There are no files on the floppy disk to copy.";
    view.menu.mnuCopyFromFloppy.Install(
        [&view, nothingToCopy] { ShowFloppyDialog<frmCopyFloppy>(view, nothingToCopy); });
    view.menu.mnuCopyImgToFloppy.Install([&view] { ShowFloppyDialog<frmPutOnFloppy>(view, ""); });
    view.menu.mnuDiskcopyFloppy.Install(
        [&view, nothingToCopy] { ShowFloppyDialog<frmDiskcopy>(view, nothingToCopy); });
    view.menu.mnuDelImgOnFloppy.Install([&view] {
        ShowFloppyDialog<frmDeleteFloppy>(view, "There are no files on the floppy disk to delete.");
    });
}

}  // namespace tavrix
