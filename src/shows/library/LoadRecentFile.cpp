#include "shows/library/LoadRecentFile.h"

#include <algorithm>
#include <string>

#include "core/FloppyPrompt.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "shows/library/DeleteShow.h"

namespace tavrix {

LoadRecentFile::LoadRecentFile(forms::Application& application, MainModule& module, ShowTarget& target,
                               LoadEnd& end)
    : Form(application, {.name = "LoadRecentFile"}), module_(module), target_(target), end_(end) {
    Caption = "Load Slide Show - [Recent Files]";
    HelpContext = HelpContext::LoadShow;
    lblRecent.Caption = "&Recent slide shows:";
    lblRecent.SetBuddy(ListRecent);
    ListRecent.OnDblClick = [this] { CmdOK_Click(); };
    ListRecent.OnKeyDown = [this](int& keyCode, int) { ListRecent_KeyDown(keyCode); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Load the selected slide show.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't load a slide show.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdBrowse.Caption = "&Browse...";
    CmdBrowse.ToolTip = "Look for a slide show in the folders.";
    CmdBrowse.OnClick = [this] { CmdBrowse_Click(); };
    using namespace forms;
    constexpr float listWidth = 6000;
    constexpr float listHeight = 3600;
    SetLayout(Row({Growing(Column({lblRecent, Growing(AtLeast(listWidth, listHeight, ListRecent))})),
                   Column({CmdOK, CmdCancel, CmdBrowse, Stretch()})}));
}

void LoadRecentFile::Form_Load() {
    end_ = LoadEnd::GaveUp;
    for (const std::string& path : module_.config.RecentShows) {
        if (!path.empty()) ListRecent.AddItem(path);
    }
    if (ListRecent.ListCount() > 0) ListRecent.ListIndex = 0;
    ListRecent.SetFocus();
}

std::string LoadRecentFile::SelectedPath() const {
    return ListRecent.ListIndex < 0 ? "" : ListRecent.List(ListRecent.ListIndex);
}

void LoadRecentFile::CmdBrowse_Click() {
    if (module_.Busy()) return;
    end_ = LoadEnd::Other;
    App().Unload(*this);
}

void LoadRecentFile::CmdOK_Click() {
    if (module_.Busy()) return;
    if (ListRecent.ListCount() == 0) {
        App().MessageBox({.text = "There are no slide shows in the recent files list to load..."});
        return;
    }
    const std::string path = SelectedPath();
    if (path.empty()) {
        App().MessageBox({.text = "Select a slide show file to load first..."});
        return;
    }
    if (IsOnFloppy(path) && !AsksForDisk(module_, path, RecentShowOnFloppy)) return;
    DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    end_ = LoadEnd::Loaded;
    target_.Load(path);
    work.Release();
    App().Unload(*this);
}

void LoadRecentFile::ListRecent_KeyDown(int keyCode) {
    if (keyCode != forms::KeyCode::Delete || module_.Busy()) return;
    const int row = ListRecent.ListIndex;
    if (!DeleteShowByKey(module_, SelectedPath())) return;
    ListRecent.RemoveItem(row);
    const int last = ListRecent.ListCount() - 1;
    if (last >= 0) ListRecent.ListIndex = std::min(row, last);
}

}  // namespace tavrix
