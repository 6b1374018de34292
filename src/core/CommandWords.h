#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/services/DesktopStart.h"

namespace tavrix {

/// What a word on the command line asks for.
enum class Command : std::uint8_t {
    Help,
    About,
    SlideShowEditor,
    Open,
    ThumbnailBrowser,
    SaverSettings,
    Saver
};

/// A command and the words for it.
struct CommandWord {
    Command command;
    std::array<std::string_view, 5>
        words;                  ///< in capital letters; from the first empty one on, there are no more
    std::string_view argument;  ///< what has to follow the word; empty for nothing
    std::string_view does;      ///< as the help and the manual page tell it

    [[nodiscard]] constexpr std::span<const std::string_view> Words() const {
        std::size_t count = 0;
        while (count < words.size() && !words[count].empty())
            ++count;
        return {words.data(), count};
    }
};

/// All words, in the order in which a user is told of them. Letters of both cases are the same, but for SCRNSAVE.
inline constexpr std::array<CommandWord, 7> CommandWords{
    {{Command::About, {"ABOUT", "A"}, "", "opens the window About Tavrix"},
     {Command::SlideShowEditor,
      {"SHOW", "S", "SLIDE", "SLIDE SHOW", "SLIDES"},
      "",
      "opens the Slide Show Editor"},
     {Command::Open, {"OPEN", "O"}, "", "opens the window Open Image"},
     {Command::ThumbnailBrowser, {"THUMBNAIL", "T"}, "", "opens the thumbnails"},
     {Command::Help, {"HELP", "H", "?"}, "", "tells how to come to the help"},
     {Command::Saver, {"SCRNSAVE"}, "the path of a slide show", "runs it as a screen saver"},
     {Command::SaverSettings, {"C"}, "", "opens the settings of the screen saver"}}};

/// An option for desktops, as the manual page tells it.
struct DesktopOption {
    std::string_view option;
    std::string_view does;
};

inline constexpr std::array<DesktopOption, 2> DesktopOptions{
    {{OpenOption,
      "opens the file behind it as if it were dropped on the main view, whatever its name ends in"},
     {FullScreenOption,
      "does the same and views the image over the whole screen; without a file, the image of the last "
      "time"}}};

/// The command that a word is for, compared as a whole and whatever the case; null for other texts.
[[nodiscard]] const CommandWord* CommandOf(std::string_view text);

/// The first word of a command.
[[nodiscard]] constexpr std::string_view WordOf(Command command) {
    for (const CommandWord& word : CommandWords) {
        if (word.command == command) return word.words.front();
    }
    return {};
}

}  // namespace tavrix
