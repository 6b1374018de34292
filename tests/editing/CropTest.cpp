#include "editing/clipboard/Crop.h"

#include "SelectionCommandTest.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using forms::MousePointer;
using headless::Service;

class Crop : public SelectionCommandTest {};

class EachDrag : public Crop, public ::testing::WithParamInterface<Drag> {};

INSTANTIATE_TEST_SUITE_P(Directions, EachDrag,
                         ::testing::Values(Drag{5, 6, 30, 20}, Drag{30, 20, 5, 6}, Drag{30, 6, 5, 20},
                                           Drag{5, 20, 30, 6}));

TEST_P(EachDrag, CutsToTheSameArea) {
    StartWithImage();
    const std::string before = ContentOf(Opened);
    Select(GetParam());
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Image(), 6, 7, 23, 12));
    ExpectUndo("&Undo Crop", true);
    EXPECT_EQ(ContentOf(Undoing), before);
    EXPECT_EQ(ContentOf(Opened), before);
    ExpectNothingLeft();
}

TEST_F(Crop, ADragBeyondTheEdgesStopsThere) {
    StartWithImage();
    Select({10, 10, 500, 400});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Image(), 11, 11, 28, 18));
}

TEST_F(Crop, TheDigitZeroCropsToo) {
    for (const int key : {forms::KeyCode::Digit0, forms::KeyCode::Numpad0}) {
        StartWithImage();
        Select({5, 6, 30, 20});
        Press(key);
        ExpectEdited(Part(Image(), 6, 7, 23, 12));
    }
}

TEST_F(Crop, WorksOnThePixelsOfAFineScreen) {
    toolkit.screen = {2560, 2048, 7.5F, 7.5F, 24};
    StartWithImage();
    Select({5, 7, 30, 20});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Image(), 6, 8, 23, 11));
}

TEST_F(Crop, ThreePixelsLeaveOne) {
    StartWithImage();
    Select({5, 6, 8, 9});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Image(), 6, 7, 1, 1));
}

TEST_F(Crop, WithoutASelectionItSaysHowToSelect) {
    StartWithImage();
    Expect({.text =
                "Nothing is selected, unable to crop image.\r\n\r\nWhile holding the shift key and the left "
                "mouse button, select the area that you would like to crop and then try again...",
            .title = "Tavrix - [Crop Image]",
            .help = true,
            .helpContext = 1310,
            .whileOpen = [this] { EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Hourglass); }});
    Choose(Menus().mnuCrop);
    ExpectUntouched();
}

TEST_F(Crop, DoesNothingWithoutAnImage) {
    ASSERT_TRUE(Start());
    const int yields = toolkit.Yields();
    Press(forms::KeyCode::Digit0);
    EXPECT_EQ(toolkit.Yields(), yields);
    EXPECT_EQ(module.CurrentImage, "");
}

TEST_F(Crop, DoesNothingUnderAnotherPointer) {
    StartWithImage();
    Select({5, 6, 30, 20});
    module.Screen().MousePointer = MousePointer::Hourglass;
    Choose(Menus().mnuCrop);
    EXPECT_TRUE(module.Busy());
    ExpectShown(Outlined(Image(), {5, 6, 30, 20}));
    ExpectUndo("Can't Undo", false);
}

TEST_F(Crop, NoEntryWorksMeanwhile) {
    StartWithImage();
    Select({5, 6, 30, 20});
    int times = 0;
    WhenMessagesRun([&] {
        if (!module.Busy()) return;
        ++times;
        for (forms::Menu* entry : {&Menus().mnuCrop, &Menus().mnuCopy, &Menus().mnuPaste, &Menus().mnuUndo,
                                   &Menus().mnuFlipVertically, &Menus().mnuClear, &Menus().mnuExit})
            Choose(*entry);
    });
    EXPECT_FALSE(Choose(Menus().mnuCrop));
    EXPECT_GE(times, 4);
    ExpectEdited(Part(Image(), 6, 7, 23, 12));
    EXPECT_EQ(platform.clipboard.timesCleared, 0);
    ExpectNothingLeft();
}

TEST_F(Crop, LeavesTheMarkOfTheSelectionButNoOutline) {
    StartWithImage();
    Select({5, 6, 20, 20});
    Choose(Menus().mnuCrop);
    EXPECT_TRUE(View().selection.SelectionShown);
    const Surface cropped = Part(Image(), 6, 7, 13, 12);
    ExpectEdited(cropped);
    // The next press means to wipe it, and so draws it once.
    Click();
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectShown(Outlined(cropped, {5, 6, 20, 20}));
    Click();
    ExpectShown(Outlined(cropped, {5, 6, 20, 20}));
}

TEST_F(Crop, TheNextEditDrawsTheOldRectangleOnce) {
    StartWithImage();
    Select({5, 6, 20, 20});
    Choose(Menus().mnuCrop);
    Choose(Menus().mnuFlipHorizontal);
    EXPECT_FALSE(View().selection.SelectionShown);
    ExpectEdited(Mirrored(Outlined(Part(Image(), 6, 7, 13, 12), {5, 6, 20, 20}), true));
}

TEST_F(Crop, OfAScrolledImageLeavesNoOutlineEither) {
    StartWith(Different(1000, 900));
    View().hsbPict.Deliver(forms::ScrollEvent{3000, false});
    View().vsbPict.Deliver(forms::ScrollEvent{3000, false});
    ASSERT_EQ(View().hsbPict.Value.Get(), 3000);
    Select({300, 310, 500, 460});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Different(1000, 900), 301, 311, 198, 148));
    EXPECT_TRUE(View().selection.SelectionShown);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().MainImage.Left.Get(), 0);
    EXPECT_EQ(View().MainImage.Top.Get(), 0);
}

TEST_F(Crop, ToALargePartOfAScrolledImageScrollsHome) {
    StartWith(Different(2000, 1800));
    View().hsbPict.Deliver(forms::ScrollEvent{3000, false});
    View().vsbPict.Deliver(forms::ScrollEvent{1500, false});
    Select({210, 110, 1900, 1700});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Different(2000, 1800), 211, 111, 1688, 1588));
    EXPECT_TRUE(View().hsbPict.Visible);
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
}

TEST_F(Crop, TheUndoBringsThePictureBack) {
    StartWithImage();
    Select({5, 6, 30, 20});
    Choose(Menus().mnuCrop);
    Choose(Menus().mnuUndo);
    ExpectEdited(Image());
    ExpectUndo("Can't Undo", false);
    EXPECT_TRUE(View().selection.SelectionShown);
}

TEST_F(Crop, TheUndoOfAScrolledCropLeavesNoOutline) {
    StartWith(Different(1000, 900));
    Select({0, 0, 900, 850});
    Choose(Menus().mnuCrop);
    View().vsbPict.Deliver(forms::ScrollEvent{600, false});
    EXPECT_TRUE(View().selection.SelectionShown) << "it is no more to be seen";
    Choose(Menus().mnuUndo);
    ExpectShown(Different(1000, 900));
}

TEST_F(Crop, FitsTheWindowWhereItSizesItself) {
    Setting("AutosizeWindow", "True");
    StartWith(Different(600, 500));
    Select({0, 0, 402, 352});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Different(600, 500), 1, 1, 400, 350));
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FALSE(View().vsbPict.Visible);
}

TEST_F(Crop, EndsAnAnimation) {
    platform.pictures.SetPicture("C:\\p\\x.gif", PictureOf(Image()));
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    Select({5, 6, 30, 20});
    ASSERT_TRUE(Menus().mnuAnimatedGIF.Enabled);
    Choose(Menus().mnuCrop);
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
}

TEST_F(Crop, GoesOnWithoutAnUndoCopy) {
    StartWithImage();
    platform.disks.Remove(Opened);
    Select({5, 6, 30, 20});
    Choose(Menus().mnuCrop);
    ExpectUndo("Can't Undo", false);
    ExpectEdited(Part(Image(), 6, 7, 23, 12));
}

TEST_F(Crop, LosesThePictureWhenItCannotBeWritten) {
    StartWithImage();
    Select({5, 6, 30, 20});
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    Expect({.text = "Unable to write new image data to a temporary file.\r\n\r\nDisk full...",
            .icon = BoxIcon::Stop,
            .whileOpen = [this] { EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Default); }});
    Choose(Menus().mnuCrop);
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(Crop, MovesBesideTheProgramWhenTheWorkingFileIsReadOnly) {
    platform.disks.PutFile(Working, "somebody else's");
    platform.disks.SetReadOnly(Working, true);
    StartWithImage();
    Select({5, 6, 30, 20});
    Choose(Menus().mnuCrop);
    ExpectEdited(Part(Image(), 6, 7, 23, 12), WorkingBeside);
}

/// Rectangles with nothing inside: their size cannot be taken, and the crop goes on with the one that the scratch
/// surface has.
class NarrowCrop : public Crop, public ::testing::WithParamInterface<Drag> {};

INSTANTIATE_TEST_SUITE_P(Sizes, NarrowCrop,
                         ::testing::Values(Drag{5, 6, 7, 20}, Drag{6, 6, 5, 20}, Drag{5, 6, 5, 20},
                                           Drag{5, 6, 30, 8}, Drag{5, 7, 30, 6}, Drag{5, 6, 30, 6},
                                           Drag{5, 6, 7, 8}, Drag{5, 6, 6, 7}));

TEST_P(NarrowCrop, LeavesThePictureAsItIs) {
    StartWithImage();
    Select(GetParam());
    Choose(Menus().mnuCrop);
    ExpectEdited(Outlined(Image(), GetParam()));
    ExpectUndo("&Undo Crop", true);
    ExpectNothingLeft();
    Click();
    ExpectShown(Image());
    Choose(Menus().mnuUndo);
    ExpectEdited(Image());
}

TEST_P(NarrowCrop, TakesTheSizeThatTheScratchSurfaceHas) {
    StartWithImage();
    Select(GetParam());
    View().PictureTemp.Move(0, 0, 10 * 15, 9 * 15);
    const auto [x1, y1, x2, y2] = GetParam();
    // Where one direction is wide enough it counts.
    const int width = std::abs(x2 - x1) > 2 ? std::abs(x2 - x1) - 2 : 10;
    const int height = std::abs(y2 - y1) > 2 ? std::abs(y2 - y1) - 2 : 9;
    Choose(Menus().mnuCrop);
    ExpectEdited(
        Part(Outlined(Image(), GetParam()), std::min(x1, x2) + 1, std::min(y1, y2) + 1, width, height));
    ExpectNothingLeft();
}

TEST_F(Crop, AShiftPressWithoutAMoveSelectsNothingToCrop) {
    StartWithImage();
    Click(forms::ShiftMask::Shift);
    EXPECT_TRUE(View().selection.SelectionShown);
    Choose(Menus().mnuCrop);
    ExpectEdited(Image());
    ExpectUndo("&Undo Crop", true);
    ExpectNothingLeft();
}

TEST_F(Crop, WithoutMemoryThePictureStays) {
    StartWithImage();
    Click(forms::ShiftMask::Shift);
    // Larger than any surface may be.
    View().selection.SelectionEndX = 15.0F * 20'000'000;
    View().selection.SelectionEndY = 15.0F * 20'000'000;
    Choose(Menus().mnuCrop);
    ExpectEdited(Image());
    ExpectNothingLeft();
}

}  // namespace
}  // namespace tavrix::test
