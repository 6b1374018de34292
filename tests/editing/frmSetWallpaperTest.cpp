// The wallpaper that is set and cleared.

#include "editing/desktop/frmSetWallpaper.h"

#include "DesktopTest.h"
#include "core/HelpContexts.h"
#include "editing/desktop/WallpaperFit.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class frmSetWallpaperTest : public DesktopTest {
  protected:
    static constexpr const char* Made = "C:\\Windows\\Tavrix Wallpaper.BMP";

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Tick(forms::CheckBox& box, bool on) {
        if (box.Value != on) box.Deliver(forms::ClickEvent{});
    }

    /// The user opens the dialog, does something there, and closes it where it is open still.
    void InDialog(const std::function<void(frmSetWallpaper&)>& action) {
        int shown = 0;
        toolkit.OnModal("frmSetWallpaper", [&] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            action(*app.Loaded<frmSetWallpaper>());
            if (auto* dialog = app.Loaded<frmSetWallpaper>()) app.Unload(*dialog);
        });
        EXPECT_FALSE(Choose(Menus().mnuSetWallpaper));
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(app.FormCount(), 1);
        ExpectIdle();
    }
    /// Sets the wallpaper, with these choices.
    void Set(bool stretch, bool aspect) {
        InDialog([&](frmSetWallpaper& dialog) {
            dialog.CheckStretch.Value = stretch;
            dialog.CheckAspect.Value = aspect;
            Press(dialog.CmdOK);
            EXPECT_TRUE(dialog.Unloaded());
        });
        ExpectNothingLeft();
    }
    Surface MadePixels() {
        auto pixels = Decoded(ContentOf(Made));
        EXPECT_TRUE(pixels);
        return pixels ? std::move(*pixels) : Surface();
    }
    /// A picture without interpolation in another size.
    static Surface Scaled(const Surface& surface, int width, int height) {
        Surface other(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                PutPixel(other, x, y,
                         PixelAt(surface, std::int64_t{x} * surface.Width() / width,
                                 std::int64_t{y} * surface.Height() / height));
            }
        }
        return other;
    }
    void ExpectImageUntouched(const Surface& image) {
        EXPECT_EQ(module.CurrentImage, Opened);
        EXPECT_EQ(View().Caption.Get(), std::string("Tavrix - [") + Opened + "]");
        ExpectShown(image);
        EXPECT_EQ(ContentOf(Opened), BitmapOf(image));
        EXPECT_FALSE(platform.disks.Exists(Working));
    }
};

TEST_F(frmSetWallpaperTest, TextsAreAsTold) {
    StartWithImage(30, 20);
    InDialog([](frmSetWallpaper& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Set Desktop Wallpaper");
        EXPECT_EQ(dialog.OptionTile.Caption.Get(), "&Tile Image");
        EXPECT_EQ(dialog.OptionCenter.Caption.Get(), "C&enter Image");
        EXPECT_EQ(dialog.CheckStretch.Caption.Get(), "&Strech Image");
        EXPECT_EQ(dialog.CheckAspect.Caption.Get(), "Preserve &Aspect");
        EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
        EXPECT_EQ(dialog.CmdOK.ToolTip.Get(), "Click here to change your current wallpaper.");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't change wallpaper.");
        EXPECT_EQ(dialog.CmdHelp.Caption.Get(), "Help");
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        EXPECT_EQ(dialog.lblLastFilename.Caption.Get(), Wallpaper);
        EXPECT_TRUE(dialog.lblLastFilename.Literal);
    });
}

TEST_F(frmSetWallpaperTest, WithoutAWallpaperTheLabelSaysNone) {
    StartWithImage(30, 20);
    for (const char* none : {"", "(None)"}) {
        SetValue("Wallpaper", none);
        InDialog([](frmSetWallpaper& dialog) { EXPECT_EQ(dialog.lblLastFilename.Caption.Get(), "(None)"); });
    }
}

TEST_F(frmSetWallpaperTest, OnlyAZeroIsCentred) {
    StartWithImage(30, 20);
    const auto expectTile = [&](bool tile) {
        InDialog([tile](frmSetWallpaper& dialog) {
            EXPECT_EQ(dialog.OptionTile.Value.Get(), tile);
            EXPECT_EQ(dialog.OptionCenter.Value.Get(), !tile);
        });
    };
    expectTile(true);  // no value
    for (const std::string& centred : {std::string("0"), std::string("0\0junk", 6)}) {
        SetValue("TileWallpaper", centred);
        expectTile(false);
    }
    for (const char* tiled : {"1", "", "00", "x"}) {
        SetValue("TileWallpaper", tiled);
        expectTile(true);
    }
    SetValue("TileWallpaper", "0");
    platform.faults.FailAlways(Service::Registry, "Read", ErrorNumber::PermissionDenied);
    InDialog([](frmSetWallpaper& dialog) {
        EXPECT_TRUE(dialog.OptionTile.Value);
        EXPECT_EQ(dialog.lblLastFilename.Caption.Get(), "(None)");
    });
}

TEST_F(frmSetWallpaperTest, TheBoxesFollowTheSettingsAndBack) {
    StartWithImage(30, 20);
    for (const bool stretch : {true, false}) {
        for (const bool aspect : {true, false}) {
            module.config.WallpaperStretch = stretch;
            module.config.WallpaperAspect = aspect;
            InDialog([&](frmSetWallpaper& dialog) {
                EXPECT_EQ(dialog.CheckStretch.Value.Get(), stretch);
                EXPECT_EQ(dialog.CheckAspect.Value.Get(), aspect);
                dialog.CheckStretch.Value = !stretch;
                dialog.CheckAspect.Value = !aspect;
                Press(dialog.CmdCancel);
                EXPECT_TRUE(dialog.Unloaded());
            });
            EXPECT_EQ(module.config.WallpaperStretch, stretch);
            EXPECT_EQ(module.config.WallpaperAspect, aspect);
            Set(!stretch, !aspect);
            EXPECT_EQ(module.config.WallpaperStretch, !stretch);
            EXPECT_EQ(module.config.WallpaperAspect, !aspect);
        }
    }
}

TEST_F(frmSetWallpaperTest, CancelChangesNothing) {
    StartWithImage(30, 20);
    InDialog([](frmSetWallpaper& dialog) {
        dialog.OptionCenter.Value = true;
        Press(dialog.CmdCancel);
    });
    EXPECT_EQ(platform.desktop.wallpapers, std::vector<std::string>{});
    EXPECT_EQ(Value("TileWallpaper"), "(no value)");
    EXPECT_FALSE(platform.disks.Exists(Made));
}

TEST_F(frmSetWallpaperTest, HelpOpensThePageOfTheDialog) {
    StartWithImage(30, 20);
    InDialog([this](frmSetWallpaper& dialog) {
        EXPECT_EQ(dialog.HelpContext, HelpContext::Wallpaper);
        Press(dialog.CmdHelp);
        EXPECT_FALSE(dialog.Unloaded());
        ASSERT_FALSE(platform.help.calls.empty());
        EXPECT_EQ(platform.help.calls.back(),
                  (headless::RecordingHelp::Call{"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 210}));
    });
}

TEST_F(frmSetWallpaperTest, ThePictureAsItIs) {
    const Surface image = Different(30, 20);
    for (const bool tile : {true, false}) {
        if (tile) {
            StartWith(image);
        }
        InDialog([&](frmSetWallpaper& dialog) {
            (tile ? dialog.OptionTile : dialog.OptionCenter).Value = true;
            Press(dialog.CmdOK);
        });
        EXPECT_EQ(Value("TileWallpaper"), tile ? "1" : "0");
        EXPECT_EQ(Value("Wallpaper"), Made);
        EXPECT_EQ(platform.desktop.wallpapers.back(), Made);
        EXPECT_TRUE(SamePixels(MadePixels(), image));
        ExpectImageUntouched(image);
        ExpectNothingLeft();
    }
    EXPECT_EQ(platform.desktop.wallpapers.size(), 2U);
}

TEST_F(frmSetWallpaperTest, ThingsHappenInTheirOrder) {
    StartWithImage(30, 20);
    InDialog([&](frmSetWallpaper& dialog) {
        const auto from = static_cast<std::ptrdiff_t>(platform.faults.Log().size());
        Press(dialog.CmdOK);
        std::vector<std::string> steps;
        for (auto call = platform.faults.Log().begin() + from; call != platform.faults.Log().end(); ++call) {
            if (call->starts_with("Registry") || call->starts_with("Pictures") ||
                call->starts_with("Desktop"))
                steps.push_back(*call);
        }
        EXPECT_EQ(steps, (std::vector<std::string>{
                             "Registry.Write Control Panel\\desktop TileWallpaper",
                             "Pictures.SaveBitmap C:\\Windows\\Tavrix Wallpaper.BMP",
                             "Desktop.SetWallpaper C:\\Windows\\Tavrix Wallpaper.BMP",
                         }));
    });
}

TEST_F(frmSetWallpaperTest, AStretchedPictureFillsTheScreen) {
    toolkit.screen = {320, 200, 15, 15, 24};
    const Surface image = Different(40, 30);
    StartWith(image);
    SetValue("TileWallpaper", "1");  // shows once
    Set(true, false);
    EXPECT_TRUE(SamePixels(MadePixels(), Scaled(image, 320, 200)));
    EXPECT_EQ(Value("TileWallpaper"), "1");
    ExpectImageUntouched(image);
}

TEST_F(frmSetWallpaperTest, AspectKeepsTheShape) {
    toolkit.screen = {320, 200, 15, 15, 24};
    const Surface image = Different(40, 30);
    StartWith(image);
    Set(true, true);
    EXPECT_TRUE(SamePixels(MadePixels(), Scaled(image, 267, 200)));
    ExpectImageUntouched(image);
}

TEST_F(frmSetWallpaperTest, AspectAloneScalesNothing) {
    const Surface image = Different(40, 30);
    StartWith(image);
    Set(false, true);
    EXPECT_TRUE(SamePixels(MadePixels(), image));
}

TEST_F(frmSetWallpaperTest, ALargerPictureIsMadeSmaller) {
    toolkit.screen = {320, 200, 15, 15, 24};
    const Surface image = Different(100, 400);
    StartWith(image);
    Set(true, true);
    EXPECT_TRUE(SamePixels(MadePixels(), Scaled(image, 50, 200)));
}

TEST_F(frmSetWallpaperTest, APictureOfTheScreensSizeStaysAsItIs) {
    toolkit.screen = {320, 200, 15, 15, 24};
    const Surface image = Different(320, 200);
    StartWith(image);
    for (const bool aspect : {false, true}) {
        Set(true, aspect);
        EXPECT_TRUE(SamePixels(MadePixels(), image));
    }
}

TEST_F(frmSetWallpaperTest, PixelsOfAScaledScreenAreFilled) {
    toolkit.screen = {640, 400, 7.5F, 7.5F, 24};
    const Surface image = Different(40, 30);
    StartWith(image);
    Set(true, false);
    EXPECT_TRUE(SamePixels(MadePixels(), Scaled(image, 640, 400)));
    Set(true, true);
    EXPECT_TRUE(SamePixels(MadePixels(), Scaled(image, 533, 400)));
}

TEST_F(frmSetWallpaperTest, OnlyOneWallpaperOfTheProgramExists) {
    StartWithImage(30, 20);
    Set(false, false);
    const auto files = platform.disks.AllFiles().size();
    ASSERT_FALSE(Choose(Menus().mnu90CW));
    Set(false, false);
    EXPECT_EQ(MadePixels().Width(), 20);
    EXPECT_EQ(platform.disks.AllFiles().size(), files + 2);  // the working file and the undo file
}

TEST_F(frmSetWallpaperTest, TheSelectionIsNoPartOfTheWallpaperAndStays) {
    const Surface image = Different(30, 20);
    StartWith(image);
    Select(2, 2, 20, 10);
    const Surface withOutline = Shown();
    ASSERT_FALSE(SamePixels(withOutline, image));
    Set(false, false);
    EXPECT_TRUE(SamePixels(MadePixels(), image));
    EXPECT_TRUE(View().selection.SelectionShown);
    EXPECT_TRUE(SamePixels(Shown(), withOutline));
}

TEST_F(frmSetWallpaperTest, TheSelectionOfACropIsNoPartOfTheWallpaper) {
    StartWith(Different(30, 20));
    Select(2, 2, 20, 10);
    ASSERT_FALSE(Choose(Menus().mnuCrop));
    ASSERT_TRUE(View().selection.SelectionShown);
    const Surface cropped = Shown();
    Set(false, false);
    EXPECT_TRUE(SamePixels(MadePixels(), cropped));
    EXPECT_TRUE(SamePixels(Shown(), cropped));
}

TEST_F(frmSetWallpaperTest, FailuresAreSkippedStatementByStatement) {
    const Surface image = Different(30, 20);
    StartWith(image);
    platform.faults.FailAlways(Service::Registry, "Write", ErrorNumber::PermissionDenied);
    Set(false, false);
    EXPECT_EQ(Value("TileWallpaper"), "(no value)");
    EXPECT_EQ(platform.desktop.wallpapers.size(), 1U);
    EXPECT_TRUE(SamePixels(MadePixels(), image));

    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    Set(true, true);
    EXPECT_EQ(platform.desktop.wallpapers.size(), 2U);
    EXPECT_TRUE(SamePixels(MadePixels(), image));

    platform.faults.FailAlways(Service::Desktop, "SetWallpaper", ErrorNumber::FileNotFound);
    Set(true, false);
    ExpectImageUntouched(image);
}

TEST_F(frmSetWallpaperTest, ADesktopThatTakesNoWallpaperIsTold) {
    const Surface image = Different(30, 20);
    StartWith(image);
    platform.faults.FailAlways(Service::Desktop, "SetWallpaper", ErrorNumber::DeviceUnavailable);
    Expect({.text = "Unable to change the desktop wallpaper, this desktop does not let a program do that...",
            .icon = forms::BoxIcon::Exclamation,
            .whileOpen = [&] { EXPECT_FALSE(module.Busy()); }});
    Set(true, false);
    ExpectImageUntouched(image);
    EXPECT_EQ(app.Loaded<frmSetWallpaper>(), nullptr);
}

TEST_F(frmSetWallpaperTest, WithoutAWindowsFolderNoFileIsWrittenElsewhere) {
    StartWithImage(30, 20);
    const auto before = platform.disks.AllFiles();
    platform.files.SetFolder(KnownFolder::Windows, "");
    Set(false, false);
    EXPECT_EQ(platform.disks.AllFiles(), before);
    EXPECT_EQ(platform.desktop.wallpapers, std::vector<std::string>{});
}

TEST_F(frmSetWallpaperTest, OkRunsUnderTheHourglassAndOnlyOnce) {
    StartWithImage(30, 20);
    InDialog([&](frmSetWallpaper& dialog) {
        int tries = 0;
        toolkit.AtYield(1, [&] {
            ++tries;
            EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
            Press(dialog.CmdOK);
        });
        Press(dialog.CmdOK);
        EXPECT_EQ(tries, 1);
    });
    EXPECT_EQ(platform.desktop.wallpapers.size(), 1U);
}

TEST_F(frmSetWallpaperTest, NeedsAnImage) {
    ASSERT_TRUE(Start());
    ExpectTold("Unable to set wallpaper, open an image and then try again...");
    EXPECT_FALSE(Menus().mnuSetWallpaper.Enabled);
    EXPECT_FALSE(Ends([&] { Menus().mnuSetWallpaper.Click(); }));
    EXPECT_EQ(app.FormCount(), 1);
}

TEST_F(frmSetWallpaperTest, TheMainViewLeavesTheTopmostBandMeanwhile) {
    StartWithImage(30, 20);
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    InDialog([this](frmSetWallpaper&) { EXPECT_FALSE(Window().topmost); });
    EXPECT_TRUE(Window().topmost);
}

TEST(WallpaperFit, TheSideThatReachesTheEdgeFirstSetsTheScale) {
    const WallpaperSize screen{19200, 15360};
    const WallpaperSize pixel{15, 15};
    const auto fit = [&](float width, float height) { return FitWallpaper({width, height}, screen, pixel); };
    EXPECT_EQ(fit(30000, 15000), (WallpaperSize{19200, 9600}));  // one side too large
    EXPECT_EQ(fit(15000, 30000), (WallpaperSize{7680, 15360}));  // the other
    EXPECT_EQ(fit(60000, 30000), (WallpaperSize{19200, 9600}));  // both too large
    EXPECT_EQ(fit(600, 300), (WallpaperSize{19200, 9600}));      // smaller: enlarged
    EXPECT_EQ(fit(300, 600), (WallpaperSize{7680, 15360}));
    EXPECT_EQ(fit(19200, 15360), screen);
    EXPECT_EQ(fit(38400, 30720), screen);  // the screen's shape: both edges at once
    EXPECT_EQ(fit(1920, 1536), screen);
    EXPECT_EQ(fit(19200, 30), (WallpaperSize{19200, 30}));  // one side fits already
    EXPECT_EQ(fit(30, 15360), (WallpaperSize{30, 15360}));
}

TEST(WallpaperFit, TheOtherSideIsRoundedToWholeTwips) {
    const WallpaperSize pixel{15, 15};
    EXPECT_EQ(FitWallpaper({600, 450}, {4800, 3000}, pixel), (WallpaperSize{4000, 3000}));
    EXPECT_EQ(FitWallpaper({45, 15}, {4800, 3000}, pixel), (WallpaperSize{4800, 1600}));
    EXPECT_EQ(FitWallpaper({105, 45}, {4800, 3000}, pixel), (WallpaperSize{4800, 2057}));
    EXPECT_EQ(FitWallpaper({45, 105}, {4800, 3000}, pixel), (WallpaperSize{1286, 3000}));
}

TEST(WallpaperFit, NoSideVanishes) {
    EXPECT_EQ(FitWallpaper({150000, 15}, {4800, 3000}, {15, 15}), (WallpaperSize{4800, 15}));
    EXPECT_EQ(FitWallpaper({15, 150000}, {4800, 3000}, {15, 15}), (WallpaperSize{15, 3000}));
}

class ClearWallpaperTest : public DesktopTest {
  protected:
    static constexpr const char* Nothing = "Nothing to clear, desktop wallpaper is currently not in use...";

    void ExpectQuestion(Answer reply) {
        Expect(
            {.text = std::string("Stop displaying the following desktop wallpaper file?\r\n\r\n") + Wallpaper,
             .icon = forms::BoxIcon::Question,
             .buttons = forms::BoxButtons::YesNo,
             .reply = reply});
    }
    bool Clear() { return Choose(Menus().mnuClearWallpaper); }
};

TEST_F(ClearWallpaperTest, YesSwitchesItOffAndKeepsTheFile) {
    ASSERT_TRUE(Start());
    ExpectQuestion(Answer::Yes);
    EXPECT_FALSE(Clear());
    EXPECT_EQ(platform.desktop.wallpapers, std::vector<std::string>{""});
    EXPECT_EQ(Value("Wallpaper"), "");
    EXPECT_EQ(ContentOf(Wallpaper), BitmapOf(Different(50, 40)));

    ExpectTold(Nothing);
    EXPECT_FALSE(Clear());
    EXPECT_EQ(platform.desktop.wallpapers.size(), 1U);
}

TEST_F(ClearWallpaperTest, NoLeavesItOn) {
    ASSERT_TRUE(Start());
    ExpectQuestion(Answer::No);
    EXPECT_FALSE(Clear());
    EXPECT_EQ(platform.desktop.wallpapers, std::vector<std::string>{});
}

TEST_F(ClearWallpaperTest, NoneIsNothingToClear) {
    ASSERT_TRUE(Start());
    SetValue("Wallpaper", "(None)");
    ExpectTold(Nothing);
    EXPECT_FALSE(Clear());
}

TEST_F(ClearWallpaperTest, ADesktopThatDoesNotGiveItUpIsTold) {
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(Service::Desktop, "SetWallpaper", ErrorNumber::DeviceUnavailable);
    ExpectQuestion(Answer::Yes);
    Expect({.text = "Unable to change the desktop wallpaper, this desktop does not let a program do that...",
            .icon = forms::BoxIcon::Exclamation});
    EXPECT_FALSE(Clear());
    ExpectIdle();
    EXPECT_EQ(Value("Wallpaper"), Wallpaper);
}

TEST_F(ClearWallpaperTest, AnotherFailureIsNotTold) {
    ASSERT_TRUE(Start());
    platform.faults.FailAlways(Service::Desktop, "SetWallpaper", ErrorNumber::PermissionDenied);
    ExpectQuestion(Answer::Yes);
    EXPECT_FALSE(Clear());
    ExpectIdle();
    EXPECT_EQ(Value("Wallpaper"), Wallpaper);
}

}  // namespace
}  // namespace tavrix::test
