#include "dialogs/LookedFiles.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/forms/Application.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

constexpr int Interval = 20;

/// What is told once; nothing where it has not come.
std::vector<std::string> Taken(std::optional<std::vector<std::string>>& names) {
    return std::exchange(names, std::nullopt).value_or(std::vector<std::string>());
}

}  // namespace

LookedFiles::LookedFiles(forms::Form& form, Files& files, std::string patterns, LookedFiles* beside)
    : ForwardingFiles(files), TimerLook(form), form_(form), patterns_(std::move(patterns)), beside_(beside) {
    if (beside_ != nullptr) beside_->beside_ = this;
    TimerLook.Enabled = false;
    TimerLook.Interval = Interval;
    TimerLook.OnTimer = [this] { TimerLook_Timer(); };
}

std::vector<std::string> LookedFiles::List(const std::string& folder, const std::string& patterns) {
    if (patterns != patterns_) {
        patterns_ = patterns;
        folder_.clear();
    }
    DropOld();
    if (folder != folder_ || (!look_ && !files_)) Begin(folder);
    return Taken(files_);
}

std::vector<std::string> LookedFiles::Folders(const std::string& folder) {
    if (folder == folder_ && failure_) throw *std::exchange(failure_, std::nullopt);
    DropOld();
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
    if (folder_ != folder) {
        then_.clear();
        Forget();
    }
    folder_ = folder;
    failure_.reset();
    TimerLook.Enabled = Pending();
    TellPending();
}

void LookedFiles::DropOld() {
    if (form_.App().GetToolkit().Now() - keptSince_ <= forms::Milliseconds(Moment)) return;
    files_.reset();
    folders_.reset();
}

void LookedFiles::Keep(FolderLook& look) {
    FolderContent content = look.Take();
    std::vector<std::string> folders = std::move(content.folders);
    const auto counted = static_cast<std::ptrdiff_t>(folders.size());
    std::ranges::move(content.uncounted, std::back_inserter(folders));
    std::inplace_merge(folders.begin(), folders.begin() + counted, folders.end(), ListsBefore);
    folders_ = std::move(folders);
    files_ = std::move(content.files);
    keptSince_ = form_.App().GetToolkit().Now();
}

void LookedFiles::TellPending() {
    if (told_ == Pending()) return;
    told_ = Pending();
    OnPending();
}

void LookedFiles::TimerLook_Timer() {
    if (form_.Unloaded()) {
        look_.reset();
        TimerLook.Enabled = false;
    }
    if (look_ && look_->Wait(0)) Arrive();
}

void LookedFiles::Arrive() {
    const std::unique_ptr<FolderLook> look = std::move(look_);
    TimerLook.Enabled = false;
    try {
        Keep(*look);
    } catch (const RuntimeError& error) {
        failure_ = error;
    } catch (const std::bad_alloc&) {
        failure_ = RuntimeError(ErrorNumber::OutOfMemory);
    }
    TellPending();
    if (failure_) {
        then_.clear();
        Forget();
        OnFailure(std::string(folder_), RuntimeError(*failure_));
        return;
    }
    OnCome();
    while (!Pending() && !form_.Unloaded() && !then_.empty()) {
        const auto then = std::move(then_.front());
        then_.pop_front();
        then();
    }
    if (wish_) FollowSoon();
}

void LookedFiles::Wait() {
    while (look_ && !form_.Unloaded()) {
        if (look_->Wait(Interval)) {
            Arrive();
        } else {
            form_.App().DoEvents();
        }
    }
}

bool LookedFiles::Awaits(std::function<void()> then) {
    Forget();
    if (Pending()) wish_ = std::move(then);
    opened_ = form_.App().Opened();
    return Pending();
}

bool LookedFiles::Wishes() const {
    return wish_ && opened_ == form_.App().Opened();
}

void LookedFiles::Forget() {
    wish_ = nullptr;
    if (beside_ != nullptr) beside_->wish_ = nullptr;
}

void LookedFiles::WhenRead(std::function<void()> then) {
    if (Pending()) {
        then_.push_back(std::move(then));
    } else {
        then();
    }
}

void LookedFiles::FollowSoon() {
    auto free = std::ranges::find_if(followers_, [](const auto& follower) { return !follower->works; });
    if (free == followers_.end())
        free = followers_.insert(followers_.end(), std::make_unique<Follower>(form_));
    Follower& follower = **free;
    follower.TimerFollow.OnTimer = [this, &follower] { Follow(follower); };
    follower.TimerFollow.Interval = 1;
    follower.TimerFollow.Enabled = true;
}

void LookedFiles::Follow(Follower& follower) {
    follower.TimerFollow.Enabled = false;
    if (Pending() || form_.Unloaded() || !Wishes()) return;
    const auto wish = std::exchange(wish_, nullptr);
    follower.works = true;
    wish();
    follower.works = false;
}

}  // namespace tavrix
