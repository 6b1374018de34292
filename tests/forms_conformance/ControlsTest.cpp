#include "base/RuntimeError.h"
#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class ControlsTest : public ConformanceTest {};

TEST_F(ControlsTest, AButtonRaisesOneClick) {
    auto& form = app.Load<TestForm>(log);
    form.button.OnClick = [this] { log.emplace_back("click"); };
    form.Show();
    driver->Settle();
    driver->UserClicks(form.button);
    driver->Settle();
    EXPECT_EQ(Count(log, "click"), 1);
}

TEST_F(ControlsTest, AButtonRaisesClickBeforeMouseUp) {
    auto& form = app.Load<TestForm>(log);
    form.button.OnMouseDown = [this](const MouseArguments&) { log.emplace_back("down"); };
    form.button.OnClick = [this] { log.emplace_back("click"); };
    form.button.OnMouseUp = [this](const MouseArguments&) { log.emplace_back("up"); };
    form.Show();
    driver->Settle();
    log.clear();
    driver->UserClicks(form.button);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"down", "click", "up"}));
}

TEST_F(ControlsTest, ADisabledButtonIsDead) {
    auto& form = app.Load<TestForm>(log);
    form.button.OnClick = [this] { log.emplace_back("click"); };
    form.button.Enabled = false;
    form.Show();
    driver->Settle();
    driver->UserClicks(form.button);
    driver->Settle();
    EXPECT_EQ(Count(log, "click"), 0);
}

TEST_F(ControlsTest, StateSetBeforeTheFirstShowIsShown) {
    auto& form = app.Load<TestForm>(log);
    form.Caption = "Tavrix - [A & B]";
    form.label.Caption = "Please wait...";
    form.button.Caption = "&Cancel";
    form.button.ToolTip = "Click here";
    form.button.Enabled = false;
    form.picture.AccessibleName = "Picture";
    form.bar.Max = 500;
    form.bar.Value = 120;
    form.Show();
    driver->Settle();
    EXPECT_EQ(driver->ShownTitle(form), "Tavrix - [A & B]");
    EXPECT_EQ(driver->ShownText(form.label), "Please wait...");
    EXPECT_EQ(driver->ShownText(form.button), "&Cancel");
    EXPECT_EQ(driver->ShownToolTip(form.button), "Click here");
    EXPECT_FALSE(driver->ShownEnabled(form.button));
    EXPECT_EQ(driver->ShownName(form.picture), "Picture");
    EXPECT_FALSE(driver->ShownVisible(form.hidden));
    EXPECT_EQ(driver->ShownValue(form.bar), 120);
}

TEST_F(ControlsTest, StateSetAfterTheShowIsShown) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    driver->Settle();
    form.Caption = "180\u00B0";
    form.label.Caption = "Searching...";
    form.button.Visible = false;
    form.bar.Visible = false;
    form.button.ToolTip = "Other";
    EXPECT_EQ(driver->ShownTitle(form), "180\u00B0");
    EXPECT_EQ(driver->ShownText(form.label), "Searching...");
    EXPECT_EQ(driver->ShownToolTip(form.button), "Other");
    EXPECT_FALSE(driver->ShownVisible(form.button));
    EXPECT_FALSE(driver->ShownVisible(form.bar));
    form.button.Visible = true;
    EXPECT_TRUE(driver->ShownVisible(form.button));
}

TEST_F(ControlsTest, AssigningAValueRaisesOneChangeAndNoEcho) {
    auto& form = app.Load<TestForm>(log);
    form.bar.Max = 1000;
    form.bar.OnChange = [this] { log.emplace_back("change"); };
    form.bar.OnScroll = [this] { log.emplace_back("scroll"); };
    form.Show();
    form.bar.Value = 400;
    form.bar.Value = 400;
    driver->Settle();
    EXPECT_EQ(Count(log, "change"), 1);
    EXPECT_EQ(Count(log, "scroll"), 0);
    EXPECT_EQ(driver->ShownValue(form.bar), 400);
}

TEST_F(ControlsTest, TheUserScrollsWithOneChange) {
    auto& form = app.Load<TestForm>(log);
    form.bar.Max = 1000;
    form.bar.OnChange = [&] { log.push_back("change " + std::to_string(form.bar.Value)); };
    form.Show();
    driver->Settle();
    log.clear();
    driver->UserScrolls(form.bar, 250);
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"change 250"}));
    EXPECT_EQ(driver->ShownValue(form.bar), 250);
}

TEST_F(ControlsTest, LoweringTheMaximumTakesTheValueAlong) {
    auto& form = app.Load<TestForm>(log);
    form.bar.Max = 1000;
    form.bar.Value = 900;
    form.Show();
    form.bar.OnChange = [this] { log.emplace_back("change"); };
    form.bar.Max = 300;
    driver->Settle();
    EXPECT_EQ(form.bar.Value, 300);
    EXPECT_EQ(driver->ShownValue(form.bar), 300);
    EXPECT_EQ(Count(log, "change"), 1);
    form.bar.Max = 600;
    EXPECT_EQ(driver->ShownValue(form.bar), 300);
    EXPECT_THROW(form.bar.Value = 601, RuntimeError);
}

TEST_F(ControlsTest, AHiddenHolderOfTheFocusPassesKeysToTheForm) {
    auto& form = app.Load<TestForm>(log);
    form.KeyPreview = true;
    form.Show();
    form.hidden.SetFocus();
    driver->Settle();
    EXPECT_EQ(form.ActiveControl(), &form.hidden);
    log.clear();
    driver->UserKey(form, KeyCode::Down, ShiftMask::None);
    driver->UserKey(form, KeyCode::Up, ShiftMask::Ctrl);
    driver->UserKey(form, KeyCode::Right, ShiftMask::Alt);
    driver->Settle();
    EXPECT_EQ(Count(log, "TestForm key 40/0"), 1);
    EXPECT_EQ(Count(log, "TestForm key 38/2"), 1);
    EXPECT_EQ(Count(log, "TestForm key 39/4"), 1);
}

TEST_F(ControlsTest, WithoutKeyPreviewTheFormSeesNoKeys) {
    auto& form = app.Load<TestForm>(log);
    form.Show();
    form.hidden.SetFocus();
    driver->Settle();
    log.clear();
    driver->UserKey(form, KeyCode::Down, ShiftMask::None);
    driver->Settle();
    EXPECT_EQ(log, std::vector<std::string>{});
}

TEST_F(ControlsTest, FocusThatIsSetRaisesGotFocusOnce) {
    auto& form = app.Load<TestForm>(log);
    form.button.OnGotFocus = [this] { log.emplace_back("focus"); };
    form.Show();
    form.button.SetFocus();
    driver->Settle();
    form.button.SetFocus();
    driver->Settle();
    EXPECT_EQ(Count(log, "focus"), 1);
}

TEST_F(ControlsTest, MouseEventsComeWithTheirPlace) {
    auto& form = app.Load<TestForm>(log);
    const auto note = [this](const char* what) {
        return [this, what](const MouseArguments& mouse) {
            log.push_back(std::string(what) + " " + std::to_string(mouse.button) + " " +
                          std::to_string(static_cast<int>(mouse.x)) + "," +
                          std::to_string(static_cast<int>(mouse.y)));
        };
    };
    form.picture.OnMouseDown = note("down");
    form.picture.OnMouseUp = note("up");
    form.picture.OnClick = [this] { log.emplace_back("click"); };
    form.Show();
    driver->Settle();
    log.clear();
    const float twips = app.Screen().TwipsPerPixelX();
    driver->UserDrags(form.picture, MouseButton::Left, {10, 20, 10, 20});
    driver->Settle();
    const std::string at =
        std::to_string(static_cast<int>(10 * twips)) + "," + std::to_string(static_cast<int>(20 * twips));
    EXPECT_EQ(log, (std::vector<std::string>{"down 1 " + at, "up 1 " + at, "click"}));

    log.clear();
    driver->UserDrags(form.picture, MouseButton::Right, {10, 20, 10, 20});
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"down 2 " + at, "up 2 " + at}));
}

TEST_F(ControlsTest, DroppedFilesComeAsDrivePathsAfterTheDrag) {
    auto& form = app.Load<TestForm>(log);
    form.picture.OnOLEDragDrop = [this](const std::vector<std::string>& files) {
        log.insert(log.end(), files.begin(), files.end());
    };
    form.Show();
    driver->Settle();
    log.clear();
    driver->UserDrops(form.picture, {"/pictures/a b.jpg", "/pictures/\u00E4.bmp"});
    EXPECT_EQ(log, std::vector<std::string>{});
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"C:/pictures/a b.jpg", "C:/pictures/\u00E4.bmp"}));
}

}  // namespace
}  // namespace tavrix::conformance
