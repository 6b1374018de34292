#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "dialogs/FolderChooser.h"
#include "platform/forms/Frame.h"
#include "support/AllControls.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

/// The names of the controls of a window, in the order of the tab key.
inline std::vector<std::string> NamesOf(const forms::Form& form) {
    std::vector<std::string> names;
    for (const forms::Control* control : AllControls(form)) {
        if (dynamic_cast<const forms::Frame*>(control) == nullptr) names.push_back(control->Name());
    }
    return names;
}

/// The main view on a machine with A: (no disk), C: and D:, and a user who sets folders.
class FolderWindowTest : public ViewerTest {
  protected:
    FolderWindowTest() {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        platform.disks.SetCapacity('D', 1'234'944);
        platform.disks.PutFolder("C:\\Pictures\\Old");
        platform.disks.PutFolder("D:\\Photos");
        Setting("FavoriteFolder", "C:\\Pictures");
        Start();
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    /// The user opens the popup of the folder button and chooses this entry.
    void ChooseFromPopup(FolderChooser& chooser, const std::string& caption) {
        toolkit.ChooseFromPopup(caption);
        chooser.CmdFF2.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
    }
    void AnswerNewFolder(std::optional<std::string> reply) {
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "New Folder",
                             .reply = std::move(reply)});
    }
    void ExpectStop(const std::string& text) { Expect({.text = text, .icon = forms::BoxIcon::Stop}); }
    void ExpectMissingDocuments(const std::string& folder, forms::Answer reply) {
        Expect({.text = "The following directory does not exist:\r\n\r\n" + folder +
                        "\r\n\r\nWould you like to create it now?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
};

}  // namespace tavrix::test
