#include "filing/floppies/FloppyReading.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "platform/forms/Application.h"

namespace tavrix {

void CmdNewDisk_Click(const forms::Form& form, const MainModule& module, const FloppyDisk& disk,
                      SelectedFiles& files) {
    if (module.Busy() || !disk.Wake(form)) return;
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
        if (EqualIgnoringCase(files.File1.Path.Get(), disk.Root())) return;
        // The disk came after the dialog.
        if (disk.Wake(form)) files.ReadFrom(disk.Root());
    } catch (const RuntimeError&) {
        module.app.MessageBox(
            {.text = "Floppy drive " + disk.Root() + " could not be read, unable to copy files...",
             .icon = forms::BoxIcon::Exclamation});
        module.app.Unload(form);
    }
}

}  // namespace tavrix
