#include "dialogs/FindFiles.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/HelpCommands.h"
#include "core/NumberText.h"
#include "dialogs/EntryField.h"
#include "dialogs/FindWalk.h"
#include "platform/forms/Application.h"

namespace tavrix {

FindFiles::FindFiles(forms::Form& form, const MainModule& module, FindWords words, unsigned helpContext)
    : form_(form),
      module_(module),
      words_(std::move(words)),
      lblDrives(form, "lblDrives"),
      Drive1(form, "Drive1", module.platform.files, module.platform.drives),
      lblSearch(form, "lblSearch"),
      txtSearch(form, "txtSearch"),
      lblFound(form, "lblFound"),
      ListFiles(form, "ListFiles"),
      PicFound(form, "PicFound"),
      CmdFind(form, "CmdFind"),
      CmdOpen(form, "CmdOpen"),
      CmdCancel(form, "CmdCancel"),
      CmdHelp(form, "CmdHelp") {
    lblDrives.Caption = "Select drive to search:";
    lblDrives.SetBuddy(Drive1);
    Drive1.ToolTip = "Click to select drive.";
    Drive1.OnChange = [this] { Drive1_Change(); };
    lblSearch.Caption = words_.label;
    lblSearch.SetBuddy(txtSearch);
    txtSearch.ToolTip =
        "Enter * or part of a filename and press the \"Find\" button to search for " + words_.kind + "...";
    txtSearch.OnChange = [this] { txtSearch_Change(); };
    lblFound.Caption = "File(s) Found:";
    lblFound.SetBuddy(ListFiles);
    ListFiles.OnClick = [this] { ListFiles.ToolTip = ListFiles.List(ListFiles.ListIndex); };
    ListFiles.OnDblClick = [this] { OnOpen(); };
    ListFiles.OnKeyDown = [this](int& keyCode, int) { ListFiles_KeyDown(keyCode); };
    PicFound.AccessibleName = "Status";
    PicFound.SeeThrough = false;
    PicFound.BackColor = ButtonFace;
    CmdFind.Caption = "&Find File(s)";
    CmdFind.ToolTip = "Click here to find " + words_.kind + " matching the specified pattern.";
    CmdFind.Default = true;
    CmdFind.OnClick = [this] { CmdFind_Click(); };
    CmdOpen.Caption = "&Open";
    CmdOpen.ToolTip = "Click here to open the selected file.";
    CmdOpen.OnClick = [this] { OnOpen(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't open file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { CmdCancel_Click(); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this, helpContext] { ShowHelpPage(module_, helpContext); };
}

forms::Layout FindFiles::Arrangement() {
    using namespace forms;
    constexpr float width = 7200;
    constexpr float listHeight = 3300;
    constexpr float statusHeight = 330;
    PicFound.Move(0, 0, width, statusHeight);
    return Row({Growing(Column({Row({lblDrives, Drive1, Stretch()}), lblSearch, txtSearch, lblFound,
                                Growing(AtLeast(width, listHeight, ListFiles)), PicFound})),
                Column({CmdFind, CmdOpen, CmdCancel, CmdHelp, Stretch()})});
}

void FindFiles::Form_Load() {
    Files& files = module_.platform.files;
    if (!module_.CurrentImage.empty()) SkipFailure([&] { files.ChangeDrive(Left(module_.CurrentImage, 2)); });
    SkipFailure([&] { Drive1.Drive = Left(files.CurrentFolder(), 2); });
    txtSearch.Text = "*";
    SelectToReplace(txtSearch);
    ShowHint();
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void FindFiles::Form_QueryUnload(bool& cancel) {
    if (!FindRunning) return;
    cancel = true;
    FindCancelled = true;
    module_.DoEvents();
}

void FindFiles::Form_Resize() {
    // As wide as the list, and with room for a line of text whatever the font.
    PicFound.Move(PicFound.Left, PicFound.Top, ListFiles.Width, txtSearch.Height);
}

void FindFiles::Form_Unload() {
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void FindFiles::Tell(const std::string& text, forms::BoxIcon icon) const {
    module_.app.MessageBox({.text = text, .title = words_.title, .icon = icon});
}

std::string FindFiles::Number() const {
    return GroupedNumberOrEmpty(FoundCount, module_.platform.system.Numbers());
}

void FindFiles::ShowStatus(const std::string& text) {
    PicFound.Cls();
    PicFound.Print(text);
}

void FindFiles::ShowHint() {
    ShowStatus("Enter part of a filename and press the \"Find\" button...");
}

void FindFiles::ShowFound() {
    if (FoundCount > 0) ShowStatus("Found: " + Number() + " " + words_.kind + "...");
}

void FindFiles::ShowTotal() {
    ShowStatus("Found a total of: " + Number() + " " + words_.kind + " on " + Drive1.Drive.Get());
}

void FindFiles::Drive1_Change() {
    const forms::BusyGuard busy(module_.Screen());
    try {
        module_.platform.files.ChangeDrive(Drive1.Drive);
    } catch (const RuntimeError&) {
        module_.app.MessageBox({.text = "The selected drive is currently not available...",
                                .icon = forms::BoxIcon::Exclamation});
        SkipFailure([&] { Drive1.Drive = Left(module_.AppPath, 1) + ":\\"; });
    }
    ShowHint();
    SelectToReplace(txtSearch);
}

void FindFiles::txtSearch_Change() {
    if (!preparing_ && !module_.Busy()) ShowHint();
}

void FindFiles::CmdFind_Click() {
    if (module_.Busy() || FindRunning || preparing_) return;
    preparing_ = true;
    ListFiles.Clear();
    ListFiles.ToolTip = "";
    ShowStatus(words_.searching);
    module_.DoEvents();
    const bool ready = !form_.Unloaded() && Prepare();
    if (ready) {
        Search();
    } else {
        ShowHint();
    }
    preparing_ = false;
}

bool FindFiles::Prepare() {
    std::string text = Trim(txtSearch.Text.Get());
    txtSearch.Text = text;
    if (text.empty()) {
        const forms::Answer all =
            module_.app.MessageBox({.text = "Nothing was entered..." + std::string(NewLine2) +
                                            words_.findAll + Drive1.Drive.Get() + "?",
                                    .title = words_.title,
                                    .icon = forms::BoxIcon::Question,
                                    .buttons = forms::BoxButtons::YesNo});
        if (all != forms::Answer::Yes) {
            txtSearch.SetFocus();
            return false;
        }
        txtSearch.Text = "*";
        txtSearch.SelectAll();
    }
    if (!HoldsNo(':', "You may not use a colon (:) in the file pattern to find...")) return false;
    if (!HoldsNo('\\', "You may not use a backslash (\\) in the file pattern to find...")) return false;
    text = txtSearch.Text;
    std::erase_if(text, [](char c) { return c == '*' || c == '?'; });
    txtSearch.Text = text;
    return true;
}

bool FindFiles::HoldsNo(char character, const std::string& refusal) {
    const std::string text = txtSearch.Text;
    const std::size_t at = text.find(character);
    if (at == std::string::npos) return true;
    Tell(refusal);
    txtSearch.SelStart = static_cast<int>(CharacterCount(text.substr(0, at)));
    txtSearch.SelLength = 1;
    txtSearch.SetFocus();
    return false;
}

void FindFiles::Enable(bool enabled) {
    CmdFind.Enabled = enabled;
    CmdOpen.Enabled = enabled;
    ListFiles.Enabled = enabled;
    Drive1.Enabled = enabled;
    txtSearch.Enabled = enabled;
}

void FindFiles::Search() {
    form_.MousePointer = forms::MousePointer::ArrowHourglass;
    module_.DoEvents();
    if (form_.Unloaded()) return;
    // On every way out: a window that thinks it searches cannot be closed.
    const struct Ending {
        FindFiles& find;
        ~Ending() {
            find.Enable(true);
            find.FindRunning = false;
            find.FindCancelled = false;
            find.CmdCancel.Enabled = true;
            find.form_.MousePointer = forms::MousePointer::Default;
        }
    } ending{*this};
    FindRunning = true;
    Enable(false);
    FoundCount = 0;
    FoundPaths.clear();

    const std::string wanted = txtSearch.Text;
    FindWalk walk(module_, words_.patterns, FindCancelled);
    walk.OnFiles = [&](const std::string& folder, const std::vector<std::string>& names, const auto&) {
        for (const std::string& name : names) {
            if (name.find(wanted) == std::string::npos) continue;
            if (FoundPaths.size() < MostListed) FoundPaths.push_back(folder + name);
            ++FoundCount;
        }
    };
    walk.OnBreath = [this] { ShowFound(); };
    walk.Walk(Left(Drive1.Drive.Get(), 2) + "\\");

    ListFiles.SetItems(FoundPaths);
    module_.DoEvents();
    Enable(true);
    if (txtSearch.Text.Get().empty()) txtSearch.Text = "*";
    SelectToReplace(txtSearch);
    TellResult();
}

void FindFiles::TellResult() {
    if (ListFiles.ListCount() == 0) {
        const std::string none = "Unable to find filenames matching the specified file pattern...";
        ShowStatus(none);
        Tell(none);
        return;
    }
    if (FindCancelled) {
        ShowStatus(words_.canceled);
    } else {
        ShowTotal();
    }
    ListFiles.ListIndex = 0;
}

void FindFiles::CmdCancel_Click() {
    CmdCancel.Enabled = false;
    module_.app.Unload(form_);
}

std::optional<std::string> FindFiles::Selected() const {
    if (ListFiles.ListIndex >= 0) return ListFiles.List(ListFiles.ListIndex);
    Tell(ListFiles.ListCount() == 0 ? words_.noFiles : "Select a file to open and then try again...");
    return std::nullopt;
}

void FindFiles::ListFiles_KeyDown(int keyCode) {
    if (keyCode != forms::KeyCode::Delete || FindRunning || module_.Busy()) return;
    if (ListFiles.ListIndex < 0) {
        module_.app.MessageBox({.text = "Unable to delete file by pressing the delete key, nothing is "
                                        "selected in the file list..."});
        return;
    }
    DeleteSelected();
}

void FindFiles::DeleteSelected() {
    const int row = ListFiles.ListIndex;
    const std::string path = ListFiles.List(row);
    if (!MayDelete(path)) return;
    try {
        RequireExactly(module_, path);
        if (DeleteToBin(module_, path, true) == Deletion::Done) OnDeleted(path);
    } catch (const RuntimeError& error) {
        module_.app.MessageBox({.text = FailureText("Unable to delete the selected file.", error),
                                .title = words_.deletion,
                                .icon = forms::BoxIcon::Exclamation});
        return;
    }
    // The row goes in any case: what the user does not want to delete he does not want to see here either.
    ListFiles.RemoveItem(row);
    if (ListFiles.ListCount() > 0) {
        ListFiles.ListIndex = std::min(row, ListFiles.ListCount() - 1);
    } else {
        ListFiles.ToolTip = "";
    }
    --FoundCount;
    ShowTotal();
    module_.DoEvents();
}

}  // namespace tavrix
