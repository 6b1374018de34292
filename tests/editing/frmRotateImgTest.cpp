#include "editing/turning/frmRotateImg.h"

#include <array>
#include <tuple>

#include "DialogTest.h"
#include "ReferenceArbitrary.h"
#include "core/HelpContexts.h"
#include "editing/creating/BackColorFrm.h"
#include "support/MemoryLimit.h"

namespace tavrix::test {
namespace {

using forms::MousePointer;
using headless::Service;

class RotateImg : public DialogTest {
  protected:
    static constexpr const char* NotValid =
        "The number that was entered is not valid.\r\n\r\nEnter a number between 1 and 180 and then try "
        "again...";
    static constexpr const char* OutOfRange =
        "You must enter a number between 1 and 180, unable to rotate image...";

    void InRotate(std::function<void(frmRotateImg&)> action) {
        InDialog<frmRotateImg>(Menus().mnuArbitrary, "frmRotateImg", std::move(action));
    }
    void Rotate(const std::string& angle, bool clockwise = true, bool preserve = false) {
        InRotate([=](frmRotateImg& dialog) {
            Paste(dialog.txtAngle, angle);
            (clockwise ? dialog.OptionCW : dialog.OptionCCW).Deliver(forms::CheckEvent{true});
            if (dialog.CheckPreserveSize.Value != preserve) Tick(dialog.CheckPreserveSize);
            Press(dialog.CmdRotate);
        });
    }
    void ExpectSettings(int angle, int direction, bool preserve) {
        EXPECT_EQ(module.config.RotateAngle, angle);
        EXPECT_EQ(module.config.RotateDirection, direction);
        EXPECT_EQ(module.config.RotatePreserve, preserve);
    }
};

TEST_F(RotateImg, ShowsItsControls) {
    StartWithImage(40, 30);
    InRotate([](frmRotateImg& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Rotate Image");
        EXPECT_EQ(dialog.HelpContext, HelpContext::RotateImage);
        EXPECT_EQ(HelpContext::RotateImage, 1190U);
        EXPECT_EQ(dialog.Label1.Caption.Get(), "&Angle (Degrees):");
        EXPECT_EQ(dialog.Label2.Caption.Get(), "(1 - 180)");
        EXPECT_EQ(dialog.txtAngle.ToolTip.Get(), "Enter a number between 1 and 180.");
        const std::array<std::tuple<forms::CommandButton*, const char*, const char*>, 8> buttons{
            {{&dialog.Cmd45, "&45", "Rotate 45 degrees."},
             {&dialog.Cmd90, "&90", "Rotate 90 degrees."},
             {&dialog.Cmd135, "&135", "Rotate 135 degrees."},
             {&dialog.Cmd180, "1&80", "Rotate 180 degrees."},
             {&dialog.CmdBackground, "&Background", "Click here to select a background color."},
             {&dialog.CmdRotate, "&Rotate", ""},
             {&dialog.CmdCancel, "&Cancel", ""},
             {&dialog.CmdHelp, "Help", ""}}};
        for (const auto& [button, caption, toolTip] : buttons) {
            EXPECT_EQ(button->Caption.Get(), caption);
            EXPECT_EQ(button->ToolTip.Get(), toolTip);
        }
        EXPECT_EQ(dialog.OptionCCW.Caption.Get(), "C&ounter-clockwise");
        EXPECT_EQ(dialog.OptionCW.Caption.Get(), "Cloc&kwise");
        EXPECT_EQ(dialog.CheckPreserveSize.Caption.Get(), "&Preserve original image size.");
        EXPECT_EQ(dialog.Picture1.ToolTip.Get(), "Current background color.");
        EXPECT_TRUE(dialog.CmdRotate.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dynamic_cast<const headless::HeadlessLabelPeer&>(*dialog.Label1.Peer()).buddy,
                  dialog.txtAngle.Peer());
        ExpectOwnLetters(dialog, 11);
    });
}

TEST_F(RotateImg, LoadsTheSettings) {
    StartWithImage(40, 30);
    InRotate([](frmRotateImg& dialog) {
        ExpectSelected(dialog.txtAngle, "180");
        EXPECT_TRUE(dialog.OptionCW.Value);
        EXPECT_FALSE(dialog.OptionCCW.Value);
        EXPECT_FALSE(dialog.CheckPreserveSize.Value);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Black);
    });
    module.config.RotateAngle = 45;
    module.config.RotateDirection = 1;
    module.config.RotatePreserve = true;
    module.config.BackColorR = 10;
    module.config.BackColorG = 20;
    module.config.BackColorB = 30;
    InRotate([](frmRotateImg& dialog) {
        ExpectSelected(dialog.txtAngle, "45");
        EXPECT_TRUE(dialog.OptionCCW.Value);
        EXPECT_FALSE(dialog.OptionCW.Value);
        EXPECT_TRUE(dialog.CheckPreserveSize.Value);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x1E140A});
        const auto& swatch = dynamic_cast<const headless::HeadlessCanvasPeer&>(*dialog.Picture1.Peer());
        EXPECT_EQ(swatch.ShownPixel(5, 5), OpaquePixel(10, 20, 30));
    });
}

TEST_F(RotateImg, KeepsWhatWasEnteredBeforeItClearsThePicture) {
    StartWithImage(40, 30);
    module.config.RotateAngle = 12;
    int before = 0;
    int after = 0;
    WhenMessagesRun([&] {
        if (View().PictureTemp.Picture.Get().Empty()) return;
        const bool cleared = View().MainImage.Picture.Get().Empty();
        EXPECT_EQ(module.config.RotateAngle, cleared ? 45 : 12);
        ++(cleared ? after : before);
    });
    InRotate([](frmRotateImg& dialog) {
        Paste(dialog.txtAngle, "45");
        Press(dialog.CmdRotate);
    });
    EXPECT_EQ(before, 1);
    EXPECT_GT(after, 1);
}

TEST_F(RotateImg, StaysAwayWithoutAnImage) {
    ASSERT_TRUE(Start());
    toolkit.OnModal("frmRotateImg", [this] { ++shown; });
    EXPECT_FALSE(Choose(Menus().mnuArbitrary));
    EXPECT_FALSE(MainViewFixture::Press(forms::KeyCode::Up, forms::ShiftMask::Alt));
    EXPECT_EQ(shown, 0);
}

TEST_F(RotateImg, IsLockedOutByTheHourglass) {
    StartWithImage(40, 30);
    ExpectLockedOut(Menus().mnuArbitrary, "frmRotateImg");
}

TEST_F(RotateImg, OpensByAltAndTheUpArrow) {
    StartWithImage(40, 30);
    WhenShown<frmRotateImg>("frmRotateImg", [](frmRotateImg&) {});
    EXPECT_FALSE(MainViewFixture::Press(forms::KeyCode::Up, forms::ShiftMask::Alt));
    EXPECT_EQ(shown, 1);
}

TEST_F(RotateImg, OpensUnderTheHourglassAndAboveATopmostWindow) {
    StartWithImage(40, 30);
    MousePointer during = MousePointer::Default;
    toolkit.AtYield(1, [&] { during = toolkit.ScreenPointer(); });
    InRotate([](frmRotateImg&) {});
    EXPECT_EQ(during, MousePointer::Hourglass);
    ExpectTopmostBracket<frmRotateImg>(Menus().mnuArbitrary, "frmRotateImg");
}

TEST_F(RotateImg, WipesTheSelectionBeforeItOpens) {
    StartWithImage(40, 30);
    Select(5, 5, 20, 15);
    EXPECT_FALSE(SamePixels(Shown(), Different(40, 30)));
    InRotate([this](frmRotateImg&) {
        EXPECT_FALSE(View().selection.SelectionShown);
        EXPECT_TRUE(SamePixels(Shown(), Different(40, 30)));
    });
}

TEST_F(RotateImg, TheButtonsEnterTheirAngle) {
    StartWithImage(40, 30);
    InRotate([](frmRotateImg& dialog) {
        const std::array<std::pair<forms::CommandButton*, const char*>, 4> buttons{
            {{&dialog.Cmd45, "45"}, {&dialog.Cmd90, "90"}, {&dialog.Cmd135, "135"}, {&dialog.Cmd180, "180"}}};
        for (const auto& [button, angle] : buttons) {
            Visit(*button);
            Press(*button);
            ExpectToReplace(dialog.txtAngle, angle);
        }
    });
}

TEST_F(RotateImg, AChosenDirectionGivesTheFocusToTheAngle) {
    StartWithImage(40, 30);
    InRotate([](frmRotateImg& dialog) {
        for (forms::OptionButton* option : {&dialog.OptionCCW, &dialog.OptionCW}) {
            Visit(*option);
            option->Deliver(forms::CheckEvent{true});
            EXPECT_EQ(dialog.ActiveControl(), &dialog.txtAngle);
        }
    });
}

TEST_F(RotateImg, TakesDigitsFromTheKeyboard) {
    StartWithImage(40, 30);
    InRotate([](frmRotateImg& dialog) {
        Type(dialog.txtAngle, "-1a,2.b 7e");
        EXPECT_EQ(dialog.txtAngle.Text.Get(), "127");
        std::string backspace = forms::TextBox::BackspaceCharacter;
        dialog.txtAngle.OnKeyPress(backspace);
        EXPECT_EQ(backspace, forms::TextBox::BackspaceCharacter);
    });
}

TEST_F(RotateImg, HelpOpensItsPage) {
    StartWithImage(40, 30);
    InRotate([this](frmRotateImg& dialog) {
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 1190U);
        EXPECT_EQ(platform.help.calls.back().command, HelpCommand::Context);
        EXPECT_TRUE(dialog.Visible());
    });
}

TEST_F(RotateImg, RefusesNoAngle) {
    StartWithImage(40, 30);
    InRotate([this](frmRotateImg& dialog) {
        Paste(dialog.txtAngle, "");
        Visit(dialog.CmdRotate);
        ExpectTold("You need to enter the angle of rotation first...");
        Press(dialog.CmdRotate);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtAngle);
        EXPECT_TRUE(dialog.Visible());
    });
    EXPECT_EQ(module.CurrentImage, Opened);
    ExpectUndo("Can't Undo", false);
}

TEST_F(RotateImg, RefusesWhatIsNoNumberOf16Bits) {
    StartWithImage(40, 30);
    InRotate([this](frmRotateImg& dialog) {
        for (const char* angle : {"40000", "32768", "99999999999999999999", "abc", " ", "4 5", "-40000"}) {
            Paste(dialog.txtAngle, angle);
            Visit(dialog.CmdRotate);
            ExpectTold(NotValid);
            Press(dialog.CmdRotate);
            ExpectToReplace(dialog.txtAngle, "180");
        }
    });
    ExpectSettings(180, 0, false);
    EXPECT_EQ(module.CurrentImage, Opened);
}

TEST_F(RotateImg, RefusesAnglesOutside1To180) {
    StartWithImage(40, 30);
    InRotate([this](frmRotateImg& dialog) {
        for (const char* angle : {"0", "181", "-45", "32767", "0.5", "180.6"}) {
            Paste(dialog.txtAngle, angle);
            Visit(dialog.CmdRotate);
            ExpectTold(OutOfRange);
            Press(dialog.CmdRotate);
            ExpectToReplace(dialog.txtAngle, angle);
        }
    });
    EXPECT_EQ(module.CurrentImage, Opened);
    ExpectUndo("Can't Undo", false);
}

TEST_F(RotateImg, CancelAndRefusalsLeaveTheSettings) {
    StartWithImage(40, 30);
    InRotate([](frmRotateImg& dialog) {
        Paste(dialog.txtAngle, "30");
        dialog.OptionCCW.Deliver(forms::CheckEvent{true});
        Tick(dialog.CheckPreserveSize);
        Press(dialog.CmdCancel);
    });
    ExpectSettings(180, 0, false);
    ExpectShown(Different(40, 30));
    Rotate("30", false, true);
    ExpectSettings(30, 1, true);
    ExpectDiscard("Discard changes and exit?", forms::Answer::Yes);
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("RotateAngle"), "30");
    EXPECT_EQ(Saved("RotateDirection"), "1");
    EXPECT_EQ(Saved("RotatePreserve"), "True");
}

TEST_F(RotateImg, TheBackgroundIsChosenInTheSharedWindow) {
    StartWithImage(40, 30);
    const Colour chosen{0x0000C8};
    WhenShown<BackColorFrm>("BackColorFrm", [](BackColorFrm& colours) {
        colours.HScrollR.Deliver(forms::ScrollEvent{200, false});
        Press(colours.CmdOK);
    });
    toolkit.OnModal("frmRotateImg", [&] {
        auto& dialog = *app.Loaded<frmRotateImg>();
        Visit(dialog.CmdBackground);
        Press(dialog.CmdBackground);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), chosen);
        ExpectToReplace(dialog.txtAngle, "180");
        Press(dialog.CmdCancel);
    });
    EXPECT_FALSE(Choose(Menus().mnuArbitrary));
    EXPECT_EQ(shown, 1);
}

struct Turn {
    int degrees;
    bool clockwise;
    bool preserve;
};

void PrintTo(const Turn& turn, std::ostream* out) {
    *out << turn.degrees << (turn.clockwise ? " cw" : " ccw") << (turn.preserve ? " preserved" : "");
}

std::vector<Turn> Turns() {
    std::vector<Turn> turns;
    for (const int degrees : {1, 30, 45, 89, 90, 91, 135, 150, 179, 180}) {
        for (const bool clockwise : {false, true}) {
            for (const bool preserve : {false, true})
                turns.push_back({degrees, clockwise, preserve});
        }
    }
    return turns;
}

class EachTurn : public RotateImg, public ::testing::WithParamInterface<Turn> {};

INSTANTIATE_TEST_SUITE_P(Turns, EachTurn, ::testing::ValuesIn(Turns()));

TEST_P(EachTurn, IsWhatTheFormulasSay) {
    const auto& [degrees, clockwise, preserve] = GetParam();
    constexpr Pixel Background = OpaquePixel(40, 90, 200);
    for (const auto& [width, height] : {std::pair{200, 100}, {61, 90}, {32, 32}}) {
        SCOPED_TRACE(std::to_string(width) + " by " + std::to_string(height));
        const Surface before = Different(width, height);
        platform.disks.PutFile(Opened, BitmapOf(before));
        if (app.FormCount() == 0) {
            ASSERT_TRUE(Start(Opened));
            module.config.BackColorR = 40;
            module.config.BackColorG = 90;
            module.config.BackColorB = 200;
        } else {
            ExpectDiscard("Discard changes and continue?", forms::Answer::Yes);
            View().Deliver(forms::DropEvent{{Opened}});
        }
        Rotate(std::to_string(degrees), clockwise, preserve);
        ExpectEdited(ReferenceArbitrary(before, degrees, clockwise, preserve, Background));
        ExpectUndo("&Undo Rotate Arbitrary...", true);
        ExpectNothingLeft();
        ExpectSettings(degrees, clockwise ? 0 : 1, preserve);
        EXPECT_EQ(View().hsbPict.Value.Get(), 0);
        EXPECT_EQ(View().vsbPict.Value.Get(), 0);
    }
}

TEST_F(RotateImg, AQuarterTurnSwapsTheSidesWithoutAMargin) {
    StartWithImage(200, 100);
    Rotate("90");
    EXPECT_EQ(View().MainImage.PixelBounds().width, 100);
    EXPECT_EQ(View().MainImage.PixelBounds().height, 200);
}

TEST_F(RotateImg, AHalfTurnHasOneSizeWithAndWithoutPreserve) {
    StartWithImage(200, 100);
    Rotate("180", true, false);
    const Surface grown = Shown();
    Choose(Menus().mnuUndo);
    Rotate("180", true, true);
    EXPECT_TRUE(SamePixels(grown, Shown()));
    EXPECT_EQ(grown.Width(), 200);
}

TEST_F(RotateImg, By135DegreesTheBoxIsThatOf45WithTheSidesSwapped) {
    StartWithImage(200, 100);
    Rotate("135", true);
    // 200 sin 45 + 100 cos 45 + 2 pixels, both ways.
    EXPECT_EQ(View().MainImage.PixelBounds().width, 214);
    EXPECT_EQ(View().MainImage.PixelBounds().height, 214);
    Choose(Menus().mnuUndo);
    Rotate("135", true, true);
    EXPECT_EQ(View().MainImage.PixelBounds().width, 100);
    EXPECT_EQ(View().MainImage.PixelBounds().height, 200);
}

TEST_F(RotateImg, PreserveCutsTheCornersAndShowsTheBackground) {
    StartWith(PlainPicture(100, 100, OpaquePixel(250, 0, 0)).pixels->Whole().Clone());
    module.config.BackColorG = 255;
    Rotate("45", true, true);
    const Surface shownNow = Shown();
    EXPECT_EQ(shownNow.Width(), 100);
    EXPECT_EQ(PixelAt(shownNow, 0, 0), OpaquePixel(0, 255, 0));
    EXPECT_EQ(PixelAt(shownNow, 3, 3), OpaquePixel(0, 255, 0));
    EXPECT_EQ(PixelAt(shownNow, 50, 3), OpaquePixel(250, 0, 0));
}

TEST_F(RotateImg, ItsUndoBringsThePictureBack) {
    StartWithImage(40, 30);
    Rotate("30");
    Choose(Menus().mnuUndo);
    ExpectShown(Different(40, 30));
    ExpectUndo("Can't Undo", false);
}

TEST_F(RotateImg, AnEditedImageIsNoAnimation) {
    StartWithImage(40, 30);
    Menus().mnuAnimatedGIF.Enabled = true;
    Rotate("30");
    EXPECT_FALSE(Menus().mnuAnimatedGIF.Enabled);
}

TEST_F(RotateImg, TheDialogIsHiddenAndNothingElseRunsMeanwhile) {
    StartWithImage(40, 30);
    bool seen = false;
    bool idle = false;
    InRotate([&](frmRotateImg& dialog) {
        Paste(dialog.txtAngle, "30");
        int yields = 0;
        WhenMessagesRun([&, start = toolkit.Yields()] {
            if (app.Loaded<frmRotateImg>() == nullptr) return;
            ++yields;
            idle = idle || !module.Busy();
            if (toolkit.Yields() - start > 1) seen = seen || app.Loaded<frmRotateImg>()->Visible();
            Choose(Menus().mnuFlipVertically);
        });
        Press(dialog.CmdRotate);
        EXPECT_GT(yields, 5);
    });
    EXPECT_FALSE(seen);
    EXPECT_FALSE(idle);
    ExpectEdited(ReferenceArbitrary(Different(40, 30), 30, true, false, OpaquePixel(0, 0, 0)));
    ExpectUndo("&Undo Rotate Arbitrary...", true);
}

TEST_F(RotateImg, AFailedWriteEmptiesTheView) {
    StartWithImage(40, 30);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    Expect({.text = std::string(NotWritten) + "Disk full...", .icon = forms::BoxIcon::Stop});
    Rotate("30");
    ExpectEmptyView();
    ExpectSettings(30, 0, false);
    EXPECT_TRUE(SamePixels(*Decoded(ContentOf(Opened)), Different(40, 30)));
}

TEST_F(RotateImg, WithoutAnUndoCopyItGoesOn) {
    StartWithImage(40, 30);
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::FileNotFound);
    Rotate("90");
    ExpectUndo("Can't Undo", false);
    EXPECT_EQ(module.CurrentImage, Working);
    EXPECT_EQ(View().MainImage.PixelBounds().width, 30);
}

TEST_F(RotateImg, APictureThatMemoryCannotHoldIsTold) {
    if (!MemoryLimit::Works()) GTEST_SKIP() << "no limit under this sanitizer";
    StartWithPicture(3000, 3000);
    Expect({.text = std::string(NotWritten) + "Out of memory...", .icon = forms::BoxIcon::Stop});
    {
        const MemoryLimit limit(std::size_t{50} << 20U);
        Rotate("45");
    }
    ExpectEmptyView();
    // The program goes on.
    View().Deliver(forms::DropEvent{{ImagePath}});
    Rotate("90");
    EXPECT_EQ(module.CurrentImage, Working);
}

}  // namespace
}  // namespace tavrix::test
