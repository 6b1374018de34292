#include "editing/importing/OpenPaletteFrm.h"

#include "base/RuntimeError.h"
#include "core/HelpContexts.h"
#include "core/UnsavedImage.h"
#include "editing/frame/EditingDialog.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

OpenPaletteFrm::OpenPaletteFrm(forms::Application& application, const MainModule& module)
    : Form(application, {.name = "OpenPaletteFrm"}), module_(module) {
    Caption = "Import Color Palette";
    HelpContext = HelpContext::Import;
    Chooser.File1.OnDblClick = [this] { CmdOpen_Click(); };
    CmdOpen.Caption = "&Open";
    CmdOpen.ToolTip = "Get the color palette of the selected file.";
    CmdOpen.Default = true;
    CmdOpen.OnClick = [this] { CmdOpen_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't import a color palette.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    SetLayout(Chooser.Arrangement(forms::Column({CmdOpen, CmdCancel})));
}

void OpenPaletteFrm::CmdOpen_Click() {
    if (Chooser.Lists.Awaits([this] { CmdOpen_Click(); })) return;
    const auto path =
        Chooser.Selected("There are no files in the selected directory to get a color palette from...",
                         "Select the file to get color palette from...");
    if (!path) return;
    try {
        static_cast<void>(module_.platform.files.Info(*path));  // the list may be older than the folder
    } catch (const RuntimeError&) {
        App().MessageBox(
            {.text = "Unable to get color palette from the selected file.", .icon = forms::BoxIcon::Stop});
        return;
    }
    App().MessageBox({.text = "Feature has not been finished..."});
}

void mnuImportPalette_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (!ConfirmDiscard(module)) return;
    ShowDialog<OpenPaletteFrm>(module, module);
}

}  // namespace tavrix
