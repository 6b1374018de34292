#include "viewer/ExitFrm.h"

#include "core/HelpContexts.h"

namespace tavrix {

ExitFrm::ExitFrm(forms::Application& application, ExitAnswer& answer)
    : Form(application, {.name = "ExitFrm"}), answer_(answer) {
    Caption = "Tavrix - [Changes Made]";
    HelpContext = HelpContext::SlideShowEditor;
    lblMsg.Caption = "The current slide show has changed.";
    lblQuestion.Caption = "Close without saving changes?";
    CmdSave.Caption = "&Save";
    CmdSave.ToolTip = "Save changes to the current slide show first.";
    CmdSave.Default = true;
    CmdSave.OnClick = [this] { Answer(ExitAnswer::Save); };
    CmdDiscard.Caption = "&Discard";
    CmdDiscard.ToolTip = "Discard all changes and return to main viewing window.";
    CmdDiscard.OnClick = [this] { Answer(ExitAnswer::Discard); };
    CmdExit.Caption = "&Exit";
    CmdExit.ToolTip = "Exit Tavrix and discard changes.";
    CmdExit.OnClick = [this] { Answer(ExitAnswer::Exit); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't close the Slide Show Editor yet.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { Answer(ExitAnswer::Cancel); };
    SetLayout(forms::Column({lblMsg, lblQuestion, forms::Row({CmdSave, CmdDiscard, CmdExit, CmdCancel})}));
}

void ExitFrm::Form_Load() {
    answer_ = ExitAnswer::Cancel;
    App().Screen().MousePointer = forms::MousePointer::Default;
}

void ExitFrm::Answer(ExitAnswer answer) {
    answer_ = answer;
    App().Unload(*this);
}

}  // namespace tavrix
