#pragma once

#include <string>
#include <vector>

#include "core/MainModule.h"
#include "core/ShowFolder.h"
#include "core/SlideShow.h"

namespace tavrix {

/// Deletes a show's file, and with it its images and its sound as far as the user agrees. The loaded show stays as it is.
///
/// Of what the file names nothing goes that is no normal file with the ending of an image or of a sound, nor the image on
/// show; from a file whose options cannot be read nothing goes but itself.
class ShowDeletion {
  public:
    /// The full path of the show, in its exact spelling.
    ShowDeletion(MainModule& module, std::string path);

    /// Whether all has gone that was to go. The user has been asked and told.
    [[nodiscard]] bool Run();

  private:
    void OfferImages(const ShowSlides& slides);
    void OfferSound(const ShowOptions& options);
    void DeleteShow();

    /// The paths of the slides, each once.
    [[nodiscard]] std::vector<std::string> PathsOf(const ShowSlides& slides) const;
    /// Whether to go on with the next image.
    bool DeleteImage(const std::string& path);
    [[nodiscard]] bool IsOpenImage(const std::string& path) const;
    /// Deletes a normal file; what is none counts as an error. Throws RuntimeError when the file cannot be deleted.
    bool Delete(const std::string& path);
    [[nodiscard]] bool Ask(const std::string& text) const;

    MainModule& module_;
    std::string path_;
    ShowFolder folder_;
    int deleted_ = 0;  ///< images
    bool failed_ = false;
};

}  // namespace tavrix
