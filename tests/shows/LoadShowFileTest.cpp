#include "shows/files/LoadShowFile.h"

#include <algorithm>

#include "ShowsTest.h"
#include "platform/forms/BoxText.h"
#include "shows/Commands.h"
#include "shows/files/ShowFileReader.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using headless::Service;

class LoadShowFileTest : public ShowsTest {
  protected:
    LoadShowFileTest() {
        module.config.LastSlideShow = "C:\\Shows\\former.tvs";
        module.config.RecentShows[0] = "C:\\other.tvs";
        module.config.RecentShows[1] = "c:\\SHOWS\\S.TVS";
        module.show.SlideFiles.Set(0, "former.bmp");
        module.show.SlideFiles.Set(30000, "former too.bmp");
        module.show.SlideDescriptions.Set(17, "former");
        module.show.SlideCount = 4;
        module.show.ShowChanged = true;
    }

    bool Load(const std::string& content) {
        PutShow(content);
        return LoadShowFile(module, ShowPath);
    }

    [[nodiscard]] bool IsListed() const {
        return std::ranges::any_of(module.config.RecentShows,
                                   [](const std::string& path) { return EqualIgnoringCase(path, ShowPath); });
    }

    /// The box that comes next is open while the show is still listed, or is not any more.
    void ExpectWhileListed(bool listed, const std::string& text, BoxIcon icon) {
        Expect({.text = text, .icon = icon, .systemModal = true, .whileOpen = [this, listed] {
                    EXPECT_EQ(IsListed(), listed);
                }});
    }
    /// What all failures leave.
    void ExpectNotTaken() {
        EXPECT_FALSE(IsListed());
        EXPECT_EQ(module.config.RecentShows[0], "C:\\other.tvs");
        EXPECT_EQ(module.config.LastSlideShow, "C:\\Shows\\former.tvs");
        EXPECT_TRUE(module.show.ShowChanged);
        EXPECT_EQ(module.show.SlideCount, 4);
        EXPECT_TRUE(platform.shell.recent.empty());
    }
    void ExpectNoSlides() {
        EXPECT_EQ(module.show.SlideFiles, SlideTexts());
        EXPECT_EQ(module.show.SlideDescriptions, SlideTexts());
    }
};

TEST_F(LoadShowFileTest, ReadsOptionsAndSlides) {
    EXPECT_TRUE(Load(Header() + Slides({"C:\\p\\a.bmp", "About a", "b.bmp", "", "sub\\c.gif", "C, c"})));
    EXPECT_EQ(module.config.SoundMode, 1);
    EXPECT_EQ(module.config.SoundFile, "C:\\m\\a.wav");
    EXPECT_EQ(module.config.CDTrack, 3);
    EXPECT_TRUE(module.config.SoundLoop);
    EXPECT_EQ(module.config.SlideInterval, 7);
    EXPECT_TRUE(module.config.RandomSlides);
    EXPECT_TRUE(module.config.ShowFilenames);
    EXPECT_TRUE(module.config.ShowDescription);
    EXPECT_FALSE(module.config.LoopSlideShow);
    EXPECT_FALSE(module.config.AnimateGIF89);
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\p\\a.bmp", "b.bmp", "sub\\c.gif"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"About a", "", "C, c"}));
    EXPECT_EQ(module.show.SlideFiles[30000], "");
    EXPECT_EQ(module.show.SlideDescriptions[17], "");
}

TEST_F(LoadShowFileTest, TheShowIsTheLastAndARecentOne) {
    module.config.RecentShows[1] = "";
    PutShow(Header());
    LoadShowFile(module, "c:\\Shows\\s.tvs");
    EXPECT_EQ(module.config.LastSlideShow, "c:\\Shows\\s.tvs");
    EXPECT_EQ(module.config.RecentShows[0], ShowPath);
    EXPECT_EQ(module.config.RecentShows[1], "C:\\other.tvs");
    EXPECT_EQ(platform.shell.recent, (Texts{"c:\\Shows\\s.tvs"}));
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(module.show.SlideCount, 4);
}

TEST_F(LoadShowFileTest, ThePathMayBeOneOfTheSharedTexts) {
    PutShow(Header());
    module.config.LastSlideShow = ShowPath;
    LoadShowFile(module, module.config.LastSlideShow);
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);

    PutShow("no show");
    module.config.RecentShows[1] = ShowPath;
    ExpectWhileListed(
        false,
        "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in the "
        "last 4 positions are normally associated with Tavrix files.",
        BoxIcon::Exclamation);
    LoadShowFile(module, module.config.RecentShows[1]);
    EXPECT_EQ(module.config.RecentShows[0], "C:\\other.tvs");
}

TEST_F(LoadShowFileTest, TheShowIsKnownByItsNormalPath) {
    PutShow(Header());
    LoadShowFile(module, "C:/Shows/x/..//s.tvs");
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);
    EXPECT_EQ(module.config.RecentShows[0], "C:\\other.tvs");  // it is listed already
    EXPECT_EQ(module.config.RecentShows[2], "");
}

TEST_F(LoadShowFileTest, AShowIsReadAsAValueAndTheLoadedOneStays) {
    const SlideShow loaded = module.show;
    const auto recent = module.config.RecentShows;
    PutShow(Header() + Slides({"C:\\p\\a.bmp", "About a", "b.bmp", ""}));
    ShowRecord record;
    record.slides.SlideFiles.Set(5, "former");
    EXPECT_EQ(LoadShowRecord(module, ShowPath, record), ShowFileEnd::Complete);
    EXPECT_EQ(record.slides.Count(), 2);
    EXPECT_EQ(record.slides.SlideFiles[1], "b.bmp");
    EXPECT_EQ(record.slides.SlideFiles[5], "");
    EXPECT_EQ(record.slides.SlideDescriptions[0], "About a");
    EXPECT_EQ(record.options.SoundFile, "C:\\m\\a.wav");
    EXPECT_EQ(record.options.SlideInterval, 7);

    EXPECT_EQ(static_cast<const ShowSlides&>(module.show), static_cast<const ShowSlides&>(loaded));
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_TRUE(SameOptions(module.config, AppConfig()));
    EXPECT_EQ(module.config.LastSlideShow, "C:\\Shows\\former.tvs");
    EXPECT_EQ(module.config.RecentShows, recent);
    EXPECT_TRUE(platform.shell.recent.empty());
}

TEST_F(LoadShowFileTest, AValueThatCannotBeReadSaysHowFarItCame) {
    const SlideShow loaded = module.show;
    const std::string past = "\r\n\r\nInput past end of file...";
    ShowRecord record;
    PutShow(Header() + Slides({"a.bmp", "A", "b.bmp"}));
    ExpectStop("An error occurred while reading Slide Show data." + past, true);
    EXPECT_EQ(LoadShowRecord(module, ShowPath, record), ShowFileEnd::SlidesFailed);
    EXPECT_EQ(record.slides.Count(), 2);
    EXPECT_FALSE(IsListed());

    PutShow("Tavrix Slide Show,Version 1.5,2");
    ExpectStop("An error occurred while reading the Slide Show file header." + past, true);
    EXPECT_EQ(LoadShowRecord(module, ShowPath, record), ShowFileEnd::HeaderFailed);
    EXPECT_EQ(record.options.SoundMode, 2);
    EXPECT_EQ(record.slides.Count(), 2);  // the former ones go with the options

    PutShow("Tavrix Slide Show,Version 7");
    ExpectExclamation(
        "The selected Slide Show file was created with a different release (Version 7) of Tavrix.\r\n\r\nYou "
        "are currently running:\tVersion: 1.0.0\r\n\r\nUnable to open this Slide Show...");
    EXPECT_EQ(LoadShowRecord(module, ShowPath, record), ShowFileEnd::OtherRelease);

    ExpectStop("Unable to open Slide Show file.\r\n\r\nFile not found...", true);
    EXPECT_EQ(LoadShowRecord(module, "C:\\none.tvs", record), ShowFileEnd::NotOpened);

    EXPECT_EQ(static_cast<const ShowSlides&>(module.show), static_cast<const ShowSlides&>(loaded));
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_TRUE(SameOptions(module.config, AppConfig()));
}

TEST_F(LoadShowFileTest, OnlyMinusOneIsTrue) {
    PutShow(Lines({"Tavrix Slide Show", "Version 1.5", "0", "", "0", "1", "5", "-2", "0", "-1", "2", "-1"}));
    LoadShowFile(module, ShowPath);
    EXPECT_FALSE(module.config.SoundLoop);
    EXPECT_FALSE(module.config.RandomSlides);
    EXPECT_FALSE(module.config.ShowFilenames);
    EXPECT_TRUE(module.config.ShowDescription);
    EXPECT_FALSE(module.config.LoopSlideShow);
    EXPECT_TRUE(module.config.AnimateGIF89);
}

TEST_F(LoadShowFileTest, ItemsMayShareLines) {
    EXPECT_TRUE(Load("Tavrix Slide Show,Version 1.5,0,,0,0,5,0,0,0,-1,-1,a.bmp,\"A, a\",b.bmp,,"));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp", "b.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"A, a", ""}));
}

TEST_F(LoadShowFileTest, AFileWithoutSlidesIsAShowWithoutSlides) {
    EXPECT_FALSE(Load(Header()));
    ExpectNoSlides();
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);
}

TEST_F(LoadShowFileTest, AnOlderFileIsUpgraded) {
    module.config.ShowDescription = true;
    module.config.LoopSlideShow = false;
    module.config.AnimateGIF89 = false;
    module.show.ShowChanged = false;
    Expect({.text = "This Slide Show file was created with an earlier version of "
                    "Tavrix.\r\n\r\nNOTE:\r\n\r\nWhen the "
                    "file is saved, it will be stored in the new format..."});
    EXPECT_TRUE(Load(OldHeader() + Slides({"C:\\p\\a.bmp", "b.bmp", "c.bmp"})));
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\p\\a.bmp", "b.bmp", "c.bmp"}));
    EXPECT_EQ(module.show.SlideDescriptions, SlideTexts());
    EXPECT_EQ(module.config.SoundMode, 2);
    EXPECT_EQ(module.config.SoundFile, "");
    EXPECT_EQ(module.config.CDTrack, 12);
    EXPECT_TRUE(module.config.SoundLoop);
    EXPECT_EQ(module.config.SlideInterval, 9);
    EXPECT_TRUE(module.config.RandomSlides);
    EXPECT_TRUE(module.config.ShowFilenames);
    EXPECT_FALSE(module.config.ShowDescription);
    EXPECT_TRUE(module.config.LoopSlideShow);
    EXPECT_FALSE(module.config.AnimateGIF89);
    EXPECT_TRUE(module.show.ShowChanged);
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);
}

TEST_F(LoadShowFileTest, ASaverIsNotToldOfTheUpgrade) {
    module.ScreenSaverMode = true;
    EXPECT_TRUE(Load(OldHeader() + Slides({"a.bmp"})));
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_TRUE(module.config.LoopSlideShow);
}

TEST_F(LoadShowFileTest, TheUpgradeNoteComesBeforeTheOptions) {
    Expect({.text = "This Slide Show file was created with an earlier version of "
                    "Tavrix.\r\n\r\nNOTE:\r\n\r\nWhen the "
                    "file is saved, it will be stored in the new format...",
            .whileOpen = [this] { EXPECT_EQ(module.config.SoundMode, 0); }});
    ExpectWhileListed(
        true, "An error occurred while reading the Slide Show file header.\r\n\r\nInput past end of file...",
        BoxIcon::Stop);
    EXPECT_FALSE(Load(Lines({"Tavrix Slide Show", "Version 1.X", "2"})));
    EXPECT_EQ(module.config.SoundMode, 2);
    ExpectNotTaken();
}

class NoShowTest : public LoadShowFileTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(NoShowTest, IsRefused) {
    ExpectWhileListed(
        false,
        "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in the "
        "last 4 positions are normally associated with Tavrix files.",
        BoxIcon::Exclamation);
    EXPECT_FALSE(Load(GetParam()));
    ExpectNoSlides();
    ExpectNotTaken();
    EXPECT_TRUE(SameOptions(module.config, AppConfig()));
}

INSTANTIATE_TEST_SUITE_P(Contents, NoShowTest,
                         ::testing::Values("\"tavrix Slide Show\"\r\n\"Version 1.5\"\r\n",
                                           "\"Tavrix Slide Show \"\r\n", "GIF89a\x01\xFF\r\n", "\r\n",
                                           "Tavrix Slide ShowX", "\"\"\r\n", std::string("\0\0\0\0\r\n", 6),
                                           "\r\n\xEF\xBB\xBF\"Tavrix Slide Show\"\r\n", "\xEF\xBB\xBF\r\n"));

TEST_F(LoadShowFileTest, AByteOrderMarkIsNoPartOfTheSignature) {
    EXPECT_TRUE(Load("\xEF\xBB\xBF" + Header() + Slides({"\xC3\xA4.bmp", "A"})));
    EXPECT_EQ(SlideFiles(), (Texts{"\xC3\xA4.bmp"}));
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(LoadShowFileTest, ALargeFileThatIsNoShowIsRefusedToo) {
    ExpectWhileListed(
        false,
        "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in the "
        "last 4 positions are normally associated with Tavrix files.",
        BoxIcon::Exclamation);
    EXPECT_FALSE(Load("RIFF\r\n" + std::string(ShowFileReader::LargestFile + 1, '\xFF')));
}

class OtherReleaseTest : public LoadShowFileTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(OtherReleaseTest, IsRefusedAndQuoted) {
    ExpectWhileListed(
        false,
        "The selected Slide Show file was created with a different release (" + GetParam() +
            ") of Tavrix.\r\n\r\nYou are currently running:\tVersion: 1.0.0\r\n\r\nUnable to open this "
            "Slide Show...",
        BoxIcon::Exclamation);
    EXPECT_FALSE(Load(Lines({Quoted("Tavrix Slide Show"), Quoted(GetParam()), "1"})));
    ExpectNoSlides();
    ExpectNotTaken();
    EXPECT_TRUE(SameOptions(module.config, AppConfig()));
}

INSTANTIATE_TEST_SUITE_P(Versions, OtherReleaseTest,
                         ::testing::Values("Version 1.x", "Version 1.6", "version 1.5", "Version 1.5 ", "",
                                           "2"));

TEST_F(LoadShowFileTest, AnEndlessVersionIsCutInTheBox) {
    const std::string whole = "The selected Slide Show file was created with a different release (" +
                              std::string(1000, 'v') +
                              ") of Tavrix.\r\n\r\nYou are currently running:\tVersion: 1.0.0\r\n\r\n"
                              "Unable to open this Slide Show...";
    ExpectWhileListed(false, forms::FittingInABox(whole), BoxIcon::Exclamation);
    EXPECT_FALSE(Load(Lines({"Tavrix Slide Show", std::string(1 << 20, 'v')})));
}

TEST_F(LoadShowFileTest, ASaverIsToldOfInItsOwnWords) {
    module.ScreenSaverMode = true;
    const std::string past = "\r\n\r\nInput past end of file...";
    const auto load = [this](const std::string& text, BoxIcon icon, const std::string& content) {
        Expect({.text = text, .icon = icon, .systemModal = true});
        return Load(content);
    };
    EXPECT_FALSE(
        load("The selected file is not a valid Tavrix Screen Saver file...\r\n\r\nFilenames with .TVS in the "
             "last 4 positions are normally associated with Tavrix files.",
             BoxIcon::Exclamation, "x"));
    EXPECT_FALSE(
        load("The selected Screen Saver file was created with a different release (2) of Tavrix.\r\n\r\nYou "
             "are currently running:\tVersion: 1.0.0\r\n\r\nUnable to open this Screen Saver...",
             BoxIcon::Exclamation, "Tavrix Slide Show,2"));
    EXPECT_FALSE(
        load("An error occurred while reading the Screen Saver file header." + past, BoxIcon::Stop, ""));
    EXPECT_TRUE(load("An error occurred while reading Screen Saver data." + past, BoxIcon::Stop,
                     Header() + Slides({"a.bmp"})));
    platform.disks.Remove(ShowPath);
    ExpectStop("Unable to open Screen Saver file.\r\n\r\nFile not found...", true);
    EXPECT_FALSE(LoadShowFile(module, ShowPath));
}

std::string ManySlides(int count, bool descriptions) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        lines += "\"" + std::to_string(i) + ".bmp\"\r\n";
        if (descriptions) lines += "\"about " + std::to_string(i) + "\"\r\n";
    }
    return lines;
}

constexpr const char* MaximumNote =
    "The maximum of 30,000 slides has been loaded. Any remaining images in the Slide Show file will be "
    "ignored...";

TEST_F(LoadShowFileTest, ThirtyThousandSlidesAreNoMaximum) {
    EXPECT_TRUE(Load(Header() + ManySlides(30'000, true)));
    EXPECT_EQ(module.show.SlideFiles.FirstEmpty(), 30'000);
}

TEST_F(LoadShowFileTest, OneMoreIsTakenAndIsTheLast) {
    for (const int count : {30'001, 30'002, 31'000}) {
        ExpectExclamation(MaximumNote);
        EXPECT_TRUE(Load(Header() + ManySlides(count, true)));
        EXPECT_EQ(module.show.SlideFiles.FirstEmpty(), 30'001);
        EXPECT_EQ(module.show.SlideFiles[30000], "30000.bmp");
        EXPECT_EQ(module.show.SlideDescriptions[30000], "about 30000");
        EXPECT_EQ(module.config.LastSlideShow, ShowPath);
        EXPECT_FALSE(module.show.ShowChanged);
    }
}

TEST_F(LoadShowFileTest, WhatComesBehindTheMaximumIsNotRead) {
    ExpectExclamation(MaximumNote);
    EXPECT_TRUE(Load(Header() + ManySlides(30'001, true) + "\"never closed"));
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);
}

TEST_F(LoadShowFileTest, OlderFilesHaveTheSameMaximum) {
    platform.system.numbers.thousands = ".";
    module.ScreenSaverMode = true;
    ExpectExclamation(
        "The maximum of 30.000 slides has been loaded. Any remaining images in the Screen Saver file will be "
        "ignored...");
    EXPECT_TRUE(Load(OldHeader() + ManySlides(30'002, false)));
    EXPECT_EQ(module.show.SlideFiles.FirstEmpty(), 30'001);
    EXPECT_EQ(module.show.SlideFiles[30000], "30000.bmp");
    EXPECT_EQ(module.show.SlideDescriptions, SlideTexts());
}

TEST_F(LoadShowFileTest, ADescriptionIsCutTo200Characters) {
    const std::string wide = "\xE6\x97\xA5";
    std::string wide200, wide201 = wide;
    for (int i = 0; i < 200; ++i)
        wide200 += wide;
    wide201 += wide200;
    EXPECT_TRUE(Load(Header() + Slides({"a", std::string(200, 'x'), "b", std::string(201, 'y'), "c", wide200,
                                        "d", wide201})));
    EXPECT_EQ(SlideDescriptions(), (Texts{std::string(200, 'x'), std::string(200, 'y'), wide200, wide200}));
}

TEST_F(LoadShowFileTest, LinesOfAMebibyteAndNulsAreTaken) {
    const std::string path(1 << 20, 'p');
    const std::string nul("a\0b", 3);
    EXPECT_TRUE(Load(Header() + Slides({path, path, nul, nul})));
    EXPECT_EQ(SlideFiles(), (Texts{path, nul}));
    EXPECT_EQ(SlideDescriptions(), (Texts{std::string(200, 'p'), nul}));
}

TEST_F(LoadShowFileTest, BothEncodingsAreRead) {
    const Texts expected{"C:\\B\xC3\xA4r.bmp"};
    EXPECT_TRUE(Load(Header() + Slides({"C:\\B\xE4r.bmp", "\x80 5"})));
    EXPECT_EQ(SlideFiles(), expected);
    EXPECT_EQ(SlideDescriptions(), (Texts{"\xE2\x82\xAC 5"}));
    EXPECT_TRUE(Load(Header() + Slides({"C:\\B\xC3\xA4r.bmp", "\xE6\x97\xA5"})));
    EXPECT_EQ(SlideFiles(), expected);
    EXPECT_EQ(SlideDescriptions(), (Texts{"\xE6\x97\xA5"}));
}

TEST_F(LoadShowFileTest, AQuoteInADescriptionPutsTheRestOutOfStep) {
    ExpectStop("An error occurred while reading Slide Show data.\r\n\r\nInput past end of file...", true);
    EXPECT_TRUE(Load(Header() + Slides({"a.bmp", "say \"hi\" now", "b.bmp", "B"})));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp", "hi\" now\"", "B"}));
    EXPECT_EQ(module.show.SlideDescriptions[0], "say ");
    EXPECT_EQ(module.show.SlideDescriptions[1], "b.bmp");
}

TEST_F(LoadShowFileTest, AFileThatEndsAfterAPathKeepsTheSlidesBefore) {
    ExpectWhileListed(true,
                      "An error occurred while reading Slide Show data.\r\n\r\nInput past end of file...",
                      BoxIcon::Stop);
    EXPECT_TRUE(Load(Header() + Slides({"a.bmp", "A", "b.bmp"})));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp", "b.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", ""}));
    ExpectNotTaken();
}

TEST_F(LoadShowFileTest, AFailureWithoutWordsGetsSome) {
    PutShow(Header() + Slides({"a.bmp", "A"}));
    platform.faults.FailNth(Service::Files, 3, ErrorNumber::PathFileAccessError, "");
    ExpectWhileListed(
        true,
        "An error occurred while reading Slide Show data.\r\n\r\nThis may not be a valid Slide Show file...",
        BoxIcon::Stop);
    EXPECT_TRUE(LoadShowFile(module, ShowPath));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp"}));
    ExpectNotTaken();
    platform.faults.Clear();

    module.ScreenSaverMode = true;
    platform.faults.FailNth(Service::Files, 3, ErrorNumber::PathFileAccessError, "");
    ExpectStop(
        "An error occurred while reading Screen Saver data.\r\n\r\nThis may not be a valid Screen Saver "
        "file...",
        true);
    EXPECT_TRUE(LoadShowFile(module, ShowPath));
}

struct Unopened {
    ErrorNumber error;
    const char* text;
};

TEST_F(LoadShowFileTest, AFileThatCannotBeOpenedIsToldOf) {
    PutShow(Header());
    for (const Unopened& failure : {Unopened{ErrorNumber::FileNotFound, "File not found"},
                                    Unopened{ErrorNumber::PathNotFound, "Path not found"},
                                    Unopened{ErrorNumber::DiskNotReady, "Disk not ready"},
                                    Unopened{ErrorNumber::PermissionDenied, "Permission denied"}}) {
        module.config.RecentShows[1] = ShowPath;
        platform.faults.Clear();
        platform.faults.FailNth(Service::Files, 1, failure.error);
        ExpectWhileListed(true, "Unable to open Slide Show file.\r\n\r\n" + std::string(failure.text) + "...",
                          BoxIcon::Stop);
        EXPECT_FALSE(LoadShowFile(module, ShowPath));
        ExpectNoSlides();
        ExpectNotTaken();
        EXPECT_TRUE(SameOptions(module.config, AppConfig()));
    }
}

TEST_F(LoadShowFileTest, MissingFilesAndFoldersAreToldOf) {
    const auto load = [this](const std::string& path, const std::string& text) {
        ExpectStop("Unable to open Slide Show file.\r\n\r\n" + text + "...", true);
        EXPECT_FALSE(LoadShowFile(module, path));
    };
    platform.disks.PutFolder("C:\\folder.tvs");
    load("C:\\none.tvs", "File not found");
    load("C:\\none\\s.tvs", "Path not found");
    load("C:\\folder.tvs", "Path/File access error");
    load("A:\\longname.tvs", "Disk not ready");
    load("Q:\\longname.tvs", "Device unavailable");
}

struct BadHeader {
    std::string content;
    const char* text;
};

class BadHeaderTest : public LoadShowFileTest, public ::testing::WithParamInterface<BadHeader> {};

TEST_P(BadHeaderTest, IsToldOf) {
    ExpectWhileListed(true,
                      "An error occurred while reading the Slide Show file header.\r\n\r\n" +
                          std::string(GetParam().text) + "...",
                      BoxIcon::Stop);
    EXPECT_FALSE(Load(GetParam().content));
    ExpectNoSlides();
    ExpectNotTaken();
}

INSTANTIATE_TEST_SUITE_P(
    Contents, BadHeaderTest,
    ::testing::Values(
        BadHeader{"", "Input past end of file"}, BadHeader{"   ", "Input past end of file"},
        BadHeader{"\"Tavrix Slide Show\"", "Input past end of file"},
        BadHeader{"\"Tavrix Slide Show\"\r\n\"Version 1.5", "Input past end of file"},
        BadHeader{"Tavrix Slide Show,Version 1.5,0,\"\",0,0,5,0,0,0,-1", "Input past end of file"},
        BadHeader{"Tavrix Slide Show,Version 1.5,0,\"\",0,0,five,0,0,0,-1,-1", "Type mismatch"},
        BadHeader{"Tavrix Slide Show,Version 1.5,0,\"\",0,0,,0,0,0,-1,-1", "Type mismatch"},
        BadHeader{"Tavrix Slide Show,Version 1.5,32768,\"\",0,0,5,0,0,0,-1,-1", "Overflow"},
        BadHeader{"Tavrix Slide Show,Version 1.5,0,\"\",-99999999999,0,5,0,0,0,-1,-1", "Overflow"}));

TEST_F(LoadShowFileTest, WhatWasReadOfTheOptionsStays) {
    ExpectStop("An error occurred while reading the Slide Show file header.\r\n\r\nOverflow...", true);
    EXPECT_FALSE(Load("Tavrix Slide Show,Version 1.5,2,\"x.mid\",4,-1,40000,-1,-1,-1,-1,-1"));
    EXPECT_EQ(module.config.SoundMode, 2);
    EXPECT_EQ(module.config.SoundFile, "x.mid");
    EXPECT_EQ(module.config.CDTrack, 4);
    EXPECT_TRUE(module.config.SoundLoop);
    EXPECT_EQ(module.config.SlideInterval, 5);
    EXPECT_FALSE(module.config.RandomSlides);
}

TEST_F(LoadShowFileTest, AFileCutAtAnyByteGivesTheSlidesBeforeTheCut) {
    const std::string whole =
        Header() + Slides({"C:\\B\xC3\xA4r.bmp", "\xE6\x97\xA5", "b.bmp", "", "c.bmp", "C"});
    ASSERT_TRUE(Load(whole));
    const Texts files = SlideFiles();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        PutShow(cut);
        // The boxes are looked at elsewhere; here any of them may come.
        headless::HeadlessToolkit silent;
        forms::Application application{silent};
        MainModule other{application, platform.services};
        const bool holdsSlides = LoadShowFile(other, ShowPath);
        EXPECT_EQ(holdsSlides, !other.show.Empty());
        EXPECT_LE(silent.BoxesShown(), 1) << length;
        const auto count = static_cast<std::size_t>(other.show.SlideFiles.FirstEmpty());
        ASSERT_LE(count, files.size());
        const bool insideCharacter = length < whole.size() && (whole[length] & 0xC0) == 0x80;
        if (insideCharacter) continue;  // such a file is no UTF-8 any more
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(other.show.SlideFiles[static_cast<int>(i)], files[i]) << length;
        const bool complete = silent.BoxesShown() == 0;
        EXPECT_EQ(other.config.LastSlideShow, complete ? ShowPath : "") << length;
    }
    EXPECT_TRUE(Load(whole));
    EXPECT_EQ(SlideFiles(), files);
}

TEST_F(LoadShowFileTest, NoPictureIsLookedAt) {
    PutShow(Header() + ManySlides(300, true));
    platform.faults.Clear();
    EXPECT_TRUE(LoadShowFile(module, ShowPath));
    EXPECT_EQ(platform.faults.Log(), (Texts{"Files.Open C:\\Shows\\s.tvs", "Files.Read", "Files.Read",
                                            "Shell.AddRecent C:\\Shows\\s.tvs"}));
}

TEST_F(LoadShowFileTest, MessagesDoNotRunWhileItReads) {
    module.config.UseRecentDocuments = false;
    const int yields = toolkit.Yields();
    EXPECT_TRUE(Load(Header() + ManySlides(300, true)));
    EXPECT_EQ(toolkit.Yields(), yields);
}

TEST_F(LoadShowFileTest, WhicheverCallFailsTheShowCanBeLoadedAgain) {
    const std::string content = Header() + ManySlides(5'000, true);  // several parts
    PutShow(content);
    const auto before = platform.disks.AllFiles();
    for (const Service service : {Service::Files, Service::Shell, Service::System}) {
        int call = 1;
        for (bool fired = true; fired; ++call) {
            headless::HeadlessToolkit silent;
            forms::Application application{silent};
            MainModule other{application, platform.services};
            other.config.LastSlideShow = "former";
            platform.faults.Clear();
            platform.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
            EXPECT_NO_THROW(LoadShowFile(other, ShowPath));
            fired = platform.faults.Fired();
            platform.faults.Clear();
            const bool told = silent.BoxesShown() == 1;
            EXPECT_EQ(told, fired && service == Service::Files) << call;
            EXPECT_EQ(other.config.LastSlideShow, told ? "former" : ShowPath) << call;
            EXPECT_EQ(platform.disks.AllFiles(), before);
            EXPECT_TRUE(LoadShowFile(other, ShowPath));
            EXPECT_EQ(other.show.SlideFiles.FirstEmpty(), 5'000);
        }
        EXPECT_GT(call, service == Service::Files ? 4 : 1);
    }
}

TEST_F(LoadShowFileTest, TheLivesLoadShowsWithIt) {
    Lives withShows;
    InstallShowCommands(module, withShows);
    PutShow(Header() + Slides({"a.bmp", ""}));
    EXPECT_TRUE(withShows.LoadShowFile(ShowPath));
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp"}));
    PutShow(Header());
    EXPECT_FALSE(withShows.LoadShowFile(ShowPath));
}

}  // namespace
}  // namespace tavrix::test
