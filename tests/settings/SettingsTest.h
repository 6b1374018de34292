#pragma once

#include <functional>
#include <string>
#include <utility>

#include "core/HelpContexts.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "support/AllControls.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

/// The main view, and a user who opens the windows of the settings and of the Help menu.
class SettingsTest : public ViewerTest {
  protected:
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Tick(forms::CheckBox& box, bool ticked) { box.Deliver(forms::CheckEvent{ticked}); }

    /// Chooses an entry that opens a dialog; the user does this, and closes it by its frame unless it is closed by then.
    template <class Dialog>
    void Show(forms::Menu& entry, const std::string& name, std::function<void(Dialog&)> user) {
        int shown = 0;
        toolkit.OnModal(name, [this, user, &shown] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            user(*app.Loaded<Dialog>());
            if (auto* dialog = app.Loaded<Dialog>()) dialog->Deliver(forms::CloseEvent{});
        });
        EXPECT_FALSE(Choose(entry));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.Loaded<Dialog>(), nullptr);
        EXPECT_FALSE(module.Busy());
    }
    /// It leaves the topmost band meanwhile, and does nothing while the program is busy.
    template <class Dialog>
    void ExpectDialogRules(forms::Menu& entry, const std::string& name) {
        module.config.TopMostWindow = true;
        View().SetTopmost(true);
        Show<Dialog>(entry, name, [this](Dialog&) { EXPECT_FALSE(Window().topmost); });
        EXPECT_TRUE(Window().topmost);
        toolkit.OnModal(name, [] { ADD_FAILURE() << "opened while the program is busy"; });
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        EXPECT_FALSE(Choose(entry));
        module.Screen().MousePointer = forms::MousePointer::Default;
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    /// The help button shows the page of the window, and so does F1.
    template <class Dialog>
    void ExpectHelp(Dialog& dialog, unsigned page) {
        platform.help.calls.clear();
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls, (std::vector<headless::RecordingHelp::Call>{
                                           {"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, page}}));
        EXPECT_EQ(dialog.HelpContext, page);
    }
};

}  // namespace tavrix::test
