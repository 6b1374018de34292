#include "filing/moving/frmMoveCurrentImg.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/HelpContexts.h"
#include "dialogs/CurrentDrive.h"
#include "dialogs/NewFolder.h"
#include "filing/CurrentImageFolder.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* Title = "Tavrix - [Move Current Image]";

/// The folder that the user chooses. When he gives up it is the first file in the root of the current drive, if there is
/// one, and the image goes to a name that begins with that file's: so this command always was.
std::string AskForTarget(MainViewFrm& view) {
    MainModule& module = view.Module();
    forms::BusyGuard busy(module.Screen());
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    std::string target = FirstFileOfCurrentDrive(module, view);
    if (view.Unloaded()) return {};
    auto& dialog = module.app.Load<frmMoveCurrentImg>(module, target);
    busy.Release();
    dialog.ShowModal();
    return target;
}

/// Renames the image's file. `target` is as it was put together, perhaps without a folder.
void MoveTo(MainViewFrm& view, const std::string& target) {
    MainModule& module = view.Module();
    const std::string from = module.CurrentImage;
    try {
        const forms::BusyGuard busy(module.Screen());
        module.DoEvents();
        Files& files = module.platform.files;
        const bool bare = FolderOf(target).empty();
        const std::string to = bare ? WithBackslash(files.CurrentFolder()) + target : target;
        RequireExactly(module, from);
        files.Rename(from, to);
        view.imageOnShow.Renamed(from, to);
        view.imageOnShow.ShowTitleOf(target);
    } catch (const RuntimeError& error) {
        module.app.MessageBox({.text = FailureText("Unable to move current file to:", target, error),
                               .title = Title,
                               .icon = forms::BoxIcon::Stop});
    }
}

}  // namespace

frmMoveCurrentImg::frmMoveCurrentImg(forms::Application& application, MainModule& module,
                                     std::string& moveTarget)
    : Form(application, {.name = "frmMoveCurrentImg"}), module_(module), moveTarget_(moveTarget) {
    Caption = "Move Current Image";
    HelpContext = HelpContext::MoveCurrentImage;
    lblCurMsg.Caption = "Current filename:";
    lblCurMsg.OnClick = [this] { lblCurrent_Click(); };
    lblCurrent.Literal = true;
    lblCurrent.OnClick = [this] { lblCurrent_Click(); };
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    CmdMove.Caption = "&Move";
    CmdMove.ToolTip = "Move current image to the selected directory.";
    CmdMove.Default = true;
    CmdMove.OnClick = [this] { CmdMove_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't move file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdNew.Caption = "&New Folder";
    CmdNew.ToolTip = "Create a new folder in the selected directory.";
    CmdNew.OnClick = [this] {
        CmdNewFolder_Click(module_, Lists,
                           {.title = ProductName, .name = "New Folder", .offersAnswer = true});
    };
    using namespace forms;
    constexpr float listWidth = 3900;
    constexpr float listHeight = 3300;
    SetLayout(Column({Row({lblCurMsg, Growing(AtLeast(listWidth, 0, lblCurrent))}),
                      Growing(Row({Growing(Column({lblDrives, Drive1, lblFolders,
                                                   Growing(AtLeast(listWidth, listHeight, Dir1))})),
                                   Column({CmdMove, CmdCancel, CmdNew, CmdFF2, Stretch()})}))}));
}

void frmMoveCurrentImg::Form_Load() {
    if (!ImageHasItsFolder(module_)) return;
    lblCurrent.Caption = FileNameOf(module_.CurrentImage);
    GoToFolderOfImage(module_, Lists);
}

void frmMoveCurrentImg::lblCurrent_Click() {
    App().MessageBox(
        {.text = "Complete path to current image file:" + std::string(NewLine2) + module_.CurrentImage});
}

void frmMoveCurrentImg::CmdMove_Click() {
    if (module_.Busy()) return;  // a folder is still being made
    if (Lists.Awaits([this] { CmdMove_Click(); })) return;
    moveTarget_ = Lists.Folder();
    App().Unload(*this);
}

void mnuMoveCurrentImg_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy() || module.CurrentImage.empty()) return;
    const std::string folder = FolderOf(module.CurrentImage);
    const std::string name = FileNameOf(module.CurrentImage);
    const std::string target = AskForTarget(view);
    if (target.empty()) return;
    if (EqualIgnoringCase(target, folder)) {
        module.app.MessageBox(
            {.text = "The new file location is the same as the current one, unable to move file...",
             .title = Title});
        return;
    }
    if (module.platform.files.FileExists(target + name)) {
        module.app.MessageBox(
            {.text = "The path and filename that was specified already exists, unable to move file...",
             .title = Title});
        return;
    }
    MoveTo(view, target + name);
}

}  // namespace tavrix
