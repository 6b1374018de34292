#include "filing/deleting/DeleteCurrentImage.h"

#include "base/RuntimeError.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void mnuDeleteCurrentImage_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    if (module.CurrentImage.empty()) {
        module.app.MessageBox({.text = "A file has not been opened, nothing to delete..."});
        return;
    }
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    try {
        RequireExactly(module, module.CurrentImage);
        if (DeleteToBin(module, module.CurrentImage, true) == Deletion::Declined) return;
    } catch (const RuntimeError& error) {
        TellFailure(module, "Unable to delete image file.", error);
        return;
    }
    module.DoEvents();
    view.imageOnShow.Deleted();
}

}  // namespace tavrix
