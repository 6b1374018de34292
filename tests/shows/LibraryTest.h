#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "FakeEditor.h"
#include "ShowsTest.h"
#include "core/HelpContexts.h"
#include "shows/library/LoadRecentFile.h"
#include "shows/library/LoadSlideFile.h"
#include "shows/library/SaveSlideFile.h"

namespace tavrix::test {

/// A program with an editor of shows, C:, D: and A: without a disk. The folder of shows holds a.tvs and b.tvs, each with a
/// slide of its name; C:\Shows is empty.
class LibraryTest : public ShowsTest {
  protected:
    static constexpr const char* A = "C:\\Tavrix\\SLIDES\\a.tvs";
    static constexpr const char* B = "C:\\Tavrix\\SLIDES\\b.tvs";

    LibraryTest() {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        platform.disks.PutFolder("C:\\Shows");
        PutShow(ShowOf("a"), A);
        PutShow(ShowOf("b"), B);
        platform.disks.PutFile("C:\\Tavrix\\SLIDES\\none.txt", "");
    }

    static std::string ShowOf(const std::string& slide) {
        return Header() + Slides({"C:\\p\\" + slide + ".bmp", slide});
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Key(forms::Control& control, int keyCode) {
        control.Deliver(forms::KeyEvent{true, keyCode, 0, nullptr});
        control.Deliver(forms::KeyEvent{false, keyCode, 0, nullptr});
    }
    static void Enter(forms::TextBox& field, const std::string& text) {
        field.Deliver(forms::TextEvent{text, static_cast<int>(CharacterCount(text)), 0});
    }

    void ExpectTold(const std::string& text, std::function<void()> whileOpen = {}) {
        Expect({.text = text, .whileOpen = std::move(whileOpen)});
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    void ExpectDelete(const std::string& path, forms::Answer reply) {
        ExpectQuestion("Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + path,
                       reply);
    }
    [[nodiscard]] std::string Content(const std::string& path) const {
        return platform.disks.Content(path).value_or("none");
    }

    FakeEditor& editor = app.Load<FakeEditor>(module);
};

/// The same with a user who loads shows into the editor.
class LoadingTest : public LibraryTest {
  protected:
    /// The user does something in the folders' dialog and closes it where it is open still. Whether a show was chosen.
    bool InFolders(const std::function<void(LoadSlideFile&)>& action) {
        toolkit.OnModal("LoadSlideFile", [this, action] { Act<LoadSlideFile>(action); });
        return Run();
    }
    /// The same in the dialog of the recent shows.
    bool InRecent(const std::function<void(LoadRecentFile&)>& action) {
        toolkit.OnModal("LoadRecentFile", [this, action] { Act<LoadRecentFile>(action); });
        return InFolders([](LoadSlideFile& dialog) { Press(dialog.CmdRecent); });
    }
    bool Run() {
        const bool loaded = LoadShow(module, *target);
        EXPECT_FALSE(module.Busy());
        EXPECT_EQ(app.Loaded<LoadSlideFile>(), nullptr);
        EXPECT_EQ(app.Loaded<LoadRecentFile>(), nullptr);
        return loaded;
    }
    template <class Dialog>
    void Act(const std::function<void(Dialog&)>& action) {
        EXPECT_FALSE(module.Busy());
        action(*app.Loaded<Dialog>());
        if (auto* dialog = app.Loaded<Dialog>()) app.Unload(*dialog);
    }
    static Texts Listed(const forms::FileListBox& list) {
        Texts names;
        for (int i = 0; i < list.ListCount(); ++i)
            names.push_back(list.List(i));
        return names;
    }

    EditorTarget editorTarget{module, editor};
    ShowTarget* target = &editorTarget;
};

}  // namespace tavrix::test
