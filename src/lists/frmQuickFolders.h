#pragma once

#include <array>

#include "core/MainModule.h"
#include "dialogs/FolderButton.h"
#include "lists/QuickFolderRow.h"
#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that names the four quick folders and says where they are.
class frmQuickFolders final : public forms::Form {
  public:
    frmQuickFolders(forms::Application& application, MainModule& module);

    std::array<QuickFolderRow, 4> Rows{{{*this, 1}, {*this, 2}, {*this, 3}, {*this, 4}}};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    /// The quick folder whose folder is being chosen, 1 to 4.
    int QuickFolderSlot = 1;

    /// The row of QuickFolderSlot.
    [[nodiscard]] QuickFolderRow& Slot() { return Rows.at(static_cast<std::size_t>(QuickFolderSlot - 1)); }
    /// The names and folders as they stand in the fields, stored or not.
    [[nodiscard]] QuickFolders Fields() const;

    void Form_Load() override;

  private:
    void CmdBrowse_Click(int slot);
    static void CmdClear_Click(QuickFolderRow& row);
    void CmdOK_Click();

    /// Whether each name has a folder; tells the first that has none.
    bool EachNameHasAFolder();

    MainModule& module_;
};

/// The Quick Folders command.
void mnuQuickFolders_Click(MainViewFrm& view);

}  // namespace tavrix
