#include "filing/Questions.h"

#include "core/NumberText.h"

namespace tavrix {

std::string CountText(const MainModule& module, std::size_t count) {
    return GroupedNumber(static_cast<std::int64_t>(count), module.platform.system.Numbers());
}

bool UserSaysYes(const MainModule& module, const std::string& question) {
    return module.app.MessageBox(
               {.text = question, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo}) ==
           forms::Answer::Yes;
}

}  // namespace tavrix
