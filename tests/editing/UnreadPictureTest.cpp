// A picture whose file could not be read to its end is shown, but no edit takes it for the whole: each says so in its own
// words and changes nothing.

#include <memory>

#include "DialogTest.h"
#include "editing/resizing/frmImageSize.h"
#include "editing/turning/frmRotateImg.h"

namespace tavrix::test {
namespace {

class UnreadPicture : public DialogTest {
  protected:
    void StartWithPartOfAnImage() {
        StartWithImage(40, 30);
        const auto part = std::make_shared<ArrivingSurface>(40, 30);
        part->Canvas() = Different(40, 30);
        part->Finish(Outcome::Unread);
        Picture picture;
        picture.pixels = part;
        View().MainImage.Picture = picture;
        files = platform.disks.AllFiles();
    }
    void ExpectRefusal(const std::string& notWritten) {
        Expect({.text = notWritten + "\r\n\r\nPath/File access error...", .icon = forms::BoxIcon::Stop});
    }
    /// The picture is on show still, and nothing was made of it.
    void ExpectLeftAlone() {
        EXPECT_EQ(toolkit.Failures(), std::vector<std::string>{});
        EXPECT_EQ(View().MainImage.Picture.Get().pixels->Ending(), Outcome::Unread);
        EXPECT_EQ(module.CurrentImage, Opened);
        EXPECT_EQ(View().Caption.Get(), std::string("Tavrix - [") + Opened + "]");
        ExpectUndo("Can't Undo", false);
        EXPECT_EQ(platform.disks.AllFiles(), files);
        ExpectNothingLeft();
    }

    static constexpr const char* NoEdit = "Unable to write edited image to a temporary file.";
    std::map<std::string, std::string> files;
};

TEST_F(UnreadPicture, IsRefusedByEachEditOfTheMenu) {
    StartWithPartOfAnImage();
    for (const FixedEdit& edit : FixedEdits) {
        SCOPED_TRACE(edit.name);
        ExpectRefusal(NoEdit);
        Choose(EntryOf(edit));
        ExpectLeftAlone();
    }
}

TEST_F(UnreadPicture, IsRefusedByATurnByAnyAngle) {
    StartWithPartOfAnImage();
    module.config.RotateAngle = 12;
    ExpectRefusal(NoEdit);
    InDialog<frmRotateImg>(Menus().mnuArbitrary, "frmRotateImg", [](frmRotateImg& dialog) {
        Paste(dialog.txtAngle, "45");
        Press(dialog.CmdRotate);
    });
    ExpectLeftAlone();
    EXPECT_EQ(module.config.RotateAngle, 12) << "what was entered is kept once it is carried out";
}

TEST_F(UnreadPicture, IsRefusedByAResizeToAnySize) {
    StartWithPartOfAnImage();
    module.config.ImageSizeAspect = true;
    ExpectRefusal(NoEdit);
    InDialog<frmImageSize>(Menus().mnuEditImageSize, "frmImageSize", [](frmImageSize& dialog) {
        Tick(dialog.CheckAspect);
        Paste(dialog.txtWidth, "80");
        Press(dialog.CmdSize);
    });
    ExpectLeftAlone();
    EXPECT_TRUE(module.config.ImageSizeAspect);
}

TEST_F(UnreadPicture, IsRefusedByACropWhichKeepsTheSelection) {
    StartWithPartOfAnImage();
    Select(5, 6, 30, 20);
    ExpectRefusal("Unable to write new image data to a temporary file.");
    Choose(Menus().mnuCrop);
    ExpectLeftAlone();
    EXPECT_TRUE(View().selection.SelectionShown);
}

TEST_F(UnreadPicture, IsRefusedByAPaste) {
    StartWithPartOfAnImage();
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    platform.clipboard.picture = PictureOf(Different(10, 10));
    ExpectRefusal("Unable to write clipboard data to a temporary file.");
    Choose(Menus().mnuPaste);
    ExpectLeftAlone();
}

}  // namespace
}  // namespace tavrix::test
