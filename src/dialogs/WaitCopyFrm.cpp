#include "dialogs/WaitCopyFrm.h"

namespace tavrix {

WaitCopyFrm::WaitCopyFrm(forms::Application& application, MainModule& module)
    : Form(application, {.name = "WaitCopyFrm"}), module_(module) {
    Caption = "Copying files...";
    lblMsg.Literal = true;
    lblMsg.Caption = "Copying files, please wait...";
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Click here to cancel file copy.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { CmdCancel_Click(); };
    SetLayout(forms::Column({lblMsg, forms::Row({forms::Stretch(), CmdCancel, forms::Stretch()})}));
}

void WaitCopyFrm::Form_Load() {
    module_.CancelCopy = false;
}

void WaitCopyFrm::Form_Unload(bool& /*cancel*/) {
    // Whoever closes the window by its frame has no way left to stop the copying.
    module_.CancelCopy = true;
}

void WaitCopyFrm::CmdCancel_Click() {
    module_.CancelCopy = true;
}

}  // namespace tavrix
