#include "FloppyTest.h"
#include "filing/floppies/frmDeleteFloppy.h"

namespace tavrix::test {

template <>
std::string FloppyTest::DialogName<frmDeleteFloppy>() {
    return "frmDeleteFloppy";
}

namespace {

using Names = std::vector<std::string>;

class FloppyDeleteTest : public FloppyTest {
  protected:
    FloppyDeleteTest() { PutOnDisk({"CAT.BMP", "DOG.BMP"}); }

    void InDialog(const std::function<void(frmDeleteFloppy&)>& use) {
        FloppyTest::InDialog<frmDeleteFloppy>(View().menu.mnuDelImgOnFloppy, use);
    }
    void Delete(const Names& names) {
        InDialog([&](frmDeleteFloppy& dialog) {
            Select(dialog.Files, names);
            Press(dialog.CmdCopy);
            EXPECT_NE(app.Loaded<frmDeleteFloppy>(), nullptr);
        });
    }
    void ExpectOne(const std::string& name, Answer reply = Answer::Yes) {
        ExpectAsked("You are about to delete the file:\r\n\r\nA:\\" + name + "\r\n\r\nAre you sure?", reply);
    }
    void ExpectSeveral(int count, Answer reply = Answer::Yes) {
        ExpectAsked("You are about to delete " + std::to_string(count) +
                        " files from Floppy Drive A:\\\r\n\r\nAre you sure?",
                    reply);
    }
    bool On(const std::string& name) { return Root().children.contains(name); }
    static void Type(frmDeleteFloppy& dialog, const std::string& character) {
        dialog.txtExt.Deliver(forms::CharacterEvent{character});
    }
};

TEST_F(FloppyDeleteTest, SaysWhatItIs) {
    module.config.ThumbnailDelete = true;
    module.config.ThumbnailExtension = "THM";
    InDialog([](frmDeleteFloppy& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Delete Images On Floppy");
        EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Contents of Floppy Drive A:\\");
        EXPECT_EQ(dialog.CheckDelThumbnail.Caption.Get(),
                  "Delete thumbnail files with the following extension:");
        EXPECT_EQ(dialog.txtExt.ToolTip.Get(), "Enter 3 character filename extension.");
        EXPECT_EQ(dialog.CmdAllThumbnails.Caption.Get(), "All");
        EXPECT_EQ(dialog.CmdAllThumbnails.ToolTip.Get(), "Ignore file extensions when deleting files.");
        EXPECT_EQ(dialog.CmdRefresh.Caption.Get(), "Read Another Dis&k");
        EXPECT_EQ(dialog.CmdRefresh.ToolTip.Get(), "Insert another floppy, then press this button.");
        EXPECT_EQ(dialog.CmdCopy.Caption.Get(), "&Delete");
        EXPECT_EQ(dialog.CmdCopy.ToolTip.Get(), "Delete the selected file(s).");
        EXPECT_TRUE(dialog.CheckDelThumbnail.Value);
        EXPECT_EQ(dialog.txtExt.Text.Get(), "THM");
        EXPECT_EQ(Listed(dialog.Files), (Names{"CAT.BMP", "DOG.BMP"}));
    });
    platform.disks.AddDrive('B', DriveType::Removable);
    platform.disks.InsertDisk('B');
    platform.disks.PutFile("B:\\x.bmp", "x");
    module.config.DefaultFloppy = "B:\\";
    InDialog([](frmDeleteFloppy& dialog) {
        EXPECT_EQ(dialog.lblMsg.Caption.Get(), "Contents of Floppy Drive B:\\");
    });
}

TEST_F(FloppyDeleteTest, OneFileIsDeletedForGood) {
    platform.disks.SetReadOnly("A:\\CAT.BMP", true);
    module.config.KeepRecent = true;
    module.config.Recent[0] = "A:\\CAT.BMP";
    ExpectOne("CAT.BMP");
    Delete({"CAT.BMP"});
    EXPECT_FALSE(On("CAT.BMP"));
    EXPECT_TRUE(On("DOG.BMP"));
    EXPECT_TRUE(platform.shell.trash.empty());
    EXPECT_EQ(module.config.Recent[0], "");
}

TEST_F(FloppyDeleteTest, NoLeavesAllAndTheExtensionIsKept) {
    InDialog([this](frmDeleteFloppy& dialog) {
        dialog.CheckDelThumbnail.Value = true;
        dialog.txtExt.Text = " GI";
        Select(dialog.Files, {"CAT.BMP"});
        ExpectOne("CAT.BMP", Answer::No);
        Press(dialog.CmdCopy);
        EXPECT_EQ(dialog.Files.Names(), (Names{"CAT.BMP"}));
    });
    EXPECT_TRUE(On("CAT.BMP"));
    EXPECT_EQ(module.config.ThumbnailExtension, "GI");
    EXPECT_TRUE(module.config.ThumbnailDelete);
}

TEST_F(FloppyDeleteTest, AnEmptyExtensionMeansAny) {
    InDialog([this](frmDeleteFloppy& dialog) {
        dialog.txtExt.Text = "  ";
        ExpectTold(
            "Nothing was selected to delete.\r\n\r\n"
            "Select the file(s) that you want to delete and then try again...");
        Press(dialog.CmdCopy);
        EXPECT_EQ(module.config.ThumbnailExtension, "?");
        platform.disks.InsertDisk('A');
        Press(dialog.CmdRefresh);
        ExpectTold("There are no files on this floppy to delete.");
        Press(dialog.CmdCopy);
    });
}

TEST_F(FloppyDeleteTest, SeveralAreAskedAboutOnce) {
    ExpectSeveral(2, Answer::No);
    Delete({"CAT.BMP", "DOG.BMP"});
    EXPECT_TRUE(On("CAT.BMP"));
    ExpectSeveral(2);
    Delete({"CAT.BMP", "DOG.BMP"});
    EXPECT_FALSE(On("CAT.BMP"));
    EXPECT_FALSE(On("DOG.BMP"));
}

TEST_F(FloppyDeleteTest, TheImageOnShowStays) {
    module.CurrentImage = "A:\\cat.bmp";
    ExpectTold("Unable to delete this file, image is currently open...");
    Delete({"CAT.BMP"});
    EXPECT_TRUE(On("CAT.BMP"));
    ExpectSeveral(2);
    ExpectTold("Unable to delete:\r\n\r\nA:\\CAT.BMP\r\n\r\nImage is currently open...");
    Delete({"CAT.BMP", "DOG.BMP"});
    EXPECT_TRUE(On("CAT.BMP"));
    EXPECT_FALSE(On("DOG.BMP"));
}

TEST_F(FloppyDeleteTest, AnyThumbnailGoesWithItsImage) {
    PutOnDisk({"CAT.TXT", "cat.thm", "CATS.TXT", "DOG.TXT", "CA.TXT"});
    platform.disks.SetReadOnly("A:\\CAT.TXT", true);
    module.config.ThumbnailDelete = true;
    ExpectOne("CAT.BMP");
    Delete({"CAT.BMP"});
    EXPECT_FALSE(On("CAT.BMP"));
    EXPECT_FALSE(On("CAT.TXT"));
    EXPECT_FALSE(On("cat.thm"));
    for (const char* name : {"CATS.TXT", "DOG.TXT", "CA.TXT", "DOG.BMP"})
        EXPECT_TRUE(On(name)) << name;
}

TEST_F(FloppyDeleteTest, WithoutTheTickNoThumbnailGoes) {
    PutOnDisk({"CAT.TXT"});
    ExpectOne("CAT.BMP");
    Delete({"CAT.BMP"});
    EXPECT_TRUE(On("CAT.TXT"));
}

TEST_F(FloppyDeleteTest, ThumbnailsOfOneExtension) {
    PutOnDisk({"CAT.TXT", "CAT.THM", "CAT.TH"});
    module.config.ThumbnailDelete = true;
    module.config.ThumbnailExtension = "thm";
    ExpectOne("CAT.BMP");
    Delete({"CAT.BMP"});
    EXPECT_FALSE(On("CAT.THM"));
    EXPECT_TRUE(On("CAT.TXT"));
    EXPECT_TRUE(On("CAT.TH"));
}

TEST_F(FloppyDeleteTest, AThumbnailThatIsTheImageOnShowStays) {
    PutOnDisk({"CAT.GIF", "CAT.TXT"});
    module.config.ThumbnailDelete = true;
    module.CurrentImage = "A:\\CAT.GIF";
    ExpectOne("CAT.BMP");
    Delete({"CAT.BMP"});
    EXPECT_TRUE(On("CAT.GIF"));
    EXPECT_FALSE(On("CAT.TXT"));
}

TEST_F(FloppyDeleteTest, AThumbnailThatIsSelectedTooIsNoFailure) {
    PutOnDisk({"CAT.GIF"});
    module.config.ThumbnailDelete = true;
    ExpectSeveral(3);
    Delete({"CAT.BMP", "CAT.GIF", "DOG.BMP"});
    for (const char* name : {"CAT.BMP", "CAT.GIF", "DOG.BMP"})
        EXPECT_FALSE(On(name)) << name;
}

TEST_F(FloppyDeleteTest, WhatBelongsToALookAlikeStays) {
    PutOnDisk({"cat.bmp", "cat.txt", "CAT.TXT"});
    module.config.ThumbnailDelete = true;
    ExpectOne("CAT.BMP");
    Delete({"CAT.BMP"});
    EXPECT_FALSE(On("CAT.TXT"));
    EXPECT_EQ(At("A:\\cat.bmp"), "disk cat.bmp");
    EXPECT_EQ(At("A:\\cat.txt"), "disk cat.txt");
}

TEST_F(FloppyDeleteTest, AFailureEndsTheRun) {
    InDialog([this](frmDeleteFloppy& dialog) {
        dialog.Files.File1.SelectAll();
        platform.disks.SetWriteProtected('A', true);
        ExpectSeveral(2);
        ExpectTold("Unable to delete all of the selected files.\r\n\r\nPermission denied...", BoxIcon::Stop);
        Press(dialog.CmdCopy);
        platform.disks.SetWriteProtected('A', false);
        // A look-alike on another disk is not what was chosen.
        Select(dialog.Files, {"CAT.BMP"});
        platform.disks.InsertDisk('A');
        PutOnDisk({"cat.bmp"});
        ExpectOne("CAT.BMP");
        ExpectTold("Unable to delete all of the selected files.\r\n\r\nFile not found...", BoxIcon::Stop);
        Press(dialog.CmdCopy);
        EXPECT_TRUE(On("cat.bmp"));
        EXPECT_EQ(Listed(dialog.Files), (Names{"cat.bmp"}));
    });
}

TEST_F(FloppyDeleteTest, WithoutADiskNothingIsListed) {
    InDialog([this](frmDeleteFloppy& dialog) {
        platform.disks.PullDisk('A');
        ExpectTold(
            "Unable to read files from floppy disk.\r\n\r\nMake sure disk is inserted and try again...");
        Press(dialog.CmdRefresh);
        EXPECT_TRUE(Listed(dialog.Files).empty());
        platform.disks.InsertDisk('A');
        PutOnDisk({"z.bmp"});
        Press(dialog.CmdRefresh);
        EXPECT_EQ(Listed(dialog.Files), (Names{"z.bmp"}));
    });
}

TEST_F(FloppyDeleteTest, ADiskThatGoesWhileTheDialogOpensIsTold) {
    platform.faults.AtNth(headless::Service::Files, 3, [&] { platform.disks.PullDisk('A'); });
    ExpectTold("Unable to read files from floppy disk.\r\n\r\nMake sure disk is inserted and try again...");
    InDialog([](frmDeleteFloppy& dialog) { EXPECT_TRUE(Listed(dialog.Files).empty()); });
}

TEST_F(FloppyDeleteTest, TheTickAndTheButtonSelectTheExtension) {
    module.config.ThumbnailExtension = "TXT";
    InDialog([](frmDeleteFloppy& dialog) {
        dialog.Files.File1.SetFocus();
        dialog.CheckDelThumbnail.Value = true;
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtExt);
        EXPECT_EQ(dialog.txtExt.SelLength, 3);
        dialog.Files.File1.SetFocus();
        dialog.CheckDelThumbnail.Value = false;
        EXPECT_NE(dialog.ActiveControl(), &dialog.txtExt);
        Press(dialog.CmdAllThumbnails);
        EXPECT_EQ(dialog.txtExt.Text.Get(), "?");
        EXPECT_EQ(dialog.txtExt.SelLength, 1);
    });
}

TEST_F(FloppyDeleteTest, KeysOfTheExtension) {
    InDialog([](frmDeleteFloppy& dialog) {
        for (const std::string key : {" ", "*", ".", "?", "\\"}) {
            dialog.txtExt.Text = "ab";
            std::string character = key;
            dialog.txtExt.OnKeyPress(character);
            EXPECT_EQ(character, "") << key;
            EXPECT_EQ(dialog.txtExt.Text.Get(), "?") << key;
            EXPECT_EQ(dialog.txtExt.SelLength, 1) << key;
            character = "x";
            dialog.txtExt.OnKeyPress(character);
            EXPECT_EQ(character, "x");
            EXPECT_EQ(dialog.txtExt.Text.Get(), "") << "the key is all that there is then";
            dialog.txtExt.Text = "ab";
            dialog.txtExt.OnKeyPress(character);
            EXPECT_EQ(dialog.txtExt.Text.Get(), "ab");
        }
    });
}

}  // namespace
}  // namespace tavrix::test
