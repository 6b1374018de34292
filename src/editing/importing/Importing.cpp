#include "editing/importing/Importing.h"

#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/KeptWorkingFiles.h"
#include "core/UnsavedImage.h"
#include "editing/frame/WorkingFile.h"
#include "editing/frame/WorkingImage.h"
#include "editing/importing/frmImportImage.h"
#include "editing/saving/Jpeg.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

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

constexpr WorkingImageWords Words{.notRead = "Unable to import selected file.",
                                  .notWritten = "Unable to write imported image to a temporary file."};

void AskAndImport(MainViewFrm& view, const char* pattern, const char* caption) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (!ConfirmDiscard(module)) return;
    const std::string path = AskForFile(module, pattern, caption);
    if (path.empty()) return;
    TakeWorkingImage(view, Words, [&] { LoadThroughNViewLib(module, view.MainImage, path, 0); });
}

}  // namespace

void mnuImportTGA_Click(MainViewFrm& view) {
    AskAndImport(view, "*.tga", "Import TGA Image File");
}

void mnuImportPCX_Click(MainViewFrm& view) {
    AskAndImport(view, "*.pcx", "Import PCX Image File");
}

void ImportIntoMainView(MainViewFrm& view, const std::string& path, const OpenFailure& failure) {
    const MainModule& module = view.Module();
    const auto show = [&] {
        LoadThroughNViewLib(module, view.MainImage, path, 0);
        module.DoEvents();
        view.imageOnShow.LayOut();
    };
    const auto become = [&] {
        CommitWorkingFile(view);
        if (!WriteWorkingFile(view, Words.notWritten)) return false;
        view.imageOnShow.Opened(module.CurrentImage);
        return true;
    };
    OpenIntoMainView(view, path, failure, {show, become});
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
    ForgetWorkingFile(module, path);  // it is asked about from now on
    view.imageOnShow.Become(path);
    view.MainImage.Picture = picture;
    view.imageOnShow.LayOut();
    view.picFrame.Visible = true;
    SetImageLoadedMenus(view);
}

}  // namespace tavrix
