#include "core/NotYet.h"

#include "core/MainModule.h"

namespace tavrix {

void TellNotYet(forms::Application& app, const std::string& caption) {
    std::string name = caption;
    std::erase(name, '&');
    app.MessageBox(
        {.text = "This version of " + std::string(ProductName) + " does not have " + name + " yet..."});
}

}  // namespace tavrix
