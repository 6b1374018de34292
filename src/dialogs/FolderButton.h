#pragma once

#include <array>
#include <functional>
#include <string>
#include <utility>

#include "core/MainModule.h"
#include "dialogs/FolderLists.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"

namespace tavrix {

/// The names and the folders behind the four entries of a quick folder popup. An empty name hides the entry.
struct QuickFolders {
    std::array<std::string, 4> names;
    std::array<std::string, 4> paths;
};

/// The quick folders that are in the settings.
[[nodiscard]] QuickFolders QuickFoldersOf(const MainModule& module);

/// The Favorite Folder button of a dialog: a click sends the folder lists to the favorite folder, the right mouse
/// button opens the popup menu of the quick folders.
class FolderButton {
  public:
    static constexpr const char* Caption = "&FF";
    static constexpr const char* ToolTip = "Change directory to your Favorite Folder.";

    /// In what the popups of two buttons in one window differ, and those of windows.
    struct Popup {
        const char* suffix = "";  ///< to the names of the popup and its entries: "2" for the second
        bool closeEntryIsDefault =
            false;  ///< "Close Menu" is shown as the entry that a double click would take
    };

    /// To be a member of the form, behind the button and the lists. Gives the button its caption, its tooltip and its
    /// handlers. `quickFolders` is asked each time the popup opens and each time an entry is chosen.
    FolderButton(forms::Form& form, const MainModule& module, forms::CommandButton& button,
                 FolderLists& lists, std::function<QuickFolders()> quickFolders, const Popup& popup);
    FolderButton(forms::Form& form, const MainModule& module, forms::CommandButton& button,
                 FolderLists& lists, std::function<QuickFolders()> quickFolders)
        : FolderButton(form, module, button, lists, std::move(quickFolders), Popup{}) {}
    FolderButton(const FolderButton&) = delete;
    FolderButton& operator=(const FolderButton&) = delete;

    forms::Menu mnuPopup;
    forms::Menu mnuCloseMenu;
    forms::Menu mnuLine1;
    forms::Menu mnuFolder1;
    forms::Menu mnuFolder2;
    forms::Menu mnuFolder3;
    forms::Menu mnuFolder4;

    void CmdFF_Click();
    void CmdFF_MouseDown(int mouseButton);

  private:
    void mnuFolder_Click(std::size_t index);
    void GoTo(const std::string& folder, const std::string& failure);

    forms::Form& form_;
    const MainModule& module_;
    FolderLists& lists_;
    std::function<QuickFolders()> quickFolders_;
    bool closeEntryIsDefault_;
    std::array<forms::Menu*, 4> entries_{&mnuFolder1, &mnuFolder2, &mnuFolder3, &mnuFolder4};
};

}  // namespace tavrix
