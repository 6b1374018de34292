#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrix {

// What the program's entry in a desktop's menus starts it with. A command line of other programs may begin so too.

/// Opens the file behind it as one that is dropped on the main view; alone it is a start without a word.
inline constexpr std::string_view OpenOption = "--open";
/// The same, and views the image over the whole screen; alone the image of the last time.
inline constexpr std::string_view FullScreenOption = "--full-screen";

/// A start from a desktop's menus.
struct DesktopStart {
    std::string_view option;
    std::string file;  ///< as it was written, blanks at its ends included; empty for none
};

/// A command line taken apart; nothing for one that does not begin with such an option.
[[nodiscard]] std::optional<DesktopStart> DesktopStartOf(const std::string& commandLine);

}  // namespace tavrix
