// The window is laid out for what a command brings onto it, and starts at the upper left corner: the bars and the frame
// are those of the new picture. None of these windows sizes itself, which would lay it out too.

#include "DesktopTest.h"
#include "SavingTest.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/importing/frmImportImage.h"
#include "editing/turning/frmRotateImg.h"

namespace tavrix::test {
namespace {

class LayoutAfter : public DesktopTest {
  protected:
    static constexpr int InnerWidth = 626;   ///< pixels, of the window as it starts
    static constexpr int InnerHeight = 427;  ///< pixels

    /// A large picture, scrolled to its middle.
    void StartScrolled() {
        StartWithImage(1500, 1400);
        View().hsbPict.Value = 3000;
        View().vsbPict.Value = 2000;
        ASSERT_EQ(View().MainImage.Left.Get(), -3000);
    }
    /// Frame and bars are those of a picture of this size, in pixels, and nothing is scrolled.
    void ExpectLaidOut(int width, int height) {
        EXPECT_EQ(View().MainImage.PixelBounds().width, width);
        EXPECT_EQ(View().MainImage.PixelBounds().height, height);
        const bool across = width > InnerWidth;
        const bool down = height > InnerHeight;
        EXPECT_EQ(View().hsbPict.Visible.Get(), across);
        EXPECT_EQ(View().vsbPict.Visible.Get(), down);
        const float bar = MainViewFrm::BarThickness;
        EXPECT_EQ(View().picFrame.Width.Get(),
                  across ? View().ScaleWidth() - (down ? bar : 0) : View().MainImage.Width.Get());
        EXPECT_EQ(View().picFrame.Height.Get(),
                  down ? View().ScaleHeight() - (across ? bar : 0) : View().MainImage.Height.Get());
        if (across) {
            EXPECT_EQ(View().hsbPict.Max.Get(),
                      static_cast<int>(View().MainImage.Width - View().picFrame.Width));
        }
        if (down) {
            EXPECT_EQ(View().vsbPict.Max.Get(),
                      static_cast<int>(View().MainImage.Height - View().picFrame.Height));
        }
        EXPECT_EQ(View().hsbPict.Value.Get(), 0);
        EXPECT_EQ(View().vsbPict.Value.Get(), 0);
        EXPECT_EQ(View().MainImage.Left.Get(), 0);
        EXPECT_EQ(View().MainImage.Top.Get(), 0);
        ExpectIdle();
    }
    void PutOnClipboard(int width, int height) {
        platform.clipboard.formats = {ClipboardFormat::Bitmap};
        platform.clipboard.picture = PictureOf(Different(width, height));
    }
    void Rotate(const std::string& degrees) {
        toolkit.OnModal("frmRotateImg", [this, degrees] {
            auto& dialog = *app.Loaded<frmRotateImg>();
            dialog.txtAngle.Text = degrees;
            dialog.CmdRotate.Deliver(forms::ClickEvent{});
        });
        Choose(Menus().mnuArbitrary);
    }
    void Make(const std::string& width, const std::string& height) {
        toolkit.OnModal("NewImageFrm", [this, width, height] {
            auto& dialog = *app.Loaded<NewImageFrm>();
            dialog.txtWidth.Text = width;
            dialog.txtHeight.Text = height;
            dialog.CmdOK.Deliver(forms::ClickEvent{});
        });
        Choose(Menus().mnuNewImage);
    }
    void Import(forms::Menu& entry, const std::string& folder) {
        toolkit.OnModal("frmImportImage", [this, folder] {
            auto& dialog = *app.Loaded<frmImportImage>();
            dialog.Chooser.Dir1.Path = folder;
            dialog.Chooser.File1.Deliver(forms::RowEvent{0});
            dialog.CmdImport.Deliver(forms::ClickEvent{});
        });
        Choose(entry);
    }
};

TEST_F(LayoutAfter, ATurnByAnyAngle) {
    StartWithImage(700, 100);
    Rotate("90");
    ExpectLaidOut(100, 700);
    Rotate("90");
    ExpectLaidOut(700, 100);
}

TEST_F(LayoutAfter, ATurnByAnyAngleOfAScrolledPicture) {
    StartScrolled();
    Rotate("180");
    ExpectLaidOut(1500, 1400);
}

TEST_F(LayoutAfter, EachTurnOfAScrolledPicture) {
    for (forms::Menu MainMenu::*entry : {&MainMenu::mnu90CW, &MainMenu::mnu90CCW, &MainMenu::mnu180Degrees}) {
        if (app.Loaded<MainViewFrm>() == nullptr) StartScrolled();
        View().hsbPict.Value = 3000;
        View().vsbPict.Value = 2000;
        Choose(Menus().*entry);
        EXPECT_EQ(View().hsbPict.Value.Get(), 0);
        EXPECT_EQ(View().vsbPict.Value.Get(), 0);
        EXPECT_EQ(View().MainImage.Left.Get(), 0);
        EXPECT_EQ(View().MainImage.Top.Get(), 0);
    }
}

TEST_F(LayoutAfter, ATurnIsLaidOutBeforeItBegins) {
    StartWithImage(700, 100);
    int seen = 0;
    WhenMessagesRun([&] {
        if (View().MainImage.PixelBounds().height != 700) return;
        ++seen;
        EXPECT_TRUE(View().vsbPict.Visible);
        EXPECT_FALSE(View().hsbPict.Visible);
        EXPECT_EQ(View().picFrame.PixelBounds().width, 100);
    });
    Choose(Menus().mnu90CW);
    EXPECT_GE(seen, 2) << "when it is laid out, and when it has been drawn";
    ExpectLaidOut(100, 700);
}

TEST_F(LayoutAfter, APasteOfALargerPicture) {
    StartWithImage(40, 30);
    PutOnClipboard(1000, 900);
    Choose(Menus().mnuPaste);
    ExpectLaidOut(1000, 900);
}

TEST_F(LayoutAfter, APasteOntoAScrolledPicture) {
    StartScrolled();
    PutOnClipboard(10, 10);
    Choose(Menus().mnuPaste);
    ExpectLaidOut(1500, 1400);
}

TEST_F(LayoutAfter, ACaptureOfTheDesktop) {
    platform.desktop.screen = Different(1280, 1024);
    StartWithImage(30, 20);
    Choose(Menus().mnuCaptureDesktop);
    ExpectLaidOut(1280, 1024);
}

TEST_F(LayoutAfter, ACaptureOfASmallDesktop) {
    // No larger than the screen that the image had for a moment: what it is captured into is laid out by nothing else.
    platform.desktop.screen = Different(300, 200);
    StartScrolled();
    Choose(Menus().mnuCaptureDesktop);
    ExpectLaidOut(300, 200);
}

TEST_F(LayoutAfter, TheWallpaper) {
    StartScrolled();
    Choose(Menus().mnuLoadWallpaper);
    ExpectLaidOut(50, 40);
}

TEST_F(LayoutAfter, ALargeWallpaper) {
    platform.disks.PutFile(Wallpaper, BitmapOf(Different(1000, 900)));
    StartWithImage(30, 20);
    Choose(Menus().mnuLoadWallpaper);
    ExpectLaidOut(1000, 900);
}

TEST_F(LayoutAfter, AnImport) {
    platform.disks.PutFile("C:\\q\\large.tga", PlainTga(700, 600, 0xFFFFFFFFU, 0xFF000000U));
    StartWithImage(30, 20);
    Import(Menus().mnuImportTGA, "C:\\q");
    ExpectLaidOut(700, 600);
}

TEST_F(LayoutAfter, TheTemporaryFile) {
    platform.disks.PutFile(Working, BitmapOf(Different(1000, 900)));
    StartWithImage(30, 20);
    Choose(Menus().mnuTempFile);
    ExpectLaidOut(1000, 900);
}

TEST_F(LayoutAfter, TheTemporaryFileOverAScrolledPicture) {
    StartScrolled();
    platform.disks.PutFile(Working, BitmapOf(Different(1400, 1300)));
    Choose(Menus().mnuTempFile);
    ExpectLaidOut(1400, 1300);
}

TEST_F(LayoutAfter, ALargeNewImage) {
    StartWithImage(30, 20);
    Make("1000", "900");
    ExpectLaidOut(1000, 900);
}

TEST_F(LayoutAfter, ASmallNewImage) {
    StartScrolled();
    Make("300", "200");
    ExpectLaidOut(300, 200);
}

TEST_F(LayoutAfter, ACropToASmallPart) {
    StartWithImage(1500, 1400);
    Select(10, 20, 50, 100);
    Choose(Menus().mnuCrop);
    ExpectLaidOut(38, 78);
}

TEST_F(LayoutAfter, ACropToAHighPart) {
    StartWithImage(1500, 1400);
    Select(10, 20, 50, 1320);
    Choose(Menus().mnuCrop);
    ExpectLaidOut(38, 1298);
}

TEST_F(LayoutAfter, AnUndo) {
    StartWithImage(700, 100);
    Choose(Menus().mnu90CW);
    ExpectLaidOut(100, 700);
    Choose(Menus().mnuUndo);
    ExpectLaidOut(700, 100);
}

TEST_F(LayoutAfter, AResizeThatLeavesTheWindowItsSize) {
    // Both sizes are below the smallest window, which only its own layout fits to the picture.
    StartWithImage(60, 50);
    module.config.AutosizeWindow = true;
    View().Move(0, 0, MainViewFrm::MinWidth, MainViewFrm::MinHeight);
    Choose(Menus().mnu50Larger);
    EXPECT_EQ(View().Width.Get(), MainViewFrm::MinWidth);
    EXPECT_EQ(View().picFrame.PixelBounds().width, 90);
    EXPECT_EQ(View().picFrame.PixelBounds().height, 75);
}

}  // namespace
}  // namespace tavrix::test
