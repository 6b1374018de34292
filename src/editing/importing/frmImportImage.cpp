#include "editing/importing/frmImportImage.h"

#include "base/Text.h"
#include "core/HelpContexts.h"

namespace tavrix {

frmImportImage::frmImportImage(forms::Application& application, const MainModule& module,
                               std::string& ImportFile)
    : Form(application, {.name = "frmImportImage"}), module_(module), importFile_(ImportFile) {
    Caption = "Import Image";
    HelpContext = HelpContext::Import;
    Chooser.File1.OnDblClick = [this] { CmdImport_Click(); };
    CmdImport.Caption = "&Import";
    CmdImport.ToolTip = "Click here to import the selected file.";
    CmdImport.Default = true;
    CmdImport.OnClick = [this] { CmdImport_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't import file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    SetLayout(Chooser.Arrangement(forms::Column({CmdImport, CmdCancel})));
}

void frmImportImage::CmdImport_Click() {
    if (Chooser.Lists.Awaits([this] { CmdImport_Click(); })) return;
    const std::string extension = UpperCase(Right(Chooser.File1.Pattern.Get(), 4));
    const auto path =
        Chooser.Selected("There are no " + extension + " image files in the selected directory...",
                         "Select a file to import and then try again...");
    if (!path) return;
    importFile_ = *path;
    App().Unload(*this);
}

}  // namespace tavrix
