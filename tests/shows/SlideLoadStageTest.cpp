#include "shows/EditorTest.h"

#include "shows/AnimatedGif.h"

namespace tavrix::test {
namespace {

using forms::Answer;

class SlideLoadStageTest : public EditorTest {};

TEST_F(SlideLoadStageTest, AnEmptyListCannotBeShown) {
    ExpectTold(
        "There are no slides in the View List to show.\r\n\r\nAdd files to the list and then try again...");
    Press(Editor().CmdOK);
    EXPECT_EQ(stages, 0);
}

TEST_F(SlideLoadStageTest, TheListIsPlayedInItsOrder) {
    PutSlides("cab", "C:\\Shows\\s.tvs");
    platform.disks.PutFolder("C:\\Shows");
    module.StartedAsShow = true;
    OnStage([this](FullViewFrm& stage) {
        EXPECT_TRUE(stage.InShow());
        EXPECT_TRUE(stage.Editable());
        EXPECT_FALSE(Editor().CmdOK.Enabled);
        EXPECT_EQ(stage.CurrentPath(), Picture('c'));
        EXPECT_EQ(stage.CurrentDescription(), "about c");
        stage.SlideTimer_Timer();
        EXPECT_EQ(stage.CurrentPath(), Picture('a'));
        EXPECT_EQ(module.show.SlideCount, 3);
        EXPECT_EQ(platform.files.CurrentFolder(), "C:\\Shows");
    });
    Press(Editor().CmdOK);
    EXPECT_EQ(stages, 1);
    EXPECT_TRUE(Editor().CmdOK.Enabled);
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(app.Loaded<FullViewFrm>(), nullptr);
    EXPECT_TRUE(IsOpen());
}

TEST_F(SlideLoadStageTest, AShowThatWasNeverSavedLeavesTheCurrentFolder) {
    platform.disks.AddDrive('U', DriveType::Fixed);
    platform.disks.InsertDisk('U');
    PutSlides("ab");
    platform.files.ChangeFolder("C:\\Temp");
    OnStage([this](FullViewFrm&) { EXPECT_EQ(platform.files.CurrentFolder(), "C:\\Temp"); });
    Press(Editor().CmdOK);
    EXPECT_EQ(stages, 1);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\Temp");
}

TEST_F(SlideLoadStageTest, AFolderThatHasGoneDoesNotKeepTheShowBack) {
    PutSlides("ab", "C:\\Gone\\s.tvs");
    OnStage();
    Press(Editor().CmdOK);
    EXPECT_EQ(stages, 1);
}

TEST_F(SlideLoadStageTest, ASlideThatIsRemovedOnTheStageLeavesTheList) {
    PutSlides("abc");
    OnStage([this](FullViewFrm& stage) {
        ExpectQuestion("Remove the picture:\r\n\r\n" + Picture('a') +
                           "\r\n\r\n...from the slide show?\r\n(Note: Image file will NOT be deleted.)",
                       Answer::Yes);
        int key = forms::KeyCode::Delete;
        stage.Form_KeyDown(key, 0);
    });
    Press(Editor().CmdOK);
    EXPECT_EQ(Letters(), "bc");
    EXPECT_EQ(Described(), "++");
    EXPECT_EQ(CountText(), "2 slides (images) total...");
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideLoadStageTest, TheFirstSelectedFileIsPreviewed) {
    std::string shown;
    OnStage([&](FullViewFrm& stage) {
        EXPECT_FALSE(stage.InShow());
        shown += FileNameOf(module.StageImage);
        EXPECT_FALSE(module.StageImageAnimated);
        EXPECT_EQ(stage.Image1.Picture.Get().Width(), 40);
    });
    SelectSources({2, 3});
    Editor().File1.ListIndex = 4;
    Press(Editor().CmdPreview);
    Run(Editor().Menu1.mnuViewImage);
    Editor().File1.Deliver(forms::DoubleClickEvent{});
    EXPECT_EQ(shown, "c.bmpc.bmpc.bmp");
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadStageTest, WhereNoFileCanBePreviewedItIsTold) {
    ExpectTold("Select an image file to preview and then try again...");
    Press(Editor().CmdPreview);
    Editor().Lists.GoTo("C:\\Temp");
    ExpectTold("There are no files in the selected directory to preview...");
    Press(Editor().CmdPreview);
}

TEST_F(SlideLoadStageTest, TheCurrentSlideIsPreviewed) {
    ExpectTold("There are no files in the current slide show to preview...");
    Run(Editor().Menu2.mnuViewImage2);
    PutSlides("ab", "C:\\Pictures\\s.tvs");
    module.show.SlideFiles.Set(1, "b.bmp");
    Editor().PathsChanged();
    SelectSlides({0});
    ExpectTold("Select an image in the slide show to preview and then try again...");
    Run(Editor().Menu2.mnuViewImage2);
    Editor().ListView.ListIndex = 1;
    platform.files.ChangeFolder("C:\\Temp");
    OnStage([this](FullViewFrm&) { EXPECT_EQ(module.StageImage, Picture('b')); });
    Run(Editor().Menu2.mnuViewImage2);
    Editor().ListView.Deliver(forms::DoubleClickEvent{});
    EXPECT_EQ(stages, 2);
}

TEST_F(SlideLoadStageTest, AnimatedFilesArePlayed) {
    platform.disks.PutFile("C:\\Pictures\\m.gif", AnimatedGif());
    Editor().File1.Refresh();
    SelectSources({5});
    int animated = 0;
    OnStage([&](FullViewFrm&) {
        animated += module.StageImageAnimated ? 1 : 0;
        EXPECT_EQ(module.StageImage, "C:\\Pictures\\m.gif");
    });
    module.config.AnimateGIF89 = false;
    Run(Editor().Menu1.mnuViewAnimatedGIF1);
    module.show.SlideFiles.Set(0, "m.gif");
    Editor().ShowLoaded("C:\\Pictures\\s.tvs");
    Editor().ListView.ListIndex = 0;
    Run(Editor().Menu2.mnuViewAnimatedGIF2);
    EXPECT_EQ(animated, 2);
    EXPECT_FALSE(module.StageImageAnimated);
}

TEST_F(SlideLoadStageTest, WhatCannotBeAnimatedIsTold) {
    platform.disks.PutFile("C:\\Pictures\\n.gif", "GIF87a and more");
    platform.disks.PutFile("C:\\Pictures\\o.gif", "GIF");
    Editor().File1.Refresh();
    SlideLoadFrm& e = Editor();
    const auto run = [&](const Rows& sources, int slide, const std::string& text) {
        SelectSources(sources);
        ExpectTold(text);
        Run(e.Menu1.mnuViewAnimatedGIF1);
        e.ListView.ListIndex = slide;
        ExpectTold(text);
        Run(e.Menu2.mnuViewAnimatedGIF2);
    };
    module.show.SlideFiles.Set(0, Picture('a'));
    module.show.SlideFiles.Set(1, "C:\\Pictures\\n.gif");
    module.show.SlideFiles.Set(2, "C:\\Pictures\\gone.gif");
    e.ShowLoaded(SlideLoadFrm::Untitled);
    run({}, -1, "An image has not been selected, unable to view animated gif...");
    run({0}, 0, "The selected image is not a .GIF file, unable to animate...");
    run({5}, 1, "The selected file is not in the GIF89a format, unable to animate...");
    run({6}, 2, "The selected file is not in the GIF89a format, unable to animate...");
}

}  // namespace
}  // namespace tavrix::test
