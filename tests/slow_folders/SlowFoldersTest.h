#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "core/Main.h"
#include "core/MainModule.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/FileListBox.h"
#include "program/WireProgram.h"
#include "support/ProgramFixture.h"
#include "support/QuietMachine.h"
#include "support/SleepingDisk.h"
#include "support/WithFiles.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {

/// A program whose folder C:\slow comes 300 milliseconds after it was asked for, and C:\quick at once. Both hold the pictures
/// a.bmp, b.bmp and c.bmp.
class SlowFoldersTest : public ::testing::Test {
  protected:
    using Names = std::vector<std::string>;

    static constexpr const char* Slow = "C:\\slow";
    static constexpr const char* Quick = "C:\\quick";

    SlowFoldersTest() {
        MakeQuiet(platform);
        WireProgram(module, lives);
        module.AppPath = "C:\\Tavrix\\";
        for (const std::string folder : {Slow, Quick}) {
            for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
                platform.pictures.SetPicture(folder + "\\" + name, PlainPicture(40, 30));
        }
        platform.files.ChangeFolder(Quick);
        disk.sleeping = Slow;
        disk.waits = 15;
    }
    ~SlowFoldersTest() override {
        for (const std::string& failure : toolkit.Failures())
            ADD_FAILURE() << failure;
    }

    /// Starts the program, with C:\slow\b.bmp on show where `image` says so.
    MainViewFrm& Start(bool image = false) {
        platform.process.commandLine = image ? "C:\\slow\\b.bmp" : "";
        Main(module, lives);
        return *app.Loaded<MainViewFrm>();
    }
    template <class Dialog, class... Arguments>
    Dialog& Show(Arguments&&... arguments) {
        module.Screen().MousePointer = forms::MousePointer::Default;
        auto& dialog = app.Load<Dialog>(std::forward<Arguments>(arguments)...);
        dialog.Show();
        return dialog;
    }
    /// More than enough for a slow folder, and for what waits for it.
    void Come() { Pass(500); }
    void Pass(int milliseconds) {
        for (int passed = 0; passed < milliseconds; passed += 10) {
            toolkit.Advance(forms::Milliseconds(10));
            module.DoEvents();
        }
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Key(forms::Control& control, int keyCode) {
        control.SetFocus();
        control.OwnerForm().Deliver(forms::KeyEvent{true, keyCode, 0, nullptr});
        control.OwnerForm().Deliver(forms::KeyEvent{false, keyCode, 0, nullptr});
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
    void ExpectQuestion(const std::string& text, forms::Answer reply, const std::string& title = "Tavrix") {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .title = title});
    }
    void ExpectDelete(const std::string& path, forms::Answer reply = forms::Answer::Yes) {
        ExpectQuestion("Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n" + path,
                       reply);
    }
    void Expect(headless::ExpectedBox box) { toolkit.Expect(std::move(box)); }
    [[nodiscard]] bool IsThere(const std::string& path) { return platform.disks.Exists(path); }

    headless::HeadlessServices platform;
    headless::HeadlessToolkit toolkit;
    SleepingDisk disk{platform.files, toolkit};
    Services services = test::WithFiles(platform.services, disk);
    forms::Application app{toolkit};
    MainModule module{app, services};
    Lives lives;
};

}  // namespace tavrix::test
