#pragma once

#include <array>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "browsing/frmThumbFolder.h"
#include "browsing/frmThumbSelect.h"
#include "browsing/frmThumbnail.h"
#include "core/HelpContexts.h"
#include "shows/stage/FullViewFrm.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

using forms::Answer;
using forms::MouseAction;
namespace MouseButton = forms::MouseButton;

/// A main view with a user who browses. C:\p, the current folder, holds as many pictures of 20 by 10 pixels as a test puts
/// there: n0001.bmp, n0002.bmp, ...
class BrowsingTest : public ViewerTest {
  protected:
    BrowsingTest() {
        platform.disks.PutFolder("C:\\p");
        platform.files.ChangeFolder("C:\\p");
    }

    static std::string Numbered(int number) {
        std::array<char, 16> name{};
        std::snprintf(name.data(), name.size(), "n%04d.bmp", number);
        return name.data();
    }
    static std::string PathOf(int number) { return "C:\\p\\" + Numbered(number); }

    void PutNumbered(int count) {
        const std::string content = platform.pictures.SetPicture(PathOf(1), PlainPicture(20, 10));
        for (int number = 2; number <= count; ++number)
            platform.disks.PutFile(PathOf(number), content);
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void MoveOver(forms::Control& control) {
        control.Deliver(forms::MouseEvent{MouseAction::Move, 0, 0, 1, 1});
    }
    frmThumbnail& Browser() { return *app.Loaded<frmThumbnail>(); }
    void Click(int slot, int button = MouseButton::Left) {
        Mouse(Browser().picPreview[static_cast<std::size_t>(slot)], MouseAction::Down, button);
    }
    void Popup(int slot, const std::string& entry = "") {
        toolkit.ChooseFromPopup(entry);
        Click(slot, MouseButton::Right);
    }
    /// What the user does in a dialog each time it opens.
    template <class Dialog>
    void InDialog(const char* name, std::function<void(Dialog&)> action) {
        toolkit.OnModal(name, [this, action = std::move(action)] {
            EXPECT_FALSE(module.Busy());
            action(*app.Loaded<Dialog>());
            if (auto* dialog = app.Loaded<Dialog>()) app.Unload(*dialog);
        });
    }
    void TakeFolder() {
        InDialog<frmThumbFolder>("frmThumbFolder", [](auto& dialog) { Press(dialog.CmdOK); });
    }
    void TakeFiles(const std::vector<int>& rows) {
        InDialog<frmThumbSelect>("frmThumbSelect", [rows](auto& dialog) {
            for (const int row : rows)
                dialog.Chooser.File1.Select(row);
            Press(dialog.CmdOK);
        });
    }
    /// The program, with the browser on what lies in C:\p.
    void BrowseAsItIs() {
        ASSERT_TRUE(Start());
        TakeFolder();
        Choose(View().menu.mnuThumbnailBrowse);
        ASSERT_NE(app.Loaded<frmThumbnail>(), nullptr);
    }
    void Browse(int count) {
        PutNumbered(count);
        BrowseAsItIs();
    }
    void Drop(const std::vector<std::string>& files) {
        Browser().picHoldPreview[4].Deliver(forms::DropEvent{files, 1, 1});
    }

    /// The numbers of the files whose thumbnails are on the page; 0 for any other name.
    std::vector<int> Page() {
        std::vector<int> page;
        for (std::size_t slot = 0; slot < frmThumbnail::Slots; ++slot) {
            const forms::Image& preview = Browser().picPreview[slot];
            int number = 0;
            if (preview.Visible) {
                std::sscanf(preview.AccessibleName.Get().c_str(), "n%d.bmp", &number);
                page.push_back(number);
            }
        }
        return page;
    }
    static std::vector<int> FromTo(int first, int last) {
        std::vector<int> numbers;
        for (int number = first; number <= last; ++number)
            numbers.push_back(number);
        return numbers;
    }
    void ExpectPage(int first, int last) {
        EXPECT_EQ(Page(), FromTo(first, last));
        EXPECT_EQ(
            Browser().lblShowing.Caption.Get(),
            first == last ? std::to_string(first) : std::to_string(first) + " to " + std::to_string(last));
        EXPECT_EQ(Browser().lblShow.Caption.Get(), first == last ? "Showing Image:" : "Showing Images:");
        ExpectReady();
    }
    /// The browser waits for the user.
    void ExpectReady() {
        EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_FALSE(Browser().CmdStop.Visible);
        EXPECT_TRUE(Browser().CmdStop.Enabled);
        for (const forms::CommandButton* button :
             {&Browser().CmdBack1, &Browser().CmdFwd1, &Browser().CmdNext, &Browser().CmdPrevious,
              &Browser().CmdSelect, &Browser().CmdBrowse, &Browser().CmdClose})
            EXPECT_TRUE(button->Enabled) << button->Name();
    }
    /// Messages run so often while a page is made, until the user presses Stop in the next of them.
    void StopAtYield(int yield) {
        toolkit.AtYield(yield, [this] { Press(Browser().CmdStop); });
    }
    /// Stop comes when the page is about to show its thumbnail in this slot.
    void StopAtSlot(int slot) {
        // Before the page: the button's own, and two while it begins. Then two for each thumbnail.
        StopAtYield(3 + 2 * slot + 1);
    }

    void ExpectTold(const std::string& text) { Expect({.text = text}); }
    void ExpectFailedThumbnail(const std::string& path, const std::string& error, Answer reply) {
        Expect({.text = "Unable to show preview of the following image:\r\n(" + error + "...)\r\n\r\n" +
                        path + "\r\n\r\nPress \"Cancel\" to stop loading thumbnails...",
                .icon = forms::BoxIcon::Exclamation,
                .buttons = forms::BoxButtons::OkCancel,
                .reply = reply});
    }
    void ExpectDiscard(Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    [[nodiscard]] long Decoded() const {
        return std::ranges::count_if(platform.faults.Log(), [](const std::string& call) {
            return call.starts_with("Pictures.LoadToFit");
        });
    }
    headless::HeadlessWindowPeer* Visible(const char* name) { return toolkit.VisibleWindow(name); }
};

}  // namespace tavrix::test
