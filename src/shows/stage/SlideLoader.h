#pragma once

#include <string>

#include "core/MainModule.h"
#include "platform/forms/GifPlayer.h"
#include "platform/forms/Image.h"

namespace tavrix {

/// Puts image files on a stage: still ones into its image, and those that play into its player, which the image then
/// covers as an invisible sheet.
class SlideLoader {
  public:
    SlideLoader(MainModule& module, forms::Image& image, forms::GifPlayer& player)
        : module_(module), image_(image), player_(player) {}

    /// The file of a slide by its stored path or, where that leads to none, by its name in the current folder. Runs
    /// pending messages. Throws RuntimeError when there is no such file or it cannot be shown.
    void LoadSlide(const std::string& storedPath);

    /// LoadSlide will probably be asked for this slide next, which is decoded meanwhile if it is a still one. Tells no
    /// failure: that is for LoadSlide to find.
    void ExpectSlide(const std::string& storedPath);

    // These two take any path that leads somewhere from the current folder. They throw RuntimeError.
    void LoadStill(const std::string& path);
    void LoadAnimated(const std::string& path);

  private:
    /// The path of a slide's file, which may not be there.
    [[nodiscard]] std::string FileOf(const std::string& storedPath) const;
    void LoadFile(const std::string& path);

    MainModule& module_;
    forms::Image& image_;
    forms::GifPlayer& player_;
};

}  // namespace tavrix
