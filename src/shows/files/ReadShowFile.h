#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "core/SlideShow.h"
#include "platform/services/Files.h"

namespace tavrix {

enum class ShowFileEnd : std::uint8_t {
    Complete,
    NotOpened,
    NoShow,        ///< its first line is not that of a show
    OtherRelease,  ///< a show of a version that is not known
    HeaderFailed,  ///< the options end too early, or cannot be read
    SlidesFailed,  ///< the slides do
};

/// What reading a show's file came to.
struct ShowFileReading {
    ShowFileEnd end = ShowFileEnd::Complete;
    bool older = false;    ///< in the format that is read and never written; told from the options on
    bool tooLong = false;  ///< more slides may follow those that there is room for
    bool cut = false;      ///< they do, or that could not be found out
    bool hidden = false;   ///< something stands behind an empty path, where the list of slides ends
    std::string version;   ///< the version line of OtherRelease
    std::optional<RuntimeError> why;  ///< set for NotOpened, HeaderFailed and SlidesFailed

    /// Whether the record has all that the file has.
    [[nodiscard]] bool ToTheEnd() const { return end == ShowFileEnd::Complete && !cut; }
    /// Whether its list of slides has.
    [[nodiscard]] bool Whole() const { return ToTheEnd() && !hidden; }
};

/// Reads a show's file without a word to the user. The options of the record are replaced as far as the file has them; its
/// slides go when all options have been read, and what came before a failure stays.
[[nodiscard]] ShowFileReading ReadShowFile(Files& files, const std::string& path, ShowRecord& record);

}  // namespace tavrix
