#include "dialogs/FolderChooser.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/NumberText.h"
#include "dialogs/ExploreFolder.h"
#include "dialogs/NewFolder.h"

namespace tavrix {

FolderChooser::FolderChooser(forms::Form& form, const MainModule& module,
                             std::function<QuickFolders()> quickFolders)
    : module_(module),
      Looked(form, module.platform.files),
      lblDrives(form, "lblDrives"),
      Drive1(form, "Drive1", module.platform.files, module.platform.drives),
      lblFolders(form, "lblFolders"),
      Dir1(form, "Dir1", Looked),
      CmdFF2(form, "CmdFF2"),
      CmdMyDocuments(form, "CmdMyDocuments"),
      CmdNewFolder(form, "CmdNewFolder"),
      CmdExplore(form, "CmdExplore"),
      lblFreeSpaceMsg(form, "lblFreeSpaceMsg"),
      lblFreeSpace(form, "lblFreeSpace"),
      Lists(module, Looked, Drive1, Dir1, nullptr),
      FavoriteButton(form, module, CmdFF2, Lists, std::move(quickFolders)) {
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    CmdMyDocuments.Caption = "&My Documents";
    CmdMyDocuments.OnClick = [this] { CmdMyDocuments_Click(); };
    CmdNewFolder.Caption = "&New Folder";
    CmdNewFolder.ToolTip = "Create a new folder in the selected directory.";
    CmdNewFolder.OnClick = [this] { CmdNewFolder_Click(module_, Lists); };
    CmdExplore.Caption = "&Explore";
    CmdExplore.ToolTip = "View files in the selected directory.";
    CmdExplore.OnClick = [this] {
        Lists.Forget();
        ExploreFolder(module_, Dir1.Path);
    };
    lblFreeSpaceMsg.Caption = "Free Space:";
    // The figure names its drive and would be wrong beside another one.
    Lists.OnFolderChange = [this] { ShowFreeSpace(); };
}

forms::Layout FolderChooser::Arrangement() {
    using namespace forms;
    constexpr float listWidth = 3900;
    constexpr float listHeight = 3300;
    return Growing(Column(
        {Growing(Row(
             {Growing(Column({lblDrives, Drive1, lblFolders, Growing(AtLeast(listWidth, listHeight, Dir1))})),
              Column({CmdFF2, CmdMyDocuments, CmdNewFolder, CmdExplore, Stretch()})})),
         Row({lblFreeSpaceMsg, Growing(lblFreeSpace)})}));
}

void FolderChooser::Start(const std::string& folder) {
    SkipFailure([&] { Drive1.Drive = Left(folder, 2); });
    SkipFailure([&] { Lists.Show(folder); });
    ShowFreeSpace();
}

void FolderChooser::ShowFreeSpace() {
    const std::string drive = Left(Drive1.Drive.Get(), 1);
    // No 32-bit figure here: the format has room for whatever is free, and a disk of today has more than that.
    std::int64_t bytes = 0;
    SkipFailure([&] { bytes = module_.platform.drives.FreeBytes(drive + ":\\"); });
    lblFreeSpace.Caption = "Free Space on Drive " + drive +
                           ":\\  =" + GroupedNumberOrEmpty(bytes, module_.platform.system.Numbers()) +
                           " bytes...";
}

void FolderChooser::CmdMyDocuments_Click() {
    const std::string folder = GetMyDocumentsFolder(module_);
    Lists.Forget();
    if (!MakeMissing(folder)) return;
    const auto tell = [this](const RuntimeError&) {
        TellFailure("Unable to change current directory to your My Documents folder...");
    };
    try {
        Lists.GoTo(folder, tell);
    } catch (const RuntimeError& error) {
        tell(error);
    }
}

bool FolderChooser::MakeMissing(const std::string& folder) {
    Files& files = module_.platform.files;
    if (files.FolderExists(folder)) return true;
    const forms::Answer answer =
        module_.app.MessageBox({.text = "The following directory does not exist:" + std::string(NewLine2) +
                                        folder + std::string(NewLine2) + "Would you like to create it now?",
                                .icon = forms::BoxIcon::Question,
                                .buttons = forms::BoxButtons::YesNo});
    if (answer != forms::Answer::Yes) return false;
    try {
        files.MakeFolder(folder);
        return true;
    } catch (const RuntimeError&) {
        TellFailure("Unable to create My Documents directory");
        return false;
    }
}

void FolderChooser::TellFailure(const std::string& text) {
    module_.app.MessageBox({.text = text, .icon = forms::BoxIcon::Stop});
}

}  // namespace tavrix
