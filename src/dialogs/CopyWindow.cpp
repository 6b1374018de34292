#include "dialogs/CopyWindow.h"

#include "dialogs/WaitCopyFrm.h"

namespace tavrix {

CopyWindow::CopyWindow(MainModule& module) : module_(module) {
    module_.app.Load<WaitCopyFrm>(module_).Show();
}

void CopyWindow::Tell(const std::string& text) {
    if (auto* window = module_.app.Loaded<WaitCopyFrm>()) window->lblMsg.Caption = text;
    module_.DoEvents();
}

void CopyWindow::Close() {
    if (!open_) return;
    open_ = false;
    if (auto* window = module_.app.Loaded<WaitCopyFrm>()) module_.app.Unload(*window);
}

}  // namespace tavrix
