#include "editing/importing/Importing.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/UnsavedImage.h"
#include "editing/frame/EditFrame.h"
#include "editing/importing/frmImportImage.h"
#include "editing/saving/Jpeg.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"
#include "viewer/Opening.h"

namespace tavrix {
namespace {

/// Asks for the file to import; empty when the user wants none.
std::string AskForFile(const MainModule& module, const char* pattern, const char* caption) {
    std::string ImportFile;
    forms::BusyGuard busy(module.Screen());
    auto& dialog = module.app.Load<frmImportImage>(module, ImportFile);
    dialog.Chooser.File1.Pattern = pattern;
    dialog.Caption = caption;
    busy.Release();
    dialog.ShowModal();
    return ImportFile;
}

/// Shows the picture that is in MainImage by now.
void LayOut(MainViewFrm& view) {
    view.Form_Resize();
    view.ScrollHome();
    view.picFrame.Visible = true;
}

void Import(MainViewFrm& view, const std::string& path) {
    const MainModule& module = view.Module();
    const forms::BusyGuard busy(module.Screen());
    view.picFrame.Visible = false;
    try {
        LoadThroughNViewLib(module, view.MainImage, path, 0);
    } catch (const RuntimeError& error) {
        EndWithoutImage(view, "Unable to import selected file.", error);
        return;
    }
    LayOut(view);
    module.DoEvents();
    CommitWorkingFile(view);
    if (WriteWorkingFile(view, "Unable to write imported image to a temporary file."))
        SetImageLoadedMenus(view);
}

void AskAndImport(MainViewFrm& view, const char* pattern, const char* caption) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (!ConfirmDiscard(module)) return;
    const std::string path = AskForFile(module, pattern, caption);
    if (!path.empty()) Import(view, path);
}

}  // namespace

void mnuImportTGA_Click(MainViewFrm& view) {
    AskAndImport(view, "*.tga", "Import TGA Image File");
}

void mnuImportPCX_Click(MainViewFrm& view) {
    AskAndImport(view, "*.pcx", "Import PCX Image File");
}

void mnuTempFile_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const std::string path = GetTempFolder(module) + WorkingFile;
    if (module.CurrentImage == path) {
        module.app.MessageBox({.text = "The temporary image file that was last created is already open..."});
        return;
    }
    forms::BusyGuard busy(module.Screen());
    Picture picture;
    try {
        picture = module.platform.pictures.Load(path);
    } catch (const RuntimeError& error) {
        busy.Release();
        module.app.MessageBox({.text = "Unable to open the temporary image file." + std::string(NewLine2) +
                                       error.Description() + "...",
                               .icon = forms::BoxIcon::Stop});
        return;
    }
    view.picFrame.Visible = false;
    if (module.KeptWorkingFile == path) module.KeptWorkingFile.clear();  // it is asked about from now on
    module.CurrentImage = path;
    view.ShowTitleOf(path);
    view.MainImage.Picture = picture;
    LayOut(view);
    SetImageLoadedMenus(view);
}

}  // namespace tavrix
