#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/forms/Timer.h"
#include "platform/services/ForwardingFiles.h"

namespace tavrix {

/// The files for the folder and file list of a dialog that waits for no disk: a folder that does not come within a moment
/// has nothing in it until it has come. There is one such folder at a time, the one asked for last.
class LookedFiles final : public ForwardingFiles {
  public:
    static constexpr int Moment = 30;  ///< milliseconds

    /// To be a member of the form, before the lists. `patterns` are those of the file list.
    LookedFiles(forms::Form& form, Files& files, std::string patterns);

    forms::Timer TimerLook;

    std::vector<std::string> List(const std::string& folder, const std::string& patterns) override;
    std::vector<std::string> Folders(const std::string& folder) override;

    /// Whether a folder has yet to come.
    [[nodiscard]] bool Pending() const { return look_ != nullptr; }
    /// This has changed.
    std::function<void()> OnPending = [] {};
    /// The folder has come; lists that are refreshed show it.
    std::function<void()> OnCome = [] {};
    /// It cannot be read. A folder list that is refreshed goes to one above it.
    std::function<void(const std::string& folder, const RuntimeError& error)> OnFailure =
        [](const std::string&, const RuntimeError&) {};

  private:
    void TimerLook_Timer();
    /// Looks into a folder. Throws what Files::List throws where that is known within the moment; then nothing changes.
    void Begin(const std::string& folder);
    void Keep(FolderLook& look);
    void TellPending();

    std::string patterns_;
    std::string folder_;                               ///< that was looked into last
    std::unique_ptr<FolderLook> look_;                 ///< null: it has come
    std::optional<RuntimeError> failure_;              ///< it came too late to be thrown
    std::optional<std::vector<std::string>> files_;    ///< until they are asked for
    std::optional<std::vector<std::string>> folders_;  ///< the same
    bool told_ = false;
};

}  // namespace tavrix
