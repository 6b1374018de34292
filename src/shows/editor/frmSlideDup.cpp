#include "shows/editor/frmSlideDup.h"

#include <utility>

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"

namespace tavrix {

frmSlideDup::frmSlideDup(forms::Application& application, MainModule& module,
                         const std::vector<std::string>& duplicates, Editor editor)
    : Form(application, {.name = "frmSlideDup"}),
      module_(module),
      duplicates_(duplicates),
      editor_(std::move(editor)) {
    Caption = "Found Duplicate Slides";
    HelpContext = HelpContext::SlideDuplicates;
    lblMsg.Caption = "The current slide show contains the following duplicate files:";
    List1.AccessibleName = "Duplicate files";
    List1.OnDblClick = [this] { List1_DblClick(); };
    CheckSelectDup.Caption = "&Select all duplicates in View List.";
    CmdPreview.Caption = "&Preview";
    CmdPreview.ToolTip = "Click here to view the selected image.";
    CmdPreview.OnClick = [this] { CmdPreview_Click(); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Click here to continue.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdHelp.Caption = "Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::SlideDuplicates); };
    using namespace forms;
    constexpr float listWidth = 7200;
    constexpr float listHeight = 3000;
    SetLayout(Column({lblMsg, Growing(AtLeast(listWidth, listHeight, List1)), CheckSelectDup,
                      Row({CmdPreview, Stretch(), CmdOK, CmdHelp})}));
}

void frmSlideDup::Form_Load() {
    List1.SetItems(duplicates_);
    CheckSelectDup.Value = module_.config.SelectDuplicates;
}

void frmSlideDup::List1_DblClick() {
    if (List1.ListIndex < 0) return;
    App().MessageBox(
        {.text = "Complete path to selected file:" + std::string(NewLine2) + List1.List(List1.ListIndex)});
}

void frmSlideDup::CmdPreview_Click() {
    if (module_.Busy()) return;
    if (List1.ListIndex < 0) {
        App().MessageBox({.text = "Select an image to preview and then try again..."});
        return;
    }
    module_.StageImage = List1.List(List1.ListIndex);
    module_.SlideShowActive = false;
    editor_.ShowStage();
}

void frmSlideDup::CmdOK_Click() {
    module_.config.SelectDuplicates = CheckSelectDup.Value;
    if (CheckSelectDup.Value) editor_.SelectAll(duplicates_);
    App().Unload(*this);
}

}  // namespace tavrix
