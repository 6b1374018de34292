#include "support/MainViewFixture.h"

namespace tavrix::test {
namespace {

class MainViewTest : public MainViewFixture {};

TEST_F(MainViewTest, AnImageOnTheCommandLineIsShown) {
    platform.pictures.SetPicture("C:\\p\\x.jpg", PlainPicture(640, 480));
    ASSERT_TRUE(Start("c:\\p\\x.jpg"));
    EXPECT_EQ(View().Caption.Get(), "Tavrix - [c:\\p\\x.jpg]");
    EXPECT_EQ(module.CurrentImage, "C:\\p\\x.jpg");
    EXPECT_FLOAT_EQ(View().MainImage.Width, 640 * 15);
    EXPECT_FALSE(View().hsbPict.Visible);
    EXPECT_FALSE(View().vsbPict.Visible);
    EXPECT_TRUE(View().menu.mnuEdit.Visible);
}

}  // namespace
}  // namespace tavrix::test
