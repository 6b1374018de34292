#include "editing/saving/SaveCopyFrm.h"

#include "base/Text.h"
#include "core/HelpContexts.h"
#include "editing/frame/EditingDialog.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

SaveCopyFrm::SaveCopyFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "SaveCopyFrm"}), view_(view), module_(view.Module()) {
    Caption = "Save Copy";
    HelpContext = HelpContext::SaveCopy;
    CmdSave.Caption = "&Save";
    CmdSave.ToolTip = "Click here to save a copy of the file.";
    CmdSave.Default = true;
    CmdSave.OnClick = [this] { CmdSave_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't save copy of file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    SetLayout(forms::Column({Target.Arrangement(), forms::Row({forms::Stretch(), CmdSave, CmdCancel})}));
}

void SaveCopyFrm::Form_Load() {
    Target.Start(FileNameOf(module_.CurrentImage));
}

void SaveCopyFrm::CmdSave_Click() {
    if (module_.Busy() || !Target.NameIsUsable()) return;
    if (Target.Lists.Awaits([this] { CmdSave_Click(); })) return;  // what is there is asked next
    if (IsCurrentImage(Target.FullName())) {
        App().MessageBox({.text = "The filename and selected path are the same as the original image file, "
                                  "nothing to copy..."});
        return;
    }
    if (!Target.UserAgrees()) return;
    Target.Save([this](const std::string& path) { module_.platform.files.Copy(module_.CurrentImage, path); },
                FileTarget::AfterFailure::AskAgain);
}

bool SaveCopyFrm::IsCurrentImage(const std::string& path) const {
    return EqualIgnoringCase(path, module_.CurrentImage) ||
           module_.platform.files.Same(path, module_.CurrentImage);
}

void mnuSaveCopy_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    ShowDialog<SaveCopyFrm>(module, view);
}

}  // namespace tavrix
