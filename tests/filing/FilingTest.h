#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "dialogs/WaitCopyFrm.h"
#include "filing/Commands.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/FileListBox.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

/// A main view with an image, and a user who copies, moves, renames and deletes files. C:\p holds the image x.jpg and the
/// files a.bmp, b.bmp and c.bmp, whose content is their name; C:\q is empty.
class FilingTest : public ViewerTest {
  protected:
    using Names = std::vector<std::string>;

    FilingTest() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            platform.disks.PutFile("C:\\p\\" + std::string(name), name);
        platform.disks.PutFolder("C:\\q");
    }

    /// Starts with the image C:\p\x.jpg.
    void Begin() {
        StartWithPicture(40, 30);
        image = At(ImagePath).value_or("none");
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void ReleaseKey(forms::Control& control, int keyCode) {
        control.SetFocus();
        control.OwnerForm().Deliver(forms::KeyEvent{true, keyCode, 0, nullptr});
        control.OwnerForm().Deliver(forms::KeyEvent{false, keyCode, 0, nullptr});
    }

    /// The user does this in the dialog that a menu entry opens, which is closed then where it is open still.
    template <class Dialog>
    void In(forms::Menu& entry, const char* name, std::function<void(Dialog&)> user) {
        int shown = 0;
        toolkit.OnModal(name, [&, user] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            user(*app.Loaded<Dialog>());
            if (auto* dialog = app.Loaded<Dialog>()) app.Unload(*dialog);
        });
        EXPECT_FALSE(Choose(entry));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.Loaded<Dialog>(), nullptr);
        EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
        ExpectIdle();
    }
    /// The dialog of an entry does not open while another operation runs, and opens below no main view that is kept above
    /// others.
    template <class Dialog>
    void ExpectGuarded(forms::Menu& entry, const char* name) {
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        toolkit.OnModal(name, [] { ADD_FAILURE() << "opened"; });
        EXPECT_FALSE(Choose(entry));
        EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::Hourglass);
        module.Screen().MousePointer = forms::MousePointer::Default;
        module.config.TopMostWindow = true;
        View().SetTopmost(true);
        In<Dialog>(entry, name, [this](Dialog&) { EXPECT_FALSE(Window().topmost); });
        EXPECT_TRUE(Window().topmost);
        module.config.TopMostWindow = false;
    }

    static void Select(forms::FileListBox& list, const Names& names) {
        list.SelectNone();
        for (const std::string& name : names)
            list.Select(list.IndexOf(name));
    }
    static Names Listed(const forms::FileListBox& list) {
        Names names;
        for (int row = 0; row < list.ListCount(); ++row)
            names.push_back(list.List(row));
        return names;
    }

    void ExpectTold(const std::string& text, const std::string& title = "Tavrix") {
        Expect({.text = text, .title = title});
    }
    void ExpectWarning(const std::string& text) {
        Expect({.text = text, .icon = forms::BoxIcon::Exclamation});
    }
    void ExpectStop(const std::string& text, const std::string& title = "Tavrix") {
        Expect({.text = text, .icon = forms::BoxIcon::Stop, .title = title});
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply, const std::string& title = "Tavrix") {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .title = title});
    }
    void ExpectDelete(const std::string& path, forms::Answer reply) {
        ExpectQuestion("Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + path,
                       reply);
    }
    /// The texts on the label of the wait window, as they come.
    void WatchLabels() {
        for (int yield = 1; yield < 60; ++yield) {
            toolkit.AtYield(yield, [&] {
                auto* window = app.Loaded<WaitCopyFrm>();
                if (window != nullptr && (labels.empty() || labels.back() != window->lblMsg.Caption.Get()))
                    labels.push_back(window->lblMsg.Caption);
            });
        }
    }

    /// A file beside one whose name differs in case alone. The folder is spelled as it is on the disk.
    void PutLookAlike(const std::string& path, const std::string& content) {
        platform.disks.Locate(PartsOf(FolderOf(path))).node->children[FileNameOf(path)] =
            std::make_shared<headless::MemoryNode>(headless::MemoryNode{.content = content});
    }
    /// A folder likewise.
    void PutLookAlikeFolder(const std::string& path) {
        platform.disks.Locate(PartsOf(FolderOf(path))).node->children[FileNameOf(path)] =
            std::make_shared<headless::MemoryNode>(headless::MemoryNode{.folder = true});
    }
    std::optional<std::string> At(const std::string& path) { return platform.disks.Content(path); }
    Names Favorites() { return {module.config.FavoriteFiles.begin(), module.config.FavoriteFiles.end()}; }
    Names Recent() { return {module.config.Recent.begin(), module.config.Recent.end()}; }

    std::string image;  ///< the content of the image's file
    Names labels;
};

}  // namespace tavrix::test
