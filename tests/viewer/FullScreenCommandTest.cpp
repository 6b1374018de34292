// What the main view does before it hands its image to the stage.

#include "ViewerTest.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/StageCommands.h"

namespace tavrix::test {
namespace {

using forms::MouseAction;
namespace MouseButton = forms::MouseButton;
namespace ShiftMask = forms::ShiftMask;

class FullScreenCommand : public ViewerTest {
  protected:
    FullScreenCommand() {
        beforeShow = [](MainViewFrm& view) { InstallStageCommands(view); };
        toolkit.OnModal("FullViewFrm", [this] {
            ++views;
            if (seen) seen();
            auto* stage = app.Loaded<FullViewFrm>();
            if (stage != nullptr) stage->Deliver(forms::KeyEvent{true, forms::KeyCode::Escape, 0, nullptr});
        });
    }
    void Select() {
        for (const auto& [action, at] :
             {std::pair{MouseAction::Down, 10}, {MouseAction::Move, 40}, {MouseAction::Up, 40}})
            Mouse(View().MainImage, action, MouseButton::Left, ShiftMask::Shift, at, at);
        ASSERT_TRUE(View().selection.SelectionShown);
    }
    bool IsPlain() {
        const Picture image = View().MainImage.Image();
        const auto pixels = image.pixels->Whole().Pixels();
        return std::ranges::all_of(pixels, [&](Pixel pixel) { return pixel == pixels[0]; });
    }

    int views = 0;
    std::function<void()> seen;
};

TEST_F(FullScreenCommand, TheSelectionIsErasedAndForgotten) {
    StartWithPicture(100, 80);
    Select();
    ASSERT_FALSE(IsPlain());
    seen = [this] {
        EXPECT_TRUE(IsPlain());
        EXPECT_FALSE(View().selection.SelectionShown);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_TRUE(IsPlain());
    Mouse(View().MainImage, MouseAction::Down, MouseButton::Left, ShiftMask::None, 5, 5);
    Mouse(View().MainImage, MouseAction::Up, MouseButton::Left, ShiftMask::None, 5, 5);
    EXPECT_TRUE(IsPlain());
}

TEST_F(FullScreenCommand, ItIsTheImageAndNoShow) {
    StartWithPicture(100, 80);
    module.SlideShowActive = true;  // as a show has left it
    module.show.SlideFiles.Set(0, "C:\\p\\slide.bmp");
    PutPicture("C:\\p\\slide.bmp", 33, 22);
    seen = [this] {
        EXPECT_FALSE(module.SlideShowActive);
        EXPECT_EQ(app.Loaded<FullViewFrm>()->Image1.Picture.Get().Width(), 100);
    };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
}

TEST_F(FullScreenCommand, TheEndOfOneImageLeavesTheMainViewInItsBand) {
    // Only the end of a show brings the main view back above the others; that of an image leaves it to the command.
    StartWithPicture(100, 80);
    seen = [this] { module.config.TopMostWindow = true; };
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_FALSE(Window().topmost);
}

TEST_F(FullScreenCommand, TheEndOfOneImageTouchesNeitherSoundNorScreenNorProcess) {
    StartWithPicture(100, 80);
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\p\\a.wav";
    module.config.ShowToolbar = true;
    module.StartedAsShow = true;  // as a dropped show has left it
    platform.sound.calls.clear();
    seen = [this] { platform.wakefulness.inhibited = true; };  // by somebody else
    Choose(View().menu.mnuFullScreen);
    EXPECT_EQ(views, 1);
    EXPECT_EQ(platform.sound.calls, std::vector<std::string>{});
    EXPECT_TRUE(platform.wakefulness.inhibited);
    EXPECT_FALSE(platform.process.ended);
}

}  // namespace
}  // namespace tavrix::test
