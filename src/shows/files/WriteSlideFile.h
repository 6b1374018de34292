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
/// SaveSlides on, the sound and the pictures are copied into that folder and nowhere else: a path gives nothing but its last
/// component as a name, with a number where another picture of the show has that name. Other files that have their names
/// are put aside first (PutAside), and so is a show that was not read whole, since a save of it would write less.
///
/// Where an editor's show comes into another folder than the one that it lies in, its slides and its sound that stand in
/// the latter are still found.
///
/// What is written stands when the save begins, whatever happens while messages run. WaitCopyFrm is open meanwhile.
/// Failures and a cancel are told here. After a failure, too, the file counts as saved; only a cancel leaves ShowChanged,
/// LastSlideShow, the recent shows and SoundFile.
///
/// While SaveFromArrays is off and an editor is loaded, the slides that were written take the form in which they are stored,
/// and the editor shows the new path; not after a cancel. Those that a failure has left unwritten are still found.
SaveEnd WriteSlideFile(MainModule& module, const std::string& folder, const std::string& name);

}  // namespace tavrix
