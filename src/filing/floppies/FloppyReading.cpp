#include "filing/floppies/FloppyReading.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "platform/forms/Application.h"

namespace tavrix {

void CmdNewDisk_Click(const MainModule& module, const FloppyDisk& disk, SelectedFiles& files) {
    if (module.Busy()) return;
    try {
        files.ReadFrom(disk.Root());
    } catch (const RuntimeError& error) {
        TellFailure(module, "Unable to refresh file list.", error);
    }
}

void CloseWithoutDisk(forms::Form& form, const MainModule& module, const FloppyDisk& disk,
                      SelectedFiles& files) {
    if (module.Busy() || form.Unloaded()) return;
    try {
        disk.Require();
        // The disk came after the dialog.
        if (!EqualIgnoringCase(files.File1.Path.Get(), disk.Root())) files.ReadFrom(disk.Root());
    } catch (const RuntimeError&) {
        module.app.MessageBox(
            {.text = "Floppy drive " + disk.Root() + " could not be read, unable to copy files...",
             .icon = forms::BoxIcon::Exclamation});
        module.app.Unload(form);
    }
}

}  // namespace tavrix
