#pragma once

#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// What the user wants of an editor that closes with changes.
enum class ExitAnswer { Discard = 0, Cancel = 1, Exit = 2, Save = 3 };

/// The question of the slide show editor when it closes with changes.
class ExitFrm final : public forms::Form {
  public:
    /// The answer is left in a variable of the caller's; closing the window by its frame leaves Cancel.
    ExitFrm(forms::Application& application, ExitAnswer& answer);

    forms::Label lblMsg{*this, "lblMsg"};
    forms::Label lblQuestion{*this, "lblQuestion"};
    forms::CommandButton CmdSave{*this, "CmdSave"};
    forms::CommandButton CmdDiscard{*this, "CmdDiscard"};
    forms::CommandButton CmdExit{*this, "CmdExit"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    void Form_Load() override;

  private:
    void Answer(ExitAnswer answer);

    ExitAnswer& answer_;
};

}  // namespace tavrix
