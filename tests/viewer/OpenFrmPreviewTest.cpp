// The preview of the Open Image dialog, and when it is made.

#include "viewer/OpenFrmTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

using OpenFrmPreviewTest = OpenFrmTest;

// Sizes

struct SizeCase {
    float twipsPerPixel;
    int pixelsWide;
    int pixelsHigh;
    float width;  ///< of the preview, in pixels of 15 twips
    float height;
    bool stretched;
};

void PrintTo(const SizeCase& size, std::ostream* out) {
    *out << size.pixelsWide << " x " << size.pixelsHigh << " at " << size.twipsPerPixel;
}

class PreviewSizeTest : public OpenFrmTest, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(PreviewSizeTest, IsShrunkToItsBoxAndNeverEnlarged) {
    const SizeCase& size = GetParam();
    toolkit.screen.twipsPerPixelX = size.twipsPerPixel;
    toolkit.screen.twipsPerPixelY = size.twipsPerPixel;
    PutPicture("C:\\one\\x.bmp", size.pixelsWide, size.pixelsHigh);
    PutPicture("C:\\one\\y.bmp", 700, 700);
    platform.files.ChangeFolder("C:\\one");
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        Push(dialog.CmdPreview);  // what was before it leaves no trace
        Select(dialog, 0);
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "x.bmp");
        const auto whole = [](float pixels) { return static_cast<float>(static_cast<int>(pixels)) * 15; };
        const forms::Image& preview = dialog.picPreview;
        EXPECT_EQ(preview.Stretch.Get(), size.stretched);
        EXPECT_FLOAT_EQ(preview.Width, size.width * 15);
        EXPECT_FLOAT_EQ(preview.Height, size.height * 15);
        const float freeWidth = dialog.picHoldPreview.ScaleWidth() / 15 - size.width;
        const float freeHeight = dialog.picHoldPreview.ScaleHeight() / 15 - size.height;
        EXPECT_FLOAT_EQ(preview.Left, whole(freeWidth / 2));
        EXPECT_FLOAT_EQ(preview.Top, whole(freeHeight / 2));
        EXPECT_GE(preview.Left, 0);
        EXPECT_GE(preview.Top, 0);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, PreviewSizeTest,
    ::testing::Values(SizeCase{15, 320, 100, 160, 50, true}, SizeCase{15, 100, 300, 40, 120, true},
                      SizeCase{15, 100, 100, 100, 100, false}, SizeCase{15, 400, 400, 120, 120, true},
                      SizeCase{15, 160, 120, 160, 120, false}, SizeCase{15, 161, 120, 160, 119, true},
                      SizeCase{15, 160, 121, 159, 120, true}, SizeCase{15, 161, 121, 160, 120, true},
                      SizeCase{15, 5000, 4000, 150, 120, true}, SizeCase{15, 1, 5000, 1, 120, true},
                      SizeCase{15, 5000, 1, 160, 1, true}, SizeCase{15, 1, 1, 1, 1, false},
                      SizeCase{15, 161, 1, 160, 1, true}, SizeCase{15, 159, 119, 159, 119, false}));

INSTANTIATE_TEST_SUITE_P(
    FinePixels, PreviewSizeTest,
    ::testing::Values(SizeCase{7.5F, 640, 200, 160, 50, true}, SizeCase{7.5F, 200, 600, 40, 120, true},
                      SizeCase{7.5F, 100, 100, 50, 50, false}, SizeCase{7.5F, 320, 240, 160, 120, false},
                      SizeCase{7.5F, 322, 242, 160, 120, true}, SizeCase{7.5F, 800, 800, 120, 120, true},
                      SizeCase{7.5F, 1, 5000, 1, 120, true}, SizeCase{7.5F, 5000, 1, 160, 1, true}));

TEST_F(OpenFrmPreviewTest, ItsHolderStandsInTheMiddleOfItsFrameAndShowsNothingOfItsOwn) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        const forms::PixelInsets border = dialog.Frame1.Border();
        const forms::PictureBox& holder = dialog.picHoldPreview;
        const float across = dialog.Frame1.Width + static_cast<float>(border.left - border.right) * 15;
        const float down = dialog.Frame1.Height + static_cast<float>(border.top - border.bottom) * 15;
        EXPECT_NEAR(2 * holder.Left + holder.Width, across, 60);
        EXPECT_NEAR(2 * holder.Top + holder.Height, down, 60);
        EXPECT_TRUE(static_cast<headless::HeadlessCanvasPeer*>(holder.Peer())->seeThrough);
    });
}

// The Preview button

TEST_F(OpenFrmPreviewTest, ShowsTheSelectedFile) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        ExpectNoPreview(dialog);
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "b.bmp");
        EXPECT_EQ(Asked("Pictures.Load C:\\p\\b.bmp"), 1);
        EXPECT_EQ(Loads(), 1);
        EXPECT_EQ(module.CurrentImage, "") << "a preview opens nothing";
    });
}

TEST_F(OpenFrmPreviewTest, KnowsTheRootOfADrive) {
    ASSERT_TRUE(Start());
    PutPicture("C:\\r.bmp", 10, 10);
    InDialog([&](OpenFrm& dialog) {
        dialog.Dir1.Path = "C:\\";
        Select(dialog, 0);
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "r.bmp");
        EXPECT_EQ(Asked("Pictures.Load C:\\r.bmp"), 1);
    });
}

TEST_F(OpenFrmPreviewTest, NeedsAFile) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        dialog.File1.ListIndex = -1;
        ExpectTold(NoneSelected);
        Push(dialog.CmdPreview);
        dialog.Dir1.Path = "C:\\empty";
        ExpectTold(NoneToPreview);
        Push(dialog.CmdPreview);
        ExpectNoPreview(dialog);
        EXPECT_EQ(Loads(), 0);
    });
}

TEST_F(OpenFrmPreviewTest, DoesNothingWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        module.Screen().MousePointer = forms::MousePointer::Hourglass;
        const int yields = toolkit.Yields();
        Push(dialog.CmdPreview);
        Push(dialog.CmdNext);
        Push(dialog.CmdPrevious);
        Select(dialog, 0);
        Pass(500);
        EXPECT_EQ(toolkit.Yields(), yields);
        EXPECT_EQ(dialog.File1.FileName(), "a.bmp");
        EXPECT_EQ(Loads(), 1);
        module.Screen().MousePointer = forms::MousePointer::Default;
    });
}

TEST_F(OpenFrmPreviewTest, IsAnnouncedWhileItIsMade) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        const auto expectAnnounced = [&] {
            EXPECT_TRUE(dialog.lblMsg.Visible);
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
        };
        int looks = 0;
        toolkit.AtYield(1, [&] {
            ++looks;
            expectAnnounced();
        });
        platform.faults.AtNth(Service::Pictures, 1, [&] {
            ++looks;
            expectAnnounced();
            EXPECT_FALSE(dialog.picPreview.Visible);
            EXPECT_TRUE(dialog.picPreview.Picture.Get().Empty());
            EXPECT_FALSE(dialog.picPreview.Stretch);
        });
        Push(dialog.CmdPreview);
        EXPECT_EQ(looks, 2);
        ExpectPreview(dialog, "a.bmp");
    });
}

TEST_F(OpenFrmPreviewTest, AFailureIsToldAndLeavesItCleared) {
    ASSERT_TRUE(Start());
    platform.pictures.SetFailure("C:\\p\\b.bmp", RuntimeError(ErrorNumber::InvalidPicture));
    platform.disks.Remove("C:\\p\\c.bmp");
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.File1.ListCount(), 2);
        platform.disks.Remove("C:\\p\\a.bmp");
        Expect({.text = "Unable to preview the selected file.\r\n\r\nFile not found",
                .whileOpen = [&] { ExpectNoPreview(dialog); }});
        Push(dialog.CmdPreview);
        ExpectNoPreview(dialog);
        Select(dialog, 1);
        ExpectPreviewFailure("Invalid picture");
        Push(dialog.CmdPreview);
        ExpectNoPreview(dialog);
    });
}

TEST_F(OpenFrmPreviewTest, ClosingTheDialogMeanwhileMakesNone) {
    ASSERT_TRUE(Start());
    platform.pictures.SetFailure("C:\\p\\a.bmp", RuntimeError(ErrorNumber::InvalidPicture));
    InDialog([&](OpenFrm& dialog) {
        toolkit.AtYield(1, [&] { Push(dialog.CmdCancel); });
        Push(dialog.CmdPreview);
        EXPECT_EQ(Loads(), 0);
    });
}

TEST_F(OpenFrmPreviewTest, LeavingTheFolderMeanwhileMakesNone) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        toolkit.AtYield(1, [&] { dialog.Dir1.Path = "C:\\q"; });
        Push(dialog.CmdPreview);
        EXPECT_EQ(Loads(), 0);
        ExpectNoPreview(dialog);
        Select(dialog, 0);
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "y.bmp");
    });
}

TEST_F(OpenFrmPreviewTest, BelongsToTheFileThatIsSelectedByThen) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        toolkit.AtYield(1, [&] { Select(dialog, 2); });
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "c.bmp");
        EXPECT_EQ(Asked("Pictures.Load C:\\p\\c.bmp"), 1);
        EXPECT_EQ(Loads(), 1);
    });
}

// The tick

TEST_F(OpenFrmPreviewTest, TickingShowsItAndClearingTheTickTakesItAway) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Select(dialog, 2);
        Tick(dialog, true);
        ExpectPreview(dialog, "c.bmp");
        Pass(10000);
        EXPECT_EQ(Loads(), 1);
        Tick(dialog, false);
        ExpectNoPreview(dialog);
        EXPECT_EQ(Loads(), 1);
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "c.bmp");
    });
}

TEST_F(OpenFrmPreviewTest, TickingWithoutASelectedFileSaysNothing) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        dialog.File1.ListIndex = -1;
        Tick(dialog, true);
        Tick(dialog, false);
        dialog.Dir1.Path = "C:\\empty";
        Tick(dialog, true);
        ExpectNoPreview(dialog);
    });
}

TEST_F(OpenFrmPreviewTest, AnotherFolderClearsItUnlessTicked) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        ExpectPreview(dialog, "a.bmp");
        dialog.Dir1.Path = "C:\\q";
        ExpectNoPreview(dialog);
        Tick(dialog, true);
        Select(dialog, 0);
        Pass(500);
        ExpectPreview(dialog, "y.bmp");
        dialog.Dir1.Path = "C:\\p";
        ExpectPreview(dialog, "y.bmp");
    });
}

// The pause

TEST_F(OpenFrmPreviewTest, ComesAfterAPauseInTheList) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        Pass(499);
        EXPECT_EQ(Loads(), 1);
        ExpectPreview(dialog, "a.bmp");
        Pass(1);
        ExpectPreview(dialog, "b.bmp");
        Pass(10000);
        EXPECT_EQ(Loads(), 2);
    });
}

TEST_F(OpenFrmPreviewTest, EachStepStartsThePauseAnew) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        for (const int row : {1, 2, 1, 0, 0, 1, 2}) {
            Select(dialog, row);
            Pass(499);
            EXPECT_EQ(Loads(), 1);
        }
        Pass(1);
        ExpectPreview(dialog, "c.bmp");
        Pass(10000);
        EXPECT_EQ(Loads(), 2);
    });
}

TEST_F(OpenFrmPreviewTest, TheSettingsSayHowLongThePauseIs) {
    Setting("OpenPreviewTimer", "1234");
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.TimerPreview.Interval.Get(), 1234);
        Select(dialog, 1);
        Pass(1233);
        EXPECT_EQ(Loads(), 1);
        Pass(1);
        EXPECT_EQ(Loads(), 2);
    });
}

TEST_F(OpenFrmPreviewTest, WithoutATickNothingComesByItself) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        for (const int row : {1, 2, 0})
            Select(dialog, row);
        Pass(10000);
        EXPECT_EQ(Loads(), 0);
    });
}

TEST_F(OpenFrmPreviewTest, APauseThatEndsInABoxPreviewsUnderIt) {
    ASSERT_TRUE(Start());
    platform.pictures.SetFailure("C:\\p\\c.bmp", RuntimeError(ErrorNumber::InvalidPicture));
    const std::string question =
        "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\nC:\\p\\";
    InTickedDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        ExpectQuestion(question + "b.bmp", Answer::No, [this] { Pass(500); });
        Type(dialog, forms::KeyCode::Delete);
        ExpectPreview(dialog, "b.bmp");
        Select(dialog, 2);
        ExpectQuestion(question + "c.bmp", Answer::No, [this] {
            ExpectPreviewFailure("Invalid picture");
            Pass(500);
        });
        Type(dialog, forms::KeyCode::Delete);
        ExpectNoPreview(dialog);
        Pass(10000);
        EXPECT_EQ(Loads(), 3);
    });
}

TEST_F(OpenFrmPreviewTest, APauseIsOverOnceItsFileIsNotThereToBePreviewed) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        dialog.Dir1.Path = "C:\\q";
        Pass(10000);
        EXPECT_EQ(Loads(), 1);

        dialog.Dir1.Path = "C:\\p";
        Select(dialog, 1);
        ExpectQuestion(
            "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\nC:\\p\\b.bmp",
            Answer::Yes);
        Type(dialog, forms::KeyCode::Delete);
        Pass(10000);
        EXPECT_EQ(Loads(), 1);

        Select(dialog, 1);
        Tick(dialog, false);
        Pass(10000);
        Tick(dialog, true);
        EXPECT_EQ(Loads(), 2);

        Select(dialog, 0);
        Push(dialog.CmdCancel);
        Pass(10000);
        EXPECT_EQ(Loads(), 2);
    });
}

// Next and Previous

TEST_F(OpenFrmPreviewTest, NextAndPreviousGoRoundTheList) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        for (const char* name : {"b.bmp", "c.bmp", "a.bmp"}) {
            Push(dialog.CmdNext);
            EXPECT_EQ(dialog.File1.FileName(), name);
            ExpectPreview(dialog, name);
        }
        for (const char* name : {"c.bmp", "b.bmp", "a.bmp"}) {
            Push(dialog.CmdPrevious);
            EXPECT_EQ(dialog.File1.FileName(), name);
            ExpectPreview(dialog, name);
        }
        Pass(10000);
        EXPECT_EQ(Loads(), 7);
    });
}

TEST_F(OpenFrmPreviewTest, NextAndPreviousLeaveTheLoadingToThePauseWhereTicked) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        for (int step = 0; step < 5; ++step)
            Push(dialog.CmdNext);
        Push(dialog.CmdPrevious);
        EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
        EXPECT_EQ(Loads(), 1);
        Pass(500);
        ExpectPreview(dialog, "b.bmp");
        Pass(10000);
        EXPECT_EQ(Loads(), 2);
    });
}

TEST_F(OpenFrmPreviewTest, WithoutASelectedFileTheyBeginAtTheFirst) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        for (forms::CommandButton* button : {&dialog.CmdNext, &dialog.CmdPrevious}) {
            dialog.File1.ListIndex = 1;
            Push(dialog.CmdPreview);
            dialog.File1.ListIndex = -1;
            Push(*button);
            EXPECT_EQ(dialog.File1.ListIndex.Get(), 0);
            ExpectPreview(dialog, "a.bmp");
        }
    });
}

TEST_F(OpenFrmPreviewTest, OneFileIsItsOwnNeighbour) {
    ASSERT_TRUE(Start());
    platform.files.ChangeFolder("C:\\q");
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        Push(dialog.CmdNext);
        Push(dialog.CmdPrevious);
        ExpectPreview(dialog, "y.bmp");
        EXPECT_EQ(dialog.File1.ListIndex.Get(), 0);
    });
}

TEST_F(OpenFrmPreviewTest, InAnEmptyFolderThereIsNoNext) {
    ASSERT_TRUE(Start());
    InTickedDialog([&](OpenFrm& dialog) {
        dialog.Dir1.Path = "C:\\empty";
        ExpectTold(NoneToPreview);
        Push(dialog.CmdNext);
        ExpectTold(NoneToPreview);
        Push(dialog.CmdPrevious);
    });
}

// Pictures that still arrive

class ArrivalTest : public OpenFrmTest {
  protected:
    ArrivalTest() {
        Picture picture;
        picture.pixels = arriving;
        platform.pictures.SetPicture("C:\\p\\a.bmp", picture);
    }
    /// The preview of a.bmp is being made, and has no rows yet.
    void ExpectAwaited(const OpenFrm& dialog) const {
        EXPECT_TRUE(dialog.lblMsg.Visible);
        EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
        EXPECT_FALSE(dialog.picPreview.Visible);
    }
    /// Its first rows have come.
    void PushPreview(OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        arriving->TellReady(1);
        Pass(100);
        ExpectPreview(dialog, "a.bmp");
    }
    const std::shared_ptr<ArrivingSurface> arriving = std::make_shared<ArrivingSurface>(4000, 3000);
};

TEST_F(ArrivalTest, TheMessageAndTheHourglassStayUntilTheFirstRows) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        ExpectAwaited(dialog);
        Pass(5000);
        ExpectAwaited(dialog);
        arriving->TellReady(1);
        Pass(100);
        ExpectPreview(dialog, "a.bmp");
    });
}

TEST_F(ArrivalTest, AnotherFileIsPreviewedInThePlaceOfOneWithoutRows) {
    platform.pictures.SetPicture("C:\\p\\a.bmp", PlainPicture(20, 20));
    ASSERT_TRUE(Start());
    Picture picture;
    picture.pixels = arriving;
    platform.pictures.SetPicture("C:\\p\\b.bmp", picture);
    InTickedDialog([&](OpenFrm& dialog) {
        Select(dialog, 1);
        Pass(5000);
        ExpectAwaited(dialog);
        Select(dialog, 2);
        Pass(5000);
        ExpectPreview(dialog, "c.bmp");
    });
}

TEST_F(ArrivalTest, TheEndOfThePreviewEndsTheHourglass) {
    module.config.OpenShowPreview = true;
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        dialog.ChkPreview.Value = true;
        ExpectAwaited(dialog);
        Tick(dialog, false);
        ExpectNoPreview(dialog);
        arriving->TellReady(1);
        Pass(5000);
        ExpectNoPreview(dialog);
    });
}

TEST_F(ArrivalTest, IsShownWhileItArrives) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        PushPreview(dialog);
        EXPECT_FLOAT_EQ(dialog.picPreview.Width, 160 * 15);
        auto& peer = *static_cast<headless::HeadlessCanvasPeer*>(dialog.picPreview.Peer());
        peer.invalid.clear();
        arriving->TellReady(1000);
        Pass(100);
        EXPECT_FALSE(peer.invalid.empty());
        arriving->Finish(Outcome::Complete);
        Pass(100);
        peer.invalid.clear();
        Pass(10000);
        EXPECT_TRUE(peer.invalid.empty()) << "there is nothing more to come";
        ExpectPreview(dialog, "a.bmp");
    });
}

TEST_F(ArrivalTest, APictureThatBreaksOffStays) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        arriving->TellReady(10);
        arriving->Finish(Outcome::Truncated);
        Pass(10000);
        ExpectPreview(dialog, "a.bmp");
    });
}

TEST_F(ArrivalTest, OneThatTurnsOutToBeNoneIsToldOnce) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        Pass(1000);
        arriving->Finish(Outcome::Corrupt, true);
        Expect({.text = "Unable to preview the selected file.\r\n\r\nInvalid picture",
                .whileOpen = [this] { Pass(10000); }});
        Pass(10000);
        ExpectNoPreview(dialog);
    });
}

TEST_F(ArrivalTest, ItIsToldEvenIfTheUserHasMovedOn) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        Select(dialog, 1);
        arriving->Finish(Outcome::Corrupt, true);
        ExpectPreviewFailure("Invalid picture");
        Pass(10000);
        ExpectNoPreview(dialog);
        EXPECT_EQ(dialog.File1.FileName(), "b.bmp");
    });
}

TEST_F(ArrivalTest, OneThatWasReplacedIsForgotten) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        PushPreview(dialog);
        Push(dialog.CmdNext);
        arriving->Finish(Outcome::Corrupt, true);
        Pass(10000);
        ExpectPreview(dialog, "b.bmp");
    });
}

TEST_F(ArrivalTest, OneThatWasClearedIsForgotten) {
    ASSERT_TRUE(Start());
    arriving->TellReady(1);
    InTickedDialog([&](OpenFrm& dialog) {
        Tick(dialog, false);
        arriving->Finish(Outcome::Corrupt, true);
        Pass(10000);
        ExpectNoPreview(dialog);
    });
}

TEST_F(ArrivalTest, OneThatEndsWhileTheNextIsMadeIsForgotten) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        PushPreview(dialog);
        toolkit.AtYield(1, [this] {
            arriving->Finish(Outcome::Corrupt, true);
            Pass(100);
        });
        Push(dialog.CmdNext);
        ExpectPreview(dialog, "b.bmp");
    });
}

TEST_F(ArrivalTest, OneWhoseDialogWasClosedIsForgotten) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        Push(dialog.CmdPreview);
        Push(dialog.CmdCancel);
        arriving->Finish(Outcome::Corrupt, true);
        Pass(10000);
    });
    Pass(10000);
}

TEST_F(ArrivalTest, OneThatEndsWhileTheDialogIsHiddenIsNotTold) {
    ASSERT_TRUE(Start());
    module.CurrentImage = "C:\\p\\a.bmp";
    InDialogs({[&](OpenFrm& dialog) {
                   PushPreview(dialog);
                   ExpectQuestion(AlreadyOpen, Answer::No, [this] {
                       arriving->Finish(Outcome::Corrupt, true);
                       Pass(100);
                   });
                   Push(dialog.CmdOpen);
               },
               [&](OpenFrm& dialog) { ExpectNoPreview(dialog); }});
}

TEST_F(ArrivalTest, OneThatEndsWhileAnImageIsBeingOpenedIsNotTold) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        PushPreview(dialog);
        Select(dialog, 1);
        toolkit.AtYield(3, [this] {
            arriving->Finish(Outcome::Corrupt, true);
            Pass(100);
        });
        Push(dialog.CmdOpen);
    });
    EXPECT_EQ(module.CurrentImage, "C:\\p\\b.bmp");
}

}  // namespace
}  // namespace tavrix::test
