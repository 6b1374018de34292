// What the OK of every dialog has in common: it works once however often it is pressed, and not where the user has
// closed the dialog before the work began.

#include "EditingTest.h"
#include "editing/creating/NewImageFrm.h"
#include "editing/desktop/frmSetWallpaper.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/saving/ExportBmpFrm.h"
#include "editing/saving/ExportJpgFrm.h"
#include "editing/saving/SaveCopyFrm.h"
#include "editing/turning/frmRotateImg.h"
#include "viewer/OpenFrm.h"

namespace tavrix::test {
namespace {

constexpr const char* Image = "C:\\p\\x.gif";

/// A dialog with what the user enters there.
struct GuardedDialog {
    const char* name;
    forms::Menu MainMenu::*entry;
    void (*enter)(forms::Application&);
    forms::CommandButton& (*ok)(forms::Application&);
    forms::CommandButton& (*cancel)(forms::Application&);
    const char* work;           ///< what is noted of its work
    const char* question = "";  ///< that comes before the work
};

void PrintTo(const GuardedDialog& dialog, std::ostream* out) {
    *out << dialog.name;
}

template <class Dialog>
Dialog& The(forms::Application& app) {
    return *app.Loaded<Dialog>();
}

const std::array<GuardedDialog, 8> Dialogs{
    {{"frmRotateImg", &MainMenu::mnuArbitrary,
      [](forms::Application& app) { The<frmRotateImg>(app).txtAngle.Text = "30"; },
      [](forms::Application& app) -> auto& {return The<frmRotateImg>(app).CmdRotate;
}  // namespace
, [](forms::Application& app) -> auto& {
    return The<frmRotateImg>(app).CmdCancel;
}
, "Pictures.SaveBitmap C:\\Temp\\Untitled.BMP"
}  // namespace tavrix::test
, {"frmImageSize", &MainMenu::mnuEditImageSize,
   [](forms::Application& app) { The<frmImageSize>(app).txtWidth.Text = "77"; },
   [](forms::Application& app) -> auto& {return The<frmImageSize>(app).CmdSize;
}
, [](forms::Application& app) -> auto& {
    return The<frmImageSize>(app).CmdCancel;
}
, "Pictures.SaveBitmap C:\\Temp\\Untitled.BMP"
}
, {"NewImageFrm", &MainMenu::mnuNewImage,
   [](forms::Application& app) { The<NewImageFrm>(app).CheckPaste.Value = true; },
   [](forms::Application& app) -> auto& {return The<NewImageFrm>(app).CmdOK;
}
, [](forms::Application& app) -> auto& {
    return The<NewImageFrm>(app).CmdCancel;
}
, "Pictures.SaveBitmap C:\\Temp\\Untitled.BMP"
}
, {"SaveCopyFrm", &MainMenu::mnuSaveCopy,
   [](forms::Application& app) { The<SaveCopyFrm>(app).Target.txtFilename.Text = "y.gif"; },
   [](forms::Application& app) -> auto& {return The<SaveCopyFrm>(app).CmdSave;
}
, [](forms::Application& app) -> auto& {
    return The<SaveCopyFrm>(app).CmdCancel;
}
, "Files.Copy C:\\p\\x.gif C:\\p\\y.gif", "About to save the image as:\r\n\r\nC:\\p\\y.gif"
}
, {"ExportBmpFrm", &MainMenu::mnuExportBMP,
   [](forms::Application& app) { The<ExportBmpFrm>(app).Target.txtFilename.Text = "y"; },
   [](forms::Application& app) -> auto& {return The<ExportBmpFrm>(app).Buttons.CmdExport;
}
, [](forms::Application& app) -> auto& {
    return The<ExportBmpFrm>(app).Buttons.CmdCancel;
}
, "Pictures.SaveBitmap C:\\p\\y.BMP", "About to export the image as:\r\n\r\nC:\\p\\y.BMP"
}
, {"ExportJpgFrm", &MainMenu::mnuExportJPG,
   [](forms::Application& app) { The<ExportJpgFrm>(app).Target.txtFilename.Text = "y"; },
   [](forms::Application& app) -> auto& {return The<ExportJpgFrm>(app).Buttons.CmdExport;
}
, [](forms::Application& app) -> auto& {
    return The<ExportJpgFrm>(app).Buttons.CmdCancel;
}
, "NViewLib.Load C:\\p\\x.gif", "About to export the image as:\r\n\r\nC:\\p\\y.JPG"
}
, {"frmSetWallpaper", &MainMenu::mnuSetWallpaper,
   [](forms::Application& app) { The<frmSetWallpaper>(app).CheckStretch.Value = true; },
   [](forms::Application& app) -> auto& {return The<frmSetWallpaper>(app).CmdOK;
}
, [](forms::Application& app) -> auto& {
    return The<frmSetWallpaper>(app).CmdCancel;
}
, "Desktop.SetWallpaper C:\\Windows\\Tavrix Wallpaper.BMP"
}
, {"OpenFrm", &MainMenu::mnuOpen,
   [](forms::Application& app) { The<OpenFrm>(app).File1.Deliver(forms::RowEvent{0}); },
   [](forms::Application& app) -> auto& {return The<OpenFrm>(app).CmdOpen;
}
, [](forms::Application& app) -> auto& {
    return The<OpenFrm>(app).CmdCancel;
}
, "Pictures.Load C:\\p\\a.bmp"
}
,
}
}
;

class EachDialog : public EditingTest, public ::testing::WithParamInterface<GuardedDialog> {
  protected:
    void StartWithAClipboard() {
        platform.pictures.SetPicture(Image, PictureOf(Different(40, 30)));
        platform.disks.PutFile("C:\\p\\a.bmp", BitmapOf(Different(9, 8)));
        platform.clipboard.formats = {ClipboardFormat::Bitmap};
        platform.clipboard.picture = PictureOf(Different(50, 60));
        ASSERT_TRUE(Start(Image));
    }
    /// The user opens the dialog, enters what there is to enter and presses OK; `meanwhile` is set up before that.
    void PressOk(const std::function<void()>& meanwhile) {
        const GuardedDialog& dialog = GetParam();
        toolkit.OnModal(dialog.name, [&, this] {
            dialog.enter(app);
            meanwhile();
            if (*dialog.question != '\0') {
                Expect({.text = std::string(dialog.question) + "\r\n\r\nIs this filename OK?",
                        .icon = forms::BoxIcon::Question,
                        .buttons = forms::BoxButtons::YesNo,
                        .reply = forms::Answer::Yes});
            }
            dialog.ok(app).Deliver(forms::ClickEvent{});
        });
        EXPECT_FALSE(Choose(EntryOf()));
        EXPECT_EQ(app.FormCount(), 1);
        ExpectIdle();
    }
    forms::Menu& EntryOf() { return Menus().*GetParam().entry; }
    long TimesDone() {
        return std::ranges::count_if(
            platform.faults.Log(), [](const std::string& call) { return call.starts_with(GetParam().work); });
    }
};

INSTANTIATE_TEST_SUITE_P(Dialogs, EachDialog, ::testing::ValuesIn(Dialogs),
                         [](const auto& dialog) { return dialog.param.name; });

TEST_P(EachDialog, WorksOnceHoweverOftenOkIsPressed) {
    StartWithAClipboard();
    int presses = 0;
    PressOk([&, this] {
        WhenMessagesRun([&, this] {
            const bool open = app.FormCount() > 1;
            if (!open) return;
            ++presses;
            GetParam().ok(app).Deliver(forms::ClickEvent{});
        });
    });
    EXPECT_GE(presses, 1);
    EXPECT_EQ(TimesDone(), 1);
    if (GetParam().entry == &MainMenu::mnuNewImage) ExpectEdited(Different(50, 60));
    if (GetParam().entry == &MainMenu::mnuArbitrary) {
        Choose(Menus().mnuUndo);
        ExpectEdited(Different(40, 30));
    }
}

TEST_P(EachDialog, WorksOnceWheneverOkIsPressedAgain) {
    StartWithAClipboard();
    // Each time that messages run: before the dialog is hidden, behind that, and in the work itself.
    for (int when = 1; when <= 8; ++when) {
        SCOPED_TRACE(when);
        for (const char* written : {"C:\\p\\y.gif", "C:\\p\\y.BMP", "C:\\p\\y.JPG"})
            platform.disks.Remove(written);
        module.CurrentImage.clear();
        View().Deliver(forms::DropEvent{{Image}});
        const long before = TimesDone();
        bool open = true;
        PressOk([&, this] {
            toolkit.AtYield(when, [&, this] {
                if (open && app.FormCount() > 1) GetParam().ok(app).Deliver(forms::ClickEvent{});
            });
        });
        open = false;
        for (int rest = 0; rest < when; ++rest)
            app.DoEvents();  // what was not reached must not come later
        EXPECT_EQ(TimesDone() - before, 1);
    }
}

TEST_P(EachDialog, DoesNothingWhereTheUserCanceledBeforeTheWorkBegan) {
    StartWithAClipboard();
    const auto files = platform.disks.AllFiles();
    const AppConfig config = module.config;
    PressOk([this] { toolkit.AtYield(1, [this] { GetParam().cancel(app).Deliver(forms::ClickEvent{}); }); });
    EXPECT_EQ(TimesDone(), 0);
    EXPECT_EQ(platform.disks.AllFiles(), files);
    EXPECT_EQ(module.CurrentImage, Image);
    ExpectShown(Different(40, 30));
    ExpectUndo("Can't Undo", false);
    EXPECT_EQ(module.config.NewImageX, config.NewImageX);
    EXPECT_EQ(module.config.RotateAngle, config.RotateAngle);
    EXPECT_EQ(module.config.WallpaperStretch, config.WallpaperStretch);
}

}  // namespace
}  // namespace tavrix::test
