// The command that moves the image on show.

#include "FilingTest.h"
#include "core/UnsavedImage.h"
#include "filing/moving/frmMoveCurrentImg.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class MoveCurrentImageTest : public FilingTest {
  protected:
    static constexpr const char* Title = "Tavrix - [Move Current Image]";

    void InDialog(const std::function<void(frmMoveCurrentImg&)>& user) {
        In<frmMoveCurrentImg>(View().menu.mnuMoveCurrentImg, "frmMoveCurrentImg", user);
    }
    void MoveTo(const std::string& folder) {
        InDialog([&](frmMoveCurrentImg& dialog) {
            dialog.Lists.GoTo(folder);
            Press(dialog.CmdMove);
            EXPECT_TRUE(dialog.Unloaded());
        });
    }
    void Cancel() {
        InDialog([](frmMoveCurrentImg& dialog) { Press(dialog.CmdCancel); });
    }
    void ExpectImage(const std::string& path) {
        EXPECT_EQ(module.CurrentImage, path);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + path + "]");
        EXPECT_EQ(module.config.Recent[0], path);
        EXPECT_EQ(std::ranges::count(Recent(), ImagePath), path == ImagePath ? 1 : 0);
    }
    void ExpectFailure(const std::string& target, const std::string& error) {
        ExpectStop("Unable to move current file to:\r\n\r\n" + target + "\r\n\r\n" + error + "...", Title);
    }
};

TEST_F(MoveCurrentImageTest, SaysWhatItIs) {
    Begin();
    InDialog([this](frmMoveCurrentImg& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Move Current Image");
        EXPECT_EQ(dialog.HelpContext, 650U);
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        EXPECT_EQ(dialog.lblCurMsg.Caption.Get(), "Current filename:");
        EXPECT_EQ(dialog.lblCurrent.Caption.Get(), "x.jpg");
        EXPECT_EQ(dialog.CmdMove.Caption.Get(), "&Move");
        EXPECT_EQ(dialog.CmdMove.ToolTip.Get(), "Move current image to the selected directory.");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't move file.");
        EXPECT_EQ(dialog.CmdNew.Caption.Get(), "&New Folder");
        EXPECT_EQ(dialog.CmdNew.ToolTip.Get(), "Create a new folder in the selected directory.");
        EXPECT_TRUE(dialog.CmdMove.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        for (forms::Label* label : {&dialog.lblCurMsg, &dialog.lblCurrent}) {
            ExpectTold("Complete path to current image file:\r\n\r\nC:\\p\\x.jpg");
            label->Deliver(forms::ClickEvent{});
        }
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "Tavrix",
                             .text = "New Folder",
                             .reply = "Mine"});
        Press(dialog.CmdNew);
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p\\Mine");
        dialog.CmdFF2.Deliver(
            forms::MouseEvent{forms::MouseAction::Down, forms::MouseButton::Right, 0, 1, 1});
        EXPECT_NE(toolkit.Popups()[0].defaultEntry, nullptr);
    });
    EXPECT_EQ(At(ImagePath), image);
}

TEST_F(MoveCurrentImageTest, MovesTheFileAndAllThatNamesIt) {
    Setting("FavoriteFile1", "c:\\P\\X.JPG");
    Setting("FavoriteFile2", ImagePath);
    Begin();
    MoveTo("C:\\q");
    EXPECT_EQ(At("C:\\q\\x.jpg"), image);
    EXPECT_FALSE(platform.disks.Exists(ImagePath));
    ExpectImage("C:\\q\\x.jpg");
    // The first entry alone follows.
    EXPECT_EQ(Favorites()[0], "C:\\q\\x.jpg");
    EXPECT_EQ(Favorites()[1], ImagePath);
    EXPECT_EQ(View().menu.mnuFavoritesList[0].Caption.Get(), "C:\\q\\x.jpg");
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
}

TEST_F(MoveCurrentImageTest, MovesToAnotherDrive) {
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    platform.disks.PutFolder("D:\\q");
    Begin();
    platform.disks.SetReadOnly(ImagePath, true);
    MoveTo("D:\\q");
    EXPECT_EQ(At("D:\\q\\x.jpg"), image);
    EXPECT_FALSE(platform.disks.Exists(ImagePath));
    ExpectImage("D:\\q\\x.jpg");
}

TEST_F(MoveCurrentImageTest, RefusesTheSameFolderAndANameThatIsTaken) {
    platform.disks.PutFile("C:\\q\\X.JPG", "other");
    Begin();
    const auto before = platform.disks.AllFiles();
    ExpectTold("The new file location is the same as the current one, unable to move file...", Title);
    InDialog([](frmMoveCurrentImg& dialog) { Press(dialog.CmdMove); });
    ExpectTold("The path and filename that was specified already exists, unable to move file...", Title);
    MoveTo("C:\\q");
    EXPECT_EQ(platform.disks.AllFiles(), before);
    ExpectImage(ImagePath);
}

TEST_F(MoveCurrentImageTest, AFailureChangesNothing) {
    platform.disks.PutFolder("C:\\q\\x.jpg");
    Begin();
    ExpectFailure("C:\\q\\x.jpg", "File already exists");
    MoveTo("C:\\q");
    EXPECT_EQ(At(ImagePath), image);
    ExpectImage(ImagePath);
    // A look-alike is another file.
    platform.disks.PutFolder("C:\\r");
    platform.disks.Remove(ImagePath);
    platform.disks.PutFile("C:\\p\\X.jpg", "other");
    ExpectFailure("C:\\r\\x.jpg", "File not found");
    MoveTo("C:\\r");
    EXPECT_EQ(At("C:\\p\\X.jpg"), "other");
}

TEST_F(MoveCurrentImageTest, CancelStopsWhereTheRootHoldsNoFile) {
    Begin();
    Cancel();
    EXPECT_EQ(At(ImagePath), image);
    ExpectImage(ImagePath);
}

TEST_F(MoveCurrentImageTest, CancelRenamesWhereTheRootHoldsAFile) {
    platform.disks.PutFile("C:\\autoexec.bat", "root");
    Setting("FavoriteFile1", ImagePath);
    Begin();
    Cancel();
    EXPECT_EQ(At("C:\\p\\autoexec.batx.jpg"), image);
    EXPECT_FALSE(platform.disks.Exists(ImagePath));
    EXPECT_EQ(At("C:\\autoexec.bat"), "root");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [autoexec.batx.jpg]");
    EXPECT_EQ(module.CurrentImage, "C:\\p\\autoexec.batx.jpg");
    EXPECT_EQ(module.config.Recent[0], "C:\\p\\autoexec.batx.jpg");
    EXPECT_EQ(Favorites()[0], "C:\\p\\autoexec.batx.jpg");
}

TEST_F(MoveCurrentImageTest, AfterCancelNothingIsReplacedAndNothingLost) {
    platform.disks.PutFile("C:\\autoexec.bat", "root");
    platform.disks.PutFile("C:\\p\\autoexec.batx.jpg", "other");
    Begin();
    ExpectTold("The path and filename that was specified already exists, unable to move file...", Title);
    Cancel();
    EXPECT_EQ(At("C:\\p\\autoexec.batx.jpg"), "other");
    EXPECT_EQ(At(ImagePath), image);
    platform.disks.Remove("C:\\p\\autoexec.batx.jpg");
    platform.disks.PutFolder("C:\\p\\autoexec.batx.jpg");
    ExpectFailure("autoexec.batx.jpg", "File already exists");
    Cancel();
    EXPECT_EQ(At(ImagePath), image);
    ExpectImage(ImagePath);
}

TEST_F(MoveCurrentImageTest, AMovedEditOutlivesTheExit) {
    Setting("DeleteUntitled", "True");
    Begin();
    platform.pictures.SetPicture("C:\\Temp\\Untitled.BMP", PlainPicture(4, 4));
    const auto edit = At("C:\\Temp\\Untitled.BMP");
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    InDialog([](frmMoveCurrentImg& dialog) {
        EXPECT_EQ(dialog.lblCurrent.Caption.Get(), "");
        EXPECT_EQ(dialog.Dir1.Path.Get(), "C:\\p");
        dialog.Lists.GoTo("C:\\q");
        Press(dialog.CmdMove);
    });
    EXPECT_EQ(module.CurrentImage, "C:\\q\\Untitled.BMP");
    EXPECT_TRUE(Ends([this] { View().Deliver(forms::CloseEvent{}); }));
    EXPECT_EQ(At("C:\\q\\Untitled.BMP"), edit);
}

TEST_F(MoveCurrentImageTest, OpensOnceAndOnlyWithAnImage) {
    Begin();
    ExpectGuarded<frmMoveCurrentImg>(View().menu.mnuMoveCurrentImg, "frmMoveCurrentImg");
    module.CurrentImage.clear();
    toolkit.OnModal("frmMoveCurrentImg", [] { ADD_FAILURE() << "opened"; });
    EXPECT_FALSE(Choose(View().menu.mnuMoveCurrentImg));
    View().imageOnShow.Forget();
    EXPECT_FALSE(View().menu.mnuMoveCurrentImg.Enabled);
}

TEST_F(MoveCurrentImageTest, MoveWaitsUntilTheNewFolderIsMade) {
    Begin();
    bool pressed = false;
    InDialog([&](frmMoveCurrentImg& dialog) {
        toolkit.ExpectInput({.prompt = "Enter the name of the folder to create:",
                             .title = "Tavrix",
                             .text = "New Folder",
                             .reply = "new"});
        for (int yield = 1; yield < 9; ++yield) {
            toolkit.AtYield(yield, [this, &pressed] {
                auto* const open = app.Loaded<frmMoveCurrentImg>();
                if (open == nullptr || !module.Busy() || pressed) return;
                pressed = true;
                Press(open->CmdMove);
                EXPECT_FALSE(open->Unloaded());
            });
        }
        Press(dialog.CmdNew);
        EXPECT_TRUE(pressed);
        Press(dialog.CmdMove);
        EXPECT_TRUE(dialog.Unloaded());
    });
    ExpectImage("C:\\p\\new\\x.jpg");
}

}  // namespace
}  // namespace tavrix::test
