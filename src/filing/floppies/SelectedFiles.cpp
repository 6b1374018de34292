#include "filing/floppies/SelectedFiles.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/ImageKinds.h"
#include "core/RecentLists.h"
#include "platform/forms/Application.h"

namespace tavrix {
namespace {

/// A pattern that no name matches.
constexpr const char* NoName = ":";

}  // namespace

SelectedFiles::SelectedFiles(forms::Container& container, MainModule& module,
                             std::function<std::string()> folder)
    : module_(module),
      lblFiles(container, "lblFiles"),
      File1(container, "File1", module.platform.files, PatternOf(ImagesShown::All)),
      CmdAll(container, "CmdAll"),
      CmdNone(container, "CmdNone"),
      CmdInverse(container, "CmdInverse"),
      folder_(std::move(folder)) {
    lblFiles.Caption = "Select File(s):";
    lblFiles.SetBuddy(File1);
    File1.MultiSelect = forms::MultiSelect::Extended;
    File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
    CmdAll.Caption = "Select &All";
    CmdAll.ToolTip = "Select all files in list.";
    CmdAll.OnClick = [this] { CmdAll_Click(); };
    CmdNone.Caption = "Select &None";
    CmdNone.ToolTip = "Don't select any files.";
    CmdNone.OnClick = [this] { File1.SelectNone(); };
    CmdInverse.Caption = "&Inverse";
    CmdInverse.ToolTip = "Inverse selections.";
    CmdInverse.OnClick = [this] { File1.InvertSelection(); };
}

forms::Layout SelectedFiles::List() {
    constexpr float listWidth = 3300;
    constexpr float listHeight = 3300;
    return forms::Growing(
        forms::Column({lblFiles, forms::Growing(forms::AtLeast(listWidth, listHeight, File1))}));
}

void SelectedFiles::ReadFrom(const std::string& root) {
    try {
        if (EqualIgnoringCase(File1.Path.Get(), root)) {
            static_cast<void>(module_.platform.files.Info(root));
            File1.Refresh();
        } else {
            File1.Path = root;
        }
    } catch (const RuntimeError&) {
        // A list that could not come here yet is in another folder, of which nothing is to be seen.
        File1.Pattern = NoName;
        throw;
    }
    File1.Pattern = PatternOf(ImagesShown::All);
    // The names are those of the disk that is in the drive now.
    static_cast<void>(File1.ListCount());
}

std::vector<std::string> SelectedFiles::Names() const {
    std::vector<std::string> names;
    for (int row = 0; row < File1.ListCount(); ++row) {
        if (File1.Selected(row)) names.push_back(File1.List(row));
    }
    return names;
}

void SelectedFiles::CmdAll_Click() {
    if (File1.ListCount() == 0) {
        module_.app.MessageBox({.text = "There are no files in the source directory to select..."});
        return;
    }
    File1.SelectAll();
}

void SelectedFiles::File1_KeyUp(int keyCode) {
    constexpr int DeleteKey = 46;
    if (keyCode == DeleteKey && !module_.Busy()) DeleteCurrent();
}

void SelectedFiles::DeleteCurrent() {
    const std::string name = File1.FileName();
    if (name.empty()) {
        module_.app.MessageBox(
            {.text = "Unable to delete file by pressing the delete key, nothing is selected in "
                     "the file list..."});
        return;
    }
    const std::string path = folder_() + name;
    if (IsImageOnShow(module_, path)) {
        module_.app.MessageBox({.text = "Unable to delete this file, image is currently open..."});
        return;
    }
    try {
        RequireExactly(module_, path);
        if (DeleteToBin(module_, path, true) == Deletion::Declined) return;
    } catch (const RuntimeError& error) {
        module_.app.MessageBox({.text = FailureText("Unable to delete the selected file.", error),
                                .icon = forms::BoxIcon::Exclamation});
        return;
    }
    RemoveRecentFile(module_, path);
    File1.Refresh();
    if (File1.ListCount() > 0) File1.ListIndex = 0;
}

bool IsImageOnShow(const MainModule& module, const std::string& path) {
    const std::string& current = module.CurrentImage;
    if (current.empty()) return false;
    Files& files = module.platform.files;
    if (path == current || files.Same(path, current)) return true;
    return EqualIgnoringCase(path, current) && !(files.HasExactly(path) && files.HasExactly(current));
}

}  // namespace tavrix
