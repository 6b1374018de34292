#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/Twips.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

/// A window over the whole display: a picture, above it an image, and a holder of the focus that is never shown.
class StageForm final : public Form {
  public:
    StageForm(Application& application, std::vector<std::string>& events)
        : Form(application, {.name = "StageForm", .fullScreen = true}), log(events) {
        focus.Visible = false;
        focus.OnKeyDown = [this](int& code, int) { log.push_back("key " + std::to_string(code)); };
        const auto tell = [this](const char* what) {
            return [this, what](const MouseArguments& mouse) { Tell(what, mouse); };
        };
        image.OnMouseDown = tell("down");
        image.OnMouseMove = tell("move");
        image.OnMouseUp = tell("up");
    }

    PictureBox focus{*this, "focus"};
    PictureBox below{*this, "below"};
    Image image{*this, "image"};

    std::vector<std::string>& log;
    PixelRect loadedAt;

    void Form_Load() override { loadedAt = ToPixels(Left, Top, Width, Height, App().GetToolkit().Screen()); }
    void Form_MouseMove(const MouseArguments& mouse) override { Tell("form move", mouse); }

  private:
    void Tell(const std::string& what, const MouseArguments& mouse) {
        const ScreenInfo screen = App().GetToolkit().Screen();
        log.push_back(what + " " + std::to_string(mouse.button) + " " +
                      std::to_string(ToPixels(mouse.x, screen.twipsPerPixelX)) + "," +
                      std::to_string(ToPixels(mouse.y, screen.twipsPerPixelY)));
    }
};

class FullScreenTest : public ConformanceTest {
  protected:
    StageForm& stage = app.Load<StageForm>(log);

    void Show() {
        stage.Show();
        driver->Settle();
        log.clear();
    }
    Pixel Shown(Control& canvas) { return driver->ShownPixel(canvas, 5, 5) & 0xFFFFFFU; }
    float Twips(int pixels) { return ToTwips(pixels, app.Screen().TwipsPerPixelX()); }
};

TEST_F(FullScreenTest, ItCoversTheDisplayAndHasNoFrame) {
    const PixelRect display = driver->GetToolkit().FullScreenPlace();
    EXPECT_EQ(stage.loadedAt, display);
    EXPECT_GT(display.width, 0);
    EXPECT_EQ(stage.ScaleWidth(), stage.Width.Get());
    EXPECT_EQ(stage.ScaleHeight(), stage.Height.Get());
    Show();
    EXPECT_EQ(driver->ShownPlace(stage), display);
    EXPECT_EQ(stage.ScaleWidth(), Twips(display.width));
    EXPECT_EQ(stage.ScaleHeight(), Twips(display.height));
}

TEST_F(FullScreenTest, KeysReachAHolderOfTheFocusThatIsNeverShown) {
    Show();
    stage.focus.SetFocus();
    driver->UserKey(stage, KeyCode::Right, 0);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"key 39"}));
}

TEST_F(FullScreenTest, TheMouseIsToldWithItsPlaces) {
    stage.image.Move(Twips(20), Twips(10), Twips(100), Twips(80));
    Show();
    driver->UserPoints(stage, 200, 150);
    driver->Settle();
    driver->UserPoints(stage.image, 30, 40);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"form move 0 200,150", "move 0 30,40"}));
    log.clear();
    driver->UserClicksOn(stage.image, MouseButton::Right);
    driver->Settle();
    ASSERT_GE(log.size(), 2U);
    EXPECT_TRUE(log[log.size() - 2].starts_with("down 2 "));
    EXPECT_TRUE(log.back().starts_with("up 2 "));
}

TEST_F(FullScreenTest, AnEmptyImageIsSeenThroughAndGetsTheMouse) {
    Surface surface(40, 30);
    surface.Fill(OpaquePixel(10, 200, 30));
    stage.below.Move(0, 0, Twips(40), Twips(30));
    stage.below.Picture = PictureOf(std::move(surface));
    stage.image.Move(0, 0, Twips(100), Twips(80));
    Show();
    EXPECT_EQ(Shown(stage.below), OpaquePixel(10, 200, 30) & 0xFFFFFFU);
    driver->UserPoints(stage.image, 6, 8);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"move 0 6,8"}));

    Surface cover(100, 80);
    cover.Fill(OpaquePixel(200, 20, 30));
    stage.image.Picture = PictureOf(std::move(cover));
    driver->Settle();
    EXPECT_EQ(Shown(stage.image), OpaquePixel(200, 20, 30) & 0xFFFFFFU);
    stage.image.Picture = {};
    driver->Settle();
    EXPECT_EQ(Shown(stage.below), OpaquePixel(10, 200, 30) & 0xFFFFFFU);
}

TEST_F(FullScreenTest, ATransparentPictureShowsTheColourOfTheForm) {
    stage.BackColor = Colour{0x400000};
    Surface clear(20, 20);
    clear.Fill(0);
    Picture picture = PictureOf(std::move(clear));
    picture.transparent = true;
    stage.image.Picture = picture;
    Show();
    EXPECT_EQ(Shown(stage.image), ToPixel(Colour{0x400000}) & 0xFFFFFFU);
}

TEST_F(FullScreenTest, ThePointerIsHiddenOverTheFormWhateverTheScreenHas) {
    Show();
    EXPECT_FALSE(driver->HidesPointer(stage));
    stage.MousePointer = MousePointer::Hidden;
    EXPECT_TRUE(driver->HidesPointer(stage));
    app.Screen().MousePointer = MousePointer::Hourglass;
    EXPECT_TRUE(driver->HidesPointer(stage));
    stage.MousePointer = MousePointer::Default;
    EXPECT_FALSE(driver->HidesPointer(stage));
    app.Screen().MousePointer = MousePointer::Default;
    stage.MousePointer = MousePointer::Hidden;
    stage.Hide();
    stage.Show();
    EXPECT_TRUE(driver->HidesPointer(stage));
}

TEST_F(FullScreenTest, AFormShownAboveItBeforehandIsUsableWhileItIsModal) {
    auto& main = app.Load<TestForm>(log, "Main");
    main.Show();
    auto& tool = app.Load<TestForm>(log, "Tool", false);
    tool.SetTopmost(true);
    tool.ShowAbove(stage);
    driver->Settle();
    EXPECT_FALSE(driver->IsShown(stage));
    bool toolUsable = false;
    bool mainUsable = true;
    bool afterBox = false;
    driver->ScriptNextBox({.expected = {.text = "Wait"}, .openFor = 80ms});
    driver->Soon([&] {
        toolUsable = driver->IsUsable(tool);
        mainUsable = driver->IsUsable(main);
        app.MessageBox({.text = "Wait"});
        afterBox = driver->IsUsable(stage);
        app.Unload(tool);
        app.Unload(stage);
    });
    stage.ShowModal();
    EXPECT_TRUE(toolUsable);
    EXPECT_FALSE(mainUsable);
    EXPECT_TRUE(afterBox);
    EXPECT_TRUE(driver->IsUsable(main));
}

}  // namespace
}  // namespace tavrix::conformance
