#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

class DropTest : public ViewerTest {
  protected:
    static constexpr const char* Dropped = "C:\\drop\\d.bmp";

    void StartForDrops() {
        PutPicture(Dropped, 60, 50);
        StartWithPicture(100, 80);
    }
    bool Drop(const std::vector<std::string>& files) {
        return Ends([&] { View().MainImage.Deliver(forms::DropEvent{files}); });
    }
    void ExpectUnchanged() {
        EXPECT_EQ(module.CurrentImage, ImagePath);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\p\\x.jpg]");
        ExpectIdle();
    }
    void UseShows(bool filled) {
        lives.LoadShowFile = [this, filled](const std::string& path) {
            loaded.push_back(path);
            return filled;
        };
        lives.ShowStage = [this] {
            ++stages;
            EXPECT_TRUE(module.SlideShowActive);
            EXPECT_TRUE(module.StartedAsShow);
        };
    }

    std::vector<std::string> loaded;
    int stages = 0;
};

TEST_F(DropTest, TheImageTheFrameAndTheFormTakeDrops) {
    StartForDrops();
    for (forms::EventSink* sink :
         {static_cast<forms::EventSink*>(&View().MainImage), static_cast<forms::EventSink*>(&View().picFrame),
          static_cast<forms::EventSink*>(&View())}) {
        EXPECT_FALSE(Choose(View().menu.mnuClear));
        sink->Deliver(forms::DropEvent{{Dropped}});
        EXPECT_EQ(module.CurrentImage, Dropped);
        EXPECT_EQ(View().Caption.Get(), "Tavrix - [C:\\drop\\d.bmp]");
        ExpectIdle();
    }
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\drop");
    EXPECT_EQ(module.config.Recent[0], Dropped);
}

TEST_F(DropTest, OnlyTheFirstFileCounts) {
    StartForDrops();
    PutPicture("C:\\drop\\e.bmp", 10, 10);
    EXPECT_FALSE(Drop({Dropped, "C:\\drop\\e.bmp"}));
    EXPECT_EQ(module.CurrentImage, Dropped);
}

TEST_F(DropTest, AnEndingDoesNotDecideWhatIsAPicture) {
    StartForDrops();
    PutPicture("C:\\drop\\photo.jpeg", 10, 10);
    EXPECT_FALSE(Drop({"C:\\drop\\photo.jpeg"}));
    EXPECT_EQ(module.CurrentImage, "C:\\drop\\photo.jpeg");
}

TEST_F(DropTest, AShortcutLeadsToItsTarget) {
    StartForDrops();
    platform.shell.links["C:\\desk\\s.Lnk"] = Dropped;
    EXPECT_FALSE(Drop({"C:\\desk\\s.Lnk"}));
    EXPECT_EQ(module.CurrentImage, Dropped);
}

TEST_F(DropTest, ABackslashAtTheEndIsTakenAway) {
    StartForDrops();
    EXPECT_FALSE(Drop({std::string(Dropped) + "\\"}));
    EXPECT_EQ(module.CurrentImage, Dropped);
}

struct NoFile {
    std::vector<std::string> files;
};

class DropOfNothingTest : public DropTest, public ::testing::WithParamInterface<NoFile> {};

TEST_P(DropOfNothingTest, IsToldAndChangesNothing) {
    StartForDrops();
    Expect({.text =
                "An unexpected error occurred while getting filename that was dropped here, unable to open "
                "file..."});
    EXPECT_FALSE(Drop(GetParam().files));
    ExpectUnchanged();
}

INSTANTIATE_TEST_SUITE_P(Cases, DropOfNothingTest,
                         ::testing::Values(NoFile{{}}, NoFile{{""}}, NoFile{{"C:\\desk\\broken.lnk"}}));

TEST_F(DropTest, AFolderMayNotBeDropped) {
    StartForDrops();
    platform.disks.PutFolder("C:\\drop\\sub.bmp");
    platform.shell.links["C:\\s.lnk"] = "C:\\drop";
    for (const char* path : {"C:\\drop", "C:\\drop\\", "C:\\drop\\sub.bmp", "C:\\s.lnk", "C:\\"}) {
        Expect({.text = "You may not drop a folder here, unable to open..."});
        EXPECT_FALSE(Drop({path})) << path;
        ExpectUnchanged();
    }
}

TEST_F(DropTest, TgaAndPcxMustBeImported) {
    StartForDrops();
    for (const std::string ending : {".TGA", ".PCX"}) {
        const std::string path = "C:\\drop\\d" + ending;
        platform.disks.PutFile(path, "x");
        Expect({.text = ending +
                        " files must be imported into Tavrix and then saved as a supported format "
                        "first, unable to open:\r\n\r\n" +
                        path});
        EXPECT_FALSE(Drop({path}));
        ExpectUnchanged();
    }
}

TEST_F(DropTest, SoMustTheyInLowerCase) {
    StartForDrops();
    const std::string path = "C:\\drop\\d.tga";
    platform.disks.PutFile(path, "x");
    Expect({.text = ".tga files must be imported into Tavrix and then saved as a supported format first, "
                    "unable to open:\r\n\r\n" +
                    path});
    EXPECT_FALSE(Drop({path}));
    ExpectUnchanged();
}

TEST_F(DropTest, AShowIsPlayed) {
    StartForDrops();
    UseShows(true);
    platform.disks.PutFile("C:\\drop\\show.tvs", "x");
    EXPECT_FALSE(Drop({"C:\\drop\\show.tvs"}));
    EXPECT_EQ(loaded, std::vector<std::string>{"C:\\drop\\show.tvs"});
    EXPECT_EQ(stages, 1);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\drop");
    ExpectUnchanged();
}

TEST_F(DropTest, SoIsOneBehindAShortcut) {
    StartForDrops();
    UseShows(true);
    platform.shell.links["C:\\s.lnk"] = "C:\\drop\\show.TVS";
    EXPECT_FALSE(Drop({"C:\\s.lnk"}));
    EXPECT_EQ(loaded, std::vector<std::string>{"C:\\drop\\show.TVS"});
    EXPECT_EQ(stages, 1);
}

TEST_F(DropTest, AShowWithoutImagesIsNotPlayed) {
    StartForDrops();
    UseShows(false);
    Expect({.text = "This slide show file does not contain any images, nothing to show..."});
    EXPECT_FALSE(Drop({"C:\\drop\\show.tvs"}));
    EXPECT_EQ(stages, 0);
    EXPECT_FALSE(module.SlideShowActive);
    EXPECT_FALSE(module.StartedAsShow);
    ExpectUnchanged();
}

TEST_F(DropTest, AShowAsksNothingAboutAnUnsavedImage) {
    StartForDrops();
    UseShows(true);
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    EXPECT_FALSE(Drop({"C:\\drop\\show.tvs"}));
    EXPECT_EQ(stages, 1);
}

TEST_F(DropTest, AnUnsavedImageIsAskedAbout) {
    StartForDrops();
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    headless::ExpectedBox box{
        .text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
        .icon = BoxIcon::Question,
        .buttons = BoxButtons::YesNo,
        .reply = Answer::No};
    Expect(box);
    EXPECT_FALSE(Drop({Dropped}));
    EXPECT_EQ(module.CurrentImage, "C:\\Temp\\Untitled.BMP");
    ExpectIdle();
    box.reply = Answer::Yes;
    Expect(box);
    EXPECT_FALSE(Drop({Dropped}));
    EXPECT_EQ(module.CurrentImage, Dropped);
    ExpectIdle();
}

TEST_F(DropTest, AFailureIsToldAndLeavesTheEmptyView) {
    StartForDrops();
    platform.disks.PutFile("C:\\drop\\bad.bmp", "no picture");
    platform.pictures.SetFailure("C:\\drop\\bad.bmp", RuntimeError(ErrorNumber::InvalidPicture));
    Expect({.text = "Unable to display image, an unexpected error occurred during the drag and drop "
                    "operation.\r\n\r\nInvalid picture...",
            .icon = BoxIcon::Stop,
            .title = "Tavrix - [Drag & Drop Error]"});
    EXPECT_FALSE(Drop({"C:\\drop\\bad.bmp"}));
    ExpectEmptyView();
    ExpectIdle();
}

TEST_F(DropTest, ADropDuringWorkIsIgnored) {
    StartForDrops();
    module.Screen().MousePointer = forms::MousePointer::ArrowHourglass;
    EXPECT_FALSE(Drop({Dropped}));
    EXPECT_EQ(module.CurrentImage, ImagePath);
    EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::ArrowHourglass);
}

TEST_F(DropTest, ATopmostWindowStepsDownForEveryBoxAndComesBack) {
    Setting("TopMostWindow", "True");
    StartForDrops();
    const auto notTopmost = [this] { EXPECT_FALSE(Window().topmost); };
    ASSERT_TRUE(Window().topmost);

    Expect({.text = "You may not drop a folder here, unable to open...", .whileOpen = notTopmost});
    EXPECT_FALSE(Drop({"C:\\drop"}));
    EXPECT_TRUE(Window().topmost);

    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo,
            .reply = Answer::No,
            .whileOpen = notTopmost});
    EXPECT_FALSE(Drop({Dropped}));
    EXPECT_TRUE(Window().topmost);

    module.CurrentImage.clear();
    platform.faults.AtNth(Service::Pictures, 1, notTopmost);
    EXPECT_FALSE(Drop({Dropped}));
    EXPECT_TRUE(Window().topmost);
}

TEST_F(DropTest, AnOrdinaryWindowStaysOrdinary) {
    StartForDrops();
    EXPECT_FALSE(Drop({Dropped}));
    EXPECT_FALSE(Window().topmost);
}

}  // namespace
}  // namespace tavrix::test
