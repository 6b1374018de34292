#include "finding/OpenFound.h"

#include "base/Text.h"
#include "platform/forms/Application.h"
#include "viewer/ImageTypes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void OpenFound(forms::Form& dialog, MainViewFrm& view, const OtherSubsystems& others, const std::string& path,
               const std::string& title) {
    const MainModule& module = view.Module();
    {
        const forms::BusyGuard busy(module.Screen());
        view.picFrame.Visible = false;
        dialog.Hide();
        module.DoEvents();
    }
    const OpenFailure failure{"Unable to open the selected file.", title};
    if (IsImportOnly(path)) {
        others.Import(path, failure);
    } else {
        LoadIntoMainView(view, path, failure);
    }
    module.app.Unload(dialog);
}

bool IsOpen(const MainViewFrm& view, const std::string& path) {
    const MainModule& module = view.Module();
    const std::string& open = module.CurrentImage;
    if (open.empty()) return false;
    if (!EqualIgnoringCase(path, open) && !module.platform.files.SameEntry(path, open)) return false;
    view.App().MessageBox({.text = "Unable to delete this file, image is currently open..."});
    return true;
}

}  // namespace tavrix
