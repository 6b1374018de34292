#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "platform/services/ProgramFiles.h"
#include "shows/library/ShowsFolder.h"
#include "shows/package/PackageValues.h"

namespace tavrix {

/// Makes a folder of a show and of all that is needed to install and to play it on another computer.
class PackageFrm final : public forms::Form {
  public:
    PackageFrm(forms::Application& application, MainModule& module, ProgramFiles& programFiles);

  private:
    MainModule& module_;
    ProgramFiles& programFiles_;

  public:
    LookedFiles Looked{*this, module_.platform.files, ShowPattern};
    LookedFiles Looked2{*this, module_.platform.files, LookedFiles::NoNames, &Looked};
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label lblDrives{Frame1, "lblDrives"};
    forms::DriveListBox Drive1{Frame1, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{Frame1, "lblFolders"};
    forms::DirListBox Dir1{Frame1, "Dir1", Looked};
    forms::Label lblFiles{Frame1, "lblFiles"};
    forms::FileListBox File1{Frame1, "File1", Looked, ShowPattern};
    forms::CommandButton CmdFF{Frame1, "CmdFF"};
    forms::Frame Frame2{*this, "Frame2"};
    forms::Label lblDrives2{Frame2, "lblDrives2"};
    forms::DriveListBox Drive2{Frame2, "Drive2", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders2{Frame2, "lblFolders2"};
    forms::DirListBox Dir2{Frame2, "Dir2", Looked2};
    forms::CommandButton CmdNewFolder{Frame2, "CmdNewFolder"};
    forms::CommandButton CmdFF2{Frame2, "CmdFF2"};
    forms::Label lblName{*this, "lblName"};
    forms::TextBox txtName{*this, "txtName"};
    forms::Label lblSize{*this, "lblSize"};
    forms::TextBox txtSize{*this, "txtSize"};
    forms::CommandButton CmdSize{*this, "CmdSize"};
    forms::CheckBox CheckScreenSaver{*this, "CheckScreenSaver"};
    forms::CheckBox CheckMakeDefault{*this, "CheckMakeDefault"};
    forms::CheckBox CheckShortcut{*this, "CheckShortcut"};
    forms::CommandButton CmdPackage{*this, "CmdPackage"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    FolderLists Lists{module_, Looked, Drive1, Dir1, &File1};
    FolderLists Lists2{module_, Looked2, Drive2, Dir2, nullptr};
    FolderButton FavoriteButton{*this, module_, CmdFF, Lists, [this] { return QuickFoldersOf(module_); }};
    FolderButton FavoriteButton2{
        *this, module_, CmdFF2, Lists2, [this] { return QuickFoldersOf(module_); }, {.suffix = "2"}};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void CheckScreenSaver_Click();
    void CmdSize_Click();
    void CmdPackage_Click();
    void File1_OLEDragDrop(const std::vector<std::string>& files);

    void Arrange();
    /// Goes to the folder of the last package's show, or else of the last show.
    void GoToSource();
    void SelectFirst();
    void SelectLastShow();
    /// The name of the show that is chosen; nothing where there is none, which the user is told with what is not possible
    /// then.
    [[nodiscard]] std::optional<std::string> ChosenShow(const std::string& unable);
    /// What was entered.
    [[nodiscard]] PackageValues Entered() const;
    void ShowUnknownSize(const std::string& why);

    // The questions before a package is made; false to make none.
    [[nodiscard]] bool HasName(PackageValues& values, const std::string& show);
    [[nodiscard]] bool HasSize(const PackageValues& values);
    [[nodiscard]] bool UserAgrees(const PackageValues& values, const std::string& show);
    [[nodiscard]] bool UserSays(const std::string& question);
    void Refuse(const std::string& text);

    PackageValues values_;  ///< of the last package
    bool works_ = false;    ///< a package is being made
};

}  // namespace tavrix
