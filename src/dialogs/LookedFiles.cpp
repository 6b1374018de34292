#include "dialogs/LookedFiles.h"

#include <algorithm>
#include <utility>

#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

constexpr int Interval = 20;

/// What is told once; nothing where it has not come.
std::vector<std::string> Taken(std::optional<std::vector<std::string>>& names) {
    return std::exchange(names, std::nullopt).value_or(std::vector<std::string>());
}

}  // namespace

LookedFiles::LookedFiles(forms::Form& form, Files& files, std::string patterns)
    : ForwardingFiles(files), TimerLook(form), patterns_(std::move(patterns)) {
    TimerLook.Enabled = false;
    TimerLook.Interval = Interval;
    TimerLook.OnTimer = [this] { TimerLook_Timer(); };
}

std::vector<std::string> LookedFiles::List(const std::string& folder, const std::string& patterns) {
    if (patterns != patterns_) {
        patterns_ = patterns;
        folder_.clear();
    }
    if (folder != folder_ || (!look_ && !files_)) Begin(folder);
    return Taken(files_);
}

std::vector<std::string> LookedFiles::Folders(const std::string& folder) {
    if (folder == folder_ && failure_) throw *std::exchange(failure_, std::nullopt);
    if (folder != folder_ || (!look_ && !folders_)) Begin(folder);
    return Taken(folders_);
}

void LookedFiles::Begin(const std::string& folder) {
    std::unique_ptr<FolderLook> look = Look(folder, patterns_);
    if (look->Wait(Moment)) {
        Keep(*look);
        look_.reset();
    } else {
        look_ = std::move(look);
        files_.reset();
        folders_.reset();
    }
    folder_ = folder;
    failure_.reset();
    TimerLook.Enabled = Pending();
    TellPending();
}

void LookedFiles::Keep(FolderLook& look) {
    FolderContent content = look.Take();
    std::vector<std::string> folders = std::move(content.folders);
    const auto counted = static_cast<std::ptrdiff_t>(folders.size());
    std::ranges::move(content.uncounted, std::back_inserter(folders));
    std::inplace_merge(folders.begin(), folders.begin() + counted, folders.end(), ListsBefore);
    folders_ = std::move(folders);
    files_ = std::move(content.files);
}

void LookedFiles::TellPending() {
    if (told_ == Pending()) return;
    told_ = Pending();
    OnPending();
}

void LookedFiles::TimerLook_Timer() {
    if (!look_ || !look_->Wait(0)) return;
    const std::unique_ptr<FolderLook> look = std::move(look_);
    TimerLook.Enabled = false;
    try {
        Keep(*look);
    } catch (const RuntimeError& error) {
        failure_ = error;
    }
    TellPending();
    if (failure_) {
        OnFailure(std::string(folder_), RuntimeError(*failure_));
    } else {
        OnCome();
    }
}

}  // namespace tavrix
