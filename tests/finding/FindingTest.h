#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/PictureBox.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

using Texts = std::vector<std::string>;

/// A main view whose user looks for files in one of the windows for that.
template <class Dialog>
class FindingTest : public ViewerTest {
  protected:
    static constexpr const char* WorkingPath = "C:\\Temp\\Untitled.BMP";

    FindingTest(const char* name, forms::Menu MainMenu::*entry) : name_(name), entry_(entry) {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
    }

    /// Chooses the command; the user does this in the dialog, which is closed then where it is open still.
    void Show(const std::function<void(Dialog&)>& user) {
        if (app.template Loaded<MainViewFrm>() == nullptr) {
            ASSERT_TRUE(Start());
        }
        shown_ = 0;
        toolkit.OnModal(name_, [this, user] {
            ++shown_;
            EXPECT_FALSE(module.Busy());
            user(Opened());
            if (auto* dialog = app.template Loaded<Dialog>()) app.Unload(*dialog);
        });
        EXPECT_FALSE(Choose(View().menu.*entry_));
        EXPECT_EQ(shown_, 1);
        EXPECT_EQ(app.template Loaded<Dialog>(), nullptr);
        ExpectIdle();
    }
    /// Chooses the command, and nothing opens.
    void ExpectNotShown() {
        toolkit.OnModal(name_, [] { FAIL() << "it opened"; });
        EXPECT_FALSE(Choose(View().menu.*entry_));
        EXPECT_EQ(app.template Loaded<Dialog>(), nullptr);
    }
    Dialog& Opened() { return *app.template Loaded<Dialog>(); }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void PressDelete(forms::ListBox& list) {
        list.SetFocus();
        list.OwnerForm().Deliver(forms::KeyEvent{true, forms::KeyCode::Delete, 0, nullptr});
    }
    static std::string Printed(const forms::PictureBox& status) {
        return status.Printed().size() == 1 ? status.Printed().front() : "(other)";
    }
    void Put(const std::string& path, const std::string& content = "") {
        platform.disks.PutFile(path, content);
    }
    void ExpectDiscard(forms::Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    void ExpectRecycle(const std::string& path, forms::Answer reply) {
        Expect({.text = "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + path,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    /// The user does something while a folder is read, which takes a second.
    void WhileReading(const std::string& folder, std::function<void()> user) {
        platform.faults.Clear();
        for (int call = 1; call < 60; ++call) {
            platform.faults.AtNth(headless::Service::Files, call, [this, folder, user] {
                if (!platform.faults.Log().back().starts_with("Files.Look " + folder + " ")) return;
                toolkit.Advance(std::chrono::seconds(1));
                toolkit.Post(user);
            });
        }
    }

  private:
    const char* name_;
    forms::Menu MainMenu::*entry_;
    int shown_ = 0;
};

}  // namespace tavrix::test
