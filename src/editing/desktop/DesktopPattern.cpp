#include "editing/desktop/DesktopPattern.h"

#include <string>

#include "core/DesktopSettings.h"
#include "core/UnsavedImage.h"
#include "core/WebAddresses.h"
#include "editing/frame/WorkingImage.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

void mnuGetDesktopPattern_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    if (GetDesktopPattern(module).empty()) {
        module.app.MessageBox({.text = "Nothing to display, desktop pattern is currently not in use..."});
        return;
    }
    TakeWorkingImage(
        view,
        {.notRead = "Unable to read current desktop pattern.",
         .notWritten = "Unable to write pattern image to a temporary file."},
        [&] {
            module.app.MessageBox({.text = "Sorry, this command has not been finished yet -- check " +
                                           ProductAddress() + " for a newer version of this software..."});
        });
}

}  // namespace tavrix
