#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tavrix {

/// What the screen saver module is started with, in the words of XScreenSaver.
struct SaverArguments {
    std::optional<std::uint32_t> window;  ///< to draw in; none: the root window
    bool preview = false;                 ///< shown beside settings, and not for long
    std::string show;                     ///< empty for the one that the settings name

    friend bool operator==(const SaverArguments&, const SaverArguments&) = default;
};

/// Reads the arguments behind the program's name (-root, -window-id N, -show FILE or just the file; -- works
/// as - does) and the variable
/// XSCREENSAVER_WINDOW, which goes before them but for a preview. None for what is no call of a module.
[[nodiscard]] std::optional<SaverArguments> ReadSaverArguments(std::span<const std::string> arguments,
                                                               const std::string& windowVariable);

}  // namespace tavrix
