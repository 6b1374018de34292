#include "shows/package/DelPackageFrm.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "shows/package/PackageFolders.h"
#include "shows/package/PackageLayout.h"
#include "shows/package/PackageValues.h"
#include "shows/package/RemovePackage.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

}  // namespace

DelPackageFrm::DelPackageFrm(forms::Application& application, MainModule& module)
    : Form(application, {.name = "DelPackageFrm"}), module_(module) {
    Caption = "Tavrix - [Delete Package]";
    HelpContext = HelpContext::DeletePackage;
    lblMsg.WordWrap = true;
    lblDrives.Caption = "D&rive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    Lists.OnContent = [this] { Dir1_Change(); };
    CmdDelete.Caption = "&Delete";
    CmdDelete.ToolTip = "Delete the package in the selected directory.";
    CmdDelete.OnClick = [this] { CmdDelete_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::DeletePackage); };
    using namespace forms;
    constexpr float listWidth = 4200;
    constexpr float listHeight = 3300;
    SetLayout(Column({AtLeast(listWidth, 0, lblMsg),
                      Growing(Row({Growing(Column({lblDrives, Drive1, lblFolders,
                                                   Growing(AtLeast(listWidth, listHeight, Dir1))})),
                                   Column({CmdDelete, CmdCancel, CmdHelp, CmdFF, Stretch()})}))}));
}

void DelPackageFrm::Form_Load() {
    const std::string last = LoadPackageSettings(module_).PackageDestination;
    if (!last.empty() && module_.platform.files.FolderExists(last)) SkipFailure([&] { Lists.GoTo(last); });
    Dir1_Change();
}

void DelPackageFrm::Dir1_Change() {
    if (Lists.Pending()) {
        lblMsg.Caption = "Please wait...";
    } else {
        TellWhatIsThere();
    }
}

void DelPackageFrm::TellWhatIsThere() {
    Files& files = module_.platform.files;
    const std::string slides = Lists.Folder() + package::SlidesFolder + "\\";
    std::string show;
    SkipFailure([&] { show = files.First(slides + "*.TVS"); });
    if (!show.empty()) {
        lblMsg.Caption = "Package directory located!";
    } else if (files.FolderExists(slides)) {
        lblMsg.Caption = "Unable to locate slide show file in selected package directory...";
    } else {
        lblMsg.Caption = "Select location of the package to delete...";
    }
}

void DelPackageFrm::Refuse(const std::string& text) {
    App().MessageBox({.text = text, .icon = forms::BoxIcon::Exclamation});
}

bool DelPackageFrm::UserAgrees(const std::string& folder, const std::string& name) {
    return App().MessageBox({.text = "You are about to remove the slide show package " + name +
                                     " from the directory:" + Paragraph + folder + Paragraph + "WARNING:" +
                                     std::string(NewLine) + "ALL files will be deleted from:" + Paragraph +
                                     folder + std::string(NewLine) + folder + package::SlidesFolder + "\\" +
                                     Paragraph + "Are you sure?",
                             .icon = forms::BoxIcon::Question,
                             .buttons = forms::BoxButtons::YesNo,
                             .defaultButton = 2}) == forms::Answer::Yes;
}

void DelPackageFrm::CmdDelete_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdDelete_Click(); })) return;
    const std::string folder = Lists.Folder();
    if (const std::optional<std::string> refused = RefusedDeletion(module_, folder)) {
        Refuse("You may not delete any packages from:" + Paragraph + *refused + Paragraph +
               "Unable to continue...");
        return;
    }
    const std::string incomplete = "The selected folder is not a complete package directory, ";
    const std::string unable = Paragraph + "Unable to delete selected package...";
    if (!module_.platform.files.FileExists(folder + package::SetupIni)) {
        Refuse(incomplete + "SETUP.INI could not be found." + unable);
        return;
    }
    const std::string name = NameInSetupIni(module_, folder);
    if (name.empty()) {
        Refuse(incomplete + "the package name could not be found." + unable);
        return;
    }
    if (!UserAgrees(folder, name)) return;
    const DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    works_ = true;
    RemovePackage(module_, folder, name);
    works_ = false;
    Dir1.Refresh();
    Dir1_Change();
}

}  // namespace tavrix
