#include "dialogs/ContentOf.h"

#include <memory>

#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"

namespace tavrix {

std::optional<FolderContent> ContentOf(const MainModule& module, const forms::Form& form,
                                       const std::string& folder) {
    constexpr int Breath = 20;
    const std::unique_ptr<FolderLook> look = module.platform.files.Look(folder, "*");
    if (!look->Wait(LookedFiles::Moment)) {
        std::optional<forms::BusyGuard> busy;
        if (!module.Busy()) busy.emplace(module.Screen());
        while (!look->Wait(Breath)) {
            module.DoEvents();
            if (form.Unloaded()) return std::nullopt;
        }
    }
    return look->Take();
}

}  // namespace tavrix
