#include "core/UnsavedImage.h"

#include "base/Text.h"
#include "core/Folders.h"

namespace tavrix {

bool IsUnsavedImage(const MainModule& module) {
    return module.CurrentImage == GetTempFolder(module) + "Untitled.BMP" ||
           module.CurrentImage == module.AppPath + "Untitled.BMP";
}

bool ConfirmDiscard(const MainModule& module) {
    if (!IsUnsavedImage(module)) return true;
    const forms::Answer answer =
        module.app.MessageBox({.text = "The current file has not been saved." + std::string(NewLine2) +
                                       "Discard changes and continue?",
                               .icon = forms::BoxIcon::Question,
                               .buttons = forms::BoxButtons::YesNo});
    if (answer == forms::Answer::Yes) return true;
    module.Screen().MousePointer = forms::MousePointer::Default;
    return false;
}

}  // namespace tavrix
