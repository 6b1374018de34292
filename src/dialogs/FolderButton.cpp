#include "dialogs/FolderButton.h"

#include <utility>

#include "base/RuntimeError.h"
#include "core/FailureText.h"

namespace tavrix {

QuickFolders QuickFoldersOf(const MainModule& module) {
    return {module.config.QuickFolder, module.config.QuickFolderPath};
}

FolderButton::FolderButton(forms::Form& form, const MainModule& module, forms::CommandButton& button,
                           FolderLists& lists, std::function<QuickFolders()> quickFolders, const Popup& popup)
    : mnuPopup(form, std::string("mnuPopup") + popup.suffix, ""),
      mnuCloseMenu(mnuPopup, std::string("mnuCloseMenu") + popup.suffix, ">>  Close Menu  <<          (Esc)"),
      mnuLine1(mnuPopup, std::string("mnuLine1") + popup.suffix, "-"),
      mnuFolder1(mnuPopup, std::string("mnuFolder1") + popup.suffix, ""),
      mnuFolder2(mnuPopup, std::string("mnuFolder2") + popup.suffix, ""),
      mnuFolder3(mnuPopup, std::string("mnuFolder3") + popup.suffix, ""),
      mnuFolder4(mnuPopup, std::string("mnuFolder4") + popup.suffix, ""),
      form_(form),
      module_(module),
      lists_(lists),
      quickFolders_(std::move(quickFolders)),
      closeEntryIsDefault_(popup.closeEntryIsDefault) {
    button.Caption = Caption;
    button.ToolTip = ToolTip;
    button.AccessibleName = "Favorite Folder";
    button.OnClick = [this] { CmdFF_Click(); };
    button.OnMouseDown = [this](const forms::MouseArguments& mouse) { CmdFF_MouseDown(mouse.button); };
    mnuPopup.Visible = false;
    mnuCloseMenu.Install([] {});  // a popup closes by itself
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        entries_[index]->Literal = true;
        entries_[index]->Install([this, index] { mnuFolder_Click(index); });
    }
}

void FolderButton::CmdFF_Click() {
    GoTo(module_.config.FavoriteFolder, "Unable to change directory to your Favorite Folder.");
}

void FolderButton::CmdFF_MouseDown(int mouseButton) {
    if (mouseButton != forms::MouseButton::Right) return;
    const QuickFolders folders = quickFolders_();
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        entries_[index]->Caption = folders.names[index];
        entries_[index]->Visible = !folders.names[index].empty();
    }
    form_.PopupMenu(mnuPopup, closeEntryIsDefault_ ? &mnuCloseMenu : nullptr);
}

void FolderButton::mnuFolder_Click(std::size_t index) {
    GoTo(quickFolders_().paths[index],
         "Unable to change directory to Quick Path " + std::to_string(index + 1) + ".");
}

void FolderButton::GoTo(const std::string& folder, const std::string& failure) {
    const auto tell = [this, failure](const RuntimeError& error) { TellFailure(module_, failure, error); };
    lists_.Forget();
    try {
        lists_.GoTo(folder, tell);
    } catch (const RuntimeError& error) {
        tell(error);
    }
}

}  // namespace tavrix
