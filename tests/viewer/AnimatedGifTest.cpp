#include "viewer/AnimatedGif.h"

#include <string>
#include <vector>

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using headless::Service;

class AnimatedGifTest : public ViewerTest {
  protected:
    static constexpr const char* GifPath = "C:\\p\\x.Gif";
    static headless::ExpectedBox NoGif89a() {
        return {.text = "The current file is not in the GIF89a format, unable to animate...",
                .help = true,
                .helpContext = 1330};
    }
    /// Shows a picture whose file has this content.
    void Open(const std::string& path, const std::string& content) {
        PutPicture(path, 64, 48);
        ASSERT_TRUE(Start(path));
        platform.disks.PutFile(path, content);
    }
    void ChooseIt() {
        mnuAnimatedGIF_Click(View(), [this](const std::string& path) {
            played.push_back(path);
            if (whilePlaying) whilePlaying();
        });
    }

    std::vector<std::string> played;
    std::function<void()> whilePlaying;
};

TEST_F(AnimatedGifTest, AGif89aPlays) {
    for (const std::string signature : {"GIF89a", "gif89A", "GIF89a and more"}) {
        played.clear();
        Open(GifPath, signature);
        ChooseIt();
        EXPECT_EQ(played, std::vector<std::string>{GifPath});
        ExpectIdle();
    }
}

TEST_F(AnimatedGifTest, TheSettingOfShowsDoesNotMatter) {
    Open(GifPath, "GIF89a");
    module.config.AnimateGIF89 = false;
    ChooseIt();
    EXPECT_EQ(played.size(), 1U);
}

TEST_F(AnimatedGifTest, WithoutAnImageThereIsNothingToPlay) {
    ASSERT_TRUE(Start());
    Expect({.text = "An image has not been opened yet, unable to view animated gif..."});
    ChooseIt();
    EXPECT_TRUE(played.empty());
}

TEST_F(AnimatedGifTest, OtherFilesAreRefusedByTheirNames) {
    Open("C:\\p\\x.jpg", "GIF89a");
    Expect({.text = "The current image is not a .GIF file, unable to animate..."});
    ChooseIt();
    EXPECT_TRUE(played.empty());
}

TEST_F(AnimatedGifTest, OtherContentIsRefused) {
    Open(GifPath, "");
    for (const std::string content : {"GIF87a and more", "GIF89b", "GIF89", " GIF89a", ""}) {
        platform.disks.PutFile(GifPath, content);
        Expect(NoGif89a());
        ChooseIt();
    }
    EXPECT_TRUE(played.empty());
}

TEST_F(AnimatedGifTest, AFileThatCannotBeReadIsRefused) {
    Open(GifPath, "GIF89a");
    for (const char* operation : {"Open", "Read"}) {
        platform.faults.Clear();
        platform.faults.FailAlways(Service::Files, operation, ErrorNumber::DiskNotReady);
        Expect(NoGif89a());
        ChooseIt();
    }
    platform.faults.Clear();
    platform.disks.Remove(GifPath);
    Expect(NoGif89a());
    ChooseIt();
    EXPECT_TRUE(played.empty());
}

TEST_F(AnimatedGifTest, ABusyProgramDoesNothing) {
    Open(GifPath, "GIF89a");
    const forms::BusyGuard busy(module.Screen());
    ChooseIt();
    EXPECT_TRUE(played.empty());
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(AnimatedGifTest, TheSelectionIsWiped) {
    Open(GifPath, "GIF89a");
    Mouse(View().MainImage, forms::MouseAction::Down, forms::MouseButton::Left, forms::ShiftMask::Shift, 5,
          5);
    Mouse(View().MainImage, forms::MouseAction::Move, forms::MouseButton::Left, forms::ShiftMask::Shift, 20,
          20);
    Mouse(View().MainImage, forms::MouseAction::Up, forms::MouseButton::Left, forms::ShiftMask::Shift, 20,
          20);
    ASSERT_TRUE(View().selection.SelectionShown);
    bool shown = true;
    whilePlaying = [&] { shown = View().selection.SelectionShown; };
    ChooseIt();
    EXPECT_FALSE(shown);
}

TEST_F(AnimatedGifTest, ATopmostWindowMakesRoom) {
    Setting("TopMostWindow", "True");
    Open(GifPath, "GIF89a");
    bool topmost = true;
    whilePlaying = [&] { topmost = Window().topmost; };
    ChooseIt();
    EXPECT_FALSE(topmost);
    EXPECT_TRUE(Window().topmost);

    platform.disks.PutFile(GifPath, "GIF87a");
    headless::ExpectedBox box = NoGif89a();
    topmost = true;
    box.whileOpen = [&] { topmost = Window().topmost; };
    Expect(std::move(box));
    ChooseIt();
    EXPECT_FALSE(topmost);
    EXPECT_TRUE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test
