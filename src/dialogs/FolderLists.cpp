#include "dialogs/FolderLists.h"

#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"

namespace tavrix {

FolderLists::FolderLists(const MainModule& module, LookedFiles& looked, forms::DriveListBox& drives,
                         forms::DirListBox& folders, forms::FileListBox* files, BadDrive badDrive)
    : module_(module),
      looked_(looked),
      drives_(drives),
      folders_(folders),
      files_(files),
      badDrive_(badDrive) {
    drives_.OnChange = [this] { Drive1_Change(); };
    folders_.OnChange = [this] { Dir1_Change(); };
    folders_.OnOpenFailure = [this](const std::string& path, const RuntimeError& error) {
        TellOpenFailure(path, error);
    };
    looked_.OnPending = [this] { ShowPending(); };
    looked_.OnCome = [this] { Come(); };
    looked_.OnFailure = [this](const std::string& folder, const RuntimeError& error) { Fail(folder, error); };
    TakeFiles();
    if (Pending()) {
        ShowPending();
    } else {
        NoteRead();
    }
}

void FolderLists::GoTo(const std::string& folder, Failure late) {
    // What is chosen in the lists is told from look-alikes by its spelling.
    const std::string spelled = module_.platform.files.ShortPath(folder);
    drives_.Drive = Left(folder, 2);
    Show(spelled.empty() ? folder : spelled, std::move(late));
}

void FolderLists::Show(const std::string& folder, Failure late) {
    Assign(folder, {Cause::Kind::Sent, std::move(late)});
}

std::string FolderLists::Folder() const {
    return WithBackslash(folders_.Path.Get());
}

void FolderLists::Assign(const std::string& path, Cause cause) {
    next_ = std::move(cause);
    try {
        folders_.Path = path;
    } catch (...) {
        next_ = {};
        throw;
    }
    next_ = {};
}

void FolderLists::Drive1_Change() {
    std::optional<forms::BusyGuard> busy;
    if (badDrive_ == BadDrive::Program && !module_.Busy()) busy.emplace(module_.Screen());
    try {
        Assign(drives_.Drive, {Cause::Kind::Drive, {}});
    } catch (const RuntimeError&) {
        busy.reset();
        TellBadDrive();
    }
}

void FolderLists::TellBadDrive() {
    Forget();
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
    cause_ = std::exchange(next_, {});
    keepsRows_ = false;
    // A folder that goes in this moment leaves the file list where it was; the next change of folder mends that.
    if (files_ != nullptr) SkipFailure([&] { files_->Path = folders_.Path; });
    TakeFiles();
    if (!Pending()) NoteRead();
    if (OnFolderChange) OnFolderChange();
}

void FolderLists::TellOpenFailure(const std::string& path, const RuntimeError& error) {
    Forget();
    TellFailure(module_, "Unable to change directory to:", path, error);
    Refresh();
}

void FolderLists::Refresh() {
    next_ = {Cause::Kind::Stays, {}};
    folders_.Refresh();
    next_ = {};
}

void FolderLists::RefreshFiles() {
    if (files_->Path.Get() == looked_.Folder()) SkipFailure([this] { looked_.LookAgain(); });
    keepsRows_ = Pending();
    if (!keepsRows_) files_->RefreshKeepingRows();
}

bool FolderLists::Wait() {
    const std::string folder = folders_.Path;
    looked_.Wait();
    return !Pending() && !folders_.OwnerForm().Unloaded() && folders_.Path.Get() == folder;
}

void FolderLists::NoteRead() {
    read_ = folders_.Path;
    cause_ = {Cause::Kind::Stays, {}};
    OnContent();
}

void FolderLists::TakeFiles() {
    // Now, and not when a row is first painted, so that both lists are of one look.
    if (files_ != nullptr && files_->Path.Get() == looked_.Folder()) static_cast<void>(files_->ListCount());
}

void FolderLists::ShowPending() {
    using Pointer = forms::MousePointer;
    folders_.OwnerForm().MousePointer = looked_.AnyPending() ? Pointer::ArrowHourglass : Pointer::Default;
    if (Pending()) OnContent();  // else the content follows
}

void FolderLists::Come() {
    // Where the files alone were to be read again the user may have gone on in the folder list.
    const bool filesAlone = keepsRows_ && folders_.Path.Get() == read_;
    if (!filesAlone && folders_.Path.Get() == looked_.Folder()) folders_.Refresh();
    if (files_ != nullptr && files_->Path.Get() == looked_.Folder()) {
        if (std::exchange(keepsRows_, false)) {
            files_->RefreshKeepingRows();
        } else {
            files_->Refresh();
            TakeFiles();
        }
    }
    if (!Pending()) NoteRead();
}

void FolderLists::Fail(const std::string& folder, const RuntimeError& error) {
    const Cause cause = std::exchange(cause_, {Cause::Kind::Stays, {}});
    if (cause.kind == Cause::Kind::Stays) {
        Refresh();
    } else {
        Return();
        TellLate(cause, folder, error);
    }
    OnContent();
}

void FolderLists::Return() {
    try {
        if (!read_.empty()) {
            Assign(read_, {Cause::Kind::Stays, {}});
            return;
        }
    } catch (const RuntimeError&) {  // then above the one that failed
    }
    Refresh();
}

void FolderLists::TellLate(const Cause& cause, const std::string& folder, const RuntimeError& error) {
    if (cause.kind == Cause::Kind::Drive) {
        TellBadDrive();
        return;
    }
    SkipFailure([this] { drives_.Drive = Left(folders_.Path.Get(), 2); });
    if (cause.kind == Cause::Kind::Opened) {
        TellOpenFailure(folder, error);
    } else if (cause.late) {
        cause.late(error);
    }
}

}  // namespace tavrix
