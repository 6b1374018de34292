#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "core/ShowFolder.h"
#include "shows/files/ShowFileWriter.h"

namespace tavrix {

/// A file that a show refers to, and how a save stores it.
struct StoredFile {
    enum class Form : std::uint8_t {
        AsItIs,
        Relative,  ///< it lies in the show's folder or below
        Copied,    ///< it is copied there, under the stored name
    };
    std::string path;    ///< as the show has it
    std::string source;  ///< where it is copied from
    std::string stored;
    /// How the show has to name it in the folder that is saved to, where it is not stored: a path that was seen from
    /// another folder is full.
    std::string kept;
    Form form = Form::AsItIs;
};

struct StoredSlide {
    StoredFile file;
    std::string description;
};

/// What a save writes. It has to be known before the first of it is written, for the sake of the encoding, and before the
/// target is touched.
struct SavePlan {
    ShowOptions options;  ///< with the sound as it is stored
    StoredFile sound;
    std::vector<StoredSlide> slides;
    bool copies = false;  ///< the files go into the show's folder
};

/// The shared show as it is now: what a save writes, whatever happens while messages run. How it is stored is left open.
[[nodiscard]] SavePlan TakeShow(const MainModule& module);

/// Plans how a show is stored as `name` in `folder`, which looks at its files: `goOn` is asked often. False when it was
/// given up; of the plan no more than the paths means something then. `former` is the folder that paths without a drive
/// have been seen from so far; where there is none they are seen from the current folder.
///
/// Of different files that would be copied to one name only the first gets it, and none gets that of a file that the show
/// has in the folder already; the others get a number.
bool PlanFiles(SavePlan& plan, const MainModule& module, const ShowFolder& folder, const std::string& name,
               const ShowFolder& former, const GoOn& goOn);

/// For the texts of all that a save writes.
[[nodiscard]] ShowFileEncoding EncodingOf(const SavePlan& plan);

}  // namespace tavrix
