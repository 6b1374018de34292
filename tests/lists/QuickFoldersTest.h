#pragma once

#include <array>

#include "lists/FolderWindowTest.h"
#include "lists/frmBrowseQuick.h"
#include "lists/frmQuickFolders.h"

namespace tavrix::test {

/// A user who sets the quick folders. Two of them are set.
class QuickFoldersTest : public FolderWindowTest {
  protected:
    QuickFoldersTest() {
        module.config.QuickFolder = {"Old ones", "", "Photos", ""};
        module.config.QuickFolderPath = {"C:\\Pictures\\Old\\", "", "D:\\Photos\\", ""};
    }
    /// Opens the dialog; the user does this and cancels, unless it is closed by then.
    void Show(std::function<void(frmQuickFolders&)> user) {
        int shown = 0;
        toolkit.OnModal("frmQuickFolders", [this, user, &shown] {
            ++shown;
            user(*app.Loaded<frmQuickFolders>());
            if (auto* dialog = app.Loaded<frmQuickFolders>()) Press(dialog->CmdCancel);
        });
        EXPECT_FALSE(Choose(View().menu.mnuQuickFolders));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.Loaded<frmQuickFolders>(), nullptr);
        EXPECT_FALSE(module.Busy());
    }
    /// What the user does in frmBrowseQuick, which is cancelled unless it is closed by then.
    void OnBrowse(std::function<void(frmBrowseQuick&)> user) {
        toolkit.OnModal("frmBrowseQuick", [this, user] {
            ++browses;
            user(*app.Loaded<frmBrowseQuick>());
            if (auto* dialog = app.Loaded<frmBrowseQuick>()) Press(dialog->CmdCancel);
        });
    }
    /// The user types the name.
    static void Type(QuickFolderRow& row, const std::string& name) {
        row.txtName.Deliver(forms::TextEvent{name, static_cast<int>(CharacterCount(name)), 0});
    }
    void ExpectNoDirectory(int slot) {
        Expect({.text = "A shortcut name for \"Quick Folder " + std::to_string(slot) +
                        "\" was entered but a directory was not selected.\r\n\r\n"
                        "Press the Browse button to select a folder and then try again..."});
    }
    using Four = std::array<std::string, 4>;
    void ExpectStored(const Four& names, const Four& paths) {
        EXPECT_EQ(module.config.QuickFolder, names);
        EXPECT_EQ(module.config.QuickFolderPath, paths);
    }

    int browses = 0;
};

}  // namespace tavrix::test
