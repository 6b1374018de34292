#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/forms/Boxes.h"

namespace tavrix {

class MainViewFrm;

/// What a failed open says: the caller's text, the error's description, three points.
struct OpenFailure {
    std::string text;
    std::string title = "Tavrix";
};

/// What an opened image is to the list of recent files. The desktop is told of it in any case.
enum class RecentFiles : std::uint8_t { TakeIt, StayAsTheyAre };

/// Loads an image into the main view. On a failure the user is told, and the view is left without an image: the
/// picture that was on show is gone.
void LoadIntoMainView(MainViewFrm& view, const std::string& path, const OpenFailure& failure,
                      RecentFiles recent = RecentFiles::TakeIt);

/// How a file becomes the image on show.
struct WayOfOpening {
    /// Puts its picture into MainImage and lays it out; throws RuntimeError where it cannot.
    std::function<void()> Show;
    /// Makes the file, or what stands for it, the image. False after a failure, which has been told and has left the view
    /// without an image.
    std::function<bool()> Become;
};

/// The same for files that come in another way.
void OpenIntoMainView(MainViewFrm& view, const std::string& path, const OpenFailure& failure,
                      const WayOfOpening& way);

void mnuReloadImage_Click(MainViewFrm& view);
void mnuClear_Click(MainViewFrm& view);

}  // namespace tavrix
