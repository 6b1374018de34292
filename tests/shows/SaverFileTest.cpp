#include "shows/files/SaverFile.h"

#include "ShowsTest.h"
#include "shows/files/LoadShowFile.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using headless::Service;

class SaverFileTest : public ShowsTest {
  protected:
    SaverFileTest() {
        platform.disks.PutFolder("C:\\Shows");
        module.ScreenSaverMode = true;
        module.config.LastSlideShow = "former.tvs";
        module.config.RecentShows[0] = ShowPath;
        module.show.SlideFiles.Set(0, "former.bmp");
        module.show.SlideDescriptions.Set(0, "former");
        module.show.ShowChanged = true;
    }
    bool Read(const std::string& content) {
        PutShow(content);
        return !ReadSaverFile(module, ShowPath).Refused();
    }
    void ExpectFormerSlides() {
        EXPECT_EQ(SlideFiles(), (Texts{"former.bmp"}));
        EXPECT_EQ(SlideDescriptions(), (Texts{"former"}));
    }
    /// What no reading touches.
    void TearDown() override {
        EXPECT_EQ(module.config.RecentShows[0], ShowPath);
        EXPECT_EQ(module.config.LastSlideShow, "former.tvs");
        EXPECT_TRUE(module.show.ShowChanged);
        EXPECT_TRUE(platform.shell.recent.empty());
    }
    [[nodiscard]] std::string OnDisk() const { return platform.disks.Content(ShowPath).value_or("none"); }
};

TEST_F(SaverFileTest, ReadsOptionsAndSlides) {
    EXPECT_TRUE(Read(Header() + Slides({"a.bmp", "A", "b.bmp", ""})));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp", "b.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", ""}));
    EXPECT_EQ(module.config.SlideInterval, 7);
    EXPECT_EQ(module.config.SoundFile, "C:\\m\\a.wav");
}

TEST_F(SaverFileTest, OlderFilesBringANoteOutsideOfASaver) {
    EXPECT_TRUE(Read(OldHeader() + Slides({"a.bmp"})));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{""}));

    module.ScreenSaverMode = false;
    Expect({.text = "This Screen Saver file was created with an earlier version of "
                    "Tavrix.\r\n\r\nNOTE:\r\n\r\nIf the "
                    "file is saved, it will be stored in the new format..."});
    EXPECT_TRUE(Read(OldHeader() + Slides({"b.bmp"})));
    EXPECT_EQ(SlideFiles(), (Texts{"b.bmp"}));
}

TEST_F(SaverFileTest, NoShowLeavesTheWindowAsItWas) {
    for (const bool saver : {true, false}) {
        module.ScreenSaverMode = saver;
        ExpectExclamation(
            "The selected file is not a valid Tavrix Screen Saver file...\r\n\r\nFilenames with .TVS in the "
            "last 4 "
            "positions are normally associated with Tavrix files.");
        EXPECT_FALSE(Read("GIF89a"));
        ExpectFormerSlides();
    }
}

TEST_F(SaverFileTest, SoDoesAnotherRelease) {
    ExpectExclamation(
        "The selected Screen Saver file was created with a different release (Version 2) of "
        "Tavrix.\r\n\r\nYou are "
        "currently running:\tVersion: 1.0.0\r\n\r\nUnable to open this Screen Saver...");
    EXPECT_FALSE(Read("Tavrix Slide Show,Version 2"));
    ExpectFormerSlides();
}

TEST_F(SaverFileTest, AFileThatCannotBeOpenedLeavesTheFormerSlides) {
    ExpectStop("Unable to open the current Screen Saver data file.\r\n\r\nFile not found...", true);
    EXPECT_FALSE(ReadSaverFile(module, "C:\\none.tvs").Refused());
    ExpectFormerSlides();
}

TEST_F(SaverFileTest, SoDoesAHeaderThatCannotBeRead) {
    ExpectStop(
        "An error occurred while reading the Screen Saver file header.\r\n\r\nInput past end of file...",
        true);
    EXPECT_TRUE(Read("Tavrix Slide Show,Version 1.5,2"));
    EXPECT_EQ(module.config.SoundMode, 2);
    ExpectFormerSlides();
}

TEST_F(SaverFileTest, SlidesThatCannotBeReadReplaceTheFormerOnes) {
    ExpectStop("An error occurred while reading the Screen Saver data.\r\n\r\nInput past end of file...",
               true);
    EXPECT_TRUE(Read(Header() + Slides({"a.bmp", "A", "b.bmp"})));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp", "b.bmp"}));

    platform.faults.FailNth(Service::Files, 3, ErrorNumber::PathFileAccessError, "");
    ExpectStop(
        "An error occurred while reading the Screen Saver data.\r\n\r\nThis may not be a valid screen saver "
        "file...",
        true);
    EXPECT_TRUE(Read(Header() + Slides({"c.bmp", ""})));
    EXPECT_EQ(SlideFiles(), (Texts{"c.bmp"}));
}

TEST_F(SaverFileTest, AFileWithTooManySlidesIsCut) {
    std::string slides;
    for (int i = 0; i < 30'002; ++i)
        slides += "a\r\n\r\n";
    ExpectExclamation(
        "The maximum of 30,000 slides has been loaded. Any remaining images in the Screen Saver file will be "
        "ignored...");
    EXPECT_TRUE(Read(Header() + slides));
    EXPECT_EQ(module.show.SlideFiles.FirstEmpty(), 30'001);
}

TEST_F(SaverFileTest, WritesTheRecordAsItIs) {
    PutShow("former");
    module.config.SoundMode = 0;
    module.config.SoundFile = "C:\\Shows\\a.wav";
    module.config.SaveSlides = true;
    module.show.SlideFiles.Set(0, "C:\\Shows\\a.bmp");
    module.show.SlideFiles.Set(1, "C:\\p\\b.bmp");
    module.show.SlideDescriptions.Set(1, "B");
    module.show.SlideFiles.Set(3, "behind the end.bmp");
    module.show.SlideCount = 1;  // does not count here
    WriteSaverFile(module, ShowPath);
    EXPECT_EQ(OnDisk(),
              Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), "0", Quoted("C:\\Shows\\a.wav"), "0",
                     "0", "5", "0", "0", "0", "-1", "-1", Quoted("C:\\Shows\\a.bmp"), Quoted("former"),
                     Quoted("C:\\p\\b.bmp"), Quoted("B")}));
    EXPECT_EQ(module.config.SoundFile, "C:\\Shows\\a.wav");
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\b.bmp"));
}

TEST_F(SaverFileTest, WhatIsWrittenReadsBack) {
    module.show.SlideFiles.Set(0, "C:\\\xE6\x97\xA5.bmp");
    module.show.SlideDescriptions.Set(0, "\xC3\xA4");
    WriteSaverFile(module, ShowPath);
    module.show.EraseSlides();
    EXPECT_FALSE(ReadSaverFile(module, ShowPath).Refused());
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\\xE6\x97\xA5.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"\xC3\xA4"}));
}

TEST_F(SaverFileTest, AFullRecordIsWrittenAndThenFails) {
    for (int i = 0; i <= 30'000; ++i)
        module.show.SlideFiles.Set(i, std::to_string(i));
    ExpectStop("An error occurred while saving Screen Saver data.\r\n\r\nSubscript out of range...");
    WriteSaverFile(module, ShowPath);
    EXPECT_TRUE(OnDisk().ends_with("\"30000\"\r\n\"\"\r\n"));
}

TEST_F(SaverFileTest, FailuresToWriteAreToldOf) {
    const std::string former = Header() + Slides({"former.bmp", "former"});
    PutShow(former);
    const auto failing = [&](int call, const std::string& text) {
        platform.faults.Clear();
        platform.faults.FailNth(Service::Files, call, ErrorNumber::DiskFull);
        ExpectStop(text + "\r\n\r\nDisk full...");
        WriteSaverFile(module, ShowPath);
        EXPECT_TRUE(platform.faults.Fired());
        EXPECT_EQ(OnDisk(), former);
    };
    constexpr int look = 4;  // Info, Open, Read, Read
    failing(look + 1, "Unable to save Screen Saver.");
    failing(look + 2, "An error occurred while trying to write the Screen Saver header.");
    failing(look + 3, "An error occurred while saving Screen Saver data.");
    failing(look + 4, "An error occurred while saving Screen Saver data.");
    platform.faults.Clear();
    platform.faults.FailNth(Service::Files, look + 5, ErrorNumber::DiskFull);
    WriteSaverFile(module, ShowPath);
    EXPECT_FALSE(platform.faults.Fired());
    EXPECT_TRUE(OnDisk().ends_with(Slides({"former.bmp", "former"})));
    EXPECT_TRUE(platform.shell.trash.empty());
}

TEST_F(SaverFileTest, AFileWithSlidesThatWereNotReadGoesToTheTrash) {
    const auto writesOver = [this](const std::string& former) {
        PutShow(former);
        platform.shell.trash.clear();
        WriteSaverFile(module, ShowPath);
        EXPECT_TRUE(OnDisk().ends_with(Slides({"former.bmp", "former"})));
        ASSERT_EQ(platform.shell.trash.size(), 1U) << former;
        EXPECT_EQ(platform.shell.trash[0].content, former);
    };
    writesOver(Header() + Slides({"former.bmp", "former", "cut.bmp"}));
    writesOver(Header() + Slides({"former.bmp", "former", "more.bmp", ""}));
    writesOver(Header() + Slides({"former.bmp", "another description"}));
    writesOver(Header() + Slides({"former.bmp", "former", "", "", "behind.bmp", ""}));
    writesOver("no show");
    // What can be read again is not read whole the first time.
    platform.shell.trash.clear();
    const std::string whole = Header() + Slides({"a.bmp", "A"});
    PutShow(whole);
    platform.faults.FailNth(Service::Files, 2, ErrorNumber::DiskNotReady);
    ExpectStop("An error occurred while reading the Screen Saver file header.\r\n\r\nDisk not ready...",
               true);
    EXPECT_FALSE(ReadSaverFile(module, ShowPath).Refused());
    platform.faults.Clear();
    writesOver(whole);
}

TEST_F(SaverFileTest, AProtectedFileIsToldOf) {
    PutShow("former");
    platform.disks.SetReadOnly(ShowPath, true);
    ExpectStop("Unable to save Screen Saver.\r\n\r\nPermission denied...");
    WriteSaverFile(module, ShowPath);
    EXPECT_EQ(OnDisk(), "former");
    EXPECT_TRUE(platform.shell.trash.empty());
    ExpectStop("Unable to save Screen Saver.\r\n\r\nPath not found...");
    WriteSaverFile(module, "C:\\none\\s.tvs");
}

}  // namespace
}  // namespace tavrix::test
