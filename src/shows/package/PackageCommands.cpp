#include "shows/package/PackageCommands.h"

#include "dialogs/ShowDialog.h"
#include "shows/package/DelPackageFrm.h"
#include "shows/package/PackageFrm.h"
#include "shows/package/PackageLayout.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

void mnuPackage_Click(MainViewFrm& view, ProgramFiles* programFiles) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    package::InstalledFiles installed(module);
    ShowDialog<PackageFrm>(module, module, programFiles != nullptr ? *programFiles : installed);
}

void mnuDeletePackage_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    ShowDialog<DelPackageFrm>(module, module);
}

}  // namespace

void InstallPackageCommands(MainViewFrm& view, ProgramFiles* programFiles) {
    const MainModule& module = view.Module();
    if (programFiles != nullptr || module.platform.files.FileExists(module.AppPath + package::ProgramName)) {
        view.menu.mnuPackage.Install([&view, programFiles] { mnuPackage_Click(view, programFiles); });
    }
    view.menu.mnuDeletePackage.Install([&view] { mnuDeletePackage_Click(view); });
}

}  // namespace tavrix
