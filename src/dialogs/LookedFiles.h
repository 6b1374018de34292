#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/forms/Timer.h"
#include "platform/forms/Toolkit.h"
#include "platform/services/ForwardingFiles.h"

namespace tavrix {

/// The files for the folder and file list of a dialog that waits for no disk: a folder that does not come within a moment
/// has nothing in it until it has come. There is one such folder at a time, the one asked for last.
class LookedFiles final : public ForwardingFiles {
  public:
    static constexpr int Moment = 75;  ///< milliseconds; a local folder of 50,000 files comes within it
    /// A pattern that no name matches, for a folder list without a file list.
    static constexpr const char* NoNames = ":";

    /// To be a member of the form, before the lists. `patterns` are those of the file list. `beside`, which may be null, are
    /// the files of the same form's other lists.
    LookedFiles(forms::Form& form, Files& files, std::string patterns = NoNames,
                LookedFiles* beside = nullptr);

    forms::Timer TimerLook;

    std::vector<std::string> List(const std::string& folder, const std::string& patterns) override;
    std::vector<std::string> Folders(const std::string& folder) override;

    /// The folder that was looked into last.
    [[nodiscard]] const std::string& Folder() const { return folder_; }
    /// Whether it has yet to come.
    [[nodiscard]] bool Pending() const { return look_ != nullptr; }
    /// Whether any folder of the form has yet to come.
    [[nodiscard]] bool AnyPending() const { return Pending() || (beside_ != nullptr && beside_->Pending()); }
    /// Looks into the same folder again, before the lists ask for it. Throws what Files::List throws where that is known
    /// within the moment.
    void LookAgain() { Begin(std::string(folder_)); }
    /// Runs messages until the folder has come or the form is unloaded. For works that hold the hourglass.
    void Wait();

    /// Whether the folder has yet to come; then this is done when it has, unless the user goes to another one or a window,
    /// a box or a menu has opened by then. A form keeps one such wish, the last, whichever of its folders that waits for.
    [[nodiscard]] bool Awaits(std::function<void()> then);
    /// Whether such a wish has yet to be done; what comes by itself, such as a preview, comes after it.
    [[nodiscard]] bool Wishes() const;
    /// The user does something else than wait for what he wished, and no box tells him of it.
    void Forget();
    /// Does this when the folder has come: now where it has. Given up where the lists go to another folder before.
    void WhenRead(std::function<void()> then);

    /// Pending has changed.
    std::function<void()> OnPending = [] {};
    /// The folder has come; lists that are refreshed show it.
    std::function<void()> OnCome = [] {};
    /// It cannot be read. A folder list that is refreshed goes to one above it.
    std::function<void(const std::string& folder, const RuntimeError& error)> OnFailure =
        [](const std::string&, const RuntimeError&) {};

  private:
    /// Does what was wished. That may take long, with boxes and with other folders: a tick never nests in itself, so one
    /// that is at work is left to it.
    struct Follower {
        explicit Follower(forms::Form& form) : TimerFollow(form) {}
        forms::Timer TimerFollow;
        bool works = false;
    };

    void TimerLook_Timer();
    /// Looks into a folder. Throws what Files::List throws where that is known within the moment; then nothing changes.
    void Begin(const std::string& folder);
    void Keep(FolderLook& look);
    /// What a list did not ask for in time may be older than the folder.
    void DropOld();
    void TellPending();
    void Arrive();
    void FollowSoon();
    void Follow(Follower& follower);

    forms::Form& form_;
    std::string patterns_;
    LookedFiles* beside_;
    std::string folder_;                               ///< that was looked into last
    std::unique_ptr<FolderLook> look_;                 ///< null: it has come
    std::optional<RuntimeError> failure_;              ///< it came too late to be thrown
    std::optional<std::vector<std::string>> files_;    ///< until they are asked for, or a moment has passed
    std::optional<std::vector<std::string>> folders_;  ///< the same
    forms::Milliseconds keptSince_{0};                 ///< by the toolkit's clock
    std::deque<std::function<void()>> then_;
    std::function<void()> wish_;
    int opened_ = 0;  ///< Application::Opened when it was wished
    std::vector<std::unique_ptr<Follower>> followers_;
    bool told_ = false;
};

}  // namespace tavrix
