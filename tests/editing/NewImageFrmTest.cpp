#include "editing/creating/NewImageFrm.h"

#include "DialogTest.h"
#include "core/HelpContexts.h"
#include "editing/creating/BackColorFrm.h"
#include "support/MemoryLimit.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxIcon;
using forms::MousePointer;
using headless::Service;

Surface Plain(int width, int height, Pixel pixel) {
    Surface surface(width, height);
    surface.Fill(pixel);
    return surface;
}

/// A picture with another one in its middle, cut at the edges.
Surface WithCentre(Surface outer, const Surface& inner) {
    const auto offset = [](int out, int in) {
        return static_cast<int>(std::nearbyint((out - in) / 2.0));  // halves to even
    };
    const int left = offset(outer.Width(), inner.Width());
    const int top = offset(outer.Height(), inner.Height());
    for (int y = 0; y < inner.Height(); ++y) {
        for (int x = 0; x < inner.Width(); ++x)
            PutPixel(outer, left + x, top + y, PixelAt(inner, x, y));
    }
    return outer;
}

class NewImage : public DialogTest {
  protected:
    static constexpr Pixel Ink = OpaquePixel(0, 0, 0);
    static constexpr const char* Default = "\r\n\r\nUse the default resolution of 640 x 480 pixels?";
    static constexpr const char* NotMade =
        "Error, unable to create an image with the specified attributes.\r\n\r\n";

    void InNew(std::function<void(NewImageFrm&)> action) {
        InDialog<NewImageFrm>(Menus().mnuNewImage, "NewImageFrm", std::move(action));
    }
    static void Enter(NewImageFrm& dialog, const std::string& width, const std::string& height) {
        Paste(dialog.txtWidth, width);
        Paste(dialog.txtHeight, height);
    }
    void Make(const std::string& width, const std::string& height, bool paste = false) {
        InNew([=](NewImageFrm& dialog) {
            Enter(dialog, width, height);
            if (dialog.CheckPaste.Value != paste) Tick(dialog.CheckPaste);
            Press(dialog.CmdOK);
        });
    }
    void ExpectOffer(const std::string& problem, Answer reply) {
        Expect({.text = problem + Default,
                .icon = BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    /// What is entered brings an offer; No goes back to the field, and Yes makes the default size.
    void ExpectOffered(const std::string& width, const std::string& height, const std::string& problem,
                       forms::TextBox NewImageFrm::*field, bool both = false) {
        InNew([&, this](NewImageFrm& dialog) {
            Enter(dialog, width, height);
            Visit(dialog.CmdOK);
            ExpectOffer(problem, Answer::No);
            Press(dialog.CmdOK);
            forms::TextBox& named = dialog.*field;
            ExpectToReplace(named, named.Text);
            if (both) ExpectSelected(dialog.txtHeight, height);
            EXPECT_TRUE(dialog.Visible());
        });
        const std::string before = module.CurrentImage;
        EXPECT_NE(before, Working);
        InNew([&, this](NewImageFrm& dialog) {
            Enter(dialog, width, height);
            ExpectOffer(problem, Answer::Yes);
            Press(dialog.CmdOK);
        });
        ExpectEdited(Plain(640, 480, Ink));
        EXPECT_EQ(module.config.NewImageX, 640);
        EXPECT_EQ(module.config.NewImageY, 480);
        ExpectDiscard("Discard changes and continue?", Answer::Yes);
        Choose(Menus().mnuClear);
    }
    void PutOnClipboard(const Surface& picture) {
        platform.clipboard.formats = {ClipboardFormat::Bitmap};
        platform.clipboard.picture = PictureOf(picture.Clone());
    }
};

TEST_F(NewImage, ShowsItsControls) {
    ASSERT_TRUE(Start());
    InNew([](NewImageFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "New Image");
        EXPECT_EQ(dialog.HelpContext, HelpContext::NewImage);
        EXPECT_EQ(dialog.lblWidth.Caption.Get(), "&Width:");
        EXPECT_EQ(dialog.lblHeight.Caption.Get(), "&Height:");
        EXPECT_EQ(dialog.lblWidthUnit.Caption.Get(), "pixels");
        EXPECT_EQ(dialog.lblHeightUnit.Caption.Get(), "pixels");
        EXPECT_EQ(dialog.txtWidth.ToolTip.Get(), "Enter width in pixels.");
        EXPECT_EQ(dialog.txtHeight.ToolTip.Get(), "Enter height in pixels.");
        EXPECT_EQ(dialog.CheckPaste.Caption.Get(), "&Get image from clipboard.");
        EXPECT_EQ(dialog.Picture1.ToolTip.Get(), "Current background color.");
        EXPECT_EQ(dialog.CmdBackground.Caption.Get(), "&Background");
        EXPECT_EQ(dialog.CmdBackground.ToolTip.Get(), "Click here to select a background color.");
        EXPECT_EQ(dialog.lblColors.ToolTip.Get(), "Current number of colors.");
        EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
        EXPECT_EQ(dialog.CmdOK.ToolTip.Get(), "Click here to create a new image file.");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't create a new file.");
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_FALSE(dialog.ImageHold.Visible);
        ExpectOwnLetters(dialog, 6);
    });
}

TEST_F(NewImage, ProposesTheSettingsWithinTighterBounds) {
    ASSERT_TRUE(Start());
    const std::vector<std::tuple<int, const char*, const char*>> proposals{
        {4, "640", "480"}, {5, "5", "5"}, {9999, "9999", "9999"}, {10000, "640", "480"}, {800, "800", "800"}};
    for (const auto& [setting, width, height] : proposals) {
        module.config.NewImageX = module.config.NewImageY = static_cast<std::int16_t>(setting);
        InNew([&](NewImageFrm& dialog) {
            ExpectSelected(dialog.txtWidth, width);
            ExpectSelected(dialog.txtHeight, height);
        });
    }
}

TEST_F(NewImage, ATyped4IsAccepted) {
    ASSERT_TRUE(Start());
    Make("4", "4");
    ExpectEdited(Plain(4, 4, Ink));
    EXPECT_EQ(module.config.NewImageX, 4);
    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    InNew([](NewImageFrm& dialog) {
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "640");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "480");
    });
}

TEST_F(NewImage, TellsTheColoursOfTheDisplay) {
    ASSERT_TRUE(Start());
    const std::vector<std::pair<int, const char*>> depths{{1, "256 colors - (8 bit color)"},
                                                          {8, "256 colors - (8 bit color)"},
                                                          {15, "> 16 million colors - (32 bit or higher)"},
                                                          {16, "64,000 colors - (16 bit, High Color)"},
                                                          {24, "16 million colors - (24 bit, True Color)"},
                                                          {32, "> 16 million colors - (32 bit or higher)"}};
    for (const auto& [bits, text] : depths) {
        toolkit.screen.bitsPerPixel = bits;
        InNew([&](NewImageFrm& dialog) { EXPECT_EQ(dialog.lblColors.Caption.Get(), text); });
    }
}

TEST_F(NewImage, WithoutAPictureOnTheClipboardThereIsNothingToPaste) {
    ASSERT_TRUE(Start());
    module.config.NewGetsClipboard = true;
    InNew([](NewImageFrm& dialog) {
        EXPECT_FALSE(dialog.CheckPaste.Value);
        EXPECT_FALSE(dialog.CheckPaste.Enabled);
        EXPECT_EQ(dialog.Image1.ToolTip.Get(), "Nothing is currently in the clipboard to paste.");
        ExpectSelected(dialog.txtWidth, "640");
    });
    EXPECT_TRUE(module.config.NewGetsClipboard);
    Make("20", "10");
    EXPECT_FALSE(module.config.NewGetsClipboard);
}

TEST_F(NewImage, APictureOnTheClipboardProposesItsSize) {
    ASSERT_TRUE(Start());
    PutOnClipboard(Different(33, 21));
    for (const auto format :
         {ClipboardFormat::Bitmap, ClipboardFormat::Metafile, ClipboardFormat::DeviceIndependentBitmap}) {
        platform.clipboard.formats = {format};
        InNew([](NewImageFrm& dialog) {
            ExpectSelected(dialog.txtWidth, "33");
            ExpectSelected(dialog.txtHeight, "21");
            EXPECT_FALSE(dialog.CheckPaste.Value);
            EXPECT_TRUE(dialog.CheckPaste.Enabled);
            EXPECT_EQ(dialog.Image1.ToolTip.Get(), "");
        });
    }
    module.config.NewGetsClipboard = true;
    InNew([](NewImageFrm& dialog) { EXPECT_TRUE(dialog.CheckPaste.Value); });
}

TEST_F(NewImage, OnAFineDisplayTheProposedSizeIsThePixels) {
    toolkit.screen.twipsPerPixelX = toolkit.screen.twipsPerPixelY = 15 / 1.75F;
    ASSERT_TRUE(Start());
    for (const int side : {33, 100, 641, 1999}) {
        PutOnClipboard(Plain(side, side, Ink));
        InNew([&](NewImageFrm& dialog) { EXPECT_EQ(dialog.txtWidth.Text.Get(), std::to_string(side)); });
    }
}

TEST_F(NewImage, AClipboardThatCannotBeReadIsLeftAlone) {
    ASSERT_TRUE(Start());
    module.config.NewGetsClipboard = true;
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    InNew([](NewImageFrm& dialog) {
        EXPECT_FALSE(dialog.CheckPaste.Value);
        EXPECT_FALSE(dialog.CheckPaste.Enabled);
        EXPECT_EQ(dialog.Image1.ToolTip.Get(), "");
        ExpectSelected(dialog.txtWidth, "640");
        EXPECT_NE(dialog.lblColors.Caption.Get(), "");
    });
}

TEST_F(NewImage, TakesDigitsFromTheKeyboard) {
    ASSERT_TRUE(Start());
    InNew([](NewImageFrm& dialog) {
        for (forms::TextBox* field : {&dialog.txtWidth, &dialog.txtHeight}) {
            Type(*field, "-1a,2. 7\tx");
            EXPECT_EQ(field->Text.Get(), "127");
        }
    });
}

TEST_F(NewImage, TheMouseOverTheCheckBoxGivesTheFocusToTheWidth) {
    ASSERT_TRUE(Start());
    PutOnClipboard(Different(33, 21));
    InNew([](NewImageFrm& dialog) {
        Visit(dialog.CheckPaste);
        Paste(dialog.txtWidth, "77");
        dialog.CheckPaste.Deliver(
            forms::MouseEvent{forms::MouseAction::Up, forms::MouseButton::Left, 0, 3, 3});
        ExpectToReplace(dialog.txtWidth, "77");
    });
}

TEST_F(NewImage, TheBackgroundIsChosenInTheSharedWindow) {
    ASSERT_TRUE(Start());
    WhenShown<BackColorFrm>("BackColorFrm", [](BackColorFrm& colours) {
        colours.HScrollG.Value = colours.HScrollG.Value + 100;
        Press(colours.CmdOK);
    });
    toolkit.OnModal("NewImageFrm", [this] {
        auto& dialog = *app.Loaded<NewImageFrm>();
        Visit(dialog.CmdBackground);
        Press(dialog.CmdBackground);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x006400});
        ExpectToReplace(dialog.txtWidth, "640");
        dialog.Picture1.Deliver(forms::ClickEvent{});
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x00C800});
        EXPECT_EQ(shown, 2);
        Enter(dialog, "20", "10");
        Press(dialog.CmdOK);
    });
    EXPECT_FALSE(Choose(Menus().mnuNewImage));
    ExpectEdited(Plain(20, 10, OpaquePixel(0, 200, 0)));
}

TEST_F(NewImage, AsksForWhatIsMissing) {
    ASSERT_TRUE(Start());
    InNew([this](NewImageFrm& dialog) {
        Enter(dialog, "  ", " 20 ");
        Visit(dialog.CmdOK);
        ExpectTold("You need to specify the WIDTH of the new image to create.");
        Press(dialog.CmdOK);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtWidth);
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "20");
        Enter(dialog, " 7 ", "");
        Visit(dialog.CmdOK);
        ExpectTold("You need to specify the HEIGHT of the new image to create.");
        Press(dialog.CmdOK);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtHeight);
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "7");
    });
}

TEST_F(NewImage, OffersTheDefaultSizeForWhatIsNoNumber) {
    ASSERT_TRUE(Start());
    ExpectOffered("abc", "x", "The specified WIDTH is invalid...", &NewImageFrm::txtWidth);
    ExpectOffered("20", "1x", "The specified HEIGHT is invalid...", &NewImageFrm::txtHeight);
}

TEST_F(NewImage, OffersTheDefaultSizeForWhatDoesNotFit16Bits) {
    ASSERT_TRUE(Start());
    const std::string problem =
        "An invalid size was entered for the width and/or height of the new image to create...";
    ExpectOffered("40000", "50", problem, &NewImageFrm::txtWidth, true);
    ExpectOffered("50", "40000", problem, &NewImageFrm::txtWidth, true);
    ExpectOffered("99999999999", "3", problem, &NewImageFrm::txtWidth, true);
}

TEST_F(NewImage, OffersTheDefaultSizeForSidesThatAreTooSmallOrTooLarge) {
    ASSERT_TRUE(Start());
    ExpectOffered("3", "90", "The specified WIDTH is too small...", &NewImageFrm::txtWidth);
    ExpectOffered("-3", "3", "The specified WIDTH is too small...", &NewImageFrm::txtWidth);
    ExpectOffered("10001", "90", "The specified WIDTH is too large...", &NewImageFrm::txtWidth);
    ExpectOffered("90", "3", "The specified HEIGHT is too small...", &NewImageFrm::txtHeight);
    ExpectOffered("90", "10001", "The specified HEIGHT is too large...", &NewImageFrm::txtHeight);
}

TEST_F(NewImage, YesLeavesAllFurtherTestsOut) {
    ASSERT_TRUE(Start());
    InNew([this](NewImageFrm& dialog) {
        Enter(dialog, "3", "nonsense");
        ExpectOffer("The specified HEIGHT is invalid...", Answer::No);
        Press(dialog.CmdOK);
        Enter(dialog, "3", "99999");
        ExpectOffer("An invalid size was entered for the width and/or height of the new image to create...",
                    Answer::Yes);
        Press(dialog.CmdOK);
    });
    ExpectEdited(Plain(640, 480, Ink));
}

TEST_F(NewImage, MakesAnUnsavedImageWithoutAnUndo) {
    StartWithImage(40, 30);
    Choose(Menus().mnuFlipVertically);
    Choose(Menus().mnuReloadImage);
    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    Make("50", "20");
    ExpectEdited(Plain(50, 20, Ink));
    ExpectUndo("Can't Undo", false);
    EXPECT_TRUE(Menus().mnuEdit.Visible);
    EXPECT_TRUE(Menus().mnuSaveCopy.Enabled);
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
    EXPECT_TRUE(View().MainImage.AutoSize);
    EXPECT_EQ(module.config.NewImageX, 50);
    EXPECT_EQ(module.config.NewImageY, 20);
    ExpectIdle();
    EXPECT_TRUE(SamePixels(*Decoded(ContentOf(Opened)), Different(40, 30)));
    ExpectDiscard("Discard changes and exit?", Answer::Yes);
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("NewImageX"), "50");
    EXPECT_EQ(Saved("NewImageY"), "20");
    EXPECT_EQ(Saved("NewGetsClipboard"), "False");
}

TEST_F(NewImage, TheViewScrollsHome) {
    StartWithImage(4000, 3000);
    View().hsbPict.Value = 600;
    View().vsbPict.Value = 900;
    Make("5000", "4000");
    EXPECT_EQ(View().hsbPict.Value.Get(), 0);
    EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    EXPECT_EQ(View().MainImage.Left.Get(), 0);
    ExpectIdle();
}

TEST_F(NewImage, APictureThatIsOpenedLaterDecidesItsSizeAgain) {
    platform.disks.PutFile(Opened, BitmapOf(Different(40, 30)));
    ASSERT_TRUE(Start());
    Make("50", "20");
    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    View().Deliver(forms::DropEvent{{Opened}});
    ExpectShown(Different(40, 30));
}

TEST_F(NewImage, AReadOnlyWorkingFileSendsItToTheProgramsFolder) {
    ASSERT_TRUE(Start());
    platform.disks.PutFile(Working, "of before");
    platform.disks.SetReadOnly(Working, true);
    Make("50", "20");
    ExpectEdited(Plain(50, 20, Ink), WorkingBeside);
    EXPECT_EQ(ContentOf(Working), "of before");
}

TEST_F(NewImage, TheClipboardsPictureIsCentred) {
    ASSERT_TRUE(Start());
    PutOnClipboard(Different(33, 21));
    Make("60", "41", true);
    ExpectEdited(WithCentre(Plain(60, 41, Ink), Different(33, 21)));
    EXPECT_TRUE(module.config.NewGetsClipboard);
}

TEST_F(NewImage, AClipboardPictureThatIsLargerShowsItsCentre) {
    ASSERT_TRUE(Start());
    PutOnClipboard(Different(90, 70));
    Make("60", "40", true);
    ExpectEdited(WithCentre(Plain(60, 40, Ink), Different(90, 70)));
}

TEST_F(NewImage, AClipboardPictureThatIsWiderAloneIsCentredTheSameWay) {
    ASSERT_TRUE(Start());
    PutOnClipboard(Different(91, 20));
    Make("60", "45", true);
    ExpectEdited(WithCentre(Plain(60, 45, Ink), Different(91, 20)));
}

TEST_F(NewImage, WhatIsTransparentOnTheClipboardIsOpaqueInTheImage) {
    ASSERT_TRUE(Start());
    Surface picture(10, 10);
    picture.Fill(0x00123456U);
    PutOnClipboard(picture);
    platform.clipboard.picture.transparent = true;
    Make("20", "20", true);
    EXPECT_EQ(PixelAt(Shown(), 10, 10), OpaquePixel(255, 255, 255));
    EXPECT_EQ(PixelAt(Shown(), 2, 2), Ink);
}

TEST_F(NewImage, IsLockedOutByTheHourglass) {
    ASSERT_TRUE(Start());
    ExpectLockedOut(Menus().mnuNewImage, "NewImageFrm");
}

TEST_F(NewImage, AsksBeforeItDiscardsAnUnsavedImage) {
    StartWithImage(40, 30);
    Choose(Menus().mnuFlipVertically);
    toolkit.OnModal("NewImageFrm", [this] { ++shown; });
    ExpectDiscard("Discard changes and continue?", Answer::No);
    EXPECT_FALSE(Choose(Menus().mnuNewImage));
    EXPECT_EQ(shown, 0);
    ExpectIdle();
    ExpectEdited(Mirrored(Different(40, 30), false));
}

TEST_F(NewImage, CancelChangesNothing) {
    StartWithImage(40, 30);
    InNew([](NewImageFrm& dialog) {
        Enter(dialog, "50", "20");
        Press(dialog.CmdCancel);
        EXPECT_FALSE(dialog.Visible());
    });
    EXPECT_EQ(module.CurrentImage, Opened);
    EXPECT_EQ(module.config.NewImageX, 640);
    ExpectShown(Different(40, 30));
}

TEST_F(NewImage, OpensAboveATopmostWindow) {
    ASSERT_TRUE(Start());
    ExpectTopmostBracket<NewImageFrm>(Menus().mnuNewImage, "NewImageFrm");
}

TEST_F(NewImage, TheDialogIsHiddenAndNothingElseRunsMeanwhile) {
    StartWithImage(40, 30);
    bool visible = false;
    bool idle = false;
    InNew([&](NewImageFrm& dialog) {
        Enter(dialog, "50", "20");
        WhenMessagesRun([&, start = toolkit.Yields()] {
            const auto* open = app.Loaded<NewImageFrm>();
            if (open == nullptr) return;
            idle = idle || !module.Busy();
            if (toolkit.Yields() - start > 1) visible = visible || open->Visible();
            Choose(Menus().mnuFlipVertically);
        });
        Press(dialog.CmdOK);
    });
    EXPECT_FALSE(visible);
    EXPECT_FALSE(idle);
    ExpectEdited(Plain(50, 20, Ink));
}

TEST_F(NewImage, AFailedWriteEmptiesTheView) {
    StartWithImage(40, 30);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    Expect({.text = std::string(NotMade) + "Disk full...", .icon = BoxIcon::Exclamation});
    Make("50", "20");
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_TRUE(View().MainImage.AutoSize);
    EXPECT_EQ(module.config.NewImageX, 640);
}

TEST_F(NewImage, ASizeThatMemoryCannotHoldIsToldAndTheProgramGoesOn) {
    if (!MemoryLimit::Works()) GTEST_SKIP() << "no limit under this sanitizer";
    StartWithImage(40, 30);
    Expect({.text = std::string(NotMade) + "Out of memory...", .icon = BoxIcon::Exclamation});
    {
        const MemoryLimit limit(std::size_t{100} << 20U);
        Make("10000", "10000");
    }
    ExpectEmptyView();
    ExpectIdle();
    EXPECT_TRUE(View().MainImage.AutoSize);
    View().Deliver(forms::DropEvent{{Opened}});
    ExpectShown(Different(40, 30));
    Make("50", "20");
    ExpectEdited(Plain(50, 20, Ink));
}

}  // namespace
}  // namespace tavrix::test
