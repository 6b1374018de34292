#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix::test {

/// How the boxes begin that may come when a package called Trip is made in C:\Out, or C:\q, and something fails.
inline constexpr std::array<std::string_view, 14> PackageFailures{
    "Could not create ",
    "Unable to package Trip, the source file that was selected could not be opened to read the data that it "
    "contains.",
    "Unable to package Trip, a slide show file (.TVS) could not be created in the destination location.",
    "Could not copy one of the Tavrix program files, unable to package Trip.",
    "An unexpected error occurred, unable to package Trip.  Check your source file(s) for problems and/or "
    "missing files...",
    "Unable to save slide show.",
    "An error occurred while trying to write the slide show header.",
    "An error occurred while saving slide show data.",
    "Unable to copy the sound file to the slide show directory...",
    "Unable to copy all images to slide show directory...",
    "Unable to open Slide Show file.",
    "An error occurred while reading the Slide Show file header.",
    "An error occurred while reading Slide Show data.",
    "Save Package was canceled before it could complete, files and/or settings in this package may be "
    "missing...",
};
inline constexpr std::string_view PackageMade =
    "The slide show package Trip has been created in the directory:";
inline constexpr std::string_view SoundNotCopied = PackageFailures[8];

/// What came of it, by the boxes that came ("unexpected box: [title] text <...>").
struct PackageBoxes {
    explicit PackageBoxes(const std::vector<std::string>& boxes) {
        for (const std::string& box : boxes) {
            const auto says = [&box](std::string_view text) { return box.find(text) != std::string::npos; };
            if (says(PackageMade)) {
                ++made;
            } else if (says(SoundNotCopied)) {
                soundMissing = true;
            } else if (std::ranges::any_of(PackageFailures, says)) {
                failed = true;
            } else {
                others += box + "\n";
            }
        }
    }

    int made = 0;
    bool soundMissing = false;
    bool failed = false;  ///< told as specified
    std::string others;   ///< what no window of packages says
};

}  // namespace tavrix::test
