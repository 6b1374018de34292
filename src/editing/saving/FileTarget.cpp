#include "editing/saving/FileTarget.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/Folders.h"
#include "dialogs/DialogWork.h"
#include "dialogs/FileNameField.h"
#include "dialogs/NewFolder.h"
#include "editing/frame/WorkingFile.h"
#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

FileTarget::FileTarget(forms::Form& form, MainViewFrm& view, const FileTargetWords& words)
    : form_(form),
      view_(view),
      module_(view.Module()),
      words_(words),
      Looked(form, module_.platform.files),
      lblCurMsg(form, "lblCurMsg"),
      lblCurrent(form, "lblCurrent"),
      lblFilename(form, "lblFilename"),
      txtFilename(form, "txtFilename"),
      lblDrives(form, "lblDrives"),
      Drive1(form, "Drive1", module_.platform.files, module_.platform.drives),
      lblFolders(form, "lblFolders"),
      Dir1(form, "Dir1", Looked),
      CmdFF(form, "CmdFF"),
      CmdNew(form, "CmdNew"),
      Lists(module_, Looked, Drive1, Dir1, nullptr),
      FavoriteButton(form, module_, CmdFF, Lists, [&module = module_] { return QuickFoldersOf(module); }) {
    lblCurMsg.Caption = "Current filename:";
    lblCurMsg.OnClick = [this] { lblCurrent_Click(); };
    lblCurrent.Literal = true;
    lblCurrent.ToolTip = "Shows path of the image currently being displayed.";
    lblCurrent.OnClick = [this] { lblCurrent_Click(); };
    lblFilename.Caption = words_.nameLabel;
    lblFilename.SetBuddy(txtFilename);
    txtFilename.ToolTip = "Enter a filename.";
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    CmdNew.Caption = "&New Folder";
    CmdNew.ToolTip = "Create a new folder in the selected directory.";
    CmdNew.OnClick = [this] { CmdNewFolder_Click(module_, Lists); };
}

forms::Layout FileTarget::Arrangement() {
    using namespace forms;
    constexpr float listWidth = 4200;
    constexpr float listHeight = 3000;
    return Growing(Column(
        {Row({lblCurMsg, Growing(AtLeast(listWidth, 0, lblCurrent))}), lblFilename, txtFilename,
         Growing(Row(
             {Growing(Column({lblDrives, Drive1, lblFolders, Growing(AtLeast(listWidth, listHeight, Dir1))})),
              Column({CmdFF, CmdNew, Stretch()})}))}));
}

void FileTarget::Start(const std::string& fileName) {
    const std::string& current = module_.CurrentImage;
    lblCurrent.Caption = current;
    txtFilename.Text = fileName;
    txtFilename.SelectAll();
    txtFilename.SetFocus();
    if (current.empty() || current == GetTempFolder(module_) + WorkingFile) return;
    SkipFailure([&] { Lists.GoTo(FolderOf(current)); });
}

std::string FileTarget::FullName() const {
    return Lists.Folder() + txtFilename.Text.Get();
}

void FileTarget::lblCurrent_Click() {
    Tell("Complete path to current image file:" + std::string(NewLine2) + module_.CurrentImage);
}

bool FileTarget::NameIsUsable() {
    if (Trim(txtFilename.Text.Get()).empty()) {
        Tell(words_.noName);
        txtFilename.SetFocus();
        return false;
    }
    return HoldsBareFileName(module_, txtFilename);
}

bool FileTarget::UserAgrees() {
    const std::string path = FullName();
    const bool exists = module_.platform.files.FileExists(path);
    const std::string text = (exists ? "The following filename already exists:" : words_.newFile) +
                             std::string(NewLine2) + path + std::string(NewLine2) +
                             (exists ? "Replace this file?" : "Is this filename OK?");
    return form_.App().MessageBox(
               {.text = text, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo}) ==
           forms::Answer::Yes;
}

void FileTarget::Save(const std::function<void(const std::string& path)>& write, AfterFailure afterFailure) {
    const std::string path = FullName();  // whatever the user enters while messages run
    DialogWork work(form_, module_);
    if (!work) return;
    std::optional<RuntimeError> failure;
    try {
        write(path);
    } catch (const RuntimeError& error) {
        failure = error;
    }
    if (failure) {
        work.Release();
        form_.App().MessageBox(
            {.text = FailureText(words_.failure, path, *failure), .icon = forms::BoxIcon::Stop});
        if (afterFailure == AfterFailure::AskAgain && !form_.Unloaded()) {
            txtFilename.SetFocus();
            form_.ShowModal();
            return;
        }
    } else {
        view_.imageOnShow.Saved(path);
        work.Release();
    }
    form_.App().Unload(form_);
}

void FileTarget::Tell(const std::string& text) {
    form_.App().MessageBox({.text = text});
}

}  // namespace tavrix
