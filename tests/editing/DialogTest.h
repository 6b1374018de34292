#pragma once

#include <functional>
#include <string>

#include "EditingTest.h"
#include "editing/Accelerators.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/TextBox.h"

namespace tavrix::test {

/// A main view with a user who works in the dialogs of editing.
class DialogTest : public EditingTest {
  protected:
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Tick(forms::CheckBox& box) { box.Deliver(forms::CheckEvent{!box.Value}); }
    /// The user moves the keyboard to a control.
    static void Visit(forms::Control& control) { control.Deliver(forms::FocusEvent{}); }
    /// The user puts a text in the place of what a field holds.
    static void Paste(forms::TextBox& field, const std::string& text) {
        const int length = static_cast<int>(CharacterCount(text));
        field.Deliver(forms::TextEvent{text, length, 0});
    }
    /// The user types into a field, in the place of what is selected.
    static void Type(forms::TextBox& field, const std::string& characters) {
        dynamic_cast<headless::HeadlessTextPeer&>(*field.Peer()).UserTypes(characters);
    }

    /// What the user does in the dialog of this class each time it opens, which is closed then where it is open still.
    template <class Dialog>
    void WhenShown(const char* name, std::function<void(Dialog&)> action) {
        toolkit.OnModal(name, [this, action = std::move(action)] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            action(*app.Loaded<Dialog>());
            if (auto* dialog = app.Loaded<Dialog>()) app.Unload(*dialog);
        });
    }
    /// The same, in the dialog that a menu entry opens.
    template <class Dialog>
    void InDialog(forms::Menu& entry, const char* name, std::function<void(Dialog&)> action) {
        shown = 0;
        WhenShown<Dialog>(name, std::move(action));
        EXPECT_FALSE(Choose(entry));
        EXPECT_EQ(shown, 1) << "shows of the dialog";
        EXPECT_EQ(app.Loaded<Dialog>(), nullptr);
        ExpectIdle();
    }

    void ExpectTold(const std::string& text) { Expect({.text = text}); }

    /// A field is all selected and has the focus, so that typing replaces its text.
    static void ExpectToReplace(const forms::TextBox& field, const std::string& text) {
        ExpectSelected(field, text);
        EXPECT_EQ(field.OwnerForm().ActiveControl(), &field);
    }
    static void ExpectSelected(const forms::TextBox& field, const std::string& text) {
        EXPECT_EQ(field.Text.Get(), text);
        EXPECT_EQ(field.SelStart.Get(), 0);
        EXPECT_EQ(field.SelLength.Get(), static_cast<int>(text.size()));
    }

    /// Opens a dialog on a window that is kept above others: the window lies below the dialog meanwhile.
    template <class Dialog>
    void ExpectTopmostBracket(forms::Menu& entry, const char* name) {
        module.config.TopMostWindow = true;
        View().SetTopmost(true);
        InDialog<Dialog>(entry, name, [this](Dialog&) { EXPECT_FALSE(Window().topmost); });
        EXPECT_TRUE(Window().topmost);
        module.config.TopMostWindow = false;
        View().SetTopmost(false);
        InDialog<Dialog>(entry, name, [this](Dialog&) { EXPECT_FALSE(Window().topmost); });
        EXPECT_FALSE(Window().topmost);
    }

    /// Whether the dialog that an entry opens stays away while another operation runs.
    void ExpectLockedOut(forms::Menu& entry, const char* name) {
        shown = 0;
        toolkit.OnModal(name, [this] { ++shown; });
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        EXPECT_FALSE(Choose(entry));
        EXPECT_EQ(shown, 0);
        EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::Hourglass);
        module.Screen().MousePointer = forms::MousePointer::Default;
    }

    int shown = 0;
};

}  // namespace tavrix::test
