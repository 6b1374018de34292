#include "shows/package/PackageFrm.h"

#include <algorithm>
#include <iterator>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/ContentOf.h"
#include "dialogs/DialogWork.h"
#include "dialogs/NewFolder.h"
#include "platform/services/DrivePath.h"
#include "shows/files/LoadShowFile.h"
#include "shows/package/PackageFolders.h"
#include "shows/package/PackageLayout.h"
#include "shows/package/PackageSize.h"
#include "shows/package/PackageTitle.h"
#include "shows/package/SavePackage.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);
const std::string LineEnd(NewLine);

constexpr const char* UnknownSize = "Unknown";

/// A show's name without its ending.
std::string WithoutEnding(const std::string& show) {
    return EndsInIgnoringCase(show, ".TVS") ? Left(show, CharacterCount(show) - 4) : show;
}

}  // namespace

PackageFrm::PackageFrm(forms::Application& application, MainModule& module, ProgramFiles& programFiles)
    : Form(application, {.name = "PackageFrm"}), module_(module), programFiles_(programFiles) {
    Caption = PackageTitle;
    HelpContext = HelpContext::PackageShow;
    Frame1.Caption = "Select Slide Show File:";
    lblDrives.Caption = "D&rive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    lblFiles.Caption = "Sho&w File:";
    lblFiles.SetBuddy(File1);
    File1.ToolTip = "Select the slide show to package.";
    File1.OnOLEDragDrop = [this](const auto& files) { File1_OLEDragDrop(files); };
    Lists.OnFolderChange = [this] { Lists.WhenRead([this] { SelectFirst(); }); };
    Frame2.Caption = "Select Package Location:";
    lblDrives2.Caption = "Dri&ve:";
    lblDrives2.SetBuddy(Drive2);
    lblFolders2.Caption = "F&older:";
    lblFolders2.SetBuddy(Dir2);
    CmdNewFolder.Caption = "&New Folder";
    CmdNewFolder.ToolTip = "Create a new folder in the selected package location.";
    CmdNewFolder.OnClick = [this] {
        CmdNewFolder_Click(module_, Lists2, {.title = PackageTitle, .name = "New Folder"});
    };
    lblName.Caption = "Pac&kage Name:";
    lblName.SetBuddy(txtName);
    txtName.ToolTip = "Enter the name that the package is installed under.";
    constexpr int longestName = 100;
    txtName.MaxLength = longestName;
    lblSize.Caption = "Si&ze (Megabytes):";
    lblSize.SetBuddy(txtSize);
    txtSize.ToolTip = "Enter the size of the package.";
    constexpr int longestSize = 20;
    txtSize.MaxLength = longestSize;
    CmdSize.Caption = "&Estimate";
    CmdSize.ToolTip = "Estimate the size of a package of the selected slide show.";
    CmdSize.OnClick = [this] { CmdSize_Click(); };
    CheckScreenSaver.Caption = "Make this a \"&Screen Saver\" package.";
    CheckScreenSaver.OnClick = [this] { CheckScreenSaver_Click(); };
    CheckMakeDefault.Caption = "Set user's &default screen saver to this one.";
    CheckShortcut.Caption = "Create a shortcut in Start &Menu for the slide show.";
    CmdPackage.Caption = "&Package";
    CmdPackage.ToolTip = "Make a package of the selected slide show.";
    CmdPackage.Default = true;
    CmdPackage.OnClick = [this] { CmdPackage_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::PackageShow); };
    Arrange();
}

void PackageFrm::Arrange() {
    using namespace forms;
    constexpr float listWidth = 2700;
    constexpr float listHeight = 2400;
    constexpr float sizeWidth = 1500;
    const Layout source =
        Group(Frame1, {lblDrives, Drive1, lblFolders, Growing(AtLeast(listWidth, listHeight, Dir1)), lblFiles,
                       Growing(AtLeast(0, listHeight / 2, File1)), Row({CmdFF, Stretch()})});
    const Layout destination =
        Group(Frame2, {lblDrives2, Drive2, lblFolders2, Growing(AtLeast(listWidth, listHeight, Dir2)),
                       Row({CmdNewFolder, CmdFF2, Stretch()})});
    SetLayout(Column({Growing(Row({Growing(source), Growing(destination)})), Row({lblName, Growing(txtName)}),
                      Row({lblSize, AtLeast(sizeWidth, 0, txtSize), CmdSize, Stretch()}), CheckScreenSaver,
                      CheckMakeDefault, CheckShortcut, Row({Stretch(), CmdPackage, CmdCancel, CmdHelp})}));
}

void PackageFrm::Form_Load() {
    SkipFailure([this] { module_.platform.files.ChangeFolder(module_.AppPath + "SLIDES\\"); });
    SkipFailure([this] { Lists.GoTo(ShowsFolder(module_)); });
    values_ = LoadPackageSettings(module_);
    txtName.Text = values_.PackageName;
    txtSize.Text = values_.PackageSize;
    CheckScreenSaver.Value = values_.PackageScreenSaver;
    CheckMakeDefault.Value = values_.PackageDefaultSaver;
    CheckShortcut.Value = values_.PackageShortcut;
    CheckScreenSaver_Click();
    GoToSource();
    const std::string& destination = values_.PackageDestination;
    if (!destination.empty() && module_.platform.files.FolderExists(destination)) {
        SkipFailure([&] { Lists2.GoTo(destination); });
    }
}

void PackageFrm::GoToSource() {
    Files& files = module_.platform.files;
    const std::string& last = module_.config.LastSlideShow;
    for (const std::string& folder : {values_.PackageSource, FolderOf(last)}) {
        if (folder.empty() || !files.FolderExists(folder)) continue;
        SkipFailure([&] { Lists.GoTo(folder); });
        break;
    }
    Lists.WhenRead([this] { SelectLastShow(); });
}

void PackageFrm::SelectLastShow() {
    SelectFirst();
    const std::string& last = module_.config.LastSlideShow;
    const int row = File1.IndexOf(FileNameOf(last));
    if (row >= 0 && SameFolder(module_, Lists.Folder(), FolderOf(last))) File1.ListIndex = row;
}

void PackageFrm::SelectFirst() {
    if (File1.ListCount() > 0) File1.ListIndex = 0;
}

void PackageFrm::Form_Unload(bool& cancel) {
    if (works_) {
        // Who closes the window beside the work wants no more of it.
        module_.CancelCopy = true;
        cancel = true;
        return;
    }
    SavePackageSettings(module_, values_);
}

void PackageFrm::CheckScreenSaver_Click() {
    CheckMakeDefault.Enabled = CheckScreenSaver.Value;
}

void PackageFrm::File1_OLEDragDrop(const std::vector<std::string>& files) {
    if (module_.Busy() || files.empty()) return;
    Lists.Forget();
    std::string path = files.front();
    if (EndsInIgnoringCase(path, ".LNK")) path = ResolveLink(module_, path);
    path = NormalPath(path);
    const auto refuse = [this] {
        Refuse("The file that was dropped here is not a valid Tavrix slide show (.TVS) file.");
    };
    if (!EndsInIgnoringCase(path, ".TVS") || !module_.platform.files.FileExists(path)) {
        refuse();
        return;
    }
    try {
        Lists.GoTo(FolderOf(path), [refuse](const RuntimeError&) { refuse(); });
    } catch (const RuntimeError&) {
        refuse();
        return;
    }
    Lists.WhenRead([this, refuse, name = FileNameOf(path)] {
        const int row = File1.IndexOf(name);
        if (row >= 0) {
            File1.ListIndex = row;
        } else {
            refuse();
        }
    });
}

void PackageFrm::Refuse(const std::string& text) {
    App().MessageBox({.text = text, .title = PackageTitle, .icon = forms::BoxIcon::Exclamation});
}

bool PackageFrm::UserSays(const std::string& question) {
    return App().MessageBox({.text = question,
                             .title = PackageTitle,
                             .icon = forms::BoxIcon::Question,
                             .buttons = forms::BoxButtons::YesNo}) == forms::Answer::Yes;
}

std::optional<std::string> PackageFrm::ChosenShow(const std::string& unable) {
    const std::string advice = Paragraph + "Create and/or select a slide show file and then try again...";
    if (File1.ListCount() == 0) {
        Refuse("No slide show files could be found in the source directory, unable to " + unable + advice);
        return std::nullopt;
    }
    if (File1.ListIndex < 0) {
        Refuse("A slide show file has not be selected, unable to " + unable + advice);
        return std::nullopt;
    }
    return File1.FileName();
}

void PackageFrm::ShowUnknownSize(const std::string& why) {
    Refuse(why);
    txtSize.Text = UnknownSize;
}

void PackageFrm::CmdSize_Click() {
    if (module_.Busy() || Lists.Awaits([this] { CmdSize_Click(); })) return;
    const std::optional<std::string> show = ChosenShow("estimate size of package.");
    if (!show) return;
    const DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    const std::string folder = Lists.Folder();
    if (LoadSharedShow(module_, folder + *show).end != ShowFileEnd::Complete) {
        txtSize.Text = UnknownSize;
        return;
    }
    if (module_.show.Empty()) {
        ShowUnknownSize(
            "The selected slide show does not contain any images, unable to calculate package size...");
        return;
    }
    SkipFailure([&] { ChangeToFolderOf(module_, folder); });
    const PackageSizeEstimate estimate = EstimatePackageSize(module_, folder);
    if (!estimate.missing.empty()) {
        ShowUnknownSize("The selected slide show is missing an image, unable to calculate package size..." +
                        LineEnd + "File not found: " + estimate.missing);
        return;
    }
    txtSize.Text = MegabytesText(estimate.bytes, module_.platform.system.Numbers());
}

PackageValues PackageFrm::Entered() const {
    return {.PackageName = Trim(txtName.Text.Get()),
            .PackageSource = Lists.Folder(),
            .PackageDestination = Dir2.Path,
            .PackageSize = Trim(txtSize.Text.Get()),
            .PackageScreenSaver = CheckScreenSaver.Value,
            .PackageDefaultSaver = CheckMakeDefault.Value,
            .PackageShortcut = CheckShortcut.Value};
}

bool PackageFrm::HasName(PackageValues& values, const std::string& show) {
    if (!values.PackageName.empty() && values.PackageName != "Untitled") return true;
    const std::string name = WithoutEnding(show);
    if (!UserSays("You need to give your " + KindOf(values) + " package a name first." + Paragraph +
                  "Default Name:" + LineEnd + name + Paragraph + "Use the default package name?")) {
        return false;
    }
    txtName.Text = values.PackageName = name;
    return true;
}

bool PackageFrm::HasSize(const PackageValues& values) {
    if (values.PackageSize.empty()) {
        Refuse("You need to specify the total size of your package in megabytes, unable to create " +
               KindOf(values) + " package...");
        return false;
    }
    if (!EqualIgnoringCase(values.PackageSize, UnknownSize)) return true;
    return UserSays("You should specify the total size of your " + KindOf(values) + " package in megabytes." +
                    Paragraph + "Do you want to continue anyway?");
}

bool PackageFrm::UserAgrees(const PackageValues& values, const std::string& show) {
    Files& files = module_.platform.files;
    const std::string& destination = values.PackageDestination;
    std::optional<FolderContent> there = ContentOf(module_, *this, destination);
    if (!there) return false;
    if (!there->files.empty() &&
        !UserSays("The selected package directory already has files in it:" + Paragraph + destination +
                  Paragraph + "Use this directory anyway?")) {
        return false;
    }
    const std::string type = values.PackageScreenSaver ? "Screen Saver" : "Slide Show";
    if (!UserSays("NAME:" + LineEnd + values.PackageName + Paragraph + "TYPE:" + LineEnd + type + Paragraph +
                  "SIZE:" + LineEnd + values.PackageSize + " (megabytes)" + Paragraph + "SOURCE:" + LineEnd +
                  values.PackageSource + show + Paragraph + "PACKAGE:" + LineEnd + destination + Paragraph +
                  "Create the above package?")) {
        return false;
    }
    std::ranges::move(there->uncounted, std::back_inserter(there->folders));
    const std::optional<std::string> aboutFolders =
        FolderQuestion(there->folders, destination, KindOf(values));
    if (aboutFolders && !UserSays(*aboutFolders)) return false;
    const std::string target = WithBackslash(destination) + package::SlidesFolder + "\\" + show;
    return !files.FileExists(target) ||
           UserSays("The destination slide show file (.TVS) already exists:" + Paragraph + target +
                    Paragraph + "Overwrite this file with new data?");
}

void PackageFrm::CmdPackage_Click() {
    if (module_.Busy()) return;
    const auto again = [this] { CmdPackage_Click(); };
    if (Lists.Awaits(again) || Lists2.Awaits(again)) return;
    PackageValues values = Entered();
    const std::string kind = KindOf(values);
    const std::optional<std::string> show = ChosenShow("create a " + kind + " package.");
    if (!show) return;
    const std::optional<std::string> refused =
        RefusedDestination(module_, values.PackageDestination, values.PackageSource, kind);
    if (refused) {
        Refuse(*refused);
        return;
    }
    if (!HasName(values, *show) || !HasSize(values)) return;
    bool agrees = false;
    try {
        agrees = UserAgrees(values, *show);
    } catch (const RuntimeError& error) {
        App().MessageBox(
            {.text = FailureText("An unexpected error occurred, unable to package " + values.PackageName +
                                     ".  Check your source file(s) for problems and/or missing files...",
                                 error),
             .title = PackageTitle,
             .icon = forms::BoxIcon::Stop});
    }
    if (!agrees) return;
    const DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    values_ = values;
    works_ = true;
    SavePackage(module_, programFiles_, values, *show);
    works_ = false;
    Dir2.Refresh();
}

}  // namespace tavrix
