#include "browsing/frmThumbSelect.h"

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"

namespace tavrix {

frmThumbSelect::frmThumbSelect(forms::Application& application, const MainModule& module, ThumbnailList& list)
    : Form(application, {.name = "frmThumbSelect"}),
      Chooser(*this, module, list),
      module_(module),
      list_(list) {
    Caption = "Thumbnail Browser - [Select Files]";
    HelpContext = HelpContext::ThumbSelect;
    Chooser.Label1.Caption =
        "Select a directory and the files to view thumbnails of and then press the \"OK\" button.";
    Chooser.File1.MultiSelect = forms::MultiSelect::Toggling;
    CmdAll.Caption = "Select &All";
    CmdAll.ToolTip = "Select all filenames in the file list.";
    CmdAll.OnClick = [this] { CmdAll_Click(); };
    CmdNone.Caption = "Select &None";
    CmdNone.ToolTip = "De-select all files.";
    CmdNone.OnClick = [this] { CmdNone_Click(); };
    CmdInverse.Caption = "&Inverse";
    CmdInverse.ToolTip = "Inverse selections.";
    CmdInverse.OnClick = [this] { CmdInverse_Click(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to show thumbnails of the selected images.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't show thumbnails.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::ThumbSelect); };
    Chooser.CmdFF.ComeLast();  // it stands below the others
    using namespace forms;
    SetLayout(Column(
        {Chooser.Label1, Growing(Row({Chooser.Folders(),
                                      Growing(Column({Chooser.lblFiles, Growing(Chooser.File1),
                                                      Row({CmdAll, CmdNone, CmdInverse})})),
                                      Column({CmdOK, CmdCancel, CmdHelp, Chooser.CmdFF, Stretch()})}))}));
}

void frmThumbSelect::Form_Load() {
    Chooser.Lists.OnContent = [this] { ShowPending(); };
    Chooser.Start();
    ShowPending();
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void frmThumbSelect::ShowPending() {
    // Nothing can be said yet of files that have yet to come.
    for (forms::CommandButton* button : {&CmdAll, &CmdNone, &CmdInverse})
        button->Enabled = !Chooser.Pending();
}

void frmThumbSelect::Form_Unload(bool&) {
    Chooser.End();
}

std::string frmThumbSelect::Grouped(int number) const {
    return GroupedNumber(number, module_.platform.system.Numbers());
}

void frmThumbSelect::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

bool frmThumbSelect::ListIsEmpty(const std::string& text) {
    if (Chooser.File1.ListCount() > 0) return false;
    Tell(text);
    return true;
}

void frmThumbSelect::CmdAll_Click() {
    if (!ListIsEmpty("There are no files in the selected directory to select...")) Chooser.File1.SelectAll();
}

void frmThumbSelect::CmdNone_Click() {
    if (!ListIsEmpty("There are no files in the selected directory to de-select..."))
        Chooser.File1.SelectNone();
}

void frmThumbSelect::CmdInverse_Click() {
    if (!ListIsEmpty("There are no files in the selected directory, nothing to select and/or de-select..."))
        Chooser.File1.InvertSelection();
}

void frmThumbSelect::CmdOK_Click() {
    if (module_.Busy()) return;  // the dialog is closing already
    if (Chooser.Lists.Awaits([this] { CmdOK_Click(); })) return;
    if (!Chooser.AnyFiles()) return;
    const int count = Chooser.File1.SelectedCount();
    if (count == 0) {
        Tell("No files were selected, nothing to show thumbnails of...");
        return;
    }
    if (count > ThumbnailList::Most) {
        Tell("There are " + Grouped(count) + " files selected, you may only browse " +
             Grouped(ThumbnailList::Most) + " thumbnails at a time." + std::string(NewLine2) +
             "Select less files at one time and then try again...");
        return;
    }
    Chooser.MakeList(Chooser.File1.Selection());
    list_.ThumbnailFolder = ThumbnailList::Selected;
    App().Unload(*this);
}

}  // namespace tavrix
