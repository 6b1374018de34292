#include "shows/library/LoadSlideFile.h"

#include <algorithm>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "shows/library/DeleteShow.h"

namespace tavrix {

LoadSlideFile::LoadSlideFile(forms::Application& application, MainModule& module, ShowTarget& target,
                             LoadEnd& end)
    : Form(application, {.name = "LoadSlideFile"}), module_(module), target_(target), end_(end) {
    Caption = "Load - Tavrix Slide Show  (.tvs)";
    HelpContext = HelpContext::LoadShow;
    Chooser.File1.OnDblClick = [this] { CmdOK_Click(); };
    Chooser.File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
    Chooser.Lists.OnFolderChange = [this] { Dir1_Change(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Load the selected slide show.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't load a slide show.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdRecent.Caption = "&Recent...";
    CmdRecent.ToolTip = "Choose from the slide shows that were used last.";
    CmdRecent.OnClick = [this] { CmdRecent_Click(); };
    SetLayout(Chooser.Arrangement(forms::Column({CmdOK, CmdCancel, CmdRecent})));
}

void LoadSlideFile::Form_Load() {
    end_ = LoadEnd::GaveUp;
    const std::string& last = module_.config.LastSlideShow;
    const bool there = !last.empty() && module_.platform.files.FileExists(last);
    SkipFailure([&] { Chooser.Lists.GoTo(there ? FolderOf(last) : ShowsFolder(module_)); });
    Dir1_Change();
    Chooser.Lists.WhenRead([this, name = there ? FileNameOf(last) : std::string()] {
        const int row = name.empty() ? -1 : Chooser.File1.IndexOf(name);
        if (row >= 0) Chooser.File1.ListIndex = row;
    });
}

void LoadSlideFile::Dir1_Change() {
    Chooser.Lists.WhenRead([this] {
        if (Chooser.File1.ListCount() > 0) Chooser.File1.ListIndex = 0;
    });
}

void LoadSlideFile::CmdRecent_Click() {
    if (module_.Busy()) return;
    end_ = LoadEnd::Other;
    App().Unload(*this);
}

void LoadSlideFile::CmdOK_Click() {
    if (module_.Busy() || Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    const std::optional<std::string> path =
        Chooser.Selected("There are no slide show files in the selected directory to load...",
                         "Select a slide show file to load first...");
    if (!path) return;
    DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    end_ = LoadEnd::Loaded;
    target_.Load(*path);
    work.Release();
    App().Unload(*this);
}

void LoadSlideFile::File1_KeyUp(int keyCode) {
    if (keyCode != forms::KeyCode::Delete || module_.Busy()) return;
    const int row = Chooser.File1.ListIndex;
    const std::string path = row < 0 ? "" : Chooser.Lists.Folder() + Chooser.File1.FileName();
    if (!DeleteShowByKey(module_, path)) return;
    Chooser.File1.Refresh();
    static_cast<void>(Chooser.File1.ListCount());
    Chooser.Lists.WhenRead([this, row] {
        const int last = Chooser.File1.ListCount() - 1;
        if (last >= 0) Chooser.File1.ListIndex = std::min(row, last);
    });
}

}  // namespace tavrix
