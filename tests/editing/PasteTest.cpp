#include "editing/clipboard/Paste.h"

#include "SelectionCommandTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using forms::MousePointer;
using headless::Service;

/// A picture whose pixels are not those of the image.
Surface Other(int width, int height) {
    Surface other = Different(width, height);
    for (Pixel& pixel : other.Pixels())
        pixel ^= 0x00F0F0F0U;
    return other;
}

class Paste : public SelectionCommandTest {
  protected:
    void ExpectQuestion(Answer reply) {
        Expect({.text = "Stretch clipboard data to fit the selected area?",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNoCancel,
                .reply = reply});
    }
    void ExpectLoss(const std::string& text) {
        Expect({.text = text, .icon = BoxIcon::Stop, .whileOpen = [this] {
                    EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Default);
                }});
        Choose(Menus().mnuPaste);
        ExpectEmptyView();
        ExpectIdle();
    }
};

struct Sizes {
    int width;
    int height;
    int left;
    int top;
};

class EachSize : public Paste, public ::testing::WithParamInterface<Sizes> {};

// Half a pixel goes to the even neighbour.
INSTANTIATE_TEST_SUITE_P(Smaller, EachSize,
                         ::testing::Values(Sizes{10, 8, 15, 11}, Sizes{11, 9, 14, 10}, Sizes{13, 11, 14, 10},
                                           Sizes{40, 30, 0, 0}, Sizes{40, 1, 0, 14}, Sizes{39, 29, 0, 0},
                                           Sizes{37, 27, 2, 2}, Sizes{1, 1, 20, 14}));

TEST_P(EachSize, IsCentredOnTheImage) {
    const auto [width, height, left, top] = GetParam();
    StartWithImage();
    const std::string before = ContentOf(Opened);
    PutOnClipboard(Other(width, height));
    Choose(Menus().mnuPaste);
    ExpectEdited(With(Image(), Other(width, height), left, top));
    ExpectUndo("&Undo Paste", true);
    EXPECT_EQ(ContentOf(Undoing), before);
    EXPECT_EQ(ContentOf(Opened), before);
    ExpectNothingLeft();
    EXPECT_TRUE(SamePixels(Copied(), Other(width, height)));
    Choose(Menus().mnuUndo);
    ExpectEdited(Image());
}

TEST_F(Paste, APictureThatIsLargerInOneDimensionOnlyReplacesTheImage) {
    for (const auto& [width, height] : {std::pair{41, 10}, {10, 31}, {41, 31}, {41, 30}, {1000, 900}}) {
        StartWithImage();
        PutOnClipboard(Other(width, height));
        Choose(Menus().mnuPaste);
        ExpectEdited(Other(width, height));
        ExpectNothingLeft();
    }
}

TEST_F(Paste, EveryKindOfPictureIsPasted) {
    for (const auto format :
         {ClipboardFormat::Bitmap, ClipboardFormat::Metafile, ClipboardFormat::DeviceIndependentBitmap}) {
        StartWithImage();
        PutOnClipboard(Other(10, 8), format);
        Choose(Menus().mnuPaste);
        ExpectEdited(With(Image(), Other(10, 8), 15, 11));
    }
}

TEST_F(Paste, OurOwnCopyComesBackAsItWas) {
    StartWithImage();
    Choose(Menus().mnuCopy);
    Choose(Menus().mnuFlipVertically);
    Choose(Menus().mnuPaste);
    ExpectEdited(Image());
}

TEST_F(Paste, WorksOnThePixelsOfAFineScreen) {
    toolkit.screen = {2560, 2048, 7.5F, 7.5F, 24};
    StartWithImage();
    PutOnClipboard(Other(11, 9));
    Choose(Menus().mnuPaste);
    ExpectEdited(With(Image(), Other(11, 9), 14, 10));
    ExpectQuestion(Answer::Yes);
    Select({5, 7, 30, 20});
    Choose(Menus().mnuPaste);
    ExpectEdited(
        With(With(Image(), Other(11, 9), 14, 10), Scaled(Part(Other(11, 9), 0, 0, 10, 8), 24, 12), 6, 8));
}

TEST_F(Paste, WithNothingOnTheClipboardItSaysSo) {
    StartWithImage();
    Select({5, 6, 30, 20});
    Expect({.text = "There is nothing to paste.\r\n\r\nAn image has not been copied to the clipboard yet...",
            .whileOpen = [this] { EXPECT_EQ(toolkit.ScreenPointer(), MousePointer::Hourglass); }});
    Choose(Menus().mnuPaste);
    ExpectShown(Outlined(Image(), {5, 6, 30, 20}));
    Click();
    ExpectUntouched();
}

TEST_F(Paste, DoesNothingUnderAnotherPointer) {
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    module.Screen().MousePointer = MousePointer::Hourglass;
    Choose(Menus().mnuPaste);
    EXPECT_TRUE(module.Busy());
    module.Screen().MousePointer = MousePointer::Default;
    ExpectUntouched();
}

TEST_F(Paste, StretchedItFillsTheInsideOfTheSelection) {
    for (const Drag& drag :
         {Drag{5, 6, 30, 20}, Drag{30, 20, 5, 6}, Drag{30, 6, 5, 20}, Drag{5, 20, 30, 6}}) {
        for (const auto& [width, height] : {std::pair{10, 8}, {100, 80}, {25, 14}, {2, 2}}) {
            StartWithImage();
            PutOnClipboard(Other(width, height));
            Select(drag);
            ExpectQuestion(Answer::Yes);
            Choose(Menus().mnuPaste);
            // The last column and the last row of the picture fall out.
            const Surface most = Part(Other(width, height), 0, 0, width - 1, height - 1);
            ExpectEdited(With(Image(), Scaled(most, 24, 13), 6, 7));
            EXPECT_FALSE(View().selection.SelectionShown);
            ExpectUndo("&Undo Paste", true);
            ExpectNothingLeft();
        }
    }
}

TEST_F(Paste, CutItShowsTheUpperLeftPartOfThePicture) {
    StartWithImage();
    PutOnClipboard(Other(100, 80));
    Select({30, 20, 5, 6});
    ExpectQuestion(Answer::No);
    Choose(Menus().mnuPaste);
    ExpectEdited(With(Image(), Scaled(Part(Other(100, 80), 0, 0, 23, 12), 24, 13), 6, 7));
    EXPECT_FALSE(View().selection.SelectionShown);
    Choose(Menus().mnuUndo);
    ExpectEdited(Image());
}

TEST_F(Paste, CutASmallerPictureCoversAPartOfTheSelection) {
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    Select({5, 6, 30, 20});
    ExpectQuestion(Answer::No);
    Choose(Menus().mnuPaste);
    // 23 by 12 pixels are stretched to 24 by 13, so the first pixel comes twice.
    Surface part(11, 9);
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 11; ++x)
            PutPixel(part, x, y, PixelAt(Other(10, 8), x * 23 / 24, y * 12 / 13));
    }
    ExpectEdited(With(Image(), part, 6, 7));
}

TEST_F(Paste, CanceledItLeavesThePictureAndOffersTheUndo) {
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    Select({5, 6, 30, 20});
    ExpectQuestion(Answer::Cancel);
    Choose(Menus().mnuPaste);
    ExpectUndo("&Undo Paste", true);
    EXPECT_TRUE(View().selection.SelectionShown);
    ExpectShown(Outlined(Image(), {5, 6, 30, 20}));
    EXPECT_EQ(module.CurrentImage, Opened);
    EXPECT_FALSE(platform.disks.Exists(Working));
    ExpectNothingLeft();
    Click();
    ExpectShown(Image());

    const std::string before = ContentOf(Opened);
    Choose(Menus().mnuUndo);
    ExpectEdited(Image());
    ExpectUndo("Can't Undo", false);
    EXPECT_EQ(ContentOf(Opened), before);
}

TEST_F(Paste, IntoASelectionOfNoSizeHarmsNothing) {
    for (const Answer reply : {Answer::Yes, Answer::No}) {
        StartWithImage();
        PutOnClipboard(Other(10, 8));
        Click(forms::ShiftMask::Shift);
        ExpectQuestion(reply);
        Choose(Menus().mnuPaste);
        // Stretching to a size below 0 mirrors one pixel of the picture to the anchor.
        const bool stretched = reply == Answer::Yes;
        ExpectEdited(stretched ? With(Image(), Part(Other(10, 8), 0, 0, 1, 1), 1, 1) : Image());
        EXPECT_FALSE(View().selection.SelectionShown);
        ExpectNothingLeft();
    }
}

TEST_F(Paste, IntoAScrolledSelectionScrollsHomeWithoutAnOutline) {
    StartWith(Different(1000, 900));
    View().vsbPict.Deliver(forms::ScrollEvent{3000, false});
    Select({300, 310, 400, 360});
    PutOnClipboard(Other(99, 49));
    ExpectQuestion(Answer::Yes);
    Choose(Menus().mnuPaste);
    ExpectEdited(With(Different(1000, 900), Scaled(Part(Other(99, 49), 0, 0, 98, 48), 99, 49), 301, 311));
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
}

TEST_F(Paste, TheFrameIsHiddenWhileThePictureComes) {
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    bool hidden = false;
    int times = 0;
    WhenMessagesRun([&] {
        if (!module.Busy()) return;
        ++times;
        hidden = hidden || !View().picFrame.Visible;
        for (forms::Menu* entry : {&Menus().mnuPaste, &Menus().mnuCopy, &Menus().mnuUndo, &Menus().mnuExit})
            Choose(*entry);
    });
    EXPECT_FALSE(Choose(Menus().mnuPaste));
    EXPECT_TRUE(hidden);
    EXPECT_GE(times, 4);
    ExpectEdited(With(Image(), Other(10, 8), 15, 11));
    ExpectNothingLeft();
}

TEST_F(Paste, EndsAnAnimation) {
    platform.pictures.SetPicture("C:\\p\\x.gif", PictureOf(Image()));
    ASSERT_TRUE(Start("C:\\p\\x.gif"));
    PutOnClipboard(Other(10, 8));
    ASSERT_TRUE(Menus().mnuAnimatedGIF.Enabled);
    Choose(Menus().mnuPaste);
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
}

TEST_F(Paste, LosesTheImageWhenTheClipboardGivesNothing) {
    StartWithImage();
    const std::string before = ContentOf(Opened);
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    ExpectLoss("Unable to get image from the clipboard.\r\n\r\nInvalid picture...");
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    platform.faults.FailAlways(Service::Clipboard, "Get", ErrorNumber::CantOpenClipboard);
    ExpectLoss("Unable to get image from the clipboard.\r\n\r\nCan't open Clipboard...");
    EXPECT_EQ(ContentOf(Opened), before);
}

TEST_F(Paste, ASelectionIsGoneWhenTheClipboardGivesNothing) {
    StartWithImage();
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    Select({5, 6, 30, 20});
    ExpectQuestion(Answer::No);
    ExpectLoss("Unable to get image from the clipboard.\r\n\r\nInvalid picture...");
    EXPECT_FALSE(View().selection.SelectionShown);
}

TEST_F(Paste, LosesTheImageWhenItCannotBeWritten) {
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectLoss("Unable to write clipboard data to a temporary file.\r\n\r\nDisk full...");
}

TEST_F(Paste, GoesOnWithoutAnUndoCopy) {
    StartWithImage();
    PutOnClipboard(Other(10, 8));
    platform.disks.Remove(Opened);
    Choose(Menus().mnuPaste);
    ExpectUndo("Can't Undo", false);
    ExpectEdited(With(Image(), Other(10, 8), 15, 11));
}

}  // namespace
}  // namespace tavrix::test
