#include "editing/resizing/frmImageSize.h"

#include "DialogTest.h"
#include "core/HelpContexts.h"
#include "support/MemoryLimit.h"

namespace tavrix::test {
namespace {

using forms::MousePointer;
using headless::Service;

/// The picture in another size, without any interpolation.
Surface StretchedTo(const Surface& before, int width, int height) {
    Surface after(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            PutPixel(after, x, y,
                     PixelAt(before, std::int64_t{x} * before.Width() / width,
                             std::int64_t{y} * before.Height() / height));
        }
    }
    return after;
}

class ImageSize : public DialogTest {
  protected:
    static constexpr const char* NotValid =
        "The width and/or height that was entered is not valid.\r\n\r\nEnter another size and then try "
        "again...";
    static constexpr const char* Another = "\r\n\r\nEnter another number and then try again...";

    void InSize(std::function<void(frmImageSize&)> action) {
        InDialog<frmImageSize>(Menus().mnuEditImageSize, "frmImageSize", std::move(action));
    }
    void Resize(const std::string& width, const std::string& height) {
        InSize([=](frmImageSize& dialog) {
            Paste(dialog.txtWidth, width);
            Paste(dialog.txtHeight, height);
            Press(dialog.CmdSize);
        });
    }
    /// What is entered is refused with this box; then all is selected and one field has the focus.
    void ExpectRefused(const std::string& width, const std::string& height, const std::string& text,
                       forms::TextBox frmImageSize::*focus) {
        InSize([&, this](frmImageSize& dialog) {
            Paste(dialog.txtWidth, width);
            Paste(dialog.txtHeight, height);
            Visit(dialog.CmdSize);
            ExpectTold(text);
            Press(dialog.CmdSize);
            ExpectSelected(dialog.txtWidth, width);
            ExpectSelected(dialog.txtHeight, height);
            EXPECT_EQ(dialog.ActiveControl(), &(dialog.*focus));
            EXPECT_TRUE(dialog.Visible());
        });
        EXPECT_EQ(module.CurrentImage, Opened);
        ExpectUndo("Can't Undo", false);
        EXPECT_FALSE(module.config.ImageSizeAspect);
    }
};

TEST_F(ImageSize, ShowsItsControls) {
    StartWithImage(200, 100);
    InSize([](frmImageSize& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Resize Image");
        EXPECT_EQ(dialog.HelpContext, 1240U);
        EXPECT_EQ(dialog.lblWidthMsg.Caption.Get(), "Width:");
        EXPECT_EQ(dialog.lblHeightMsg.Caption.Get(), "Height:");
        EXPECT_EQ(dialog.lblFileSizeMsg.Caption.Get(), "File Size:");
        EXPECT_EQ(dialog.lblBytes.Caption.Get(), "(Bytes)");
        EXPECT_EQ(dialog.lblWidth.Caption.Get(), "&Width:");
        EXPECT_EQ(dialog.lblHeight.Caption.Get(), "&Height:");
        EXPECT_EQ(dialog.txtWidth.ToolTip.Get(), "Enter width in pixels.");
        EXPECT_EQ(dialog.txtHeight.ToolTip.Get(), "Enter height in pixels.");
        for (const forms::Label* unit : {&dialog.lblWidthUnit, &dialog.lblHeightUnit}) {
            EXPECT_EQ(unit->Caption.Get(), "pixels");
            EXPECT_EQ(unit->ToolTip.Get(), "Size needs to be entered in pixels.");
        }
        EXPECT_EQ(dialog.CheckAspect.Caption.Get(), "&Preserve aspect ratio.");
        EXPECT_EQ(dialog.CmdSize.Caption.Get(), "&Resize");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdHelp.Caption.Get(), "Help");
        EXPECT_TRUE(dialog.CmdSize.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 5);
    });
}

TEST_F(ImageSize, LoadsTheCurrentSize) {
    StartWithImage(200, 100);
    InSize([](frmImageSize& dialog) {
        EXPECT_EQ(dialog.lblCurrentWidth.Caption.Get(), "200 (pixels)");
        EXPECT_EQ(dialog.lblCurrentHeight.Caption.Get(), "100 (pixels)");
        ExpectSelected(dialog.txtWidth, "200");
        ExpectSelected(dialog.txtHeight, "100");
        EXPECT_EQ(dialog.lblFileSize.Caption.Get(), "60,054");
        EXPECT_FALSE(dialog.CheckAspect.Value);
    });
    module.config.ImageSizeAspect = true;
    InSize([](frmImageSize& dialog) {
        EXPECT_TRUE(dialog.CheckAspect.Value);
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "100");
    });
}

TEST_F(ImageSize, WithoutItsFileTheSizeOfTheFileStaysEmpty) {
    StartWithImage(200, 100);
    platform.faults.FailAlways(Service::Files, "Info", ErrorNumber::FileNotFound);
    InSize([](frmImageSize& dialog) {
        EXPECT_EQ(dialog.lblFileSize.Caption.Get(), "");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "200");
    });
}

TEST_F(ImageSize, PartsOfAPixelAreCutAway) {
    StartWithImage(40, 30);
    View().MainImage.Move(0, 0, 40 * 15 + 14.4F, 30 * 15 + 14.6F);
    InSize([](frmImageSize& dialog) {
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "40");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "31");
    });
}

TEST_F(ImageSize, OnAFineDisplayItIsThePixels) {
    toolkit.screen.twipsPerPixelX = toolkit.screen.twipsPerPixelY = 7.5F;
    StartWithImage(101, 99);
    InSize([](frmImageSize& dialog) {
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "101");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "99");
        Paste(dialog.txtHeight, "60");
        Press(dialog.CmdSize);
    });
    ExpectEdited(StretchedTo(Different(101, 99), 101, 60));
}

TEST_F(ImageSize, StaysAwayWithoutAnImage) {
    ASSERT_TRUE(Start());
    toolkit.OnModal("frmImageSize", [this] { ++shown; });
    EXPECT_FALSE(Choose(Menus().mnuEditImageSize));
    EXPECT_EQ(shown, 0);
}

TEST_F(ImageSize, IsLockedOutByTheHourglass) {
    StartWithImage(40, 30);
    ExpectLockedOut(Menus().mnuEditImageSize, "frmImageSize");
}

TEST_F(ImageSize, OpensByTheKey5) {
    StartWithImage(40, 30);
    WhenShown<frmImageSize>("frmImageSize", [](frmImageSize&) {});
    EXPECT_FALSE(MainViewFixture::Press(forms::KeyCode::Digit0 + 5));
    EXPECT_FALSE(MainViewFixture::Press(forms::KeyCode::Numpad0 + 5));
    EXPECT_EQ(shown, 2);
}

TEST_F(ImageSize, OpensUnderTheHourglassAndAboveATopmostWindow) {
    StartWithImage(40, 30);
    MousePointer during = MousePointer::Default;
    toolkit.AtYield(1, [&] { during = toolkit.ScreenPointer(); });
    InSize([](frmImageSize&) {});
    EXPECT_EQ(during, MousePointer::Hourglass);
    ExpectTopmostBracket<frmImageSize>(Menus().mnuEditImageSize, "frmImageSize");
}

TEST_F(ImageSize, WipesTheSelectionBeforeItOpens) {
    StartWithImage(40, 30);
    Select(5, 5, 20, 15);
    InSize([this](frmImageSize&) {
        EXPECT_FALSE(View().selection.SelectionShown);
        EXPECT_TRUE(SamePixels(Shown(), Different(40, 30)));
    });
}

TEST_F(ImageSize, TheFieldWithTheFocusDrivesTheOther) {
    StartWithImage(200, 100);
    module.config.ImageSizeAspect = true;
    InSize([](frmImageSize& dialog) {
        std::vector<std::string> changes;
        const auto note = [&changes](const char* name, std::function<void()>& handler) {
            handler = [&changes, name, handler] {
                changes.emplace_back(name);
                handler();
            };
        };
        note("width", dialog.txtWidth.OnChange);
        note("height", dialog.txtHeight.OnChange);

        Visit(dialog.txtHeight);
        Type(dialog.txtHeight, "7");  // in the place of what is selected
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "14");
        Type(dialog.txtHeight, "5");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "75");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "150");
        EXPECT_EQ(changes, (std::vector<std::string>{"height", "width", "height", "width"}));

        // A width that the program sets does not come back.
        dialog.txtWidth.Text = "33";
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "75");

        Visit(dialog.txtWidth);
        Paste(dialog.txtWidth, "33");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "75");  // which is no change
        Paste(dialog.txtWidth, "31");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "16");  // 15.5, to the even neighbour
        Paste(dialog.txtWidth, "33");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "16");  // 16.5
    });
}

TEST_F(ImageSize, TheLockGoesByTwips) {
    StartWithImage(101, 99);
    Choose(Menus().mnu25Smaller);
    ASSERT_EQ(View().MainImage.Width.Get(), 1136);  // 75 pixels and a part
    ASSERT_EQ(View().MainImage.Height.Get(), 1114);
    module.config.ImageSizeAspect = true;
    InSize([](frmImageSize& dialog) {
        Visit(dialog.txtWidth);
        Paste(dialog.txtWidth, "1000");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "981") << "by whole pixels it would be 987";
        Visit(dialog.txtHeight);
        Paste(dialog.txtHeight, "1000");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "1020");
    });
}

TEST_F(ImageSize, WithoutTheLockTheFieldsAreTheirOwn) {
    StartWithImage(200, 100);
    InSize([](frmImageSize& dialog) {
        Visit(dialog.txtHeight);
        Paste(dialog.txtHeight, "7");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "200");
        Visit(dialog.txtWidth);
        Paste(dialog.txtWidth, "50");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "7");
    });
}

TEST_F(ImageSize, AnEmptyFieldLeavesTheOther) {
    StartWithImage(200, 100);
    module.config.ImageSizeAspect = true;
    InSize([](frmImageSize& dialog) {
        Visit(dialog.txtWidth);
        Paste(dialog.txtWidth, "");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "100");
        Visit(dialog.txtHeight);
        Paste(dialog.txtHeight, "");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "");
    });
}

TEST_F(ImageSize, PastedNonsenseLeavesTheOtherFieldAsItWas) {
    StartWithImage(200, 100);
    module.config.ImageSizeAspect = true;
    InSize([](frmImageSize& dialog) {
        for (const char* nonsense : {"abc", "12x", "-", "99999999999999999999"}) {
            Visit(dialog.txtWidth);
            Paste(dialog.txtWidth, nonsense);
            EXPECT_EQ(dialog.txtWidth.Text.Get(), nonsense);
            EXPECT_EQ(dialog.txtHeight.Text.Get(), "100") << nonsense;
        }
        Visit(dialog.txtHeight);
        Paste(dialog.txtWidth, "200");
        Paste(dialog.txtHeight, "many");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "200");
        Visit(dialog.txtWidth);
        Paste(dialog.txtWidth, "12.5");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "6");
    });
}

TEST_F(ImageSize, TickingTheLockComputesTheHeightFromTheWidth) {
    StartWithImage(200, 100);
    InSize([](frmImageSize& dialog) {
        Visit(dialog.txtHeight);
        Paste(dialog.txtHeight, "7");
        Paste(dialog.txtWidth, "60");
        Tick(dialog.CheckAspect);
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "30");
        EXPECT_EQ(dialog.txtWidth.Text.Get(), "60");
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtWidth);

        Visit(dialog.txtHeight);
        dialog.CheckAspect.OnKeyUp(forms::KeyCode::Space, 0);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtWidth);
        Paste(dialog.txtWidth, "80");
        EXPECT_EQ(dialog.txtHeight.Text.Get(), "40");
    });
}

TEST_F(ImageSize, TakesDigitsFromTheKeyboard) {
    StartWithImage(200, 100);
    InSize([](frmImageSize& dialog) {
        for (forms::TextBox* field : {&dialog.txtWidth, &dialog.txtHeight}) {
            Type(*field, "-1a,2. 7\tx");
            EXPECT_EQ(field->Text.Get(), "127");
        }
    });
}

TEST_F(ImageSize, HelpAndCancel) {
    StartWithImage(200, 100);
    InSize([this](frmImageSize& dialog) {
        Press(dialog.CmdHelp);
        EXPECT_EQ(platform.help.calls.back().data, 1240U);
        Tick(dialog.CheckAspect);
        Paste(dialog.txtWidth, "50");
        Press(dialog.CmdCancel);
        EXPECT_FALSE(dialog.Visible());
    });
    EXPECT_FALSE(module.config.ImageSizeAspect);
    ExpectShown(Different(200, 100));
}

TEST_F(ImageSize, AsksForWhatIsMissing) {
    StartWithImage(200, 100);
    InSize([this](frmImageSize& dialog) {
        Paste(dialog.txtWidth, "");
        Visit(dialog.CmdSize);
        ExpectTold("You need to enter the new width first, unable to resize image...");
        Press(dialog.CmdSize);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtWidth);
        Paste(dialog.txtWidth, "50");
        Paste(dialog.txtHeight, "");
        Visit(dialog.CmdSize);
        ExpectTold("You need to enter the new height first, unable to resize image...");
        Press(dialog.CmdSize);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.txtHeight);
    });
    EXPECT_EQ(module.CurrentImage, Opened);
}

TEST_F(ImageSize, RefusesWhatIsNoSize) {
    StartWithImage(200, 100);
    ExpectRefused("40000", "50", NotValid, &frmImageSize::txtWidth);
    ExpectRefused("50", "40000", NotValid, &frmImageSize::txtWidth);
    ExpectRefused("abc", "50", NotValid, &frmImageSize::txtWidth);
    ExpectRefused("50", "x", NotValid, &frmImageSize::txtWidth);
}

TEST_F(ImageSize, RefusesSidesThatAreTooLargeOrTooSmall) {
    StartWithImage(200, 100);
    const std::string entered = "that was entered is too ";
    ExpectRefused("10001", "10001", "The width " + entered + "large." + Another, &frmImageSize::txtWidth);
    ExpectRefused("10001", "5", "The width " + entered + "large." + Another, &frmImageSize::txtWidth);
    ExpectRefused("5", "10001", "The height " + entered + "large." + Another, &frmImageSize::txtHeight);
    ExpectRefused("15", "15", "The width " + entered + "small." + Another, &frmImageSize::txtWidth);
    ExpectRefused("-5", "50", "The width " + entered + "small." + Another, &frmImageSize::txtWidth);
    ExpectRefused("50", "15", "The height " + entered + "small." + Another, &frmImageSize::txtHeight);
    ExpectRefused("200", "100",
                  "The new size is the same as the current size.\r\n\r\nUnable to resize image...",
                  &frmImageSize::txtWidth);
}

TEST_F(ImageSize, TheLimitsThemselvesAreSizes) {
    StartWithImage(40, 30);
    Resize("16", "16");
    ExpectEdited(StretchedTo(Different(40, 30), 16, 16));
    const Surface small = Shown();
    Resize("10000", "16");
    ExpectEdited(StretchedTo(small, 10000, 16));
}

TEST_F(ImageSize, ResizesAndKeepsTheLock) {
    StartWithImage(40, 30);
    InSize([](frmImageSize& dialog) {
        Tick(dialog.CheckAspect);
        Visit(dialog.txtWidth);
        Paste(dialog.txtWidth, "100");
        Press(dialog.CmdSize);
    });
    ExpectEdited(StretchedTo(Different(40, 30), 100, 75));
    ExpectUndo("&Undo Resize Arbitrary...", true);
    ExpectNothingLeft();
    EXPECT_TRUE(module.config.ImageSizeAspect);
    Choose(Menus().mnuUndo);
    ExpectShown(Different(40, 30));
    EXPECT_TRUE(Ends([this] {
        ExpectDiscard("Discard changes and exit?", forms::Answer::Yes);
        View().Deliver(forms::CloseEvent{});
    }));
    EXPECT_EQ(Saved("ImageSizeAspect"), "True");
}

TEST_F(ImageSize, OneSideAloneMayChange) {
    StartWithImage(40, 30);
    Resize("40", "31");
    ExpectEdited(StretchedTo(Different(40, 30), 40, 31));
    Resize("20", "31");
    EXPECT_EQ(View().MainImage.PixelBounds().width, 20);
}

TEST_F(ImageSize, TheDialogIsHiddenAndNothingElseRunsMeanwhile) {
    StartWithImage(40, 30);
    bool visible = false;
    bool idle = false;
    InSize([&](frmImageSize& dialog) {
        Paste(dialog.txtWidth, "80");
        WhenMessagesRun([&, start = toolkit.Yields()] {
            const auto* open = app.Loaded<frmImageSize>();
            if (open == nullptr) return;
            idle = idle || !module.Busy();
            if (toolkit.Yields() - start > 1) visible = visible || open->Visible();
            Choose(Menus().mnuFlipVertically);
        });
        Press(dialog.CmdSize);
    });
    EXPECT_FALSE(visible);
    EXPECT_FALSE(idle);
    ExpectEdited(StretchedTo(Different(40, 30), 80, 30));
}

TEST_F(ImageSize, AFailedWriteEmptiesTheView) {
    StartWithImage(40, 30);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    Expect({.text = std::string(NotWritten) + "Disk full...", .icon = forms::BoxIcon::Stop});
    Resize("20", "20");
    ExpectEmptyView();
}

TEST_F(ImageSize, ASizeThatMemoryCannotHoldIsTold) {
    if (!MemoryLimit::Works()) GTEST_SKIP() << "no limit under this sanitizer";
    StartWithImage(40, 30);
    Expect({.text = std::string(NotWritten) + "Out of memory...", .icon = forms::BoxIcon::Stop});
    {
        const MemoryLimit limit(std::size_t{100} << 20U);
        Resize("10000", "10000");
    }
    ExpectEmptyView();
    View().Deliver(forms::DropEvent{{Opened}});
    Resize("20", "20");
    ExpectEdited(StretchedTo(Different(40, 30), 20, 20));
}

}  // namespace
}  // namespace tavrix::test
