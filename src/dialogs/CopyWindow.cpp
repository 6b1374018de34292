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

void CopyWindow::Progress(const std::string& text) {
    constexpr forms::Milliseconds Readable(40);
    const forms::Milliseconds now = module_.app.GetToolkit().Now();
    // A clock that stands still tells nothing about what can be read.
    const bool due = !painted_ || now == *painted_ || now - *painted_ >= Readable;
    if (!due) {
        module_.DoEvents();
        return;
    }
    painted_ = now;
    Tell(text);
}

void CopyWindow::Hide() {
    if (auto* window = module_.app.Loaded<WaitCopyFrm>()) window->Hide();
}

void CopyWindow::Show() {
    if (auto* window = module_.app.Loaded<WaitCopyFrm>()) window->Show();
}

void CopyWindow::Close() {
    if (!open_) return;
    open_ = false;
    auto* const window = module_.app.Loaded<WaitCopyFrm>();
    if (window == nullptr) return;
    // That it is taken away at the end cancels nothing.
    const bool canceled = module_.CancelCopy;
    module_.app.Unload(*window);
    module_.CancelCopy = canceled;
}

}  // namespace tavrix
