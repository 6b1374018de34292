#include "ViewerTest.h"

namespace tavrix::test {
namespace {

/// Starts from the desktop's menus, where what is opened need not be named as the command line asks for.
class DesktopStartTest : public ViewerTest {
  protected:
    DesktopStartTest() {
        beforeShow = [this](MainViewFrm& view) {
            Count(view.menu.mnuFullScreen);
            Count(view.menu.mnuTipOfDay);
            shownWithTheWindow = module.CurrentImage;
        };
        platform.disks.PutFolder("C:\\p");
    }
    void UseShows(bool filled) {
        lives.LoadShowFile = [this, filled](const std::string& path) {
            loaded.push_back(path);
            return filled;
        };
        lives.ShowStage = [this] { ++stages; };
    }
    void ExpectOnShow(const std::string& path) {
        EXPECT_EQ(module.CurrentImage, path);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [" + path + "]");
        ExpectIdle();
    }

    std::string shownWithTheWindow;
    std::vector<std::string> loaded;
    int stages = 0;
};

TEST_F(DesktopStartTest, TheFileIsOnShowWithTheFirstLook) {
    PutPicture("C:\\p\\x.jpg", 50, 40);
    ASSERT_TRUE(Start("--open C:\\p\\x.jpg"));
    EXPECT_EQ(shownWithTheWindow, "C:\\p\\x.jpg");
    ExpectOnShow("C:\\p\\x.jpg");
    EXPECT_FLOAT_EQ(View().MainImage.Width, 50 * 15);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
    EXPECT_EQ(module.config.Recent[0], "C:\\p\\x.jpg");
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 0);
}

class AnyNameTest : public DesktopStartTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(AnyNameTest, TheEndingDoesNotDecideWhatIsAPicture) {
    const std::string path = std::string("C:\\p\\") + GetParam();
    PutPicture(path, 50, 40);
    ASSERT_TRUE(Start("--open " + path));
    EXPECT_EQ(shownWithTheWindow, path);
    ExpectOnShow(path);
}

INSTANTIATE_TEST_SUITE_P(Names, AnyNameTest, ::testing::Values("photo.jpeg", "photo", "photo.1", "a b.png"));

TEST_F(DesktopStartTest, TheCommandLineAloneRefusesSuchNamesAsBefore) {
    PutPicture("C:\\p\\photo.jpeg", 50, 40);
    Expect({.text = "An invalid command (C:\\p\\photo.jpeg) was passed at the command prompt...",
            .icon = forms::BoxIcon::Exclamation});
    ASSERT_TRUE(Start("C:\\p\\photo.jpeg"));
}

TEST_F(DesktopStartTest, WhatCannotBeShownIsToldAsForADrop) {
    platform.disks.PutFile("C:\\p\\x.jpg", "no picture");
    Expect({.text = "Unable to display image, an unexpected error occurred during the drag and drop "
                    "operation.\r\n\r\n"
                    "Invalid picture...",
            .icon = forms::BoxIcon::Stop,
            .title = "Tavrix - [Drag & Drop Error]"});
    ASSERT_TRUE(Start("--open C:\\p\\x.jpg"));
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(DesktopStartTest, WhatADropRefusesIsRefused) {
    PutPicture("C:\\p\\x.tga", 50, 40);
    Expect({.text = ".tga files must be imported into Tavrix and then saved as a supported format first, "
                    "unable to open:\r\n\r\nC:\\p\\x.tga"});
    ASSERT_TRUE(Start("--open C:\\p\\x.tga"));
    ExpectEmptyView();
}

TEST_F(DesktopStartTest, AFolderIsRefused) {
    Expect({.text = "You may not drop a folder here, unable to open..."});
    ASSERT_TRUE(Start("--open C:\\p"));
    ExpectEmptyView();
}

TEST_F(DesktopStartTest, AShortcutLeadsToItsTarget) {
    PutPicture("C:\\p\\x.jpg", 50, 40);
    platform.shell.links["C:\\desk\\s.lnk"] = "C:\\p\\x.jpg";
    ASSERT_TRUE(Start("--open C:\\desk\\s.lnk"));
    ExpectOnShow("C:\\p\\x.jpg");
}

TEST_F(DesktopStartTest, AShowIsPlayedOverTheMainView) {
    UseShows(true);
    ASSERT_TRUE(Start("--open C:\\p\\a b.tvs"));
    EXPECT_EQ(loaded, std::vector<std::string>{"C:\\p\\a b.tvs"});
    EXPECT_EQ(stages, 1);
    EXPECT_TRUE(module.SlideShowActive);
    EXPECT_TRUE(View().Visible());
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\p");
}

TEST_F(DesktopStartTest, AShowWithoutImagesIsToldAndLeavesTheMainView) {
    UseShows(false);
    Expect({.text = "This slide show file does not contain any images, nothing to show..."});
    ASSERT_TRUE(Start("--open C:\\p\\x.TVS"));
    EXPECT_EQ(stages, 0);
    ExpectEmptyView();
}

TEST_F(DesktopStartTest, TheTipWaitsForTheEndOfTheShow) {
    class Stage final : public forms::Form {
      public:
        explicit Stage(forms::Application& application) : Form(application, {.name = "Stage"}) {}
    };
    UseShows(true);
    lives.ShowStage = [this] {
        app.Load<Stage>().Show();
        toolkit.Post([this] { app.Unload(*app.Loaded<Stage>()); });
    };
    platform.store.Set("Show Tips at Startup", "1");
    int tips = 0;
    beforeShow = [&](MainViewFrm& view) {
        view.menu.mnuTipOfDay.Install([&] {
            ++tips;
            EXPECT_EQ(app.Loaded<Stage>(), nullptr);
        });
    };
    ASSERT_TRUE(Start("--open C:\\p\\x.tvs"));
    EXPECT_EQ(tips, 1);
}

TEST_F(DesktopStartTest, WithoutAFileItIsAPlainStart) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    ASSERT_TRUE(Start("--open"));
    ExpectEmptyView();
}

TEST_F(DesktopStartTest, APlainStartShowsTheLastImageWhereThePreferencesSaySo) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    Setting("DisplayLastOpened", "True");
    ASSERT_TRUE(Start("--open"));
    ExpectOnShow("C:\\p\\last.bmp");
}

TEST_F(DesktopStartTest, TheFileComesInThePlaceOfTheLastImage) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    PutPicture("C:\\p\\x.jpeg", 50, 40);
    Setting("DisplayLastOpened", "True");
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    ASSERT_TRUE(Start("--open C:\\p\\x.jpeg"));
    ExpectOnShow("C:\\p\\x.jpeg");
    EXPECT_EQ(module.config.Recent[1], "");
}

struct WholeScreenCase {
    const char* preference;
    const char* line;
    int views;
};

class WholeScreenTest : public DesktopStartTest, public ::testing::WithParamInterface<WholeScreenCase> {};

TEST_P(WholeScreenTest, ThePreferenceCountsAndSoDoesTheOption) {
    PutPicture("C:\\p\\x.jpeg", 50, 40);
    platform.shell.links["C:\\p\\s.lnk"] = "C:\\p\\x.jpeg";  // does not come with the first look
    Setting("ViewFullScreen", GetParam().preference);
    ASSERT_TRUE(Start(GetParam().line));
    ExpectOnShow("C:\\p\\x.jpeg");
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), GetParam().views);
}

INSTANTIATE_TEST_SUITE_P(Lines, WholeScreenTest,
                         ::testing::Values(WholeScreenCase{"True", "--open C:\\p\\x.jpeg", 1},
                                           WholeScreenCase{"True", "--open C:\\p\\s.lnk", 1},
                                           WholeScreenCase{"True", "--full-screen C:\\p\\x.jpeg", 1},
                                           WholeScreenCase{"True", "--full-screen C:\\p\\s.lnk", 1},
                                           WholeScreenCase{"False", "--open C:\\p\\s.lnk", 0},
                                           WholeScreenCase{"False", "--full-screen C:\\p\\x.jpeg", 1},
                                           WholeScreenCase{"False", "--full-screen C:\\p\\s.lnk", 1}));

TEST_F(DesktopStartTest, TheWholeScreenAloneShowsTheLastImage) {
    PutPicture("C:\\p\\last.bmp", 30, 20);
    Setting("LastOpenedFile", "C:\\p\\last.bmp");
    ASSERT_TRUE(Start("--full-screen"));
    ExpectOnShow("C:\\p\\last.bmp");
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 1);
}

TEST_F(DesktopStartTest, TheWholeScreenWithoutAnyImageIsTheMenusBusiness) {
    ASSERT_TRUE(Start("--full-screen"));
    ExpectEmptyView();
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 1);
}

TEST_F(DesktopStartTest, AnImageThatCannotBeShownIsNotViewedOverTheWholeScreen) {
    Expect({.text = "Unable to display image, an unexpected error occurred during the drag and drop "
                    "operation.\r\n\r\n"
                    "File not found...",
            .icon = forms::BoxIcon::Stop,
            .title = "Tavrix - [Drag & Drop Error]"});
    ASSERT_TRUE(Start("--full-screen C:\\p\\gone.jpg"));
    EXPECT_EQ(Runs(View().menu.mnuFullScreen), 0);
}

class NoOptionTest : public DesktopStartTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(NoOptionTest, WhatIsNotExactlyAnOptionIsAnInvalidCommand) {
    Expect(
        {.text = "An invalid command (" + std::string(GetParam()) + ") was passed at the command prompt...",
         .icon = forms::BoxIcon::Exclamation});
    ASSERT_TRUE(Start(GetParam()));
    ExpectEmptyView();
}

INSTANTIATE_TEST_SUITE_P(Lines, NoOptionTest,
                         ::testing::Values("--opened", "-open x", "--open\tx", "--full-screens",
                                           "--fullscreen", "--OPEN x"));

}  // namespace
}  // namespace tavrix::test
