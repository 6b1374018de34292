#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The editor of shows, as far as a save works on it.
class SlideRows {
  public:
    virtual ~SlideRows() = default;
    /// The path in a row of its list, counted from 0.
    [[nodiscard]] virtual std::string Row(int index) const = 0;
    virtual void SetRow(int index, const std::string& path) = 0;
    /// Shows the path of the show that is being edited.
    virtual void SetFilename(const std::string& path) = 0;
};

/// Writes the first SlideCount slides and the options as the file `folder` + `name`; the folder ends in a backslash. With
/// SaveSlides on, the sound and the pictures are copied into that folder, over whatever has their names there.
///
/// The paths come from the editor's rows, which get the form in which they are stored; with SaveFromArrays on, or
/// without an editor, from SlideFiles, which stays. WaitCopyFrm is open meanwhile. Failures and a cancel are told here.
/// After a failure, too, the file counts as saved; only a cancel leaves ShowChanged, LastSlideShow and the recent shows.
void WriteSlideFile(MainModule& module, const std::string& folder, const std::string& name,
                    SlideRows* editor);

}  // namespace tavrix
