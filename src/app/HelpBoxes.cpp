#include "app/HelpBoxes.h"

namespace tavrix {

void HelpBoxes::Show(const std::string&, HelpCommand command, unsigned) {
    // There is no help window that could outlive a process, so that there is none to quit.
    if (command == HelpCommand::Quit) return;
    app_.MessageBox({.text = "This version of Tavrix does not have help pages yet..."});
}

}  // namespace tavrix
