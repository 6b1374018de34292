#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "viewer/OpenFrm.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

/// A main view whose user opens an image with the dialog. C:\p, the current folder, holds a.bmp (320 by 100 pixels),
/// b.bmp (100 by 300) and c.bmp (100 by 100).
class OpenFrmTest : public ViewerTest {
  protected:
    using Action = std::function<void(OpenFrm&)>;
    using Names = std::vector<std::string>;

    static constexpr const char* HolderToolTip =
        "Click the Preview button to view the currently selected image here.";
    static constexpr const char* NoneToPreview = "There are no files in the selected directory to preview...";
    static constexpr const char* NoneSelected = "Select a file to preview first...";
    static constexpr const char* NoDrive = "The selected drive is currently not available...";
    static constexpr const char* AlreadyOpen = "This image is already open.\r\n\r\nRead selected file again?";

    OpenFrmTest() {
        PutPicture("C:\\p\\a.bmp", 320, 100);
        PutPicture("C:\\p\\b.bmp", 100, 300);
        PutPicture("C:\\p\\c.bmp", 100, 100);
        PutPicture("C:\\q\\y.bmp", 30, 20);
        platform.disks.PutFolder("C:\\empty");
        platform.files.ChangeFolder("C:\\p");
    }

    OpenFrm& Dialog() { return *app.Loaded<OpenFrm>(); }

    /// Opens the dialog and does one thing each time that it is shown; the user closes it then where it is open still.
    void InDialogs(std::vector<Action> actions) {
        const std::size_t expected = actions.size();
        std::size_t shown = 0;
        toolkit.OnModal("OpenFrm", [&] {
            if (shown < actions.size()) actions[shown++](Dialog());
            if (app.Loaded<OpenFrm>() != nullptr && Dialog().Visible()) app.Unload(Dialog());
        });
        EXPECT_FALSE(Choose(View().menu.mnuOpen));
        EXPECT_EQ(shown, expected) << "shows of the dialog";
        EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
        ExpectIdle();
    }
    void InDialog(const Action& action) { InDialogs({action}); }

    /// The dialog with "Always show preview." ticked and its first preview, of a.bmp, on show.
    void InTickedDialog(const Action& action) {
        module.config.OpenShowPreview = true;
        InDialog([&](OpenFrm& dialog) {
            ExpectPreview(dialog, "a.bmp");
            action(dialog);
        });
    }

    static void Push(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Select(OpenFrm& dialog, int row) { dialog.File1.Deliver(forms::RowEvent{row}); }
    static void Tick(OpenFrm& dialog, bool checked) { dialog.ChkPreview.Deliver(forms::CheckEvent{checked}); }
    /// A key goes down and up in the file list; whether somebody took it.
    static bool Type(OpenFrm& dialog, int keyCode) {
        bool handled = false;
        dialog.File1.SetFocus();
        dialog.File1.Deliver(forms::KeyEvent{true, keyCode, 0, &handled});
        dialog.File1.Deliver(forms::KeyEvent{false, keyCode, 0, nullptr});
        return handled;
    }

    [[nodiscard]] int Loads() const { return platform.faults.Calls(headless::Service::Pictures); }
    /// How often a service was asked for something, counted by the start of the note.
    [[nodiscard]] long Asked(const std::string& start) const {
        return std::ranges::count_if(platform.faults.Log(),
                                     [&start](const std::string& call) { return call.starts_with(start); });
    }
    void Pass(int milliseconds) { toolkit.Advance(forms::Milliseconds(milliseconds)); }

    void ExpectTold(const std::string& text) { Expect({.text = text}); }
    void ExpectPreviewFailure(const std::string& description) {
        ExpectTold("Unable to preview the selected file.\r\n\r\n" + description);
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply, std::function<void()> whileOpen = {}) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .whileOpen = std::move(whileOpen)});
    }
    void ExpectNotOpened(const std::string& description) {
        Expect({.text = "Unable to open the selected file.\r\n\r\n" + description + "...",
                .icon = forms::BoxIcon::Stop});
    }

    void ExpectPreview(const OpenFrm& dialog, const std::string& name) const {
        EXPECT_TRUE(dialog.picPreview.Visible);
        EXPECT_FALSE(dialog.picPreview.Picture.Get().Empty());
        EXPECT_EQ(dialog.picPreview.ToolTip.Get(), name);
        EXPECT_EQ(dialog.picHoldPreview.ToolTip.Get(), "");
        EXPECT_TRUE(dialog.CmdNext.Enabled);
        EXPECT_TRUE(dialog.CmdPrevious.Enabled);
        ExpectWaiting(dialog);
    }
    void ExpectNoPreview(const OpenFrm& dialog) const {
        EXPECT_FALSE(dialog.picPreview.Visible);
        EXPECT_TRUE(dialog.picPreview.Picture.Get().Empty());
        EXPECT_EQ(dialog.picPreview.ToolTip.Get(), "");
        EXPECT_EQ(dialog.picHoldPreview.ToolTip.Get(), HolderToolTip);
        EXPECT_FALSE(dialog.CmdNext.Enabled);
        EXPECT_FALSE(dialog.CmdPrevious.Enabled);
        ExpectWaiting(dialog);
    }
    /// The dialog waits for the user.
    void ExpectWaiting(const OpenFrm& dialog) const {
        EXPECT_FALSE(dialog.lblMsg.Visible);
        EXPECT_FALSE(module.Busy());
    }
};

}  // namespace tavrix::test
