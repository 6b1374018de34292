#include "finding/frmDuplicateFiles.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/ImageKinds.h"
#include "core/NumberText.h"
#include "core/RecentLists.h"
#include "dialogs/FindWalk.h"
#include "finding/DriveLines.h"
#include "finding/OpenFound.h"
#include "viewer/ImageTypes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* SearchCaption = "&Search";

}  // namespace

frmDuplicateFiles::frmDuplicateFiles(forms::Application& application, MainViewFrm& view,
                                     OtherSubsystems others)
    : Form(application, {.name = "frmDuplicateFiles"}),
      view_(view),
      module_(view.Module()),
      others_(std::move(others)),
      names_(module_.platform.files) {
    Caption = "Search For Duplicate Files";
    HelpContext = HelpContext::DuplicateFiles;
    BuildTexts();
    ListDrives.MultiSelect = forms::MultiSelect::Toggling;
    ListFiles.OnClick = [this] { ListFiles.ToolTip = ListFiles.List(ListFiles.ListIndex); };
    ListFiles.OnDblClick = [this] { CmdOpen_Click(); };
    ListFiles.OnKeyDown = [this](int& keyCode, int) {
        if (keyCode == forms::KeyCode::Delete) CmdDelete_Click();
    };
    CmdAll.OnClick = [this] {
        const forms::BusyGuard busy(module_.Screen());
        ListDrives.SelectAll();
    };
    CmdNone.OnClick = [this] {
        const forms::BusyGuard busy(module_.Screen());
        ListDrives.SelectNone();
    };
    const auto selectsType = [this](forms::CommandButton& button, const char* label, const char* noneFound) {
        button.OnClick = [this, label, noneFound] { SelectType(label, noneFound); };
    };
    selectsType(CmdFixed, FixedLabel, "A fixed disk could not be found on your system...");
    selectsType(CmdRemovable, RemovableLabel, "A removable disk could not be found on your system...");
    selectsType(CmdCDROM, CdRomLabel, "A CD-ROM drive could not be found on your system...");
    selectsType(CmdNetwork, NetworkLabel, "A network drive could not be found on your system...");
    CmdFind.OnClick = [this] { CmdFind_Click(); };
    CmdOpen.OnClick = [this] { CmdOpen_Click(); };
    CmdPreview.OnClick = [this] { CmdPreview_Click(); };
    CmdShowPath.OnClick = [this] { CmdShowPath_Click(); };
    CmdDelete.OnClick = [this] { CmdDelete_Click(); };
    CmdClose.OnClick = [this] { App().Unload(*this); };
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::DuplicateFiles); };
    BuildLayout();
}

void frmDuplicateFiles::BuildTexts() {
    const auto dress = [](forms::CommandButton& button, const char* caption, const char* toolTip) {
        button.Caption = caption;
        button.ToolTip = toolTip;
    };
    lblDrives.Caption = "Select Drive(s):";
    lblDrives.SetBuddy(ListDrives);
    lblFiles.Caption = "File(s) Found:";
    lblFiles.SetBuddy(ListFiles);
    picStatus.AccessibleName = "Status";
    picStatus.SeeThrough = false;
    picStatus.BackColor = ButtonFace;
    dress(CmdAll, "Select &ALL", "Select all drives in list.");
    dress(CmdNone, "Select &NONE", "De-select all drives in list.");
    dress(CmdFixed, "&Fixed Disk(s)", "Only select fixed disks.");
    dress(CmdRemovable, "&Removable", "Only select removable drives.");
    dress(CmdCDROM, "C&D-ROM", "Only select CD-ROMs.");
    dress(CmdNetwork, "Networ&k", "Only select network drives.");
    dress(CmdFind, SearchCaption, "Click here to search for duplicate image files.");
    dress(CmdOpen, "Op&en", "Click here to open the selected file.");
    dress(CmdPreview, "&Preview", "Click here to preview the selected file.");
    dress(CmdShowPath, "Sho&w Info", "Show more information on the selected file.");
    dress(CmdDelete, "Dele&te", "Delete the selected file.");
    dress(CmdClose, "Cl&ose", "Click here when finished searching for files.");
    CmdHelp.Caption = "Help";
    CmdFind.Default = true;
    CmdClose.Cancel = true;
}

void frmDuplicateFiles::BuildLayout() {
    using namespace forms;
    // With the buttons beside it as wide as the longest status.
    constexpr float width = 9150;
    constexpr float drivesHeight = 1300;
    constexpr float filesHeight = 3300;
    constexpr float statusHeight = 330;
    picStatus.Move(0, 0, width, statusHeight);
    SetLayout(Column(
        {Growing(Row(
             {Growing(Column({lblDrives,
                              Row({Growing(AtLeast(0, drivesHeight, ListDrives)),
                                   Grid(2, {CmdAll, CmdNone, CmdFixed, CmdRemovable, CmdCDROM, CmdNetwork})}),
                              lblFiles, Growing(AtLeast(width, filesHeight, ListFiles))})),
              Column({CmdFind, CmdOpen, CmdPreview, CmdShowPath, CmdDelete, CmdClose, CmdHelp, Stretch()})})),
         picStatus}));
}

void frmDuplicateFiles::Form_Load() {
    ShowStart();
    ListDrives.SetItems(DriveLines(module_));
    CmdFixed.OnClick();
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void frmDuplicateFiles::Form_Resize() {
    // As wide as what is above it, and with room for a line of text whatever the font.
    picStatus.Move(picStatus.Left, picStatus.Top, CmdHelp.Left + CmdHelp.Width - picStatus.Left,
                   lblFiles.Height * 1.5F);
}

void frmDuplicateFiles::Form_QueryUnload(bool& cancel) {
    if (CmdClose.Enabled) return;
    cancel = true;
    Tell("Press the Cancel button to stop searching for files...");
}

void frmDuplicateFiles::Form_Unload(bool&) {
    DupCancelled = true;
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

forms::Answer frmDuplicateFiles::Tell(const std::string& text, forms::BoxIcon icon,
                                      forms::BoxButtons buttons) const {
    return App().MessageBox({.text = text, .icon = icon, .buttons = buttons});
}

void frmDuplicateFiles::ShowStatus(const std::string& text) {
    picStatus.Cls();
    picStatus.Print(text);
}

void frmDuplicateFiles::ShowStart() {
    ShowStatus(" Select drive(s) to examine and then press the Search button...");
}

void frmDuplicateFiles::ShowSearching(const std::string& line) {
    ShowStatus(" Searching drive " + line + " for duplicate image files, please wait...   FOUND: " +
               GroupedNumber(names_.Count(), module_.platform.system.Numbers()));
}

void frmDuplicateFiles::SelectType(const char* label, const char* noneFound) {
    const forms::BusyGuard busy(module_.Screen());
    forms::RowRanges rows;
    for (int row = 0; row < ListDrives.ListCount(); ++row) {
        if (ListDrives.List(row).ends_with(label)) rows.Add(row);
    }
    const bool found = !rows.Empty();
    ListDrives.SetSelection(std::move(rows));
    if (!found) Tell(noneFound);
}

std::array<forms::CommandButton*, 11> frmDuplicateFiles::IdleButtons() {
    return {&CmdClose,     &CmdOpen,  &CmdPreview, &CmdAll,    &CmdNone,    &CmdFixed,
            &CmdRemovable, &CmdCDROM, &CmdNetwork, &CmdDelete, &CmdShowPath};
}

void frmDuplicateFiles::ShowIdle(bool idle) {
    CmdFind.Caption = idle ? SearchCaption : "&Cancel";
    for (forms::CommandButton* button : IdleButtons())
        button->Enabled = idle;
}

void frmDuplicateFiles::CmdFind_Click() {
    if (CmdFind.Caption != SearchCaption) {
        Cancel();
        return;
    }
    if (searching_) return;
    // On every way out: a window that thinks it searches cannot be closed.
    const struct Ending {
        frmDuplicateFiles& form;
        ~Ending() {
            form.searching_ = false;
            form.ShowIdle(true);
            form.MousePointer = forms::MousePointer::Default;
        }
    } ending{*this};
    searching_ = true;
    MousePointer = forms::MousePointer::ArrowHourglass;
    module_.DoEvents();
    if (!Unloaded() && MaySearch() && !Unloaded()) Search();
}

void frmDuplicateFiles::Cancel() {
    ShowStart();
    DupCancelled = true;
    ShowIdle(true);
}

bool frmDuplicateFiles::MaySearch() {
    if (ListDrives.ListCount() == 0) {
        Tell("Error, unable to search for duplicate files." + std::string(NewLine2) +
                 "The current drive letters could not be aquired from system...",
             forms::BoxIcon::Stop);
        return false;
    }
    if (ListDrives.SelectedCount() == 0) {
        Tell("Select the drive(s) to search and then try again...");
        return false;
    }
    return Tell("You are about to search the selected drive(s) for duplicate files..." +
                    std::string(NewLine2) + "This could take several minutes to complete.",
                forms::BoxIcon::Information, forms::BoxButtons::OkCancel) == forms::Answer::Ok;
}

void frmDuplicateFiles::Search() {
    std::vector<std::string> drives;  // whatever is selected later
    for (int row = 0; row < ListDrives.ListCount(); ++row) {
        if (ListDrives.Selected(row)) drives.push_back(ListDrives.List(row));
    }
    ShowIdle(false);
    ShowStatus(" Preparing to search selected drive(s) for duplicate image files, please wait...");
    ListFiles.Clear();
    ListFiles.ToolTip = "";
    names_.Clear();
    DupCancelled = false;
    bool allRead = true;
    for (const std::string& line : drives) {
        allRead &= SearchDrive(line);
        if (!DupCancelled) module_.DoEvents();
        if (DupCancelled) break;
    }
    if (!Unloaded()) TellResult(allRead);
}

bool frmDuplicateFiles::SearchDrive(const std::string& line) {
    const std::string root = tavrix::Left(line, 3);
    FindWalk walk(module_, PatternOf(ImagesShown::All), DupCancelled);
    int shown = -1;
    const auto show = [&] {
        if (DupCancelled || shown == names_.Count()) return;
        shown = names_.Count();
        ShowSearching(line);
    };
    for (bool ready = false; !ready;) {
        try {
            walk.Require(root);
            ready = true;
        } catch (const RuntimeError& error) {
            if (DupCancelled) return true;
            if (!Retry(line, error)) return false;
        }
    }
    show();
    walk.OnBreath = show;
    walk.OnFiles = [&](const std::string& folder, const std::vector<std::string>& names,
                       const std::vector<FileNumber>& numbers) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (DupCancelled) return;
            names_.Add(folder, names[i], numbers[i]);
            walk.Breathe();
        }
    };
    walk.Walk(root);
    show();
    return true;
}

bool frmDuplicateFiles::Retry(const std::string& line, const RuntimeError& error) const {
    // What a drive without a disk is told as depends on what is asked of it.
    const bool noDisk =
        error.Number() == ErrorNumber::BadFileNameOrNumber || error.Number() == ErrorNumber::DiskNotReady;
    const std::string reason = noDisk ? "Insert a disk in the selected drive and then try again..."
                                      : "Error: " + error.Description() + "...";
    return Tell("Unable to search " + line + " for duplicate files." + std::string(NewLine2) + reason,
                forms::BoxIcon::Information, forms::BoxButtons::RetryCancel) == forms::Answer::Retry;
}

void frmDuplicateFiles::TellResult(bool allRead) {
    const int count = names_.Count();
    if (count > 0) {
        ListFiles.SetItems(names_.Paths());
    } else if (allRead) {
        Tell("No duplicate files were found on the selected drive(s)...");
    }
    if (DupCancelled || Unloaded()) return;
    const std::string what =
        count > 0 ? GroupedNumber(count, module_.platform.system.Numbers()) + " duplicate files were found..."
                  : "no duplicate files were found...";
    ShowStatus(" Selected drive(s) have been searched, " + what);
}

std::optional<std::string> frmDuplicateFiles::Selected(const char* nothingSelected) const {
    if (ListFiles.ListCount() == 0) {
        Tell("No valid image files were found." + std::string(NewLine2) +
             "Select drive(s) and press the \"Search\" button to find duplicate files...");
        return std::nullopt;
    }
    if (ListFiles.ListIndex < 0) {
        Tell(nothingSelected);
        return std::nullopt;
    }
    return ListFiles.List(ListFiles.ListIndex);
}

void frmDuplicateFiles::CmdOpen_Click() {
    if (module_.Busy()) return;
    const auto path = Selected("Select a file to open and then try again...");
    if (!path) return;
    const forms::Answer open = Tell(*path + std::string(NewLine2) + "Open this image?",
                                    forms::BoxIcon::Question, forms::BoxButtons::YesNo);
    if (open == forms::Answer::Yes && !Unloaded()) OpenFound(*this, view_, others_, *path, ProductName);
}

void frmDuplicateFiles::CmdPreview_Click() {
    if (module_.Busy()) return;
    const auto path = Selected("Select a file to preview and then try again...");
    if (!path) return;
    if (IsImportOnly(*path)) {
        Tell("Unable to show a preview of a \"" + UpperCase(Right(*path, 4)) +
             "\" file, it needs to be imported first." + std::string(NewLine2) +
             "Click the \"Open\" button to import this file...");
        return;
    }
    const forms::BusyGuard busy(module_.Screen());  // the stage ends it when the picture stands
    module_.DoEvents();
    if (!Unloaded()) others_.PreviewOnStage(*path);
}

void frmDuplicateFiles::CmdShowPath_Click() {
    const auto path = Selected("Select a file first, if you need to see more information...");
    if (!path) return;
    System& system = module_.platform.system;
    std::string date = "Unknown";
    std::string size = date;
    SkipFailure([&] {
        const FileInfo info = module_.platform.files.Info(*path);
        size = GroupedNumber(info.length, system.Numbers()) + " bytes";
        date = system.ShortDateTime(info.modified);
    });
    const std::string blank(NewLine2);
    Tell("Complete path to selected image file:" + blank + *path + blank + "File date and time = " + date +
         std::string(NewLine) + "File size = " + size);
}

void frmDuplicateFiles::CmdDelete_Click() {
    if (module_.Busy()) return;
    const auto path = Selected("Select a file to delete and then try again...");
    if (!path || IsOpen(view_, *path)) return;
    const int row = ListFiles.ListIndex;
    try {
        RequireExactly(module_, *path);
        DeleteToBin(module_, *path, true);
    } catch (const RuntimeError& error) {
        Tell(FailureText("Unable to delete the selected file.", error), forms::BoxIcon::Exclamation);
        return;
    }
    RemoveRecentFile(module_, *path);
    // The row goes in any case, as in the other window that finds files.
    ListFiles.RemoveItem(row);
    if (ListFiles.ListCount() > 0) {
        ListFiles.ListIndex = std::min(row, ListFiles.ListCount() - 1);
    } else {
        ListFiles.ToolTip = "";
    }
    ShowStart();
}

}  // namespace tavrix
