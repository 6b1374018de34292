#include "viewer/OpenFrm.h"

#include "viewer/ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::ExpectedBox;

class OpenFrmTest : public ViewerTest {
  protected:
    OpenFrmTest() {
        PutPicture("C:\\p\\a.bmp", 320, 100);
        PutPicture("C:\\p\\b.bmp", 100, 300);
        PutPicture("C:\\p\\c.bmp", 100, 100);
        platform.files.ChangeFolder("C:\\p");
    }

    /// Opens the dialog and does something in it; the user closes it at the end where it is still open.
    void InDialog(const std::function<void(OpenFrm&)>& action) {
        toolkit.OnModal("OpenFrm", [this, action] {
            action(Dialog());
            if (app.Loaded<OpenFrm>() != nullptr && Dialog().Visible()) app.Unload(Dialog());
        });
        ASSERT_FALSE(Choose(View().menu.mnuOpen));
        EXPECT_EQ(app.Loaded<OpenFrm>(), nullptr);
        ExpectIdle();
    }
    OpenFrm& Dialog() { return *app.Loaded<OpenFrm>(); }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
};

TEST_F(OpenFrmTest, OpensTheSelectedFile) {
    ASSERT_TRUE(Start());
    InDialog([&](OpenFrm& dialog) {
        EXPECT_EQ(dialog.Caption.Get(), "Open Image");
        EXPECT_EQ(dialog.File1.FileName(), "a.bmp");
        dialog.File1.Deliver(forms::RowEvent{1});
        Press(dialog.CmdOpen);
    });
    EXPECT_EQ(module.CurrentImage, "C:\\p\\b.bmp");
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\p\\b.bmp]");
}

}  // namespace
}  // namespace tavrix::test
