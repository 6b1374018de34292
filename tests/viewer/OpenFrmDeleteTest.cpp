// The Delete key in the file list of the Open Image dialog.

#include "viewer/OpenFrmTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::RecordingShell;
using headless::Service;

constexpr const char* Second = "C:\\p\\b.bmp";

class OpenFrmDeleteTest : public OpenFrmTest {
  protected:
    /// The second file is selected, and stands in the recent list.
    void InDialogWithSecond(const Action& action) {
        ASSERT_TRUE(Start());
        module.config.Recent[0] = "C:\\p\\first.bmp";
        module.config.Recent[1] = "c:\\p\\B.bmp";
        InDialog([&](OpenFrm& dialog) {
            Select(dialog, 1);
            action(dialog);
        });
    }
    static void PressDelete(OpenFrm& dialog) { Type(dialog, forms::KeyCode::Delete); }
    void ExpectBinQuestion(Answer reply, std::function<void()> whileOpen = {}) {
        ExpectQuestion(
            std::string("Are you sure you want to send the following file to the Recycle Bin?\r\n\r\n") +
                Second,
            reply, std::move(whileOpen));
    }
    void ExpectKept(const OpenFrm& dialog) {
        EXPECT_TRUE(platform.disks.Exists(Second));
        EXPECT_TRUE(platform.shell.trash.empty());
        EXPECT_EQ(dialog.File1.ListCount(), 3);
        EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
        EXPECT_EQ(module.config.Recent[1], "c:\\p\\B.bmp");
        ExpectWaiting(dialog);
    }
    void ExpectGone(const OpenFrm& dialog) {
        EXPECT_FALSE(platform.disks.Exists(Second));
        EXPECT_EQ(dialog.File1.ListCount(), 2);
        EXPECT_EQ(dialog.File1.IndexOf("b.bmp"), -1);
        EXPECT_EQ(dialog.File1.ListIndex.Get(), -1);
        EXPECT_EQ(module.config.Recent[0], "C:\\p\\first.bmp");
        EXPECT_EQ(module.config.Recent[1], "");
        ExpectWaiting(dialog);
    }
};

TEST_F(OpenFrmDeleteTest, SendsTheSelectedFileToTheBin) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        ExpectBinQuestion(Answer::Yes);
        PressDelete(dialog);
        ExpectGone(dialog);
        ExpectNoPreview(dialog);
        ASSERT_EQ(platform.shell.trash.size(), 1U);
        EXPECT_EQ(platform.shell.trash[0].path, Second);
        EXPECT_TRUE(platform.disks.Exists("C:\\p\\a.bmp"));
        EXPECT_TRUE(platform.disks.Exists("C:\\p\\c.bmp"));
    });
}

TEST_F(OpenFrmDeleteTest, DeletesForGoodWithoutABin) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        module.config.UseRecycleBin = false;
        ExpectQuestion(std::string("Are you sure you want to delete the following file?\r\n\r\n") + Second,
                       Answer::Yes);
        PressDelete(dialog);
        ExpectGone(dialog);
        EXPECT_TRUE(platform.shell.trash.empty());
    });
}

TEST_F(OpenFrmDeleteTest, KnowsTheRootOfADrive) {
    ASSERT_TRUE(Start());
    PutPicture("C:\\r.bmp", 10, 10);
    InDialog([&](OpenFrm& dialog) {
        dialog.Dir1.Path = "C:\\";
        Select(dialog, 0);
        ExpectQuestion(
            "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\nC:\\r.bmp",
            Answer::Yes);
        PressDelete(dialog);
        EXPECT_EQ(dialog.File1.ListCount(), 0);
    });
}

TEST_F(OpenFrmDeleteTest, ANoKeepsEverything) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        ExpectBinQuestion(Answer::No);
        PressDelete(dialog);
        ExpectKept(dialog);
        ExpectPreview(dialog, "b.bmp");
    });
}

TEST_F(OpenFrmDeleteTest, WhatTheBinRefusesIsToldAndKept) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
        ExpectBinQuestion(Answer::Yes);
        Expect({.text = "Unable to send the file to the Recycle Bin, it has not been "
                        "deleted:\r\n\r\nC:\\p\\b.bmp\r\n\r\nPermission denied...",
                .icon = forms::BoxIcon::Stop});
        PressDelete(dialog);
        ExpectKept(dialog);
    });
}

TEST_F(OpenFrmDeleteTest, WhatHasGoneMeanwhileLeavesTheListToo) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        ExpectBinQuestion(Answer::Yes, [this] { platform.disks.Remove(Second); });
        Expect({.text = "Unable to send the file to the Recycle Bin, it has not been "
                        "deleted:\r\n\r\nC:\\p\\b.bmp\r\n\r\nFile not found...",
                .icon = forms::BoxIcon::Stop});
        PressDelete(dialog);
        ExpectGone(dialog);
    });
}

TEST_F(OpenFrmDeleteTest, NeedsASelectedFile) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        const std::string text =
            "Unable to delete file by pressing the delete key, nothing is selected in the file list...";
        dialog.File1.ListIndex = -1;
        ExpectTold(text);
        PressDelete(dialog);
        dialog.Dir1.Path = "C:\\empty";
        ExpectTold(text);
        PressDelete(dialog);
        EXPECT_TRUE(platform.shell.trash.empty());
    });
}

TEST_F(OpenFrmDeleteTest, TheImageOnShowIsKeptWhateverItsCase) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        for (const char* path : {"C:\\p\\b.bmp", "c:\\P\\B.BMP"}) {
            module.CurrentImage = path;
            ExpectTold("Unable to delete this file, image is currently open...");
            PressDelete(dialog);
            ExpectKept(dialog);
        }
        module.CurrentImage.clear();
    });
}

TEST_F(OpenFrmDeleteTest, OtherKeysAndOtherListsDeleteNothing) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        for (const int key : {forms::KeyCode::Back, forms::KeyCode::Insert, forms::KeyCode::Space, int{'D'}})
            Type(dialog, key);
        dialog.File1.SetFocus();
        dialog.File1.Deliver(forms::KeyEvent{true, forms::KeyCode::Delete, 0, nullptr});
        dialog.Dir1.SetFocus();
        dialog.Dir1.Deliver(forms::KeyEvent{true, forms::KeyCode::Delete, 0, nullptr});
        dialog.Dir1.Deliver(forms::KeyEvent{false, forms::KeyCode::Delete, 0, nullptr});
        ExpectKept(dialog);
    });
}

TEST_F(OpenFrmDeleteTest, WithoutARecentListTheFileGoesAllTheSame) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        module.config.KeepRecent = false;
        ExpectBinQuestion(Answer::Yes);
        PressDelete(dialog);
        EXPECT_EQ(dialog.File1.ListCount(), 2);
        EXPECT_EQ(module.config.Recent[1], "c:\\p\\B.bmp");
    });
}

TEST_F(OpenFrmDeleteTest, WhatIsSelectedUnderTheQuestionIsNotDeleted) {
    InDialogWithSecond([&](OpenFrm& dialog) {
        ExpectBinQuestion(Answer::Yes, [&] { Select(dialog, 2); });
        PressDelete(dialog);
        ExpectGone(dialog);
        EXPECT_TRUE(platform.disks.Exists("C:\\p\\c.bmp"));
    });
}

}  // namespace
}  // namespace tavrix::test
