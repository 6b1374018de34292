#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/WaitCopyFrm.h"
#include "filing/SelectedFiles.h"
#include "support/MainViewFixture.h"

namespace tavrix::test {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;

/// A main view with a disk in drive A:, and images in C:\Pics.
class FloppyTest : public MainViewFixture {
  protected:
    FloppyTest() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
            platform.disks.PutFile("C:\\Pics\\" + std::string(name), "pics " + std::string(name));
        platform.files.ChangeFolder("C:\\Pics");
        disk = platform.disks.InsertDisk('A');
        Start();
    }

    /// The root of the disk that is in the drive, where names may differ in case alone.
    headless::MemoryNode& Root() { return *platform.disks.Drives().at('A').disk->root; }
    void PutOnDisk(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            Root().children[name] =
                std::make_shared<headless::MemoryNode>(headless::MemoryNode{.content = "disk " + name});
    }
    /// Chooses a command that opens a dialog, and does something with it while it is modal.
    template <class Dialog>
    void InDialog(forms::Menu& command, const std::function<void(Dialog&)>& use) {
        bool used = false;
        toolkit.OnModal(DialogName<Dialog>(), [&] {
            if (used) return;
            used = true;
            auto* dialog = app.Loaded<Dialog>();
            use(*dialog);
            if ((dialog = app.Loaded<Dialog>()) != nullptr) app.Unload(*dialog);
        });
        command.Deliver(forms::ClickEvent{});
        EXPECT_TRUE(used) << "the dialog did not open";
        EXPECT_FALSE(module.Busy());
        EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
    }
    template <class Dialog>
    static std::string DialogName();

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Select(SelectedFiles& files, const std::vector<std::string>& names) {
        files.File1.SelectNone();
        for (int row = 0; row < files.File1.ListCount(); ++row) {
            if (std::ranges::find(names, files.File1.List(row)) != names.end()) files.File1.Select(row);
        }
    }
    static std::vector<std::string> Listed(const SelectedFiles& files) {
        std::vector<std::string> names;
        for (int row = 0; row < files.File1.ListCount(); ++row)
            names.push_back(files.File1.List(row));
        return names;
    }

    void ExpectTold(const std::string& text, BoxIcon icon = BoxIcon::Information) {
        Expect({.text = text, .icon = icon});
    }
    void ExpectAsked(const std::string& text, Answer reply = Answer::Yes) {
        Expect({.text = text, .icon = BoxIcon::Question, .buttons = BoxButtons::YesNo, .reply = reply});
    }
    void ExpectPrompt(const std::string& text, Answer reply, std::function<void()> whileOpen = {}) {
        Expect({.text = text,
                .buttons = BoxButtons::OkCancel,
                .reply = reply,
                .whileOpen = std::move(whileOpen)});
    }
    void ExpectReplace(const std::string& where, const std::string& name, const std::string& question,
                       Answer reply) {
        Expect({.text =
                    "The following file already exists " + where + ":\r\n\r\n" + name + "\r\n\r\n" + question,
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNoCancel,
                .reply = reply});
    }
    /// A copy is under way and its drive has no disk.
    void ExpectNoDisk(Answer reply, std::function<void()> whileOpen = {}) {
        ExpectPrompt(
            "A disk could not be found in Floppy Drive A:\\\r\n\r\nInsert disk and then try again...", reply,
            std::move(whileOpen));
    }

    std::optional<std::string> At(const std::string& path) { return platform.disks.Content(path); }

    /// Does something once, when the wait window says that it is at a file.
    void WhenAt(const std::string& name, const std::function<void()>& action) {
        const auto done = std::make_shared<bool>(false);
        for (int yield = 1; yield < 60; ++yield) {
            toolkit.AtYield(yield, [this, name, action, done] {
                const auto* window = app.Loaded<WaitCopyFrm>();
                if (*done || window == nullptr || !window->lblMsg.Caption.Get().ends_with("\r\n" + name))
                    return;
                *done = true;
                action();
            });
        }
    }
    void PressCancel() { app.Loaded<WaitCopyFrm>()->CmdCancel.Deliver(forms::ClickEvent{}); }
    /// The texts of the wait window from now on.
    void WatchProgress() {
        for (int yield = 1; yield < 60; ++yield) {
            toolkit.AtYield(yield, [this] {
                const auto* window = app.Loaded<WaitCopyFrm>();
                if (window != nullptr &&
                    (progress.empty() || progress.back() != window->lblMsg.Caption.Get()))
                    progress.push_back(window->lblMsg.Caption);
            });
        }
    }

    std::shared_ptr<headless::MemoryDisk> disk;
    std::vector<std::string> progress;
};

}  // namespace tavrix::test
