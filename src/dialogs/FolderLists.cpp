#include "dialogs/FolderLists.h"

#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"

namespace tavrix {

FolderLists::FolderLists(const MainModule& module, forms::DriveListBox& drives, forms::DirListBox& folders,
                         forms::FileListBox* files, BadDrive badDrive)
    : module_(module), drives_(drives), folders_(folders), files_(files), badDrive_(badDrive) {
    drives_.OnChange = [this] { Drive1_Change(); };
    folders_.OnChange = [this] { Dir1_Change(); };
    folders_.OnOpenFailure = [this](const std::string& path, const RuntimeError& error) {
        TellOpenFailure(path, error);
    };
}

void FolderLists::GoTo(const std::string& folder) {
    // What is chosen in the lists is told from look-alikes by its spelling.
    const std::string spelled = module_.platform.files.ShortPath(folder);
    drives_.Drive = Left(folder, 2);
    folders_.Path = spelled.empty() ? folder : spelled;
}

std::string FolderLists::Folder() const {
    return WithBackslash(folders_.Path.Get());
}

void FolderLists::Drive1_Change() {
    std::optional<forms::BusyGuard> busy;
    if (badDrive_ == BadDrive::Program && !module_.Busy()) busy.emplace(module_.Screen());
    try {
        folders_.Path = drives_.Drive;
    } catch (const RuntimeError&) {
        busy.reset();
        TellBadDrive();
    }
}

void FolderLists::TellBadDrive() {
    forms::BoxRequest box{.text = "The selected drive is currently not available..."};
    if (badDrive_ == BadDrive::Program) box.icon = forms::BoxIcon::Exclamation;
    module_.app.MessageBox(box);
    SkipFailure([this] {
        if (badDrive_ == BadDrive::Program) {
            GoTo(module_.AppPath);
        } else {
            drives_.Drive = Left(folders_.Path.Get(), 2);
        }
    });
}

void FolderLists::Dir1_Change() {
    // A folder that goes in this moment leaves the file list where it was; the next change of folder mends that.
    if (files_ != nullptr) SkipFailure([this] { files_->Path = folders_.Path; });
    if (OnFolderChange) OnFolderChange();
}

void FolderLists::TellOpenFailure(const std::string& path, const RuntimeError& error) {
    TellFailure(module_, "Unable to change directory to:", path, error);
    folders_.Refresh();
}

}  // namespace tavrix
