#include "editing/creating/BackColorFrm.h"

#include "DialogTest.h"
#include "core/HelpContexts.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/turning/frmRotateImg.h"

namespace tavrix::test {
namespace {

class BackColor : public DialogTest {
  protected:
    BackColor() { platform.disks.PutFile(Opened, BitmapOf(Different(40, 30))); }

    void SetColour(int red, int green, int blue) {
        module.config.BackColorR = static_cast<std::int16_t>(red);
        module.config.BackColorG = static_cast<std::int16_t>(green);
        module.config.BackColorB = static_cast<std::int16_t>(blue);
    }
    void ExpectColour(int red, int green, int blue) {
        EXPECT_EQ(module.config.BackColorR, red);
        EXPECT_EQ(module.config.BackColorG, green);
        EXPECT_EQ(module.config.BackColorB, blue);
    }
    /// The user opens the window from the rotation, does something, and cancels the rotation.
    Colour InColours(std::function<void(BackColorFrm&)> action) {
        Colour left;
        WhenShown<BackColorFrm>("BackColorFrm", std::move(action));
        InRotation([&left](frmRotateImg& dialog) {
            Press(dialog.CmdBackground);
            left = dialog.Picture1.BackColor;
        });
        return left;
    }
    void InRotation(std::function<void(frmRotateImg&)> action) {
        toolkit.OnModal("frmRotateImg", [this, action = std::move(action)] {
            action(*app.Loaded<frmRotateImg>());
            app.Unload(*app.Loaded<frmRotateImg>());
        });
        EXPECT_FALSE(Choose(Menus().mnuArbitrary));
        ExpectIdle();
    }
    static void Scroll(forms::ScrollBar& bar, int value) { bar.Deliver(forms::ScrollEvent{value, false}); }
    static Pixel ShownBy(const forms::PictureBox& swatch) {
        return dynamic_cast<const headless::HeadlessCanvasPeer&>(*swatch.Peer()).ShownPixel(8, 8);
    }
};

TEST_F(BackColor, ShowsItsControls) {
    ASSERT_TRUE(Start(Opened));
    InColours([](BackColorFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Background Color");
        EXPECT_EQ(dialog.HelpContext, HelpContext::BackgroundColor);
        for (const forms::ScrollBar* bar : {&dialog.HScrollR, &dialog.HScrollG, &dialog.HScrollB}) {
            EXPECT_EQ(bar->Min.Get(), 0);
            EXPECT_EQ(bar->Max.Get(), 255);
            EXPECT_EQ(bar->Value.Get(), 0);
        }
        for (const forms::Label* value : {&dialog.lblValueR, &dialog.lblValueG, &dialog.lblValueB})
            EXPECT_EQ(value->Caption.Get(), "0");
        EXPECT_EQ(dialog.CmdBlack.Caption.Get(), "&Black");
        EXPECT_EQ(dialog.CmdWhite.Caption.Get(), "&White");
        EXPECT_EQ(dialog.CmdSystem.Caption.Get(), "&System");
        EXPECT_EQ(dialog.CmdOK.Caption.Get(), "&OK");
        EXPECT_EQ(dialog.CmdOK.ToolTip.Get(), "Click here to change background color.");
        EXPECT_EQ(dialog.CmdCancel.Caption.Get(), "&Cancel");
        EXPECT_EQ(dialog.CmdCancel.ToolTip.Get(), "Don't change background color.");
        EXPECT_TRUE(dialog.CmdOK.Default);
        EXPECT_TRUE(dialog.CmdCancel.Cancel);
        ExpectOwnLetters(dialog, 8);
    });
}

TEST_F(BackColor, LoadsTheSettings) {
    ASSERT_TRUE(Start(Opened));
    SetColour(10, 0, 255);
    InColours([](BackColorFrm& dialog) {
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0xFF000A});
        EXPECT_EQ(ShownBy(dialog.Picture1), OpaquePixel(10, 0, 255));
        EXPECT_EQ(dialog.lblValueR.Caption.Get(), "10");
        EXPECT_EQ(dialog.lblValueG.Caption.Get(), "0");
        EXPECT_EQ(dialog.lblValueB.Caption.Get(), "255");
    });
}

TEST_F(BackColor, EachBarShowsTheColourAndItsNumber) {
    ASSERT_TRUE(Start(Opened));
    InColours([](BackColorFrm& dialog) {
        Scroll(dialog.HScrollR, 1);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x000001});
        EXPECT_EQ(dialog.lblValueR.Caption.Get(), "1");
        Scroll(dialog.HScrollG, 2);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x000201});
        EXPECT_EQ(dialog.lblValueG.Caption.Get(), "2");
        Scroll(dialog.HScrollB, 3);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x030201});
        EXPECT_EQ(ShownBy(dialog.Picture1), OpaquePixel(1, 2, 3));
        EXPECT_EQ(dialog.lblValueB.Caption.Get(), "3");
        EXPECT_EQ(dialog.lblValueR.Caption.Get(), "1");
    });
    ExpectColour(0, 0, 0);
}

TEST_F(BackColor, TheColourFollowsTheThumb) {
    ASSERT_TRUE(Start(Opened));
    InColours([](BackColorFrm& dialog) {
        const auto drag = [](forms::ScrollBar& bar, int value) {
            bar.Deliver(forms::ScrollEvent{value, true});
        };
        drag(dialog.HScrollR, 200);
        EXPECT_EQ(dialog.lblValueR.Caption.Get(), "200");
        EXPECT_EQ(ShownBy(dialog.Picture1), OpaquePixel(200, 0, 0));
        drag(dialog.HScrollG, 100);
        drag(dialog.HScrollB, 50);
        EXPECT_EQ(dialog.lblValueG.Caption.Get(), "100");
        EXPECT_EQ(dialog.lblValueB.Caption.Get(), "50");
        EXPECT_EQ(ShownBy(dialog.Picture1), OpaquePixel(200, 100, 50));
    });
}

TEST_F(BackColor, TheButtonsSetAllThree) {
    ASSERT_TRUE(Start(Opened));
    SetColour(1, 2, 3);
    InColours([](BackColorFrm& dialog) {
        Press(dialog.CmdSystem);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0xC0C0C0});
        EXPECT_EQ(dialog.lblValueG.Caption.Get(), "192");
        Press(dialog.CmdWhite);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), White);
        EXPECT_EQ(dialog.HScrollB.Value.Get(), 255);
        Press(dialog.CmdBlack);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Black);
        EXPECT_EQ(dialog.lblValueR.Caption.Get(), "0");
    });
    ExpectColour(1, 2, 3);
}

TEST_F(BackColor, CancelChangesNothing) {
    ASSERT_TRUE(Start(Opened));
    const Colour left = InColours([](BackColorFrm& dialog) {
        Press(dialog.CmdWhite);
        Press(dialog.CmdCancel);
        EXPECT_FALSE(dialog.Visible());
    });
    EXPECT_EQ(left, Black);
    ExpectColour(0, 0, 0);
}

TEST_F(BackColor, OneColourServesBothCallersEvenWhenTheyAreCanceled) {
    ASSERT_TRUE(Start(Opened));
    const Colour left = InColours([](BackColorFrm& dialog) {
        Scroll(dialog.HScrollR, 200);
        Scroll(dialog.HScrollB, 7);
        Press(dialog.CmdOK);
        EXPECT_FALSE(dialog.Visible());
    });
    EXPECT_EQ(left, Colour{0x0700C8});
    ExpectColour(200, 0, 7);

    WhenShown<BackColorFrm>("BackColorFrm", [](BackColorFrm& dialog) {
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x0700C8});
        Press(dialog.CmdWhite);
        Press(dialog.CmdOK);
    });
    toolkit.OnModal("NewImageFrm", [this] {
        auto& dialog = *app.Loaded<NewImageFrm>();
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), Colour{0x0700C8});
        Press(dialog.CmdBackground);
        EXPECT_EQ(dialog.Picture1.BackColor.Get(), White);
        Press(dialog.CmdCancel);
    });
    EXPECT_FALSE(Choose(Menus().mnuNewImage));
    InRotation([](frmRotateImg& dialog) { EXPECT_EQ(dialog.Picture1.BackColor.Get(), White); });
    EXPECT_TRUE(Close());
    EXPECT_EQ(Saved("BackColorR"), "255");
    EXPECT_EQ(Saved("BackColorB"), "255");
}

}  // namespace
}  // namespace tavrix::test
