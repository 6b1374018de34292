#include "dialogs/DialogWork.h"

namespace tavrix {

DialogWork::DialogWork(forms::Form& form, const MainModule& module, Dialog dialog) {
    if (module.Busy()) return;
    busy_.emplace(module.Screen());
    module.DoEvents();
    if (dialog == Dialog::Hidden && !form.Unloaded()) {
        form.Hide();
        module.DoEvents();
    }
    if (form.Unloaded()) busy_.reset();
}

}  // namespace tavrix
