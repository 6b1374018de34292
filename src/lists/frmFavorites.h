#pragma once

#include <cstddef>
#include <vector>

#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that takes files from the list of favorite ones. The others keep their slots.
class frmFavorites final : public forms::Form {
  public:
    frmFavorites(forms::Application& application, MainViewFrm& view);

    forms::ListBox ListRemove{*this, "ListRemove"};
    forms::Label lblMsg{*this, "lblMsg"};
    forms::CommandButton CmdRemove{*this, "CmdRemove"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void CmdRemove_Click();
    void ListRemove_DblClick();

    MainViewFrm& view_;
    std::vector<std::size_t> slots_;  ///< of the rows
};

/// The Remove From List command.
void mnuFavoritesRemove_Click(MainViewFrm& view);

}  // namespace tavrix
