#include "shows/library/SaveSlideFile.h"

#include <cstdint>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "dialogs/FileNameField.h"
#include "dialogs/NewFolder.h"

namespace tavrix {

SaveSlideFile::SaveSlideFile(forms::Application& application, MainModule& module, const std::string& current,
                             std::optional<SaveEnd>& end)
    : Form(application, {.name = "SaveSlideFile"}), module_(module), current_(current), end_(end) {
    Caption = "Save - Tavrix Slide Show  (.tvs)";
    HelpContext = HelpContext::SaveShow;
    lblName.Caption = "File na&me:";
    lblName.SetBuddy(txtFilename);
    txtFilename.ToolTip = "Enter a filename.";
    Chooser.File1.OnClick = [this] { File1_Click(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Save the slide show.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't save the slide show.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdNew.Caption = "&New Folder";
    CmdNew.ToolTip = "Create a new folder in the selected directory.";
    CmdNew.OnClick = [this] {
        CmdNewFolder_Click(module_, Chooser.Lists, {.title = ProductName, .name = "New Folder"});
    };
    using namespace forms;
    SetLayout(
        Column({lblName, txtFilename, Growing(Chooser.Arrangement(Column({CmdOK, CmdCancel, CmdNew})))}));
}

void SaveSlideFile::Form_Load() {
    end_.reset();
    const std::string folder = FolderOf(current_);
    const bool there = !folder.empty() && module_.platform.files.FolderExists(folder);
    SkipFailure([&] { Chooser.Lists.GoTo(there ? folder : ShowsFolder(module_)); });
    txtFilename.Text = FileNameOf(current_);
    txtFilename.SelectAll();
}

void SaveSlideFile::File1_Click() {
    txtFilename.Text = Chooser.File1.FileName();
}

void SaveSlideFile::CmdOK_Click() {
    if (module_.Busy() || Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    DialogWork work(*this, module_, DialogWork::Dialog::Stays);
    if (!work) return;
    const std::string folder = Chooser.Lists.Folder();
    std::string name = Trim(txtFilename.Text.Get());
    if (name.empty()) {
        App().MessageBox({.text = "You forgot to enter a filename..."});
        txtFilename.SetFocus();
        return;
    }
    if (!HoldsBareFileName(module_, txtFilename)) return;
    if (!EndsInIgnoringCase(name, ".TVS")) name += ".tvs";
    if (!UserAgrees(folder + name) || Unloaded()) return;
    SlideShow& show = module_.show;
    if (module_.config.SaveSlides && !UserSays("Save a copy of all images in the slide show directory?")) {
        module_.config.SaveSlides = false;
    }
    if (Unloaded()) return;
    Hide();
    module_.DoEvents();
    show.SlideCount = static_cast<std::int16_t>(show.Count());
    end_ = WriteSlideFile(module_, folder, name);
    module_.DoEvents();
    work.Release();
    App().Unload(*this);
}

bool SaveSlideFile::UserAgrees(const std::string& path) const {
    const std::string paragraph(NewLine2);
    const bool exists = module_.platform.files.FileExists(path);
    return UserSays((exists ? "The following filename already exists:" : "About to save the slide show as:") +
                    paragraph + path + paragraph + (exists ? "Replace this file?" : "Is this filename OK?"));
}

bool SaveSlideFile::UserSays(const std::string& question) const {
    return App().MessageBox(
               {.text = question, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo}) ==
           forms::Answer::Yes;
}

std::optional<SaveEnd> SaveShowAs(MainModule& module, const std::string& current) {
    std::optional<SaveEnd> end;
    forms::BusyGuard busy(module.Screen());
    auto& dialog = module.app.Load<SaveSlideFile>(module, current, end);
    busy.Release();
    dialog.ShowModal();
    return end;
}

}  // namespace tavrix
