#include "viewer/ImageOnShow.h"

#include <algorithm>

#include "ViewerTest.h"
#include "base/RuntimeError.h"
#include "core/UnsavedImage.h"

namespace tavrix::test {
namespace {

using forms::Answer;

/// The image on show, with four recent and three favorite files; the image is the first recent and the second favorite.
class ImageOnShowTest : public ViewerTest {
  protected:
    static constexpr const char* From = "C:\\p\\x.jpg";
    static constexpr const char* To = "C:\\q\\new.jpg";
    static constexpr const char* Working = "C:\\Temp\\Untitled.BMP";

    void Begin() {
        for (const char* file : {"C:\\p\\1.bmp", "C:\\p\\2.bmp", "C:\\p\\3.bmp"})
            PutPicture(file, 10, 10);
        Setting("Recent1", "C:\\p\\1.bmp");
        Setting("Recent2", "C:\\p\\2.bmp");
        Setting("Recent3", "C:\\p\\3.bmp");
        Setting("FavoriteFile1", "C:\\p\\1.bmp");
        Setting("FavoriteFile2", "c:\\P\\X.JPG");
        Setting("FavoriteFile3", From);
        StartWithPicture(1000, 900);
        ASSERT_EQ(Recent(), (Paths{From, "C:\\p\\1.bmp", "C:\\p\\2.bmp", "C:\\p\\3.bmp"}));
        platform.shell.recent.clear();
    }
    /// The file itself goes to another path, as the command does it.
    void MoveFile(const std::string& from, const std::string& to) {
        platform.disks.PutFile(to, platform.disks.Content(from).value_or(""));
        platform.disks.Remove(from);
    }

    using Paths = std::vector<std::string>;
    Paths Recent() {
        Paths paths;
        std::ranges::copy_if(module.config.Recent, std::back_inserter(paths),
                             [](const std::string& path) { return !path.empty(); });
        return paths;
    }
    Paths Favorites() {
        return {module.config.FavoriteFiles.begin(), module.config.FavoriteFiles.begin() + 4};
    }
    std::string FavoriteEntry(int index) { return View().menu.mnuFavoritesList[index].Caption; }
    void ExpectTitle(const std::string& path) { EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + path + "]"); }
    /// Picture, place scrolled to and undo are those of before.
    void ExpectPictureLeftAlone() {
        EXPECT_EQ(View().MainImage.PixelBounds().width, 1000);
        EXPECT_EQ(View().vsbPict.Value.Get(), 150);
        EXPECT_TRUE(View().menu.mnuUndo.Enabled);
        EXPECT_TRUE(View().menu.mnuEdit.Visible);
    }
    void ScrollAndOfferUndo() {
        View().vsbPict.Value = 150;
        View().menu.mnuUndo.Enabled = true;
    }
    bool Close() {
        return Ends([this] { View().Deliver(forms::CloseEvent{}); });
    }
    void ExpectDiscard() {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and exit?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = Answer::Yes});
    }
};

TEST_F(ImageOnShowTest, AnotherFileIsTheImageAndTheTitleSaysSo) {
    Begin();
    ScrollAndOfferUndo();
    View().imageOnShow.Become(To);
    EXPECT_EQ(module.CurrentImage, To);
    ExpectTitle(To);
    EXPECT_EQ(Recent().front(), From);
    EXPECT_TRUE(platform.shell.recent.empty());
    ExpectPictureLeftAlone();
}

TEST_F(ImageOnShowTest, ASavedImageIsARecentFileAndKeepsItsUndo) {
    Begin();
    ScrollAndOfferUndo();
    View().imageOnShow.Saved("c:\\q\\new.jpg");
    EXPECT_EQ(module.CurrentImage, To);
    ExpectTitle("c:\\q\\new.jpg");
    EXPECT_EQ(Recent().front(), To);
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), std::string("  ") + To);
    EXPECT_EQ(platform.shell.recent, Paths{"c:\\q\\new.jpg"});
    ExpectPictureLeftAlone();
}

TEST_F(ImageOnShowTest, AnOpenedImageHasTheMenusOfOne) {
    Begin();
    View().menu.mnuUndo.Enabled = true;
    View().menu.mnuUndo.Caption = "&Undo Crop";
    View().imageOnShow.Forget();
    View().imageOnShow.Opened("C:\\q\\new.gif");
    EXPECT_EQ(module.CurrentImage, "C:\\q\\new.gif");
    EXPECT_EQ(Recent().front(), "C:\\q\\new.gif");
    EXPECT_FALSE(View().menu.mnuUndo.Enabled);
    EXPECT_EQ(View().menu.mnuUndo.Caption.Get(), "Can't Undo");
    EXPECT_TRUE(View().menu.mnuAnimatedGIF.Enabled);
    EXPECT_TRUE(View().menu.mnuSaveCopy.Enabled);
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
}

TEST_F(ImageOnShowTest, ALoadedPictureIsLaidOutAndNoOtherFile) {
    Begin();
    ScrollAndOfferUndo();
    PutPicture(To, 30, 20);
    View().imageOnShow.Load(To);
    EXPECT_EQ(View().picFrame.PixelBounds().width, 30);
    EXPECT_FALSE(View().vsbPict.Visible);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(module.CurrentImage, From);
}

TEST_F(ImageOnShowTest, APictureThatCannotBeLoadedLeavesTheFormerOneWhereItIs) {
    Begin();
    ScrollAndOfferUndo();
    EXPECT_THROW(View().imageOnShow.Load("C:\\p\\none.bmp"), RuntimeError);
    ExpectPictureLeftAlone();
    EXPECT_EQ(module.CurrentImage, From);
}

// Renaming and moving the open image.

TEST_F(ImageOnShowTest, ARenamedImageKeepsItsPictureAndTheListsFollow) {
    Begin();
    ScrollAndOfferUndo();
    MoveFile(From, "C:\\p\\y.jpg");
    View().imageOnShow.Renamed(module.CurrentImage, "C:\\p\\y.jpg");
    EXPECT_EQ(module.CurrentImage, "C:\\p\\y.jpg");
    ExpectTitle("C:\\p\\y.jpg");
    EXPECT_EQ(Recent(), (Paths{"C:\\p\\y.jpg", "C:\\p\\1.bmp", "C:\\p\\2.bmp", "C:\\p\\3.bmp"}));
    EXPECT_EQ(View().menu.mnuLast1.Caption.Get(), "  C:\\p\\y.jpg");
    EXPECT_EQ(platform.shell.recent, Paths{"C:\\p\\y.jpg"});
    ExpectPictureLeftAlone();
    ExpectIdle();
}

TEST_F(ImageOnShowTest, TheFirstFavoriteOfThatNameFollowsWhateverItsCase) {
    Begin();
    MoveFile(From, To);
    View().imageOnShow.Renamed(From, To);
    EXPECT_EQ(Favorites(), (Paths{"C:\\p\\1.bmp", To, From, ""}));
    EXPECT_EQ(FavoriteEntry(1), To);
    EXPECT_EQ(FavoriteEntry(0), "C:\\p\\1.bmp");
}

TEST_F(ImageOnShowTest, ANameInAnotherCaseThatIsAFileToThisDayIsLeftAlone) {
    Begin();
    platform.disks.Remove(From);
    PutPicture("C:\\P\\X.JPG", 5, 5);
    View().imageOnShow.Renamed(From, To);
    EXPECT_EQ(Favorites(), (Paths{"C:\\p\\1.bmp", "c:\\P\\X.JPG", To, ""}));
}

TEST_F(ImageOnShowTest, TheRecentListKeepsAFileThatIsStillThere) {
    Begin();
    platform.disks.PutFile(To, "x");
    View().imageOnShow.Renamed(From, To);  // the file was copied, and the old one did not go
    EXPECT_EQ(Recent(), (Paths{To, From, "C:\\p\\1.bmp", "C:\\p\\2.bmp", "C:\\p\\3.bmp"}));
}

TEST_F(ImageOnShowTest, WithoutRecentFilesTheRestFollows) {
    Begin();
    module.config.KeepRecent = false;
    MoveFile(From, To);
    View().imageOnShow.Renamed(From, To);
    EXPECT_EQ(module.CurrentImage, To);
    ExpectTitle(To);
    EXPECT_EQ(Favorites()[1], To);
    EXPECT_EQ(Recent().front(), From);
    EXPECT_EQ(platform.shell.recent, Paths{To});
}

TEST_F(ImageOnShowTest, ANewPathOfASmallDriveLetterIsRaisedEverywhereButInTheTitle) {
    Begin();
    MoveFile(From, To);
    View().imageOnShow.Renamed(From, "c:\\q\\new.jpg");
    ExpectTitle("c:\\q\\new.jpg");
    EXPECT_EQ(module.CurrentImage, To);
    EXPECT_EQ(Recent().front(), To);
    EXPECT_EQ(Favorites()[1], "c:\\q\\new.jpg");
}

TEST_F(ImageOnShowTest, AFullRecentListLosesTheFormerPathAndNoOther) {
    Begin();
    for (std::size_t i = 0; i < 7; ++i)
        module.config.Recent[i] = "C:\\p\\" + std::to_string(i) + ".bmp";
    View().imageOnShow.Renamed("C:\\p\\0.bmp", To);
    EXPECT_EQ(Recent(), (Paths{To, "C:\\p\\1.bmp", "C:\\p\\2.bmp", "C:\\p\\3.bmp", "C:\\p\\4.bmp",
                               "C:\\p\\5.bmp", "C:\\p\\6.bmp"}));
}

TEST_F(ImageOnShowTest, AFileThatWasNotTheImageIsSoOnceItIsRenamed) {
    Begin();
    ScrollAndOfferUndo();
    MoveFile("C:\\p\\2.bmp", "C:\\p\\new.bmp");
    View().imageOnShow.Renamed("C:\\p\\2.bmp", "C:\\p\\new.bmp");
    EXPECT_EQ(module.CurrentImage, "C:\\p\\new.bmp");
    ExpectTitle("C:\\p\\new.bmp");
    EXPECT_EQ(Recent(), (Paths{"C:\\p\\new.bmp", From, "C:\\p\\1.bmp", "C:\\p\\3.bmp"}));
    ExpectPictureLeftAlone();
    EXPECT_TRUE(module.KeptWorkingFiles.empty());
}

TEST_F(ImageOnShowTest, AnEditThatARenamedFileLeavesBehindOutlivesTheProgram) {
    Setting("DeleteUntitled", "True");
    Begin();
    PutPicture(Working, 60, 50);
    View().imageOnShow.Become(Working);
    MoveFile("C:\\p\\2.bmp", "C:\\p\\new.bmp");
    View().imageOnShow.Renamed("C:\\p\\2.bmp", "C:\\p\\new.bmp");
    EXPECT_FALSE(IsUnsavedImage(module));
    EXPECT_TRUE(Close());
    EXPECT_TRUE(platform.disks.Exists(Working));
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\p\\new.bmp");
}

TEST_F(ImageOnShowTest, AnEditThatIsMovedAwayOutlivesTheProgram) {
    Setting("DeleteUntitled", "True");
    Begin();
    PutPicture(Working, 60, 50);
    View().imageOnShow.Become(Working);
    MoveFile(Working, "C:\\q\\Untitled.BMP");
    View().imageOnShow.Renamed(Working, "C:\\q\\Untitled.BMP");
    EXPECT_TRUE(module.KeptWorkingFiles.empty());
    EXPECT_TRUE(Close());
    EXPECT_TRUE(platform.disks.Exists("C:\\q\\Untitled.BMP"));
}

TEST_F(ImageOnShowTest, AnotherWorkingFileThanTheOneLeftBehindGoes) {
    Setting("DeleteUntitled", "True");
    Begin();
    PutPicture("C:\\Tavrix\\Untitled.BMP", 60, 50);
    PutPicture(Working, 60, 50);
    View().imageOnShow.Become("C:\\Tavrix\\Untitled.BMP");
    View().imageOnShow.Renamed("C:\\p\\2.bmp", "C:\\p\\new.bmp");
    EXPECT_TRUE(Close());
    EXPECT_TRUE(platform.disks.Exists("C:\\Tavrix\\Untitled.BMP"));
    EXPECT_FALSE(platform.disks.Exists(Working));
}

TEST_F(ImageOnShowTest, TheTitleAloneMaySpellThePathOtherwise) {
    Begin();
    View().imageOnShow.ShowTitleOf("autoexec.batx.jpg");
    ExpectTitle("autoexec.batx.jpg");
    EXPECT_EQ(module.CurrentImage, From);
}

// Files of which one may be the open image.

TEST_F(ImageOnShowTest, TheImageFollowsItsFileWithoutBeingARecentOne) {
    Begin();
    ScrollAndOfferUndo();
    MoveFile(From, To);
    View().imageOnShow.Moved("c:\\p\\X.jpg", To);
    EXPECT_EQ(module.CurrentImage, To);
    ExpectTitle(To);
    EXPECT_EQ(Recent(), (Paths{"C:\\p\\1.bmp", "C:\\p\\2.bmp", "C:\\p\\3.bmp"}));
    EXPECT_EQ(Favorites(), (Paths{"C:\\p\\1.bmp", To, From, ""}));
    EXPECT_EQ(FavoriteEntry(1), To);
    EXPECT_TRUE(platform.shell.recent.empty());
    ExpectPictureLeftAlone();
}

TEST_F(ImageOnShowTest, ThePathMayBeTheImagesOwn) {
    Begin();
    MoveFile(From, To);
    View().imageOnShow.Moved(module.CurrentImage, To);
    EXPECT_EQ(module.CurrentImage, To);
    EXPECT_EQ(Recent().front(), "C:\\p\\1.bmp");
    EXPECT_EQ(Favorites()[1], To);
}

TEST_F(ImageOnShowTest, AnotherFileLeavesTheImageAndTakesTheListsAlong) {
    Begin();
    MoveFile("C:\\p\\1.bmp", "C:\\q\\1.bmp");
    View().imageOnShow.Moved("C:\\p\\1.bmp", "C:\\q\\1.bmp");
    EXPECT_EQ(module.CurrentImage, From);
    ExpectTitle(From);
    EXPECT_EQ(Recent(), (Paths{From, "C:\\p\\2.bmp", "C:\\p\\3.bmp"}));
    EXPECT_EQ(Favorites()[0], "C:\\q\\1.bmp");
    EXPECT_EQ(FavoriteEntry(0), "C:\\q\\1.bmp");
}

TEST_F(ImageOnShowTest, AFileOfNoListChangesNone) {
    Begin();
    View().imageOnShow.Moved("C:\\p\\none.bmp", To);
    EXPECT_EQ(module.CurrentImage, From);
    EXPECT_EQ(Recent().size(), 4U);
    EXPECT_EQ(Favorites(), (Paths{"C:\\p\\1.bmp", "c:\\P\\X.JPG", From, ""}));
}

TEST_F(ImageOnShowTest, TheImageOfANameInAnotherCaseThatIsStillThereStays) {
    Begin();
    View().imageOnShow.Moved("C:\\p\\X.jpg", To);  // beside x.jpg
    EXPECT_EQ(module.CurrentImage, From);
    ExpectTitle(From);
}

// No image any more.

TEST_F(ImageOnShowTest, ADeletedImageLeavesAnEmptyView) {
    Begin();
    View().vsbPict.Value = 150;
    platform.disks.Remove(From);
    int times = 0;
    toolkit.AtYield(1, [&] {
        ++times;
        EXPECT_TRUE(module.Busy());
        EXPECT_FALSE(View().picFrame.Visible);
    });
    View().imageOnShow.Deleted();
    EXPECT_EQ(times, 1);
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_EQ(View().picFrame.Width.Get(), View().MainImage.Width.Get());
    EXPECT_EQ(Recent().front(), From) << "the list is asked by whoever deletes";
}

TEST_F(ImageOnShowTest, ALostImageLeavesAnEmptyViewLaidOut) {
    Begin();
    View().vsbPict.Value = 150;
    int times = 0;
    toolkit.AtYield(1, [&] {  // the layout comes last
        ++times;
        EXPECT_EQ(module.CurrentImage, "");
        EXPECT_EQ(View().Caption.Get(), "Tavrix");
        EXPECT_FALSE(View().menu.mnuEdit.Visible);
    });
    View().imageOnShow.Lose();
    EXPECT_EQ(times, 1);
    ExpectEmptyView();
    EXPECT_FALSE(View().vsbPict.Visible);
    EXPECT_EQ(View().picFrame.Width.Get(), View().MainImage.Width.Get());
}

TEST_F(ImageOnShowTest, AClearedScreenIsOneWithoutAQuestion) {
    Begin();
    View().imageOnShow.Become(Working);
    View().picFrame.Visible = false;
    bool busy = false;
    toolkit.AtYield(1, [&] { busy = module.Busy(); });
    const auto& frame = *static_cast<headless::HeadlessCanvasPeer*>(View().picFrame.Peer());
    const int paintings = frame.paintings;
    View().imageOnShow.Clear();
    EXPECT_TRUE(busy);
    EXPECT_EQ(frame.paintings, paintings + 1) << "the frame is painted empty first";
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(ImageOnShowTest, AForgottenImageIsStillToBeSeen) {
    Begin();
    ScrollAndOfferUndo();
    View().imageOnShow.Forget();
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(View().Caption.Get(), "Tavrix");
    EXPECT_FALSE(View().menu.mnuEdit.Visible);
    EXPECT_FALSE(View().menu.mnuSaveCopy.Enabled);
    EXPECT_EQ(View().MainImage.PixelBounds().width, 1000);
}

}  // namespace
}  // namespace tavrix::test
