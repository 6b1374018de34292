#pragma once

#include "core/MainModule.h"
#include "dialogs/FileChooser.h"
#include "platform/forms/Application.h"
#include "shows/library/LoadShow.h"
#include "shows/library/ShowsFolder.h"

namespace tavrix {

/// The dialog that loads a show from a folder.
class LoadSlideFile final : public forms::Form {
  public:
    /// How it was left is put into a variable of the caller's; closing it by its frame leaves GaveUp.
    LoadSlideFile(forms::Application& application, MainModule& module, ShowTarget& target, LoadEnd& end);

  private:
    MainModule& module_;
    ShowTarget& target_;
    LoadEnd& end_;

  public:
    FileChooser Chooser{*this, module_, ShowPattern};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdRecent{*this, "CmdRecent"};

    void Form_Load() override;
    void Form_Activate() override { Chooser.File1.SetFocus(); }

  private:
    void CmdOK_Click();
    void CmdRecent_Click();
    void Dir1_Change();
    void File1_KeyUp(int keyCode);
};

}  // namespace tavrix
