#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The words in which a reader of shows tells what happened.
struct ReadShowWords {
    std::string kind;         ///< what the file is called
    std::string openFailed;   ///< the first paragraph for a file that cannot be opened
    std::string dataFailed;   ///< the first paragraph for slides that cannot be read
    std::string notValid;     ///< the second one, where the system has no words for it
    std::string whenIsSaved;  ///< how the last paragraph of the upgrade note begins
};

enum class ReadShowEnd : std::uint8_t {
    Complete,  ///< all of it is in the shared record
    Refused,   ///< it is no show, or one of another release; the record is as it was
    Failed,    ///< a part of it is in the record
};

struct ReadShowResult {
    ReadShowEnd end = ReadShowEnd::Complete;
    bool upgradeNoteShown = false;
};

/// Reads a show's file into the shared record and tells the user what went wrong. The former slides go when the options
/// have been read. `forget` is called for a file that is not to be listed any more.
[[nodiscard]] ReadShowResult ReadShow(MainModule& module, const std::string& path, const ReadShowWords& words,
                                      const std::function<void()>& forget);

}  // namespace tavrix
