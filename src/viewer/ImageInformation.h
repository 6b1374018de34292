#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

class MainViewFrm;

/// The image that a report is about.
struct ReportedImage {
    std::string heading;  ///< the report's first line
    std::string path;
    int width = 0;              ///< pixels
    int height = 0;             ///< pixels
    std::string unreadGifType;  ///< what is said of a GIF file whose beginning cannot be read
};

/// What an information box says of an image: its size, its file and its type, with a word for what cannot be found out.
[[nodiscard]] std::string ImageReport(const MainModule& module, const ReportedImage& image);

/// Shows a box with the size, the file and the type of the image on show.
void mnuImageSize_Click(MainViewFrm& view);

}  // namespace tavrix
