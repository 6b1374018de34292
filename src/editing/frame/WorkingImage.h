#pragma once

#include <functional>

namespace tavrix {

class MainViewFrm;

/// What a command says that brings in an image from elsewhere.
struct WorkingImageWords {
    const char* notRead;
    const char* notWritten;
};

/// Makes a picture the image on show, as one that has not been saved and cannot be undone: `take` puts it into
/// MainImage, out of sight; then it is laid out, and written to the working file. `take` may throw RuntimeError. A
/// failure is told, and leaves the view without an image.
void TakeWorkingImage(MainViewFrm& view, const WorkingImageWords& words, const std::function<void()>& take);

/// The end of that: MainImage's picture is written to the working file, and the menus are those of an image.
void KeepWorkingImage(MainViewFrm& view, const WorkingImageWords& words);

}  // namespace tavrix
