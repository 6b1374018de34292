#include "shows/library/ShowTarget.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Settings.h"
#include "platform/services/DrivePath.h"
#include "shows/files/LoadShowFile.h"

namespace tavrix {

void EditorTarget::Load(const std::string& path) {
    LoadShowFile(module_, path);
    editor_.ShowLoaded(NormalPath(path));
}

void SaverTarget::Load(const std::string& path) {
    const std::string file = WithUpperFirst(NormalPath(path));
    settings_.SetCurrentFile(file);
    const ProfileEntry first{"ImageLastDisplayed", "0"};
    SkipFailure([&] { module_.platform.profile.Write("Viewer", {&first, 1}, SettingsFile(module_)); });
    module_.config.ImageLastDisplayed = 0;
    settings_.ReadCurrentFile();
}

}  // namespace tavrix
