#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// How much of a show a save has written.
enum class SaveEnd : std::uint8_t {
    Whole,     ///< all of it; only a sound may be missing beside it, which was told
    Partial,   ///< a failure ended it; the file may be the former one, or hold the slides before the failure
    Canceled,  ///< the user did
};

/// Writes the first SlideCount slides and the options as the file `folder` + `name`; the folder ends in a backslash. With
/// SaveSlides on, the sound and the pictures are copied into that folder, over whatever has their names there, and nowhere
/// else: a path gives nothing but its last component as a name.
///
/// What is written stands when the save begins, whatever happens while messages run. WaitCopyFrm is open meanwhile.
/// Failures and a cancel are told here. After a failure, too, the file counts as saved; only a cancel leaves ShowChanged,
/// LastSlideShow, the recent shows and SoundFile.
///
/// While SaveFromArrays is off and an editor is loaded, the slides that were written take the form in which they are stored,
/// and the editor shows the new path; not after a cancel.
SaveEnd WriteSlideFile(MainModule& module, const std::string& folder, const std::string& name);

}  // namespace tavrix
