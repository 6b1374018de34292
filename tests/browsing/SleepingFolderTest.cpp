// The dialogs that make a list of thumbnails, while a folder is long in coming.

#include <cstdint>

#include "BrowsingTest.h"
#include "support/SleepingDisk.h"
#include "support/WithFiles.h"

namespace tavrix::test {
namespace {

using forms::MousePointer;
using Texts = std::vector<std::string>;

/// C:\p\slow sleeps: two pictures, a folder and a link to one are in it.
class SleepingFolderTest : public BrowsingTest {
  protected:
    SleepingFolderTest() {
        for (const char* path : {"C:\\p\\slow\\a.bmp", "C:\\p\\slow\\b.bmp"})
            platform.disks.PutFile(path, "x");
        platform.disks.PutFolder("C:\\p\\slow\\sub");
        platform.disks.PutFolder("C:\\elsewhere");
        platform.disks.PutLink("C:\\elsewhere", "C:\\p\\slow\\link");
        platform.disks.PutFile("C:\\p\\quick\\c.bmp", "x");
        disk.sleeping = "C:\\p\\slow";
        disk.waits = 10;
    }
    ~SleepingFolderTest() override {
        // They know the module that ends before the application.
        if (auto* dialog = app.Loaded<frmThumbFolder>()) app.Unload(*dialog);
        if (auto* dialog = app.Loaded<frmThumbSelect>()) app.Unload(*dialog);
    }
    template <class Dialog>
    Dialog& Show() {
        EXPECT_TRUE(Start());
        auto& dialog = app.Load<Dialog>(sleeper, list);
        dialog.Show();
        return dialog;
    }
    /// The messages of so many ticks.
    void Tick(int count) {
        for (int i = 0; i < count; ++i) {
            toolkit.Advance(forms::Milliseconds(20));
            module.DoEvents();
        }
    }
    static Texts RowsOf(const forms::DirListBox& folders) {
        Texts rows;
        for (int i = 0; i < folders.ListCount(); ++i)
            rows.push_back(folders.List(i));
        return rows;
    }
    static Texts RowsOf(const forms::FileListBox& files) {
        Texts rows;
        for (int i = 0; i < files.ListCount(); ++i)
            rows.push_back(files.List(i));
        return rows;
    }
    [[nodiscard]] long Looks() const {
        return std::ranges::count_if(platform.faults.Log(),
                                     [](const std::string& call) { return call.starts_with("Files.Look"); });
    }

    SleepingDisk disk{platform.files, toolkit};
    Services services = test::WithFiles(platform.services, disk);
    MainModule sleeper{app, services};
    ThumbnailList list;
};

TEST_F(SleepingFolderTest, TheDialogIsThereBeforeItsFolder) {
    platform.files.ChangeFolder("C:\\p\\slow");
    auto& dialog = Show<frmThumbFolder>();
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p\\slow");
    EXPECT_EQ(RowsOf(dialog.Chooser.Dir1), Texts{});
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "Please wait...");
    EXPECT_EQ(dialog.MousePointer, MousePointer::ArrowHourglass);
    Tick(5);
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "Please wait...");
    Tick(10);
    EXPECT_EQ(RowsOf(dialog.Chooser.Dir1), (Texts{"C:\\p\\slow\\link", "C:\\p\\slow\\sub"}));
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There are 2 image files in this folder to browse...");
    EXPECT_EQ(dialog.MousePointer, MousePointer::Default);
    EXPECT_FALSE(dialog.Chooser.Pending());
}

TEST_F(SleepingFolderTest, AFolderThatIsOpenedComesWithItsFiles) {
    auto& dialog = Show<frmThumbSelect>();
    EXPECT_TRUE(dialog.CmdAll.Enabled);
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), Texts{});
    for (const forms::CommandButton* button : {&dialog.CmdAll, &dialog.CmdNone, &dialog.CmdInverse})
        EXPECT_FALSE(button->Enabled) << button->Name();
    EXPECT_EQ(dialog.MousePointer, MousePointer::ArrowHourglass);
    Tick(15);
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), (Texts{"a.bmp", "b.bmp"}));
    for (const forms::CommandButton* button : {&dialog.CmdAll, &dialog.CmdNone, &dialog.CmdInverse})
        EXPECT_TRUE(button->Enabled) << button->Name();
    EXPECT_EQ(dialog.MousePointer, MousePointer::Default);
}

TEST_F(SleepingFolderTest, AFolderIsReadOnceForBothLists) {
    auto& dialog = Show<frmThumbSelect>();
    platform.faults.Clear();
    dialog.Chooser.Dir1.Path = "C:\\p\\quick";
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), Texts{"c.bmp"});
    EXPECT_EQ(Looks(), 1);
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    Tick(15);
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), (Texts{"a.bmp", "b.bmp"}));
    EXPECT_EQ(Looks(), 2);
    // What is asked for again is read again.
    platform.disks.PutFile("C:\\p\\slow\\c.bmp", "x");
    dialog.Chooser.File1.Refresh();
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), Texts{});
    Tick(15);
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), (Texts{"a.bmp", "b.bmp", "c.bmp"}));
    platform.disks.PutFolder("C:\\p\\slow\\another");
    dialog.Chooser.Dir1.Refresh();
    Tick(15);
    EXPECT_EQ(dialog.Chooser.Dir1.ListCount(), 3);
}

TEST_F(SleepingFolderTest, OkWaitsForTheFolder) {
    auto& dialog = Show<frmThumbFolder>();
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    Press(dialog.CmdOK);
    EXPECT_FALSE(dialog.Unloaded());
    EXPECT_EQ(list.ThumbnailCount(), 0);
    Tick(15);
    EXPECT_EQ(app.Loaded<frmThumbFolder>(), nullptr);
    EXPECT_EQ(list.ThumbnailFiles, (Texts{"C:\\p\\slow\\a.bmp", "C:\\p\\slow\\b.bmp"}));
}

TEST_F(SleepingFolderTest, OkWithoutAnyFileChosenIsToldWhenTheFolderHasCome) {
    auto& dialog = Show<frmThumbSelect>();
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    Press(dialog.CmdOK);
    ExpectTold("No files were selected, nothing to show thumbnails of...");
    Tick(15);
    EXPECT_FALSE(dialog.Unloaded());
    dialog.Chooser.File1.Refresh();
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), Texts{});
    Tick(15);
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), (Texts{"a.bmp", "b.bmp"})) << "and nothing is told again";
}

TEST_F(SleepingFolderTest, AnOkThatNeedNotWaitIsNotDoneAgainWhenTheFolderComes) {
    auto& dialog = Show<frmThumbSelect>();
    dialog.Chooser.Dir1.Path = "C:\\p\\quick";
    ExpectTold("No files were selected, nothing to show thumbnails of...");
    Press(dialog.CmdOK);
    disk.sleeping = "C:\\p\\quick";
    dialog.Chooser.File1.Refresh();
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), Texts{});
    Tick(15);
    EXPECT_EQ(RowsOf(dialog.Chooser.File1), Texts{"c.bmp"});
    EXPECT_FALSE(dialog.Unloaded());
}

TEST_F(SleepingFolderTest, AFolderThatIsReadAgainIsWaitedForAgain) {
    auto& dialog = Show<frmThumbFolder>();
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    Tick(15);
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There are 2 image files in this folder to browse...");
    dialog.Chooser.Dir1.Refresh();
    EXPECT_EQ(RowsOf(dialog.Chooser.Dir1), Texts{});
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "Please wait...");
    Tick(15);
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There are 2 image files in this folder to browse...");
}

TEST_F(SleepingFolderTest, AnotherFolderForgetsTheOk) {
    auto& dialog = Show<frmThumbFolder>();
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    Press(dialog.CmdOK);
    dialog.Chooser.Dir1.Path = "C:\\p\\quick";
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There is one image file in this folder to browse...");
    EXPECT_EQ(dialog.MousePointer, MousePointer::Default);
    Tick(15);
    EXPECT_FALSE(dialog.Unloaded());
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p\\quick");
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There is one image file in this folder to browse...");
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    Tick(15);
    EXPECT_FALSE(dialog.Unloaded());
}

TEST_F(SleepingFolderTest, CancelDoesNotWait) {
    auto& dialog = Show<frmThumbFolder>();
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    const forms::Milliseconds before = toolkit.Now();
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<frmThumbFolder>(), nullptr);
    EXPECT_EQ(toolkit.Now(), before);
    Tick(15);
    EXPECT_EQ(list.ThumbnailCount(), 0);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p\\slow");
}

TEST_F(SleepingFolderTest, AFolderThatFailsLateIsToldAndTheListGoesAboveIt) {
    auto& dialog = Show<frmThumbFolder>();
    platform.disks.SetUnreadable("C:\\p\\slow", true);
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p\\slow");
    Press(dialog.CmdOK);
    Expect({.text = "Unable to change directory to:\r\n\r\nC:\\p\\slow\r\n\r\nPermission denied...",
            .icon = forms::BoxIcon::Stop});
    Tick(15);
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p");
    EXPECT_EQ(dialog.Chooser.File1.Path.Get(), "C:\\p");
    EXPECT_FALSE(dialog.Unloaded());
    EXPECT_EQ(dialog.MousePointer, MousePointer::Default);
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There are no image files in this folder to browse...");
}

TEST_F(SleepingFolderTest, AFolderThatFailsAtOnceLeavesTheOneThatIsAwaited) {
    auto& dialog = Show<frmThumbFolder>();
    dialog.Chooser.Dir1.Path = "C:\\p\\slow";
    EXPECT_THROW(dialog.Chooser.Dir1.Path = "C:\\none", RuntimeError);
    EXPECT_EQ(dialog.Chooser.Dir1.Path.Get(), "C:\\p\\slow");
    EXPECT_TRUE(dialog.Chooser.Pending());
    Tick(15);
    EXPECT_EQ(dialog.Chooser.Dir1.ListCount(), 2);
    EXPECT_EQ(dialog.lblNumFiles.Caption.Get(), "There are 2 image files in this folder to browse...");
}

}  // namespace
}  // namespace tavrix::test
