#include "PackageTest.h"
#include "dialogs/WaitCopyFrm.h"
#include "support/FaultSweep.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class SavePackageTest : public PackageTest {
  protected:
    static constexpr const char* PackedShow = "C:\\Out\\SLIDES\\s.tvs";

    void Cancel() {
        if (auto* window = app.Loaded<WaitCopyFrm>()) window->CmdCancel.Deliver(forms::ClickEvent{});
    }
    /// Cancels as soon as the wait window says something that begins so.
    void CancelAt(const std::string& text) {
        WhileTold(text, [this] { Cancel(); });
    }
    /// Does something in each yield in which the wait window says what begins so.
    void WhileTold(const std::string& text, const std::function<void()>& action) {
        for (int yield = 1; yield < 400; ++yield) {
            toolkit.AtYield(yield, [this, text, action] {
                auto* window = app.Loaded<WaitCopyFrm>();
                if (window != nullptr && window->lblMsg.Caption.Get().starts_with(text)) action();
            });
        }
    }
    /// All files outside of the package.
    std::map<std::string, std::string> Others() const {
        auto files = platform.disks.AllFiles();
        std::erase_if(files, [](const auto& file) {
            return file.first.starts_with("C:\\Out\\") || file.first == SettingsPath;
        });
        return files;
    }
};

TEST_F(SavePackageTest, APackageHoldsShowProgramAndSettings) {
    PackageSetting("PackageShortcut", "True");
    const auto others = Others();
    Make();
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "first", "b.bmp", ""}));
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "picture a");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\b.bmp"), "picture b");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.wav"), "sound");
    for (const package::LayoutEntry& entry : package::Layout) {
        const std::string name(entry.name);
        EXPECT_EQ(At("C:\\Out\\" + name), "bytes of " + name);
    }
    EXPECT_EQ(InSetupIni("SlideShowFile"), "s.tvs");
    EXPECT_EQ(InSetupIni("SlideShowName"), "Trip");
    EXPECT_EQ(InSetupIni("InstallSize"), "7.5");
    EXPECT_EQ(InSetupIni("ScreenSaver"), "False");
    EXPECT_EQ(InSetupIni("MakeDefaultSaver"), "True");
    EXPECT_EQ(InSetupIni("SlideShowShortcut"), "True");
    const ProfileSection settings = platform.profile.Read("Viewer", "C:\\Out\\tavrix.ini");
    EXPECT_EQ(settings.Read("SoundMode"), "1");
    EXPECT_EQ(settings.Read("SlideInterval"), "7");
    EXPECT_TRUE(settings.Has("LastSlideShow"));
    EXPECT_EQ(settings.Read("LastSlideShow"), "");
    EXPECT_EQ(module.config.LastSlideShow, PackedShow);
    EXPECT_EQ(module.config.RecentShows[0], PackedShow);
    EXPECT_EQ(Others(), others);
    EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\Shows");
    constexpr std::size_t showAndPictures = 4;
    EXPECT_EQ(platform.files.List("C:\\Out\\SLIDES", "*.*").size(), showAndPictures);
    EXPECT_EQ(platform.files.List("C:\\Out", "*.*").size(), package::Layout.size() + 2);
}

TEST_F(SavePackageTest, ItIsKeptForTheNextTime) {
    PackageSetting("PackageScreenSaver", "True");
    PackageSetting("PackageDefaultSaver", "False");
    ExpectSummary(Answer::Yes, "Screen Saver");
    ExpectCreated("screen saver");
    auto& dialog = Load();
    Press(dialog.CmdPackage);
    EXPECT_EQ(InSetupIni("ScreenSaver"), "True");
    EXPECT_EQ(InSetupIni("MakeDefaultSaver"), "False");
    app.Unload(dialog);
    EXPECT_EQ(SavedSetting("PackageName"), "Trip");
    EXPECT_EQ(SavedSetting("PackageSource"), "C:\\Shows\\");
    EXPECT_EQ(SavedSetting("PackageDestination"), "C:\\Out");
    EXPECT_EQ(SavedSetting("PackageSize"), "7.5");
    EXPECT_EQ(SavedSetting("PackageScreenSaver"), "True");
    EXPECT_EQ(SavedSetting("PackageDefaultSaver"), "False");
    EXPECT_EQ(SavedSetting("PackageShortcut"), "False");
}

TEST_F(SavePackageTest, WhatWasNotPackedIsNotKept) {
    auto& dialog = Load();
    dialog.txtName.Text = "Other";
    app.Unload(dialog);
    EXPECT_EQ(SavedSetting("PackageName"), "Trip");
}

TEST_F(SavePackageTest, AudioOfADiscHasNoFile) {
    std::string header = Header();
    header.replace(header.find("\r\n1\r\n"), 5, "\r\n2\r\n");
    PutShow(header + Slides({"a.bmp", ""}));
    Make();
    EXPECT_EQ(At(PackedShow), Packed("2", "", {"a.bmp", ""}));
    EXPECT_EQ(module.config.SoundFile, "");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.wav"), "none");
}

TEST_F(SavePackageTest, ASoundBesideTheShowIsFound) {
    std::string header = Header();
    header.replace(header.find("C:\\m\\a.wav"), 10, "own.wav");
    PutShow(header + Slides({"a.bmp", ""}));
    platform.disks.PutFile("C:\\Shows\\own.wav", "own");
    Make();
    EXPECT_EQ(At("C:\\Out\\SLIDES\\own.wav"), "own");
}

TEST_F(SavePackageTest, ASoundThatIsThereIsAskedAbout) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        platform.disks.Remove("C:\\Out");
        platform.disks.PutFile("C:\\Out\\SLIDES\\a.wav", "former");
        ExpectSummary();
        ExpectSlidesThere();
        ExpectQuestion(
            "This sound file already exists in the package "
            "directory:\r\n\r\nC:\\Out\\SLIDES\\a.wav\r\n\r\nDo "
            "you want to replace it?",
            answer);
        ExpectCreated();
        auto& dialog = Load();
        Press(dialog.CmdPackage);
        EXPECT_EQ(At("C:\\Out\\SLIDES\\a.wav"), answer == Answer::Yes ? "sound" : "former");
        app.Unload(dialog);
        module.config.LastSlideShow = ShowPath;
    }
}

TEST_F(SavePackageTest, ASoundThatCannotBeCopiedIsToldAndTheRestGoesOn) {
    platform.disks.Remove("C:\\m\\a.wav");
    ExpectSummary();
    ExpectStop("Unable to copy the sound file to the slide show directory...\r\n\r\nFile not found...");
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "first", "b.bmp", ""}));
}

TEST_F(SavePackageTest, SlidesInThePackageAreNotCopied) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\deep\\c.bmp", "c");
    platform.disks.PutFile("C:\\Out\\SLIDES\\d.bmp", "d");
    PutShow(Header() + Slides({"c:\\out\\slides\\deep\\c.bmp", "", "C:\\x\\..\\Out\\SLIDES\\d.bmp", "",
                               "C:\\Out\\SLIDES\\..\\a.bmp", ""}));
    platform.disks.PutFile("C:\\Out\\a.bmp", "outside");
    ExpectFilesThere();
    ExpectSummary();
    ExpectSlidesThere();
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"deep\\c.bmp", "", "d.bmp", "", "a.bmp", ""}));
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "outside");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\c.bmp"), "none");
}

TEST_F(SavePackageTest, DifferentPicturesOfOneNameAreAllThere) {
    platform.disks.PutFile("C:\\p\\A.bmp", "other a");
    PutShow(Header() + Slides({"a.bmp", "", "C:\\p\\A.bmp", "", "C:\\Shows\\a.bmp", ""}));
    Make();
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "", "A (2).bmp", "", "a.bmp", ""}));
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "picture a");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\A (2).bmp"), "other a");
}

TEST_F(SavePackageTest, YesReplacesAllPictures) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\a.bmp", "former");
    platform.disks.PutFile("C:\\Out\\SLIDES\\b.bmp", "former");
    ExpectSummary();
    ExpectSlidesThere();
    ExpectReplace("C:\\Out\\SLIDES\\a.bmp", Answer::Yes,
                  [this] { EXPECT_FALSE(app.Loaded<WaitCopyFrm>()->Visible()); });
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "picture a");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\b.bmp"), "picture b");
}

TEST_F(SavePackageTest, NoSkipsAPictureAndKeepsItsEntry) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\a.bmp", "former");
    platform.disks.PutFile("C:\\Out\\SLIDES\\b.bmp", "former");
    ExpectSummary();
    ExpectSlidesThere();
    ExpectReplace("C:\\Out\\SLIDES\\a.bmp", Answer::No);
    ExpectReplace("C:\\Out\\SLIDES\\b.bmp", Answer::Yes);
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "former");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\b.bmp"), "picture b");
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "first", "b.bmp", ""}));
}

TEST_F(SavePackageTest, CancelAtThatQuestionEndsTheListAndNothingElse) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\b.bmp", "former");
    ExpectSummary();
    ExpectSlidesThere();
    ExpectReplace("C:\\Out\\SLIDES\\b.bmp", Answer::Cancel);
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "first"}));
    EXPECT_EQ(At("C:\\Out\\SLIDES\\b.bmp"), "former");
    EXPECT_EQ(module.config.LastSlideShow, PackedShow);
    EXPECT_EQ(InSetupIni("SlideShowName"), "Trip");
}

TEST_F(SavePackageTest, AShowOfWhichLessIsWrittenIsKept) {
    MakeFirst();
    const std::string former = At(PackedShow);
    ExpectFilesThere();
    ExpectSummary();
    ExpectSlidesThere();
    ExpectOverwrite();
    ExpectQuestion(
        "This sound file already exists in the package directory:\r\n\r\nC:\\Out\\SLIDES\\a.wav\r\n\r\nDo "
        "you "
        "want to replace it?",
        Answer::No);
    ExpectReplace("C:\\Out\\SLIDES\\a.bmp", Answer::Cancel);
    ExpectProgramThere(Answer::No);
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {}));
    bool kept = false;
    for (const auto& [path, content] : platform.disks.AllFiles())
        kept = kept || (path.starts_with("C:\\Tavrix\\Backup of s.tvs") && content == former);
    EXPECT_TRUE(kept);
}

TEST_F(SavePackageTest, WhatIsInThePackageByAnotherPathIsLeftAlone) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\d.bmp", "d");
    platform.disks.PutFile("C:\\Out\\SLIDES\\own.wav", "own sound");
    platform.disks.PutLink("C:\\Out\\SLIDES", "C:\\Link");
    std::string header = Header();
    header.replace(header.find("C:\\m\\a.wav"), 10, "C:\\Link\\own.wav");
    PutShow(header + Slides({"C:\\Link\\d.bmp", ""}));
    ExpectSummary();
    ExpectSlidesThere();
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "own.wav", {"d.bmp", ""}));
    EXPECT_EQ(At("C:\\Out\\SLIDES\\d.bmp"), "d");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\own.wav"), "own sound");
}

TEST_F(SavePackageTest, APictureThatComesTwiceIsAskedAboutOnce) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\a.bmp", "former");
    PutShow(Header() + Slides({"a.bmp", "", "C:\\Shows\\a.bmp", "again"}));
    ExpectSummary();
    ExpectSlidesThere();
    ExpectReplace("C:\\Out\\SLIDES\\a.bmp", Answer::No);
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "former");
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "", "a.bmp", "again"}));
}

TEST_F(SavePackageTest, WithoutABackupLessDoesNotTakeThePlaceOfTheFormerShow) {
    std::string header = Header();
    header.replace(header.find("\r\n1\r\n"), 5, "\r\n0\r\n");
    PutShow(header + Slides({"a.bmp", ""}));
    MakeFirst();
    const std::string former = At(PackedShow);
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::DiskNotReady);
    ExpectFilesThere();
    ExpectSummary();
    ExpectSlidesThere();
    ExpectOverwrite();
    ExpectReplace("C:\\Out\\SLIDES\\a.bmp", Answer::Cancel);
    ExpectProgramThere(Answer::No);
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), former);
    EXPECT_EQ(platform.files.First("C:\\Tavrix\\Backup*"), "");
}

TEST_F(SavePackageTest, AShowThatIsReplacedWhollyLeavesNoBackup) {
    MakeFirst();
    PutShow(Header() + Slides({"a.bmp", "changed"}));
    ExpectFilesThere();
    ExpectSummary();
    ExpectSlidesThere();
    ExpectOverwrite();
    ExpectQuestion(
        "This sound file already exists in the package directory:\r\n\r\nC:\\Out\\SLIDES\\a.wav\r\n\r\nDo "
        "you want "
        "to replace it?",
        Answer::Yes);
    ExpectReplace("C:\\Out\\SLIDES\\a.bmp", Answer::Yes);
    ExpectProgramThere(Answer::No);
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "changed"}));
    EXPECT_EQ(platform.files.First("C:\\Tavrix\\Backup*"), "");
}

TEST_F(SavePackageTest, APictureNamedLikeTheShowOrOneInThePackageGetsANumber) {
    platform.disks.PutFile("C:\\Out\\SLIDES\\a.bmp", "there already");
    platform.disks.PutFile("C:\\p\\S.TVS", "no show but a picture");
    PutShow(Header() + Slides({"C:\\Shows\\a.bmp", "", "C:\\Out\\SLIDES\\a.bmp", "", "C:\\p\\S.TVS", ""}));
    ExpectSummary();
    ExpectSlidesThere();
    ExpectCreated();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a (2).bmp", "", "a.bmp", "", "S (2).TVS", ""}));
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "there already");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a (2).bmp"), "picture a");
    EXPECT_EQ(At("C:\\Out\\SLIDES\\S (2).TVS"), "no show but a picture");
}

TEST_F(SavePackageTest, ProgramFilesThatAreThereAreAskedAbout) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        platform.disks.Remove("C:\\Out");
        platform.disks.PutFile("C:\\Out\\TAVRIX.EXE", "former");
        ExpectFilesThere();
        ExpectSummary();
        ExpectProgramThere(answer);
        ExpectCreated();
        auto& dialog = Load();
        Press(dialog.CmdPackage);
        EXPECT_EQ(At("C:\\Out\\TAVRIX.EXE"), answer == Answer::Yes ? "bytes of TAVRIX.EXE" : "former");
        EXPECT_EQ(At("C:\\Out\\SETUP.EXE"), answer == Answer::Yes ? "bytes of SETUP.EXE" : "none");
        EXPECT_EQ(InSetupIni("SlideShowFile"), "s.tvs");
        app.Unload(dialog);
        module.config.LastSlideShow = ShowPath;
    }
}

TEST_F(SavePackageTest, AProgramFileThatIsMissingEndsIt) {
    platform.disks.Remove("C:\\Tavrix\\TVS.ICO");
    ExpectSummary();
    ExpectFailure(
        "Could not copy one of the Tavrix program files, unable to package Trip.\r\n\r\nFile not found...");
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\TIPOFDAY.DAT"), "bytes of TIPOFDAY.DAT");
    EXPECT_EQ(At("C:\\Out\\TAVRIX.ICO"), "none");
    EXPECT_EQ(At("C:\\Out\\setup.ini"), "none");
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
}

/// Program files with libraries in a folder of their own.
class WithLibraries final : public ProgramFiles {
  public:
    std::vector<ProgramFile> List() override {
        return {{"SETUP.LST", "C:\\Tavrix\\SETUP.LST"}, {"TAVRIX.LIB\\libx.so", "C:\\p\\b.bmp"}};
    }
};

TEST_F(SavePackageTest, LibrariesGetTheirFolder) {
    WithLibraries libraries;
    auto& dialog = app.Load<PackageFrm>(module, libraries);
    dialog.Show();
    ExpectSummary();
    ExpectCreated();
    Press(dialog.CmdPackage);
    EXPECT_EQ(At("C:\\Out\\TAVRIX.LIB\\libx.so"), "picture b");
    EXPECT_EQ(At("C:\\Out\\SETUP.LST"), "bytes of SETUP.LST");
}

/// A program that runs from a package hands out that package's files.
class OwnFiles final : public ProgramFiles {
  public:
    std::vector<ProgramFile> List() override { return {{"TAVRIX.EXE", "C:\\Out\\TAVRIX.EXE"}}; }
};

TEST_F(SavePackageTest, APackageMadeOverTheOneThatItRunsFromKeepsTheProgram) {
    platform.disks.PutFile("C:\\Out\\TAVRIX.EXE", "launcher");
    OwnFiles own;
    auto& dialog = app.Load<PackageFrm>(module, own);
    dialog.Show();
    ExpectFilesThere();
    ExpectSummary();
    ExpectProgramThere(Answer::Yes);
    ExpectCreated();
    Press(dialog.CmdPackage);
    EXPECT_EQ(At("C:\\Out\\TAVRIX.EXE"), "launcher");
}

TEST_F(SavePackageTest, AnEntryThatCannotBeWrittenIsNoPictureThatCannotBeCopied) {
    bool full = false;
    WhileTold("Tavrix is copying the file:\r\n\r\nC:\\p\\b.bmp", [&] {
        if (!std::exchange(full, true))
            platform.faults.FailAlways(Service::Files, "Write", ErrorNumber::DiskFull);
    });
    ExpectSummary();
    ExpectStop("An error occurred while saving slide show data.\r\n\r\nDisk full...");
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\SLIDES\\b.bmp"), "picture b");
    EXPECT_EQ(At(PackedShow), "none");
}

TEST_F(SavePackageTest, ANewFolderIsNotSearchedForEachPicture) {
    Make();
    EXPECT_EQ(std::ranges::count(platform.faults.Log(), "Files.Info C:\\Out\\SLIDES\\b.bmp"), 0);
    EXPECT_EQ(std::ranges::count(platform.faults.Log(), "Files.Copy C:\\p\\b.bmp C:\\Out\\SLIDES\\b.bmp"), 1);
}

TEST_F(SavePackageTest, ItTellsWhatItDoes) {
    Texts labels;
    for (int yield = 1; yield < 200; ++yield) {
        toolkit.AtYield(yield, [&] {
            auto* window = app.Loaded<WaitCopyFrm>();
            if (window == nullptr) return;
            if (labels.empty() || labels.back() != window->lblMsg.Caption.Get())
                labels.push_back(window->lblMsg.Caption);
        });
    }
    Make();
    constexpr std::size_t firstLabels = 4;
    ASSERT_GT(labels.size(), firstLabels);
    EXPECT_EQ(labels[0], "Tavrix is preparing to package Trip, please wait...");
    EXPECT_EQ(labels[1], "Tavrix is copying the file:\r\n\r\nC:\\m\\a.wav");
    EXPECT_EQ(labels[2], "Tavrix is copying the file:\r\n\r\nC:\\Shows\\a.bmp");
    EXPECT_NE(std::ranges::find(labels,
                                "Tavrix is copying the file:\r\n\r\nC:\\Windows\\System\\Tavrix Screen "
                                "Saver.SCR"),
              labels.end());
    EXPECT_EQ(labels.back(), "Tavrix is creating .INI files in package directory, please wait...");
}

TEST_F(SavePackageTest, ACancelEndsItWhereItIs) {
    const auto others = Others();
    for (const char* at :
         {"Tavrix is preparing", "Tavrix is copying the file:\r\n\r\nC:\\m\\a.wav",
          "Tavrix is copying the file:\r\n\r\nC:\\p\\b.bmp",
          "Tavrix is copying the file:\r\n\r\nC:\\Tavrix\\README.TXT", "Tavrix is creating"}) {
        SCOPED_TRACE(at);
        platform.disks.Remove("C:\\Out");
        platform.disks.PutFolder("C:\\Out");
        module.config.LastSlideShow = ShowPath;
        CancelAt(at);
        ExpectSummary();
        ExpectCanceled();
        auto& dialog = Load();
        Press(dialog.CmdPackage);
        EXPECT_TRUE(platform.disks.Exists("C:\\Out\\SLIDES"));
        EXPECT_EQ(At("C:\\Out\\setup.ini"), "none");
        EXPECT_EQ(Others(), others);
        EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
        EXPECT_FALSE(module.Busy());
        EXPECT_TRUE(app.Unload(dialog));
    }
}

TEST_F(SavePackageTest, ACancelLeavesTheSlidesBefore) {
    CancelAt("Tavrix is copying the file:\r\n\r\nC:\\p\\b.bmp");
    ExpectSummary();
    ExpectCanceled();
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "first"}));
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);
}

TEST_F(SavePackageTest, WhoClosesTheWindowBesideItCancels) {
    auto& dialog = Load();
    ExpectSummary();
    ExpectCanceled();
    toolkit.AtYield(4, [&] { EXPECT_FALSE(app.Unload(dialog)); });
    Press(dialog.CmdPackage);
    EXPECT_EQ(app.Loaded<PackageFrm>(), &dialog);
}

TEST_F(SavePackageTest, ASecondPressWhileItWorksDoesNothing) {
    auto& dialog = Load();
    toolkit.AtYield(3, [&] {
        Press(dialog.CmdPackage);
        Press(dialog.CmdSize);
        Press(dialog.CmdNewFolder);
    });
    ExpectSummary();
    ExpectCreated();
    Press(dialog.CmdPackage);
}

TEST_F(SavePackageTest, NoFolderForTheSlidesIsTold) {
    platform.disks.PutFile("C:\\Out\\SLIDES", "a file");
    ExpectFilesThere();
    ExpectSummary();
    ExpectFailure(
        "Could not create C:\\Out\\SLIDES directory, unable to package Trip...\r\n\r\nPath/File access "
        "error...");
    Press(Load().CmdPackage);
    EXPECT_EQ(At("C:\\Out\\SLIDES"), "a file");
}

TEST_F(SavePackageTest, ASourceThatIsGoneIsTold) {
    auto& dialog = Load();
    platform.disks.Remove(ShowPath);
    ExpectSummary();
    ExpectFailure(
        "Unable to package Trip, the source file that was selected could not be opened to read the data that "
        "it contains.\r\n\r\nFile not found...");
    Press(dialog.CmdPackage);
    EXPECT_EQ(At(PackedShow), "none");
}

TEST_F(SavePackageTest, ASourceThatIsNoShowIsTold) {
    PutShow("no show");
    ExpectSummary();
    ExpectExclamation(
        "The selected file is not a valid Tavrix Slide Show file...\r\n\r\nFilenames with .TVS in the last 4 "
        "positions are normally associated with Tavrix files.");
    ExpectFailure(
        "Unable to package Trip, the source file that was selected could not be opened to read the data that "
        "it contains.");
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), "none");
    EXPECT_EQ(At("C:\\Out\\TAVRIX.EXE"), "none");
}

TEST_F(SavePackageTest, ASourceThatIsCutIsTold) {
    PutShow(Header() + Quoted("a.bmp") + "\r\n");
    ExpectSummary();
    ExpectStop("An error occurred while reading Slide Show data.\r\n\r\nInput past end of file...", true);
    ExpectFailure(
        "Unable to package Trip, the source file that was selected could not be opened to read the data that "
        "it contains.\r\n\r\nInput past end of file...");
    Press(Load().CmdPackage);
}

TEST_F(SavePackageTest, AShowFileThatCannotBeMadeIsTold) {
    platform.disks.PutFolder("C:\\Out\\SLIDES\\s.tvs");
    ExpectSummary();
    ExpectSlidesThere();
    ExpectFailure(
        "Unable to package Trip, a slide show file (.TVS) could not be created in the destination "
        "location.\r\n\r\nPath/File access error...");
    Press(Load().CmdPackage);
}

TEST_F(SavePackageTest, APictureThatIsMissingEndsItWithoutSuccess) {
    platform.disks.Remove("C:\\p\\b.bmp");
    ExpectSummary();
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    Press(Load().CmdPackage);
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"a.bmp", "first"}));
    EXPECT_EQ(At("C:\\Out\\TAVRIX.EXE"), "none");
    EXPECT_EQ(module.config.LastSlideShow, ShowPath);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SavePackageTest, APictureThatMovedBesideTheShowIsPacked) {
    PutShow(Header() + Slides({"D:\\gone\\a.bmp", ""}));
    Make();
    EXPECT_EQ(At("C:\\Out\\SLIDES\\a.bmp"), "picture a");
}

TEST_F(SavePackageTest, AFullDiskIsTold) {
    platform.disks.AddDrive('D', DriveType::Fixed);
    platform.disks.InsertDisk('D');
    platform.disks.PutFolder("D:\\Out");
    platform.disks.SetCapacity('D', 500);
    platform.disks.PutFile("C:\\Shows\\a.bmp", std::string(1000, 'a'));
    auto& dialog = Load();
    dialog.Drive2.Drive = "D:";
    dialog.Dir2.Path = "D:\\Out";
    ExpectQuestion(
        "NAME:\r\nTrip\r\n\r\nTYPE:\r\nSlide Show\r\n\r\nSIZE:\r\n7.5 (megabytes)\r\n\r\nSOURCE:\r\n"
        "C:\\Shows\\s.tvs\r\n\r\nPACKAGE:\r\nD:\\Out\r\n\r\nCreate the above package?",
        Answer::Yes);
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nDisk full...");
    Press(dialog.CmdPackage);
    EXPECT_EQ(At("D:\\Out\\SLIDES\\a.wav"), "sound");
}

TEST_F(SavePackageTest, APackageOnAnEmptyDriveLiesInItsRoot) {
    platform.disks.AddDrive('D', DriveType::Removable);
    platform.disks.InsertDisk('D');
    auto& dialog = Load();
    dialog.Drive2.Drive = "D:";
    ExpectQuestion(
        "NAME:\r\nTrip\r\n\r\nTYPE:\r\nSlide Show\r\n\r\nSIZE:\r\n7.5 (megabytes)\r\n\r\nSOURCE:\r\n"
        "C:\\Shows\\s.tvs\r\n\r\nPACKAGE:\r\nD:\\\r\n\r\nCreate the above package?",
        Answer::Yes);
    Expect({.text = "The slide show package Trip has been created in the directory:\r\n\r\nD:\\",
            .title = Title});
    Press(dialog.CmdPackage);
    EXPECT_EQ(At("D:\\SLIDES\\b.bmp"), "picture b");
    EXPECT_EQ(At("D:\\TAVRIX.EXE"), "bytes of TAVRIX.EXE");
}

TEST_F(SavePackageTest, TextsOutsideOfWesternEuropeAreKept) {
    platform.disks.PutFile("C:\\p\\\xE6\x97\xA5.bmp", "sun");
    PutShow(Header() + Slides({"C:\\p\\\xE6\x97\xA5.bmp", "\xC3\xA4"}));
    Make();
    EXPECT_EQ(At(PackedShow), Packed("1", "a.wav", {"\xE6\x97\xA5.bmp", "\xC3\xA4"}));
}

}  // namespace
}  // namespace tavrix::test
