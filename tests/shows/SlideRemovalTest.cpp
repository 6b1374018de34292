#include <gtest/gtest.h>

#include "shows/StageTest.h"
#include "shows/stage/SlideRemoval.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
using forms::Answer;
using test::FakeEditor;
using test::StageTest;

class SlideRemovalTest : public StageTest {
  protected:
    void ExpectQuestion(const std::string& path, Answer reply) {
        Expect({.text = "Remove the picture:\r\n\r\n" + path +
                        "\r\n\r\n...from the slide show?\r\n(Note: Image file will NOT be deleted.)",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    Texts Files() const {
        Texts files;
        for (int i = 0; i < module.show.SlideFiles.FirstEmpty(); ++i)
            files.push_back(module.show.SlideFiles[i]);
        return files;
    }
    FakeEditor& Editor() { return *app.Loaded<FakeEditor>(); }
};

TEST_F(SlideRemovalTest, TheSlideGoesAndTheNextOneTakesItsPlace) {
    PutSlides(4);
    for (int i = 0; i < 4; ++i)
        module.show.SlideDescriptions.Set(i, "d" + std::to_string(i));
    Play();
    Press(KeyCode::Right);
    ExpectQuestion(PathOf(1), Answer::Yes);
    Press(KeyCode::Delete);
    EXPECT_EQ(Files(), (Texts{PathOf(0), PathOf(2), PathOf(3)}));
    EXPECT_EQ(Editor().rows, Files());
    EXPECT_EQ(module.show.SlideDescriptions[1], "d2");
    EXPECT_EQ(module.show.SlideDescriptions[2], "d3");
    EXPECT_EQ(module.show.SlideDescriptions[3], "");
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(Shown(), 2);
    EXPECT_EQ(Stage().CurrentSlide, 1);
    EXPECT_TRUE(platform.files.FileExists(PathOf(1)));
    Advance(5000);
    EXPECT_EQ(Shown(), 3);
}

TEST_F(SlideRemovalTest, NoLeavesAllAsItIsAndTheShowGoesOn) {
    PutSlides(3);
    Play();
    Advance(2000);
    headless::ExpectedBox box{
        .text = "Remove the picture:\r\n\r\n" + PathOf(0) +
                "\r\n\r\n...from the slide show?\r\n(Note: Image file will NOT be deleted.)",
        .icon = forms::BoxIcon::Question,
        .buttons = forms::BoxButtons::YesNo,
        .reply = Answer::No};
    bool pointerShown = false;
    bool standing = false;
    box.whileOpen = [&] {
        pointerShown = !PointerHidden();
        toolkit.Advance(Milliseconds(65000));
        standing = Shown() == 0;
    };
    Expect(box);
    Press(KeyCode::Delete);
    EXPECT_TRUE(pointerShown);
    EXPECT_TRUE(standing);
    EXPECT_EQ(Files().size(), 3U);
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_FALSE(module.Busy());
    Advance(5000);
    EXPECT_EQ(Shown(), 1);
}

TEST_F(SlideRemovalTest, TheLastPictureStays) {
    PutSlides(1);
    Play();
    ExpectQuestion(PathOf(0), Answer::Yes);
    Expect({.text = "You may not remove the last picture from the slide show..."});
    Press(KeyCode::Delete);
    EXPECT_EQ(Files(), (Texts{PathOf(0)}));
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_FALSE(module.Busy());
    EXPECT_TRUE(Playing());
}

TEST_F(SlideRemovalTest, AllRowsWithThePathGoExceptOneDirectlyBehindARemovedOne) {
    PutSlides(6);
    for (const int i : {2, 3, 5})
        module.show.SlideFiles.Set(i, PathOf(0));
    for (int i = 0; i < 6; ++i)
        module.show.SlideDescriptions.Set(i, "d" + std::to_string(i));
    Play();
    ExpectQuestion(PathOf(0), Answer::Yes);
    Press(KeyCode::Delete);
    // The rows were 0 1 0' 0'' 4 0'''; the one that moves up behind 0' is stepped over.
    EXPECT_EQ(Files(), (Texts{PathOf(1), PathOf(0), PathOf(4)}));
    EXPECT_EQ(Editor().rows, Files());
    EXPECT_EQ(module.show.SlideDescriptions[0], "d1");
    EXPECT_EQ(module.show.SlideDescriptions[1], "d3");
    EXPECT_EQ(module.show.SlideDescriptions[2], "d4");
    EXPECT_EQ(module.show.SlideDescriptions[3], "");
}

TEST_F(SlideRemovalTest, ThePathIsTheSameInAnyCase) {
    PutSlides(3);
    Play();
    module.show.SlideFiles.Set(2, "C:\\S\\1.BMP");
    ExpectQuestion(PathOf(0), Answer::Yes);
    Press(KeyCode::Delete);
    EXPECT_EQ(Files(), (Texts{PathOf(1)}));
}

TEST_F(SlideRemovalTest, WithoutAnEditorTheRecordAloneIsChanged) {
    PutSlides(3);
    module.SlideShowActive = true;
    ASSERT_FALSE(Open());
    ExpectQuestion(PathOf(0), Answer::Yes);
    Press(KeyCode::Delete);
    EXPECT_EQ(Files(), (Texts{PathOf(1), PathOf(2)}));
    EXPECT_EQ(Shown(), 1);
    EXPECT_EQ(app.Loaded<FakeEditor>(), nullptr);
}

TEST_F(SlideRemovalTest, TheLastSlideOfAShowThatDoesNotLoopEndsIt) {
    PutSlides(3);
    module.config.LoopSlideShow = false;
    Play();
    Press(KeyCode::End);
    ExpectQuestion(PathOf(2), Answer::Yes);
    Press(KeyCode::Delete);
    EXPECT_FALSE(Playing());
    EXPECT_EQ(Files().size(), 2U);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideRemovalTest, OfTwoSlidesOneCanGoAndTheOtherCannot) {
    PutSlides(2);
    Play();
    ExpectQuestion(PathOf(0), Answer::Yes);
    Press(KeyCode::Delete);
    EXPECT_EQ(Files(), (Texts{PathOf(1)}));
    ExpectQuestion(PathOf(1), Answer::Yes);
    Expect({.text = "You may not remove the last picture from the slide show..."});
    Press(KeyCode::Delete);
    EXPECT_EQ(Files(), (Texts{PathOf(1)}));
}

}  // namespace
}  // namespace tavrix
