#pragma once

#include <string>
#include <vector>

namespace tavrix::setup {

/// An entry of the desktop's menu that starts a script.
struct MenuEntry {
    std::string name;
    std::string comment;
    std::string icon;                    ///< host path
    std::vector<std::string> arguments;  ///< of the shell: a script's host path and what follows it
    std::string remover;  ///< the script that removes what the entry is of; empty: none is offered
};

/// The text of its file, as desktops read it.
[[nodiscard]] std::string TextOf(const MenuEntry& entry);

}  // namespace tavrix::setup
