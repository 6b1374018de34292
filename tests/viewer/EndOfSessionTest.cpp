#include "viewer/EndOfSession.h"

#include "support/MainViewFixture.h"

namespace tavrix::test {
namespace {

class EndOfSessionTest : public MainViewFixture {};

TEST_F(EndOfSessionTest, SavesAndLeavesTheWorkingFile) {
    platform.pictures.SetPicture("C:\\p\\a.bmp", PlainPicture(30, 20));
    ASSERT_TRUE(Start("C:\\p\\a.bmp"));
    Choose(View().menu.mnu90CW);
    ASSERT_EQ(module.CurrentImage, "C:\\Temp\\Untitled.BMP");
    const auto working = platform.disks.Content("C:\\Temp\\Untitled.BMP");
    module.config.QualityJPG = 3;
    // No question is asked, of a picture on the clipboard neither.
    platform.clipboard.Set(PlainPicture(3, 3));
    SaveForEndOfSession(module);
    EXPECT_EQ(Saved("QualityJPG"), "3");
    EXPECT_EQ(Saved("Recent1"), "C:\\p\\a.bmp");
    EXPECT_EQ(Saved("LastOpenedFile"), "");
    EXPECT_EQ(platform.disks.Content("C:\\Temp\\Untitled.BMP"), working);
    EXPECT_TRUE(HoldsPicture(platform.clipboard));
    // The session may go on after all.
    EXPECT_EQ(module.CurrentImage, "C:\\Temp\\Untitled.BMP");
    EXPECT_TRUE(View().menu.mnuUndo.Enabled);
}

TEST_F(EndOfSessionTest, SavesNothingWithoutTheMainView) {
    const auto before = platform.disks.Content(SettingsPath);
    module.config.QualityJPG = 3;
    SaveForEndOfSession(module);
    EXPECT_EQ(platform.disks.Content(SettingsPath), before);
}

}  // namespace
}  // namespace tavrix::test
