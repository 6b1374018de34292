#include "finding/Commands.h"

#include "core/UnsavedImage.h"
#include "dialogs/ShowDialog.h"
#include "finding/FindImageFrm.h"
#include "finding/frmDuplicateFiles.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// A command whose dialog may open an image in the place of the one on show.
template <class Dialog>
void ShowFinder(MainViewFrm& view, const OtherSubsystems& others) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (ConfirmDiscard(module)) ShowDialog<Dialog>(module, view, others);
}

}  // namespace

void InstallFindingCommands(MainViewFrm& view, const OtherSubsystems& others) {
    view.menu.mnuFindImage.Install([&view, others] { ShowFinder<FindImageFrm>(view, others); });
    view.menu.mnuSearchDuplicate.Install([&view, others] { ShowFinder<frmDuplicateFiles>(view, others); });
}

}  // namespace tavrix
