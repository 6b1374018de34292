#include "editing/clipboard/Copy.h"

#include "SelectionCommandTest.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using forms::MousePointer;
using headless::Service;

/// What a copy makes of the inside of a rectangle: the last column and the last row fall out, the rest is stretched.
Surface StretchedByOne(const Surface& surface, int left, int top, int width, int height) {
    return Scaled(Part(surface, left, top, width - 1, height - 1), width, height);
}

class Copy : public SelectionCommandTest {
  protected:
    void ExpectFailure(const std::string& description) {
        Expect({.text = "Unable to copy current image to the clipboard.\r\n\r\n" + description + "...",
                .icon = BoxIcon::Stop});
        Choose(Menus().mnuCopy);
        EXPECT_FALSE(HoldsPicture(platform.clipboard));
        ExpectNothingLeft();
    }
};

TEST_F(Copy, WithoutASelectionTheWholeImageIsCopied) {
    StartWithImage();
    PutOnClipboard(Different(3, 3), ClipboardFormat::Metafile);
    Choose(Menus().mnuCopy);
    EXPECT_TRUE(SamePixels(Copied(), Image()));
    EXPECT_TRUE(platform.clipboard.Has(ClipboardFormat::Bitmap));
    EXPECT_FALSE(platform.clipboard.Has(ClipboardFormat::Metafile));
    EXPECT_EQ(platform.clipboard.timesCleared, 1);
    EXPECT_EQ(platform.clipboard.timesSet, 1);
    ExpectUntouched();
}

TEST_F(Copy, OfASelectionIsStretchedByAPixelAndLeavesTheRectangleStanding) {
    for (const Drag& drag :
         {Drag{5, 6, 30, 20}, Drag{30, 20, 5, 6}, Drag{30, 6, 5, 20}, Drag{5, 20, 30, 6}}) {
        StartWithImage();
        Select(drag);
        Choose(Menus().mnuCopy);
        EXPECT_TRUE(SamePixels(Copied(), StretchedByOne(Image(), 6, 7, 23, 12)));
        EXPECT_TRUE(View().selection.SelectionShown);
        ExpectShown(Outlined(Image(), drag));
        EXPECT_EQ(module.CurrentImage, Opened);
        ExpectUndo("Can't Undo", false);
        ExpectNothingLeft();
        Click();
        ExpectShown(Image());
    }
}

TEST_F(Copy, OfAPixelIsStretchedFromNothing) {
    StartWithImage();
    Select({5, 6, 8, 9});
    Choose(Menus().mnuCopy);
    EXPECT_TRUE(SamePixels(Copied(), Cleared(1, 1)));
}

TEST_F(Copy, KeepsThePixelsThatWereCopied) {
    StartWithImage();
    Choose(Menus().mnuCopy);
    Choose(Menus().mnuFlipVertically);
    Select({5, 6, 30, 20});
    EXPECT_TRUE(SamePixels(Copied(), Image()));
}

TEST_F(Copy, WhatIsTransparentIsWhite) {
    Surface clear(Width, Height);
    clear.Row(4)[3] = OpaquePixel(1, 2, 3);
    Picture picture = PictureOf(clear.Clone());
    picture.transparent = true;
    platform.pictures.SetPicture("C:\\p\\x.gif", picture);
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    Choose(Menus().mnuCopy);
    Surface white = Cleared(Width, Height);
    white.Row(4)[3] = OpaquePixel(1, 2, 3);
    EXPECT_TRUE(SamePixels(Copied(), white));
}

TEST_F(Copy, DoesNothingWithoutAnImageOrUnderAnotherPointer) {
    ASSERT_TRUE(Start());
    PutOnClipboard(Different(3, 3));
    Menus().mnuCopy.Click();
    EXPECT_EQ(platform.clipboard.timesCleared, 0);
    StartWithImage();
    module.Screen().MousePointer = MousePointer::Hourglass;
    Choose(Menus().mnuCopy);
    EXPECT_TRUE(module.Busy());
    EXPECT_EQ(platform.clipboard.timesCleared, 0);
    EXPECT_TRUE(SamePixels(Copied(), Different(3, 3)));
}

TEST_F(Copy, ClearsBeforeItSetsAndNoEntryWorksMeanwhile) {
    StartWithImage();
    Select({5, 6, 30, 20});
    PutOnClipboard(Different(3, 3));
    int times = 0;
    bool empty = false;
    WhenMessagesRun([&] {
        if (!module.Busy()) return;
        ++times;
        empty = empty || platform.clipboard.formats.empty();
        for (forms::Menu* entry : {&Menus().mnuCopy, &Menus().mnuCrop, &Menus().mnuPaste, &Menus().mnuExit})
            Choose(*entry);
    });
    EXPECT_FALSE(Choose(Menus().mnuCopy));
    EXPECT_GE(times, 3);
    EXPECT_TRUE(empty);
    EXPECT_EQ(platform.clipboard.timesSet, 1);
    EXPECT_EQ(module.CurrentImage, Opened);
}

TEST_F(Copy, TheClipboardMayRefuse) {
    StartWithImage();
    platform.faults.FailAlways(Service::Clipboard, "Set", ErrorNumber::CantOpenClipboard);
    ExpectFailure("Can't open Clipboard");
    platform.faults.Clear();
    Select({5, 6, 30, 20});
    platform.faults.FailAlways(Service::Clipboard, "Set", ErrorNumber::CantOpenClipboard);
    ExpectFailure("Can't open Clipboard");
    EXPECT_TRUE(View().selection.SelectionShown);
    platform.faults.Clear();
    platform.faults.FailAlways(Service::Clipboard, "Clear", ErrorNumber::CantOpenClipboard);
    ExpectFailure("Can't open Clipboard");
}

TEST_F(Copy, OfARectangleWithNothingInsideIsRefused) {
    for (const Drag& drag : {Drag{5, 6, 7, 20}, Drag{5, 6, 30, 8}, Drag{5, 6, 6, 7}}) {
        StartWithImage();
        Select(drag);
        PutOnClipboard(Different(3, 3));
        ExpectFailure("Invalid property value");
        ExpectShown(Outlined(Image(), drag));
    }
}

}  // namespace
}  // namespace tavrix::test
