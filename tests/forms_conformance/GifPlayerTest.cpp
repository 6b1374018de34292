#include "forms_conformance/PlayerForm.h"
#include "support/ErrorOfCall.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;

using GifPlayerTest = PlayerTest;

TEST_F(GifPlayerTest, TheFirstFrameStandsAtOnceAndAllOfThemPlay) {
    Put(FileOf({Plain(1, 500), Plain(2, 2)}));
    player.FileName = Path;
    Show();
    EXPECT_EQ(Shown(), RedShown);
    EXPECT_TRUE(player.Playing());

    Put(FileOf({Plain(1, 2), Plain(2, 2), Plain(3, 2)}));
    player.FileName = Path;
    driver->Pass(1000ms);
    EXPECT_EQ(Shown(), BlueShown);
    EXPECT_FALSE(player.Playing());
    EXPECT_EQ(player.FileName.Get(), Path);
}

TEST_F(GifPlayerTest, ItTakesTheSizeOfTheFileAndKeepsItsPlace) {
    Put(FileOf({Plain(1, 500)}));
    player.Move(Twips(10), Twips(20), Twips(100), Twips(100));
    player.FileName = Path;
    EXPECT_EQ(player.Left.Get(), Twips(10));
    EXPECT_EQ(player.Top.Get(), Twips(20));
    EXPECT_EQ(player.Width.Get(), Twips(4));
    EXPECT_EQ(player.Height.Get(), Twips(4));
}

TEST_F(GifPlayerTest, ItIsStretchedToItsSize) {
    test::GifFile file = FileOf({Plain(1, 500)});
    file.images.push_back(
        {.left = 2, .width = 2, .height = 4, .pixels = std::vector<unsigned>(8, 3), .delay = 2});
    file.images[0].delay = 2;
    Put(file);
    player.FileName = Path;
    player.Width = Twips(40);
    player.Height = Twips(20);
    Show();
    driver->Pass(500ms);
    EXPECT_EQ(Shown(5, 10), RedShown);
    EXPECT_EQ(Shown(18, 10), RedShown);
    EXPECT_EQ(Shown(22, 10), BlueShown);
    EXPECT_EQ(Shown(39, 19), BlueShown);

    player.Width = Twips(2);
    player.Height = Twips(2);
    driver->Settle();
    EXPECT_EQ(Shown(0, 1), RedShown);
    EXPECT_EQ(Shown(1, 1), BlueShown);
}

TEST_F(GifPlayerTest, SmallerEachFrameIsShrunkAnew) {
    Put(FileOf({Plain(1, 2), Plain(2, 2)}));
    player.FileName = Path;
    player.Move(0, 0, Twips(3), Twips(3));
    Show();
    driver->Pass(500ms);
    EXPECT_EQ(Shown(1, 1), GreenShown);
}

TEST_F(GifPlayerTest, TheColourOfTheFormIsAroundWhatIsTransparent) {
    test::GifFile file = FileOf({Plain(1, 500)});
    file.width = 10;
    Put(file);
    player.FileName = Path;
    Show();
    EXPECT_EQ(Shown(3, 3), RedShown);
    EXPECT_EQ(Shown(4, 3), BackShown);
    player.Width = Twips(5);
    player.Height = Twips(2);
    driver->Settle();
    EXPECT_EQ(Shown(1, 1), RedShown);
    EXPECT_EQ(Shown(4, 1), BackShown);
}

TEST_F(GifPlayerTest, AnEmptyNameStops) {
    test::GifFile file = FileOf({Plain(1, 2), Plain(2, 2)});
    file.before = test::GifRepetitions(0);
    Put(file);
    player.FileName = Path;
    Show();
    driver->Pass(200ms);
    EXPECT_TRUE(player.Playing());
    player.FileName = "";
    driver->Pass(200ms);
    EXPECT_FALSE(player.Playing());
    EXPECT_EQ(player.FileName.Get(), "");
    EXPECT_EQ(Shown(), BackShown);
}

TEST_F(GifPlayerTest, AnotherFileTakesThePlaceOfTheFirst) {
    Put(FileOf({Plain(1, 2), Plain(2, 500)}));
    Put(FileOf({Plain(3, 500)}), "C:\\p\\b.gif");
    player.FileName = Path;
    Show();
    player.FileName = "C:\\p\\b.gif";
    driver->Pass(200ms);
    EXPECT_EQ(Shown(), BlueShown);
    EXPECT_EQ(player.FileName.Get(), "C:\\p\\b.gif");
}

TEST_F(GifPlayerTest, WhatCannotBeOpenedIsToldAndNothingPlays) {
    Put(FileOf({Plain(1, 2), Plain(2, 2)}));
    platform.disks.PutFile("C:\\p\\no.gif", "GIF89a");
    player.FileName = Path;
    Show();
    EXPECT_EQ(ErrorOfCall([&] { player.FileName = "C:\\p\\no.gif"; }), 481);
    EXPECT_EQ(player.FileName.Get(), "");
    EXPECT_FALSE(player.Playing());
    driver->Settle();
    EXPECT_EQ(Shown(), BackShown);
    EXPECT_EQ(ErrorOfCall([&] { player.FileName = "C:\\p\\gone.gif"; }), 53);
    EXPECT_EQ(ErrorOfCall([&] { player.FileName = "C:\\gone\\a.gif"; }), 76);
}

TEST_F(GifPlayerTest, ItIsSeenThroughAnEmptyImageThatHasTheMouse) {
    Put(FileOf({Plain(1, 2), Plain(2, 2)}));
    player.FileName = Path;
    form.Image1.Stretch = true;
    form.Image1.Move(0, 0, Twips(200), Twips(150));
    form.Image1.Visible = true;
    int presses = 0;
    form.Image1.OnMouseDown = [&presses](const MouseArguments&) { ++presses; };
    Show();
    driver->Pass(500ms);
    EXPECT_EQ(Shown(), GreenShown);
    driver->UserClicksOn(form.Image1, MouseButton::Left);
    driver->Settle();
    EXPECT_EQ(presses, 1);
}

TEST_F(GifPlayerTest, AHiddenPlayerShowsNothing) {
    Put(FileOf({Plain(1, 500)}));
    player.FileName = Path;
    player.Visible = false;
    Show();
    EXPECT_FALSE(driver->ShownVisible(player));
    player.Visible = true;
    driver->Settle();
    EXPECT_EQ(Shown(), RedShown);
}

TEST_F(GifPlayerTest, AFormThatIsUnloadedEndsIt) {
    test::GifFile file = FileOf({Plain(1, 2), Plain(2, 2)});
    file.before = test::GifRepetitions(0);
    Put(file);
    player.FileName = Path;
    Show();
    app.Unload(form);
    driver->Pass(200ms);
}

}  // namespace
}  // namespace tavrix::conformance
