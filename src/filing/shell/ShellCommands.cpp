#include "filing/shell/ShellCommands.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/Folders.h"
#include "dialogs/ExploreFolder.h"
#include "filing/Questions.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* NoExplorer = "Error, unable to start Windows Explorer.";

/// What the commands of this file begin with. False: nothing is to be done.
bool Begin(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return false;
    // The window of another program comes; the next command that opens a dialog brings ours back above all.
    if (module.config.TopMostWindow) view.SetTopmost(false);
    return true;
}

void Explore(MainViewFrm& view, const std::string& folder, const std::string& failure) {
    if (StartExplorer(view.Module(), folder)) return;
    view.App().MessageBox({.text = failure, .icon = forms::BoxIcon::Stop});
}

void Run(MainViewFrm& view, const std::string& commandLine, const std::string& failure) {
    bool started = false;
    SkipFailure([&] { started = view.Module().platform.shell.Run(commandLine); });
    if (!started) view.App().MessageBox({.text = failure});
}

/// A tool for disks, which is started on nothing but a medium that can be taken out.
void RunOnFloppy(MainViewFrm& view, const std::string& commandLine, const std::string& failure) {
    const MainModule& module = view.Module();
    std::string device;
    SkipFailure([&] { device = module.platform.drives.RemovableDevice(module.config.DefaultFloppy); });
    if (device.empty()) {
        view.App().MessageBox({.text = failure});
        return;
    }
    Run(view, commandLine, failure);
}

bool UserAgrees(const MainModule& module, const std::string& what, const std::string& folder,
                const std::string& question) {
    const std::string paragraph(NewLine2);
    return UserSaysYes(module, what + paragraph + folder + paragraph + question);
}

void mnuShellDiskcopy_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    const std::string drive = view.Module().config.DefaultFloppy == "B:\\" ? "1" : "0";
    RunOnFloppy(view, "rundll32.exe diskcopy.dll,DiskCopyRunDll " + drive + "," + drive,
                "An error occurred while trying to open the diskcopy dialog...");
}

void mnuFormatFloppy_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    RunOnFloppy(view, "rundll32.exe shell32.dll,SHFormatDrive",
                "An error occurred while trying to open the format floppy dialog...");
}

void mnuDisplayProperties_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    Run(view, "rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,3",
        "An error occurred while trying to open the display properties dialog...");
}

void mnuMultimediaProperties_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    Run(view, "rundll32.exe shell32.dll,Control_RunDLL mmsys.cpl",
        "An error occurred while trying to open the multimedia properties dialog...");
}

void mnuExploreFolder_Click(MainViewFrm& view) {
    const std::string& current = view.Module().CurrentImage;
    if (current.empty() || !Begin(view)) return;
    Explore(view, FolderOf(current), "Unable to start Windows Explorer to show the current image folder.");
}

void mnuWinFolder_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    const std::string folder = GetWindowsFolder(view.Module());
    const char* const failure = "Unable to start Windows Explorer to show the Windows folder.";
    if (folder.empty()) {
        view.App().MessageBox({.text = failure, .icon = forms::BoxIcon::Stop});
        return;
    }
    Explore(view, folder, failure);
}

void mnuExploreMyDocuments_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    const MainModule& module = view.Module();
    const std::string folder = GetMyDocumentsFolder(module);
    if (!module.platform.files.FolderExists(folder)) {
        if (!UserAgrees(module, "The following directory does not exist:", folder,
                        "Would you like to create it now?")) {
            return;
        }
        try {
            module.platform.files.MakeFolder(folder);
        } catch (const RuntimeError& error) {
            TellFailure(module, "Unable to create \"My Documents\" folder.", error);
            return;
        }
    }
    Explore(view, folder, "Unable to start Windows Explorer to show the \"My Documents\" folder.");
}

void mnuExploreFavFolder_Click(MainViewFrm& view) {
    if (!Begin(view)) return;
    const MainModule& module = view.Module();
    const std::string& folder = module.config.FavoriteFolder;
    if (!module.platform.files.FolderExists(folder)) {
        if (UserAgrees(module, "The Favorite Folder that was selected does not exist:", folder,
                       "Would you like to specify another location now?")) {
            view.menu.mnuFavoriteFolder.Click();
        }
        return;
    }
    Explore(view, folder,
            "Error, unable to start Windows Explorer to show the contents of your Favorite Folder.");
}

}  // namespace

void InstallShellCommands(MainViewFrm& view) {
    MainMenu& menu = view.menu;
    menu.mnuShellDiskcopy.Install([&view] { mnuShellDiskcopy_Click(view); });
    menu.mnuFormatFloppy.Install([&view] { mnuFormatFloppy_Click(view); });
    menu.mnuDisplayProperties.Install([&view] { mnuDisplayProperties_Click(view); });
    menu.mnuMultimediaProperties.Install([&view] { mnuMultimediaProperties_Click(view); });
    menu.mnuExploreFolder.Install([&view] { mnuExploreFolder_Click(view); });
    menu.mnuExplorer.Install([&view] {
        if (Begin(view)) Explore(view, "", NoExplorer);
    });
    menu.mnuExploreFloppy.Install([&view] {
        if (Begin(view)) Explore(view, view.Module().config.DefaultFloppy, NoExplorer);
    });
    menu.mnuWinFolder.Install([&view] { mnuWinFolder_Click(view); });
    menu.mnuExploreMyDocuments.Install([&view] { mnuExploreMyDocuments_Click(view); });
    menu.mnuExploreFavFolder.Install([&view] { mnuExploreFavFolder_Click(view); });
}

}  // namespace tavrix
