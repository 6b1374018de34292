#pragma once

#include <functional>
#include <string>

namespace tavrix::qt {

/// Where it is noted, from one start to the next, how high the menu bar is: finding it out loads the first font, which
/// takes longer than the first picture. The text is the toolkit's own.
struct MenuBarNote {
    std::function<std::string()> read = [] { return std::string(); };
    std::function<void(const std::string&)> write = [](const std::string&) {};
};

}  // namespace tavrix::qt
