#pragma once

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "shows/library/LoadShow.h"

namespace tavrix {

/// The dialog that loads one of the recent shows.
class LoadRecentFile final : public forms::Form {
  public:
    /// How it was left is put into a variable of the caller's; closing it by its frame leaves GaveUp.
    LoadRecentFile(forms::Application& application, MainModule& module, ShowTarget& target, LoadEnd& end);

    forms::Label lblRecent{*this, "lblRecent"};
    forms::ListBox ListRecent{*this, "ListRecent"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdBrowse{*this, "CmdBrowse"};

    void Form_Load() override;

  private:
    void CmdOK_Click();
    void CmdBrowse_Click();
    void ListRecent_KeyDown(int keyCode);
    /// Empty when no row is current.
    [[nodiscard]] std::string SelectedPath() const;

    MainModule& module_;
    ShowTarget& target_;
    LoadEnd& end_;
};

}  // namespace tavrix
