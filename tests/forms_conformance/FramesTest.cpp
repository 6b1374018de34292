#include <cmath>

#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class FramesForm : public Form {
  public:
    explicit FramesForm(Application& application) : Form(application, {.name = "FramesForm"}) {
        SoundFrame.Caption = "&Sound:";
        OptionNone.Caption = "&No sound";
        OptionFile.Caption = "A &file";
        OptionBlack.Caption = "&Black";
        OptionWhite.Caption = "&White";
    }
    Frame SoundFrame{*this, "SoundFrame"};
    OptionGroup sound;
    OptionButton OptionNone{SoundFrame, "OptionNone", sound};
    OptionButton OptionFile{SoundFrame, "OptionFile", sound};
    Frame ColourFrame{*this, "ColourFrame"};
    OptionGroup colour;
    OptionButton OptionBlack{ColourFrame, "OptionBlack", colour};
    OptionButton OptionWhite{ColourFrame, "OptionWhite", colour};
    CommandButton CmdOK{*this, "CmdOK"};

    void Form_Load() override {
        Move(0, 0, 6000, 4500);
        SoundFrame.Move(150, 150, 2700, 1500);
        OptionNone.Move(150, 450, 2250, 375);
        OptionFile.Move(150, 900, 2250, 375);
        ColourFrame.Move(3000, 150, 2700, 1500);
        OptionBlack.Move(150, 450, 2250, 375);
        OptionWhite.Move(150, 900, 2250, 375);
        CmdOK.Move(150, 2250, 1500, 450);
    }
};

class FramesTest : public ConformanceTest {
  protected:
    void Open() {
        form.Show();
        driver->Settle();
    }
    FramesForm& form = app.Load<FramesForm>();
};

TEST_F(FramesTest, WhatIsInAFrameStandsInIt) {
    Open();
    const float twips = app.Screen().TwipsPerPixelX();
    const auto pixels = [twips](float value) { return static_cast<int>(std::lround(value / twips)); };
    EXPECT_EQ(driver->ShownBounds(form.SoundFrame),
              (PixelRect{pixels(150), pixels(150), pixels(2700), pixels(1500)}));
    EXPECT_EQ(driver->ShownBounds(form.OptionFile),
              (PixelRect{pixels(300), pixels(1050), pixels(2250), pixels(375)}));
    EXPECT_TRUE(driver->ShownVisible(form.OptionFile));
    form.SoundFrame.Left = 300;
    driver->Settle();
    EXPECT_EQ(driver->ShownBounds(form.OptionFile).left, pixels(450));
}

TEST_F(FramesTest, ACaptionThatChangesIsShown) {
    Open();
    EXPECT_EQ(driver->ShownText(form.SoundFrame), "&Sound:");
    EXPECT_EQ(driver->ShownText(form.ColourFrame), "");
    form.SoundFrame.Caption = "Sound: (disabled)";
    EXPECT_EQ(driver->ShownText(form.SoundFrame), "Sound: (disabled)");
}

TEST_F(FramesTest, EachFrameHoldsAGroupOfOptions) {
    form.OptionNone.Value = true;
    form.OptionWhite.Value = true;
    Open();
    driver->UserPicks(form.OptionFile);
    driver->Settle();
    EXPECT_FALSE(form.OptionNone.Value);
    EXPECT_TRUE(form.OptionFile.Value);
    EXPECT_TRUE(form.OptionWhite.Value);
    EXPECT_TRUE(driver->ShownChosen(form.OptionWhite));
    EXPECT_FALSE(driver->ShownChosen(form.OptionNone));
}

TEST_F(FramesTest, AHiddenFrameIsHidden) {
    form.ColourFrame.Visible = false;
    Open();
    EXPECT_FALSE(driver->ShownVisible(form.ColourFrame));
    EXPECT_TRUE(driver->ShownVisible(form.SoundFrame));
    form.ColourFrame.Visible = true;
    EXPECT_TRUE(driver->ShownVisible(form.ColourFrame));
    EXPECT_TRUE(driver->ShownVisible(form.OptionBlack));
}

}  // namespace
}  // namespace tavrix::conformance
