#include <gtest/gtest.h>

#include "shows/StageTest.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
using forms::MouseAction;
using forms::MousePointer;
using test::FakeEditor;
using test::StageTest;

class NavigatorTest : public StageTest {
  protected:
    NavigatorTest() {
        module.config.ShowToolbar = true;
        module.config.ShowFilenames = true;
        module.config.ShowDescription = true;
    }
    bool Click(forms::Control& control) {
        return Ends([&] { control.Deliver(forms::ClickEvent{}); });
    }
    void PointAt(forms::Control& control) {
        control.Deliver(forms::MouseEvent{MouseAction::Move, 0, 0, 2, 2});
    }
    headless::HeadlessWindowPeer& ToolbarWindow() { return *toolkit.VisibleWindow("frmToolbar"); }
    std::vector<bool> Hints() {
        std::vector<bool> visible;
        for (const forms::Label* hint : {&Toolbar().lblStart, &Toolbar().lblPrevious, &Toolbar().lblNext,
                                         &Toolbar().lblEnd, &Toolbar().lblStop})
            visible.push_back(hint->Visible);
        return visible;
    }
};

TEST_F(NavigatorTest, AWindowSystemThatRefusesItIsTold) {
    PutSlides(2);
    module.config.ShowDescription = false;
    toolkit.windowManager = [](const PixelRect& asked, forms::WindowState) -> PixelRect {
        if (asked.height < 200) throw RuntimeError(ErrorNumber::OutOfMemory);
        return asked;
    };
    Expect({.text = "Unexpected error initializing navigation toolbar, will attempt to continue anyway...",
            .icon = forms::BoxIcon::Exclamation});
    Play();
    EXPECT_EQ(Shown(), 0);
    Press(KeyCode::Right);
    EXPECT_EQ(Shown(), 1);
    Press(KeyCode::Escape);
    EXPECT_FALSE(Playing());
}

TEST_F(NavigatorTest, ItStandsAboveTheStageWhereItWas) {
    PutSlides(3);
    module.config.ToolbarX = 1500;
    module.config.ToolbarY = 750;
    Play();
    EXPECT_EQ(ToolbarWindow().title, "Tavrix - [Navigator]");
    EXPECT_TRUE(ToolbarWindow().topmost);
    EXPECT_TRUE(toolkit.TakesInput(ToolbarWindow()));
    EXPECT_EQ(ToolbarWindow().owner, Stage().Peer());
    EXPECT_EQ(Toolbar().Left, 1500);
    EXPECT_EQ(Toolbar().Top, 750);
    EXPECT_EQ(Stage().Image1.ToolTip.Get(), "");
    Toolbar().Deliver(forms::PlacementEvent{{200, 120, 214, 158}, forms::WindowState::Normal});
    Press(KeyCode::Escape);
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    EXPECT_EQ(module.config.ToolbarX, 3000);
    EXPECT_EQ(module.config.ToolbarY, 1800);
}

TEST_F(NavigatorTest, ItIsUsableAboveAModalStage) {
    PutSlides(3);
    module.SlideShowActive = true;
    OpenEditor().Show();
    bool usable = false;
    bool editorUsable = true;
    toolkit.OnModal("FullViewFrm", [&] {
        usable = toolkit.TakesInput(ToolbarWindow());
        editorUsable = toolkit.TakesInput(*toolkit.VisibleWindow("SlideLoadFrm"));
        Click(Toolbar().ImageStop);
    });
    app.Load<FullViewFrm>(module).ShowModal();
    EXPECT_TRUE(usable);
    EXPECT_FALSE(editorUsable);
    EXPECT_FALSE(Playing());
}

TEST_F(NavigatorTest, ItsButtonsDoWhatTheKeysDo) {
    PutSlides(5);
    Play();
    Click(Toolbar().ImageNext);
    EXPECT_EQ(Shown(), 1);
    Click(Toolbar().ImageEnd);
    EXPECT_EQ(Shown(), 4);
    Click(Toolbar().ImagePrevious);
    EXPECT_EQ(Shown(), 3);
    Click(Toolbar().ImageStart);
    EXPECT_EQ(Shown(), 0);
    Click(Toolbar().ImageStop);
    EXPECT_FALSE(Playing());
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
}

TEST_F(NavigatorTest, ANextThatEndsTheShowIsSafe) {
    PutSlides(2);
    module.config.LoopSlideShow = false;
    Play();
    Click(Toolbar().ImageEnd);
    Click(Toolbar().ImageNext);
    EXPECT_FALSE(Playing());
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
}

TEST_F(NavigatorTest, ItsKeysGoToTheStage) {
    PutSlides(5);
    Play();
    Toolbar().Deliver(forms::KeyEvent{true, KeyCode::Down, 0, nullptr});
    EXPECT_EQ(Shown(), 1);
    Toolbar().Deliver(forms::KeyEvent{true, KeyCode::Escape, 0, nullptr});
    EXPECT_FALSE(Playing());
}

TEST_F(NavigatorTest, AShowGoesOnWithoutItsNavigator) {
    PutSlides(3);
    Play();
    Toolbar().Deliver(forms::CloseEvent{});
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    Advance(5000);
    EXPECT_EQ(Shown(), 1);
    Stage().Deliver(forms::MouseEvent{MouseAction::Move, 0, 0, 3, 3});
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    Press(KeyCode::Escape);
    EXPECT_FALSE(Playing());
}

TEST_F(NavigatorTest, ItTellsOfTheSlide) {
    PutSlides(2);
    const std::string exact = "C:\\s\\" + std::string(21, 'x') + ".bmp";  // 30 characters
    const std::string longer = "C:\\s\\" + std::string(22, 'y') + ".bmp";
    module.show.SlideFiles.Set(0, exact);
    module.show.SlideFiles.Set(1, longer);
    PutPicture(exact, 100, 80);
    PutPicture(longer, 100, 80);
    module.show.SlideDescriptions.Set(1, "Salt & pepper");
    Play();
    EXPECT_EQ(Toolbar().lblStatus.Caption.Get(), exact);
    EXPECT_EQ(Toolbar().lblDescription.Caption.Get(), ">> No Description Available <<");
    Press(KeyCode::Right);
    EXPECT_EQ(Toolbar().lblStatus.Caption.Get(), "..." + longer.substr(1));
    EXPECT_EQ(Toolbar().lblDescription.Caption.Get(), "Salt & pepper");
    EXPECT_TRUE(Toolbar().lblDescription.Literal);
}

TEST_F(NavigatorTest, ItsTextsAreTheSystemsOwn) {
    PutSlides(2);
    Play();
    EXPECT_EQ(Toolbar().ImageStart.ToolTip.Get(), "Show FIRST slide.");
    EXPECT_EQ(Toolbar().ImagePrevious.ToolTip.Get(), "Show PREVIOUS slide.");
    EXPECT_EQ(Toolbar().ImageNext.ToolTip.Get(), "Show NEXT slide.");
    EXPECT_EQ(Toolbar().ImageEnd.ToolTip.Get(), "Show LAST slide.");
    EXPECT_EQ(Toolbar().ImageStop.ToolTip.Get(), "STOP showing slides.");
    EXPECT_EQ(Toolbar().lblMsg.Caption.Get(), "Showing random slide show.");
    EXPECT_EQ(Toolbar().lblDescription.ToolTip.Get(), "Click here to edit descriptions.");
    EXPECT_FALSE(Toolbar().lblMsg.Visible);
    EXPECT_EQ(frmToolbar(app, module, Stage()).lblStatus.Caption.Get(), "Unable to show path...");
}

TEST_F(NavigatorTest, ItsHeightIsThatOfWhatItShows) {
    struct Case {
        bool filenames;
        bool description;
        float height;
    };
    const float design = frmToolbar::DesignHeight;
    for (const Case& c :
         {Case{true, true, design}, {true, false, 1335}, {false, true, design - 270}, {false, false, 1070}}) {
        PutSlides(2);
        module.config.ShowFilenames = c.filenames;
        module.config.ShowDescription = c.description;
        Play();
        EXPECT_EQ(Toolbar().Height, c.height);
        EXPECT_EQ(Toolbar().lblStatus.Visible, c.filenames);
        EXPECT_EQ(Toolbar().lblDescription.Visible, c.description);
        if (!c.filenames && c.description) {
            EXPECT_EQ(Toolbar().lblDescription.Height, 750);
        }
        Press(KeyCode::Escape);
    }
}

TEST_F(NavigatorTest, InRandomOrderItHasNoEnds) {
    PutSlides(3);
    module.config.RandomSlides = true;
    Play();
    EXPECT_TRUE(Toolbar().lblMsg.Visible);
    EXPECT_FALSE(Toolbar().ImageStart.Visible);
    EXPECT_FALSE(Toolbar().ImagePrevious.Visible);
    EXPECT_FALSE(Toolbar().ImageEnd.Visible);
    EXPECT_TRUE(Toolbar().ImageNext.Visible);
    EXPECT_TRUE(Toolbar().ImageStop.Visible);
}

TEST_F(NavigatorTest, NothingTouchesAnythingNorLeavesTheWindow) {
    for (const float twips : {15.0F, 10.0F, 7.5F}) {
        for (const int caption : {19, 32}) {  // pixels, at a scale of 1
            for (int settings = 0; settings < 8; ++settings) {
                SCOPED_TRACE(std::to_string(twips) + " twips, caption " + std::to_string(caption) +
                             ", settings " + std::to_string(settings));
                toolkit.screen = {1600, 1200, twips, twips, 24};
                toolkit.metrics[forms::SystemMetric::CaptionHeight] = caption;
                module.config.ShowFilenames = (settings & 1) != 0;
                module.config.ShowDescription = (settings & 2) != 0;
                module.config.RandomSlides = (settings & 4) != 0;
                PutSlides(2);
                Play();
                std::vector<PixelRect> places;
                for (const forms::Control* control : Toolbar().Controls()) {
                    if (control->Visible) places.push_back(control->PixelBounds());
                }
                const int gap = static_cast<int>(45 / twips);
                for (std::size_t i = 0; i < places.size(); ++i) {
                    const PixelRect& a = places[i];
                    EXPECT_LE(static_cast<float>(a.left + a.width) * twips, Toolbar().ScaleWidth());
                    EXPECT_LE(static_cast<float>(a.top + a.height) * twips, Toolbar().ScaleHeight());
                    for (std::size_t j = i + 1; j < places.size(); ++j) {
                        const PixelRect& b = places[j];
                        const bool beside =
                            a.left + a.width + gap <= b.left || b.left + b.width + gap <= a.left;
                        const bool below = a.top + a.height <= b.top || b.top + b.height <= a.top;
                        EXPECT_TRUE(beside || below) << i << " and " << j;
                    }
                }
                Press(KeyCode::Escape);
            }
        }
    }
}

TEST_F(NavigatorTest, AHintStandsBesideTheButtonsAndTheMessage) {
    PutSlides(2);
    for (const bool random : {false, true}) {
        module.config.RandomSlides = random;
        Play();
        PointAt(Toolbar().ImageStop);
        const PixelRect hint = Toolbar().lblStop.PixelBounds();
        for (const forms::Control* other : Toolbar().Controls()) {
            if (!other->Visible || other == &Toolbar().lblStop) continue;
            const PixelRect place = other->PixelBounds();
            EXPECT_TRUE(hint.left + hint.width <= place.left || place.left + place.width <= hint.left ||
                        hint.top + hint.height <= place.top || place.top + place.height <= hint.top)
                << other->Name();
        }
        Press(KeyCode::Escape);
    }
}

TEST_F(NavigatorTest, HintsComeAndGoWithTheMouse) {
    using Seen = std::vector<bool>;
    PutSlides(3);
    Play();
    Advance(2000);
    EXPECT_TRUE(PointerHidden());
    EXPECT_EQ(Hints(), (Seen{false, false, false, false, false}));
    PointAt(Toolbar().ImagePrevious);
    EXPECT_EQ(Hints(), (Seen{false, true, false, false, false}));
    EXPECT_FALSE(PointerHidden());
    PointAt(Toolbar().ImageStop);
    EXPECT_EQ(Hints(), (Seen{false, false, false, false, true}));
    PointAt(Stage().Image1);
    EXPECT_EQ(Hints(), (Seen{false, false, false, false, false}));
    for (forms::Image* image : {&Toolbar().ImageStart, &Toolbar().ImageNext, &Toolbar().ImageEnd}) {
        PointAt(*image);
        const Seen hints = Hints();
        EXPECT_EQ(std::count(hints.begin(), hints.end(), true), 1);
    }
}

TEST_F(NavigatorTest, ThePointerStaysWhileItRestsOnTheNavigator) {
    PutSlides(3);
    module.config.SlideInterval = 0;
    module.config.ToolbarX = 1500;
    module.config.ToolbarY = 1500;
    Play();
    const int right = 100 + static_cast<int>(frmToolbar::DesignWidth) / 15;
    for (const forms::ScreenPoint& inside : {forms::ScreenPoint{101, 101}, {right - 1, 150}}) {
        Stage().ShowPointer();
        toolkit.pointerPlace = inside;
        Advance(2000);
        EXPECT_FALSE(PointerHidden());
    }
    for (const forms::ScreenPoint& outside :
         {forms::ScreenPoint{100, 150}, {right, 150}, {150, 100}, {9, 9}}) {
        Stage().ShowPointer();
        toolkit.pointerPlace = outside;
        Advance(2000);
        EXPECT_TRUE(PointerHidden());
    }
}

TEST_F(NavigatorTest, AClickOnTheDescriptionLeadsToItsEditor) {
    PutSlides(3);
    Play();
    bool alone = false;
    bool busy = true;
    app.Loaded<FakeEditor>()->onEdit = [&] {
        alone = !Playing() && app.Loaded<frmToolbar>() == nullptr;
        busy = module.Busy();
    };
    Click(Toolbar().lblDescription);
    EXPECT_EQ(app.Loaded<FakeEditor>()->edits, 1);
    EXPECT_TRUE(alone);
    EXPECT_FALSE(busy);
    EXPECT_FALSE(module.Busy());
}

TEST_F(NavigatorTest, TheDescriptionsOfAModalShowAreEditedAfterIt) {
    PutSlides(3);
    module.SlideShowActive = true;
    FakeEditor& editor = OpenEditor();
    editor.Show();
    toolkit.OnModal("FullViewFrm", [&] { Click(Toolbar().lblDescription); });
    app.Load<FullViewFrm>(module).ShowModal();
    EXPECT_EQ(editor.edits, 1);
    EXPECT_FALSE(Playing());
}

TEST_F(NavigatorTest, InAStartedShowDescriptionsAreNotEdited) {
    PutSlides(3);
    EXPECT_FALSE(PlayStarted());
    EXPECT_EQ(Toolbar().lblDescription.MousePointer.Get(), MousePointer::Arrow);
    EXPECT_EQ(Toolbar().lblDescription.ToolTip.Get(), "");
    EXPECT_FALSE(Click(Toolbar().lblDescription));
    EXPECT_TRUE(Playing());
    EXPECT_TRUE(Click(Toolbar().ImageStop));
    EXPECT_EQ(module.config.ToolbarX, 0);
}

TEST_F(NavigatorTest, ABusyProgramDoesNotEditDescriptions) {
    PutSlides(3);
    Play();
    module.Screen().MousePointer = MousePointer::Hourglass;
    Click(Toolbar().lblDescription);
    EXPECT_EQ(app.Loaded<FakeEditor>()->edits, 0);
    EXPECT_TRUE(Playing());
    module.Screen().MousePointer = MousePointer::Default;
}

TEST_F(NavigatorTest, WithoutTheSettingThereIsNone) {
    PutSlides(3);
    module.config.ShowToolbar = false;
    Play();
    EXPECT_EQ(app.Loaded<frmToolbar>(), nullptr);
    PutPicture("C:\\p\\x.bmp", 10, 10);
}

TEST_F(NavigatorTest, TheReturnFromItFitsTheImageAgainAndChangesNothing) {
    module.config.EnlargeImages = true;
    PutSlides(2);
    Play();
    Press(KeyCode::Right);
    const float left = Stage().Image1.Left;
    const float width = Stage().Image1.Width;
    Toolbar().Deliver(forms::ActivateEvent{});
    Stage().Deliver(forms::ActivateEvent{});
    EXPECT_EQ(Stage().Image1.Width, width);
    EXPECT_NEAR(Stage().Image1.Left, left, 1);
    EXPECT_EQ(Shown(), 1);
}

}  // namespace
}  // namespace tavrix
