#include "filing/deleting/DeleteFolderFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "filing/CurrentImageFolder.h"
#include "filing/Questions.h"
#include "filing/deleting/RemoveListedFolder.h"

namespace tavrix {

DeleteFolderFrm::DeleteFolderFrm(forms::Application& application, MainModule& module)
    : Form(application, {.name = "DeleteFolderFrm"}), module_(module) {
    Caption = "Delete Empty Folder";
    HelpContext = HelpContext::DeleteFolder;
    lblDrives.Caption = "Dri&ve:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    Dir1.OnKeyUp = [this](int keyCode, int) {
        if (keyCode == forms::KeyCode::Delete) CmdDelete_Click();
    };
    File1.Visible = false;
    CmdDelete.Caption = "&Delete";
    CmdDelete.ToolTip = "Delete the selected folder.";
    CmdDelete.Default = true;
    CmdDelete.OnClick = [this] { CmdDelete_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::DeleteFolder); };
    using namespace forms;
    constexpr float listWidth = 3900;
    constexpr float listHeight = 3300;
    SetLayout(
        Row({Growing(Column({lblDrives, Drive1, lblFolders, Growing(AtLeast(listWidth, listHeight, Dir1))})),
             Column({CmdDelete, CmdCancel, CmdHelp, CmdFF, Stretch()})}));
}

void DeleteFolderFrm::Form_Load() {
    GoToFolderOfImage(module_, Lists);
}

void DeleteFolderFrm::CmdDelete_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdDelete_Click(); })) return;
    Dir1.Refresh();
    File1.Refresh();
    if (!Lists.Awaits([this] { DeleteAsRead(); })) DeleteAsRead();
}

void DeleteFolderFrm::DeleteAsRead() {
    if (module_.Busy()) return;
    if (CharacterCount(File1.Path.Get()) <= 2) {
        App().MessageBox({.text = "You may not delete the root folder on your hard drive..."});
        return;
    }
    if (File1.ListCount() > 0) {
        App().MessageBox({.text = "The selected folder is not empty, unable to delete..."});
        return;
    }
    const std::string path = Dir1.Path;
    if (!UserSaysYes(module_, "You are about to delete the folder:" + std::string(NewLine2) + path +
                                  std::string(NewLine2) + "Are you sure?")) {
        return;
    }
    try {
        RemoveListedFolder(module_, path);
    } catch (const RuntimeError& error) {
        App().MessageBox({.text = error.Description() + "...", .icon = forms::BoxIcon::Stop});
        return;
    }
    App().Unload(*this);
}

}  // namespace tavrix
