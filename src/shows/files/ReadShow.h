#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "core/MainModule.h"
#include "shows/files/ReadShowFile.h"

namespace tavrix {

/// The words in which a reader of shows tells what happened.
struct ReadShowWords {
    std::string kind;         ///< what the file is called
    std::string openFailed;   ///< the first paragraph for a file that cannot be opened
    std::string dataFailed;   ///< the first paragraph for slides that cannot be read
    std::string notValid;     ///< the second one, where the system has no words for it
    std::string whenIsSaved;  ///< how the last paragraph of the upgrade note begins
};

struct ReadShowResult {
    ShowFileEnd end = ShowFileEnd::Complete;
    bool upgradeNoteShown = false;
    bool toTheEnd = false;            ///< the record has all that the file has
    bool whole = false;               ///< and its list of slides too
    std::optional<RuntimeError> why;  ///< what reading failed with, where the system told it

    /// It is no show, or one of another release, and the record is as it was.
    [[nodiscard]] bool Refused() const {
        return end == ShowFileEnd::NoShow || end == ShowFileEnd::OtherRelease;
    }
};

/// Reads a show's file into a record, as ReadShowFile does, and tells the user what went wrong. `forget` is called for a
/// file that is not to be listed any more.
[[nodiscard]] ReadShowResult ReadShow(const MainModule& module, const std::string& path,
                                      const ReadShowWords& words, ShowRecord& record,
                                      const std::function<void()>& forget);

}  // namespace tavrix
