// How the Open Image dialog comes and goes.

#include "viewer/OpenFrmTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

constexpr const char* Unsaved = "C:\\Temp\\Untitled.BMP";
constexpr const char* Discard = "The current file has not been saved.\r\n\r\nDiscard changes and continue?";

TEST_F(OpenFrmTest, IsLaidOutAsItsUsersKnowIt) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Open Image");
        EXPECT_EQ(dialog.CmdPreview.Caption.Get(), "&Preview");
        EXPECT_EQ(dialog.CmdNext.Caption.Get(), "&Next");
        EXPECT_EQ(dialog.CmdPrevious.Caption.Get(), "P&revious");
        EXPECT_EQ(dialog.ChkPreview.Caption.Get(), "Always show preview.");
        EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Generating thumbnail...");
        EXPECT_EQ(dialog.CmdFF.Caption.Get(), "&FF");
        EXPECT_EQ(dialog.CmdFF.ToolTip.Get(), "Change directory to your Favorite Folder.");
        EXPECT_EQ(dialog.File1.Pattern.Get(),
                  "*.dib;*.bmp;*.gif;*.jpg;*.jif;*.jpe;*.jpeg;*.ico;*.wmf;*.emf;*.rle;*.cur");
        EXPECT_EQ(dialog.FavoriteButton.mnuCloseMenu.Caption.Get(), ">>  Close Menu  <<          (Esc)");
        EXPECT_TRUE(dialog.CmdOpen.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        ExpectNoPreview(dialog);
    });
}

// What is selected at first

TEST_F(OpenFrmTest, TheImageOnShowIsSelectedWhateverItsCase) {
    ASSERT_TRUE(Start());
    platform.files.ChangeFolder("C:\\Temp");
    for (const char* path : {"C:\\p\\b.bmp", "c:\\P\\B.BMP"}) {
        module.CurrentImage = path;
        InDialog([&](OpenFrm& dialog) {
            EXPECT_TRUE(EqualIgnoringCase(dialog.Dir1.Path.Get(), "C:\\p"));
            EXPECT_TRUE(EqualIgnoringCase(dialog.File1.Path.Get(), "C:\\p"));
            EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
        });
    }
}

TEST_F(OpenFrmTest, TheDriveOfTheImageIsChosenToo) {
    ASSERT_TRUE(Start());
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    PutPicture("D:\\r.bmp", 10, 10);
    PutPicture("D:\\q\\y.bmp", 10, 10);
    PutPicture("D:\\q\\z.bmp", 10, 10);
    for (const std::string path : {"D:\\q\\z.bmp", "D:\\r.bmp"}) {
        module.CurrentImage = path;
        InDialog([&](OpenFrm& dialog) {
            EXPECT_EQ(dialog.Drive1.Drive.Get(), "D:");
            EXPECT_EQ(dialog.Lists.Folder() + dialog.File1.FileName(), path);
        });
    }
}

TEST_F(OpenFrmTest, WithoutAnImageTheFirstFileOfTheCurrentFolderIsSelected) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.File1.ListCount(), 3);
        EXPECT_EQ(dialog.File1.FileName(), "a.bmp");
    });
}

TEST_F(OpenFrmTest, AnImageThatTheListDoesNotShowLeavesTheFirst) {
    ASSERT_TRUE(Start());
    PutPicture("C:\\p\\b.tga", 10, 10);
    for (const char* path : {"C:\\p\\b.tga", "C:\\p\\deleted.bmp"}) {
        module.CurrentImage = path;
        InDialog([&](OpenFrm& dialog) { EXPECT_EQ(dialog.File1.FileName(), "a.bmp"); });
    }
}

TEST_F(OpenFrmTest, AnUnsavedImageLeavesTheCurrentFolder) {
    ASSERT_TRUE(Start());
    PutPicture(Unsaved, 10, 10);
    module.CurrentImage = Unsaved;
    ExpectQuestion(Discard, Answer::Yes);
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.File1.FileName(), "a.bmp");
    });
    EXPECT_EQ(module.CurrentImage, Unsaved) << "nothing was opened";

    PutPicture("C:\\p\\untitled.bmp", 10, 10);
    ExpectQuestion(Discard, Answer::Yes);
    InDialog([&](OpenFrm& dialog) { EXPECT_EQ(dialog.File1.FileName(), "untitled.bmp"); });
}

TEST_F(OpenFrmTest, TheWorkingFileInTheProgramsFolderIsShownThere) {
    ASSERT_TRUE(Start());
    module.CurrentImage = "C:\\Tavrix\\Untitled.BMP";
    PutPicture(module.CurrentImage, 10, 10);
    ExpectQuestion(Discard, Answer::Yes);
    InDialog([&](OpenFrm& dialog) { EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\Tavrix"); });
}

TEST_F(OpenFrmTest, AFolderWithoutImagesHasNothingSelected) {
    ASSERT_TRUE(Start());
    platform.files.ChangeFolder("C:\\empty");
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\empty");
        EXPECT_EQ(dialog.File1.ListCount(), 0);
        EXPECT_EQ(dialog.File1.ListIndex.Get(), -1);
    });
}

TEST_F(OpenFrmTest, AFolderThatHasGoneLeavesTheCurrentOne) {
    ASSERT_TRUE(Start());
    for (const char* path : {"C:\\gone\\b.bmp", "Z:\\p\\b.bmp"}) {
        module.CurrentImage = path;
        InDialog([&](OpenFrm& dialog) {
            EXPECT_EQ(dialog.Drive1.Drive.Get(), "C:");
            EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
            EXPECT_EQ(dialog.File1.ListCount(), 3);
        });
    }
}

TEST_F(OpenFrmTest, ADriveWithoutADiskIsToldOnce) {
    ASSERT_TRUE(Start());
    module.CurrentImage = "A:\\disk\\b.bmp";
    ExpectTold(NoDrive);
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.Drive1.Drive.Get(), "C:");
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
    });
}

TEST_F(OpenFrmTest, ACurrentFolderThatHasGoneIsAnEmptyList) {
    ASSERT_TRUE(Start());
    platform.files.ChangeFolder("C:\\empty");
    platform.disks.Remove("C:\\empty");
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.File1.ListIndex.Get(), -1);
        ExpectNoPreview(dialog);
    });
}

// Activation

TEST_F(OpenFrmTest, OpensWithoutAPreview) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        EXPECT_FALSE(dialog.ChkPreview.Value);
        ExpectNoPreview(dialog);
        Pass(10000);
        EXPECT_EQ(Loads(), 0);
    });
}

TEST_F(OpenFrmTest, OpensWithExactlyOnePreviewWhereThatIsWanted) {
    Setting("OpenShowPreview", "True");
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        EXPECT_TRUE(dialog.ChkPreview.Value);
        ExpectPreview(dialog, "a.bmp");
        Pass(10000);
        EXPECT_EQ(Loads(), 1);
    });
}

TEST_F(OpenFrmTest, AFirstFileThatIsNoPictureIsToldOnce) {
    ASSERT_TRUE(Start());
    module.config.OpenShowPreview = true;
    platform.pictures.SetFailure("C:\\p\\a.bmp", RuntimeError(ErrorNumber::InvalidPicture));
    ExpectPreviewFailure("Invalid picture");
    InDialog([&](OpenFrm& dialog) {
        Pass(10000);
        EXPECT_TRUE(dialog.ChkPreview.Value);
        ExpectNoPreview(dialog);
        EXPECT_EQ(Loads(), 1);
    });
}

TEST_F(OpenFrmTest, AnEmptyFolderIsNothingToPreviewAtTheStart) {
    ASSERT_TRUE(Start());
    module.config.OpenShowPreview = true;
    platform.files.ChangeFolder("C:\\empty");
    InDialog([&](OpenFrm& dialog) {
        EXPECT_TRUE(dialog.ChkPreview.Value);
        ExpectNoPreview(dialog);
        EXPECT_EQ(Loads(), 0);
    });
}

TEST_F(OpenFrmTest, ClosedBeforeItWasUsedItKeepsTheSetting) {
    ASSERT_TRUE(Start());
    module.config.OpenShowPreview = true;
    toolkit.AtYield(2, [this] { Push(Dialog().CmdCancel); });
    InDialogs({});
    EXPECT_TRUE(module.config.OpenShowPreview);
    EXPECT_EQ(Loads(), 0);
}

TEST_F(OpenFrmTest, BackFromAnotherWindowItPreviewsOnceMore) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        for (const bool ticked : {true, false}) {
            Tick(dialog, ticked);
            const int before = Loads();
            View().Deliver(forms::ActivateEvent{});
            dialog.Deliver(forms::ActivateEvent{});
            EXPECT_TRUE(dialog.ChkPreview.Value);
            ExpectPreview(dialog, "a.bmp");
            EXPECT_EQ(Loads(), before + 1);
        }
    });
}

// Leaving

TEST_F(OpenFrmTest, TheFolderThatWasShownBecomesTheCurrentOne) {
    ASSERT_TRUE(Start());
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    PutPicture("D:\\q\\y.bmp", 10, 10);
    platform.files.ChangeFolder("D:\\q");
    for (const bool closeBox : {false, true}) {
        platform.files.ChangeDrive("C");
        InDialog([&](OpenFrm& dialog) {
            dialog.Drive1.Drive = "D";
            EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p") << "not before the dialog closes";
            if (closeBox) {
                dialog.Deliver(forms::CloseEvent{});
            } else {
                Push(dialog.CmdCancel);
            }
        });
        EXPECT_EQ(platform.files.CurrentFolder(), "D:\\q");
        EXPECT_EQ(module.CurrentImage, "");
    }
}

TEST_F(OpenFrmTest, TheTickIsKeptHoweverTheDialogIsClosed) {
    ASSERT_TRUE(Start());
    const std::vector<Action> ways{
        [](OpenFrm& dialog) { Push(dialog.CmdCancel); },
        [](OpenFrm& dialog) { dialog.Deliver(forms::CloseEvent{}); },
        [](OpenFrm& dialog) {
            Select(dialog, 1);
            Push(dialog.CmdOpen);
        },
    };
    for (const Action& close : ways) {
        for (const bool ticked : {true, false}) {
            module.CurrentImage.clear();
            InDialog([&](OpenFrm& dialog) {
                Tick(dialog, ticked);
                close(dialog);
            });
            EXPECT_EQ(module.config.OpenShowPreview, ticked);
        }
    }
    module.config.OpenShowPreview = true;
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(Saved("OpenShowPreview"), "True");
}

TEST_F(OpenFrmTest, FoldersThatCannotBeEnteredDoNotKeepItOpen) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm&) {
        platform.faults.FailAlways(Service::Files, "ChangeFolder", ErrorNumber::PathNotFound);
        platform.faults.FailAlways(Service::Files, "ChangeDrive", ErrorNumber::DeviceUnavailable);
    });
}

// The command

TEST_F(OpenFrmTest, TheCommandDoesNothingWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    module.Screen().MousePointer = forms::MousePointer::ArrowHourglass;
    const int yields = toolkit.Yields();
    EXPECT_FALSE(Choose(View().menu.mnuOpen));
    EXPECT_EQ(toolkit.Yields(), yields);
    EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
    EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
}

TEST_F(OpenFrmTest, TheProgramIsBusyUntilTheDialogStands) {
    ASSERT_TRUE(Start());
    bool busyAtFirst = false;
    bool busyInTheDialog = false;
    toolkit.AtYield(1, [&] { busyAtFirst = module.Busy(); });
    toolkit.AtYield(2, [&] {
        busyInTheDialog = module.Busy();
        EXPECT_EQ(Dialog().picHoldPreview.ToolTip.Get(), HolderToolTip);
        EXPECT_FALSE(Choose(View().menu.mnuOpen)) << "a second one does not open";
    });
    InDialog([&](OpenFrm&) { EXPECT_FALSE(module.Busy()); });
    EXPECT_TRUE(busyAtFirst);
    EXPECT_TRUE(busyInTheDialog);
}

TEST_F(OpenFrmTest, TheTopmostWindowStepsDownForIt) {
    Setting("TopMostWindow", "True");
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Window().topmost);
    InDialog([&](OpenFrm&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

TEST_F(OpenFrmTest, TheTopmostWindowComesBackAfterANo) {
    Setting("TopMostWindow", "True");
    ASSERT_TRUE(Start());
    module.CurrentImage = Unsaved;
    ExpectQuestion(Discard, Answer::No, [this] {
        EXPECT_FALSE(Window().topmost);
        EXPECT_TRUE(module.Busy());
    });
    InDialogs({});
    EXPECT_TRUE(Window().topmost);
}

TEST_F(OpenFrmTest, AnOrdinaryWindowStaysOrdinary) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_FALSE(Window().topmost);
}

TEST_F(OpenFrmTest, ANoToTheDiscardQuestionOpensNothing) {
    ASSERT_TRUE(Start());
    for (const char* path : {Unsaved, "C:\\Tavrix\\Untitled.BMP"}) {
        module.CurrentImage = path;
        ExpectQuestion(Discard, Answer::No);
        InDialogs({});
        EXPECT_EQ(module.CurrentImage, path);
    }
    EXPECT_EQ(Asked("Files.Look"), 0) << "the drive is not touched either";
}

TEST_F(OpenFrmTest, TheCurrentDriveIsTouchedOnceBeforehand) {
    ASSERT_TRUE(Start());
    const long before = Asked("Files.Look C:\\ *");
    InDialog([&](OpenFrm&) { EXPECT_EQ(Asked("Files.Look C:\\ *"), before + 1); });
    EXPECT_EQ(Asked("Files.Look C:\\ *"), before + 1);

    platform.disks.SetUnreadable("C:\\", true);
    InDialog([&](OpenFrm& dialog) { EXPECT_EQ(dialog.File1.FileName(), "a.bmp"); });
}

TEST_F(OpenFrmTest, WithoutACurrentFolderTheListsStandAtTheRoot) {
    ASSERT_TRUE(Start());
    PutPicture("C:\\root.bmp", 10, 10);
    platform.faults.FailAlways(Service::Files, "CurrentFolder", ErrorNumber::DeviceUnavailable);
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Default);
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\");
        EXPECT_EQ(dialog.File1.FileName(), "root.bmp");
    });
}

// Large folders

TEST_F(OpenFrmTest, AFolderOfManyFilesIsReadNoMoreThanNeeded) {
    constexpr int files = 50'000;
    PutPicture("C:\\big\\140000.bmp", 10, 10);
    PutPicture("C:\\big\\140001.bmp", 10, 10);
    auto& folder = *platform.disks.Locate(PartsOf("C:\\big")).node;
    for (int number = 0; number < files; ++number) {
        folder.children.try_emplace(std::to_string(100'000 + number) + ".bmp",
                                    std::make_shared<headless::MemoryNode>());
    }
    ASSERT_TRUE(Start());
    module.CurrentImage = "C:\\big\\140000.BMP";
    module.config.OpenShowPreview = true;

    platform.faults.Clear();
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.File1.ListIndex.Get(), 40'000);
        EXPECT_EQ(Asked("Files.Look"), 3) << "the current drive, the current folder, and that of the image";

        platform.faults.Clear();
        for (int row = 30'000; row < 30'100; ++row)
            Select(dialog, row);
        Select(dialog, 40'000);
        Push(dialog.CmdNext);
        Pass(500);
        ExpectPreview(dialog, "140001.bmp");
        Push(dialog.CmdPrevious);
        Push(dialog.CmdPreview);
        dialog.Deliver(forms::DropEvent{{"C:\\big\\140001.bmp"}});
        EXPECT_EQ(Asked("Files.Look"), 0) << "moving";

        platform.faults.Clear();
        ExpectQuestion(
            "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\nC:\\big\\140001.bmp",
            Answer::Yes);
        Type(dialog, forms::KeyCode::Delete);
        EXPECT_EQ(dialog.File1.ListCount(), files - 1);
        EXPECT_EQ(Asked("Files.Look"), 1) << "deleting";

        platform.faults.Clear();
        dialog.Dir1.Path = "C:\\p";
        dialog.Dir1.Path = "C:\\big";
        EXPECT_EQ(dialog.File1.ListCount(), files - 1);
        EXPECT_EQ(Asked("Files.Look"), 2) << "both lists by one look";
        EXPECT_EQ(Asked("Files.List") + Asked("Files.Folders"), 0);

        platform.faults.Clear();
        Select(dialog, 40'000);
        ExpectQuestion(AlreadyOpen, Answer::Yes);
        Push(dialog.CmdOpen);
        EXPECT_EQ(Asked("Files.List") + Asked("Files.Folders"), 0) << "opening the image";
    });
}

// A folder that disappears

TEST_F(OpenFrmTest, AFolderThatDisappearsTakesNothingWithIt) {
    ASSERT_TRUE(Start());
    platform.disks.PutFile("C:\\p\\sub\\s.bmp", "x");
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        platform.disks.Remove("C:\\p");

        ExpectPreviewFailure("Path not found");
        Push(dialog.CmdNext);
        EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
        ExpectNoPreview(dialog);

        ExpectPreviewFailure("Path not found");
        Tick(dialog, true);
        Select(dialog, 2);
        ExpectPreviewFailure("Path not found");
        Pass(500);

        Select(dialog, 2);
        Expect({.text = "Unable to send the file to the Recycle Bin, it has not been "
                        "deleted:\r\n\r\nC:\\p\\c.bmp\r\n\r\nPath not found...",
                .icon = forms::BoxIcon::Stop});
        Type(dialog, forms::KeyCode::Delete);
        EXPECT_EQ(dialog.File1.ListCount(), 0);
        ExpectNoPreview(dialog);
        ExpectTold(NoneToPreview);
        Push(dialog.CmdPreview);
        ExpectTold("There are no files in the selected directory to open...");
        Push(dialog.CmdOpen);
        EXPECT_FALSE(Type(dialog, forms::KeyCode::Down));
        Expect({.text = "This file can't be opened by Tavrix, it may not be a valid image.",
                .title = "Unable to show preview..."});
        dialog.Deliver(forms::DropEvent{{"C:\\p\\new.bmp"}});

        module.config.FavoriteFolder = "C:\\q\\";
        Push(dialog.CmdFF);
        EXPECT_EQ(dialog.File1.ListCount(), 1);
    });
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\q");
}

TEST_F(OpenFrmTest, AnImageOfAFolderThatDisappearedIsNotOpened) {
    StartWithPicture(100, 80);
    InDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        platform.disks.Remove("C:\\p");
        ExpectNotOpened("Path not found");
        Push(dialog.CmdOpen);
    });
    ExpectEmptyView();
}

}  // namespace
}  // namespace tavrix::test
