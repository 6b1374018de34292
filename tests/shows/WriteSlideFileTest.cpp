#include "shows/files/WriteSlideFile.h"

#include <memory>

#include "FakeEditor.h"
#include "ShowsTest.h"
#include "dialogs/WaitCopyFrm.h"
#include "shows/files/LoadShowFile.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using headless::Service;
using Texts = std::vector<std::string>;

constexpr const char* Folder = "C:\\Shows\\";
constexpr const char* Canceled =
    "Save was canceled before it could complete, slide show file may be corrupt as a result...";

class WriteSlideFileTest : public ShowsTest {
  protected:
    WriteSlideFileTest() {
        platform.disks.PutFolder("C:\\Shows");
        platform.disks.PutFile("C:\\p\\b.bmp", "picture b");
        platform.disks.PutFile("C:\\p\\c.bmp", "picture c");
        platform.disks.PutFile("C:\\m\\a.wav", "sound a");
        module.config.LastSlideShow = "former.tvs";
        module.show.ShowChanged = true;
        module.show.SaveFromArrays = true;
        module.config.UseRecentDocuments = false;
    }

    /// The slides of the next save.
    void UseSlides(const Texts& paths, const Texts& descriptions = {}) {
        module.show.EraseSlides();
        for (std::size_t i = 0; i < paths.size(); ++i)
            module.show.SlideFiles.Set(static_cast<int>(i), paths[i]);
        for (std::size_t i = 0; i < descriptions.size(); ++i)
            module.show.SlideDescriptions.Set(static_cast<int>(i), descriptions[i]);
        editor.ReadRows();
        module.show.SlideCount = static_cast<std::int16_t>(paths.size());
    }
    SaveEnd Save(const std::string& name = "s.tvs") { return WriteSlideFile(module, Folder, name); }
    [[nodiscard]] std::string OnDisk() const { return platform.disks.Content(ShowPath).value_or("none"); }

    [[nodiscard]] static std::string DefaultHeader(const std::string& sound = "",
                                                   const std::string& mode = "0") {
        return Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), mode, Quoted(sound), "0", "0", "5",
                      "0", "0", "0", "-1", "-1"});
    }
    /// What the label of the window says each time messages run.
    void WatchLabel() {
        for (int n = 1; n <= 50; ++n) {
            toolkit.AtYield(n, [this] {
                const auto* window = app.Loaded<WaitCopyFrm>();
                labels.push_back(window != nullptr ? window->lblMsg.Caption.Get() : "no window");
            });
        }
    }
    void CancelAtYield(int n) {
        toolkit.AtYield(n, [this] { app.Loaded<WaitCopyFrm>()->CmdCancel.Deliver(forms::ClickEvent{}); });
    }
    void ExpectCanceled() {
        Expect({.text = Canceled, .icon = BoxIcon::Exclamation, .whileOpen = [this] {
                    EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
                }});
    }
    /// What the program's folder holds beside its own, the user's backups.
    [[nodiscard]] Texts Backups() { return platform.files.List("C:\\Tavrix", "Backup*"); }
    [[nodiscard]] std::string BackupContent() {
        const Texts names = Backups();
        return names.size() == 1 ? platform.disks.Content("C:\\Tavrix\\" + names.front()).value_or("none")
                                 : std::to_string(names.size()) + " backups";
    }
    /// A show that the next save finds.
    static std::string FormerShow(const std::string& slide = "old.bmp") {
        return Header() + Slides({slide, "Old"});
    }
    void SaveAndCancelAtYield(int n) {
        UseSlides({"C:\\p\\b.bmp"});
        CancelAtYield(n);
        ExpectCanceled();
        Save();
    }
    void ExpectCountsAsSaved() {
        EXPECT_FALSE(module.show.ShowChanged);
        EXPECT_EQ(module.config.LastSlideShow, ShowPath);
        EXPECT_EQ(module.config.RecentShows[0], ShowPath);
        EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
    }
    void ExpectNotSaved() {
        EXPECT_TRUE(module.show.ShowChanged);
        EXPECT_EQ(module.config.LastSlideShow, "former.tvs");
        EXPECT_EQ(module.config.RecentShows[0], "");
        EXPECT_EQ(editor.filename, "Untitled.tvs");
        EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
    }

    FakeEditor& editor = app.Load<FakeEditor>(module);
    Texts labels;
};

TEST_F(WriteSlideFileTest, WritesOptionsAndSlides) {
    module.config.SoundMode = 2;
    module.config.CDTrack = 5;
    UseSlides({"C:\\p\\b.bmp", "d.bmp"}, {"B", ""});
    module.show.SlideFiles.Set(2, "behind.bmp");
    Save();
    EXPECT_EQ(OnDisk(), Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), "2", Quoted(""), "5", "0",
                               "5", "0", "0", "0", "-1", "-1"}) +
                            Slides({"C:\\p\\b.bmp", "B", "d.bmp", ""}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, TheWindowTellsWhatIsDone) {
    module.config.SaveSlides = true;
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\m\\a.wav";
    UseSlides({"C:\\p\\b.bmp", "d.bmp", "C:\\p\\c.bmp"});
    WatchLabel();
    Save();
    const std::string creating = "Tavrix is creating the file:\r\n\r\nC:\\Shows\\s.tvs";
    const std::string b = "Tavrix is copying the file:\r\n\r\nC:\\p\\b.bmp";
    const std::string c = "Tavrix is copying the file:\r\n\r\nC:\\p\\c.bmp";
    const std::string finished = "Tavrix has finished copying files...";
    EXPECT_EQ(labels, (Texts{"Tavrix is saving the slide show file, please wait...",
                             "Tavrix is copying the file:\r\n\r\nC:\\m\\a.wav", creating, creating, b, b, b,
                             c, finished, finished}));
    EXPECT_EQ(app.Loaded<WaitCopyFrm>(), nullptr);
}

TEST_F(WriteSlideFileTest, ALabelShowsAPathAsItIs) {
    toolkit.AtYield(1, [this] { EXPECT_TRUE(app.Loaded<WaitCopyFrm>()->lblMsg.Literal.Get()); });
    UseSlides({});
    Save("a & b.tvs");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\a & b.tvs"), DefaultHeader());
}

TEST_F(WriteSlideFileTest, ThePathsComeFromTheEditorAndGoBackToIt) {
    module.show.SaveFromArrays = false;
    module.config.SaveSlides = true;
    UseSlides({"C:\\SHOWS\\sub\\a.bmp", "C:\\p\\b.bmp", "d.bmp"}, {"A", "B", "D"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"sub\\a.bmp", "A", "b.bmp", "B", "d.bmp", "D"}));
    EXPECT_EQ(editor.rows, (Texts{"sub\\a.bmp", "b.bmp", "d.bmp"}));
    EXPECT_EQ(editor.filename, ShowPath);
    EXPECT_EQ(SlideFiles(), editor.rows);
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", "B", "D"}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, FromTheArraysNothingGoesBack) {
    module.config.SaveSlides = true;
    const Texts paths{"C:\\SHOWS\\sub\\a.bmp", "C:\\p\\b.bmp", "d.bmp"};
    UseSlides(paths);
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"sub\\a.bmp", "", "b.bmp", "", "d.bmp", ""}));
    EXPECT_EQ(SlideFiles(), paths);
    EXPECT_EQ(editor.rows, paths);
    EXPECT_EQ(editor.filename, "Untitled.tvs");
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, WithoutAnEditorTheArraysServe) {
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\Shows\\a.bmp"});
    app.Unload(editor);
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"a.bmp", ""}));
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\Shows\\a.bmp"}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, PathsBelowTheFolderAreRelativeWhateverTheirCase) {
    UseSlides({"c:\\sHOWS\\a.bmp", "C:\\Shows\\sub\\b.bmp", "C:\\ShowsToo\\c.bmp", "C:\\p\\d.bmp"});
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"a.bmp", "", "sub\\b.bmp", "", "C:\\ShowsToo\\c.bmp", "",
                                                  "C:\\p\\d.bmp", ""}));
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\d.bmp"));
}

TEST_F(WriteSlideFileTest, CharactersWhoseCasesDifferInLengthAreCutRightly) {
    // Capital and small form have two and three bytes in UTF-8.
    const std::string folder = "C:\\\xC8\xBA\\";
    platform.disks.PutFolder("C:\\\xC8\xBA");
    UseSlides({"C:\\\xE2\xB1\xA5\\a.bmp"});
    WriteSlideFile(module, folder, "s.tvs");
    EXPECT_EQ(platform.disks.Content(folder + "s.tvs"), DefaultHeader() + Slides({"a.bmp", ""}));
}

TEST_F(WriteSlideFileTest, ABareNameIsNeverCopied) {
    platform.disks.PutFile("C:\\p\\here.bmp", "x");
    platform.files.ChangeFolder("C:\\p");
    for (const bool copies : {false, true}) {
        module.config.SaveSlides = copies;
        UseSlides({"here.bmp"});
        Save();
        EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"here.bmp", ""}));
        EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\here.bmp"));
    }
}

TEST_F(WriteSlideFileTest, PicturesAreCopiedOverWhateverIsThere) {
    platform.disks.PutFile("C:\\Shows\\b.bmp", "another b");
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\b.bmp"});
    Save();
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
    EXPECT_EQ(platform.disks.Content("C:\\p\\b.bmp"), "picture b");
}

struct SoundCase {
    const char* file;
    std::int16_t mode;
    bool copies;
    const char* stored;
    bool copied;
};

TEST_F(WriteSlideFileTest, TheSoundIsStoredAsItsOptionsSay) {
    for (const SoundCase& sound :
         {SoundCase{"C:\\m\\a.wav", 1, true, "a.wav", true},
          SoundCase{"C:\\m\\a.wav", 1, false, "C:\\m\\a.wav", false},
          SoundCase{"C:\\m\\a.wav", 0, true, "C:\\m\\a.wav", false},
          SoundCase{"C:\\m\\a.wav", 2, true, "C:\\m\\a.wav", false},
          SoundCase{"c:\\SHOWS\\x\\a.wav", 1, true, "x\\a.wav", false}, SoundCase{"", 1, true, "", false}}) {
        module.config.SoundFile = sound.file;
        module.config.SoundMode = sound.mode;
        module.config.SaveSlides = sound.copies;
        Save();
        EXPECT_EQ(OnDisk(), DefaultHeader(sound.stored, std::to_string(sound.mode)));
        EXPECT_EQ(module.config.SoundFile, sound.stored);
        EXPECT_EQ(platform.disks.Exists("C:\\Shows\\a.wav"), sound.copied);
        if (sound.copied) platform.disks.Remove("C:\\Shows\\a.wav");
    }
}

TEST_F(WriteSlideFileTest, ASoundThatCannotBeCopiedIsStoredAllTheSame) {
    module.config.SoundFile = "C:\\m\\none.wav";
    module.config.SoundMode = 1;
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\b.bmp"});
    ExpectStop("Unable to copy the sound file to the slide show directory...\r\n\r\nFile not found...");
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader("none.wav", "1") + Slides({"b.bmp", ""}));
    EXPECT_EQ(module.config.SoundFile, "none.wav");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, AProtectedShowIsFoundOutBetweenSoundAndPictures) {
    PutShow("former");
    platform.disks.SetReadOnly(ShowPath, true);
    module.config.SoundFile = "C:\\m\\a.wav";
    module.config.SoundMode = 1;
    module.config.SaveSlides = true;
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\p\\b.bmp"});
    Expect({.text = "Unable to save slide show.\r\n\r\nPermission denied...",
            .icon = BoxIcon::Stop,
            .whileOpen = [this] {
                EXPECT_EQ(platform.disks.Content("C:\\Shows\\a.wav"), "sound a");
                EXPECT_TRUE(module.show.ShowChanged);
                EXPECT_NE(app.Loaded<WaitCopyFrm>(), nullptr);
            }});
    Save();
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\b.bmp"));
    EXPECT_EQ(OnDisk(), "former");
    EXPECT_EQ(Backups(), Texts());
    EXPECT_EQ(editor.filename, ShowPath);
    EXPECT_EQ(editor.rows, (Texts{"C:\\p\\b.bmp"}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, AMissingFolderIsToldOf) {
    UseSlides({"C:\\p\\b.bmp"});
    ExpectStop("Unable to save slide show.\r\n\r\nPath not found...");
    EXPECT_EQ(WriteSlideFile(module, "C:\\none\\", "s.tvs"), SaveEnd::Partial);
    EXPECT_EQ(module.config.LastSlideShow, "C:\\none\\s.tvs");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(WriteSlideFileTest, APictureThatCannotBeCopiedEndsTheFileThere) {
    module.config.SaveSlides = true;
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\none.bmp", "C:\\p\\c.bmp"}, {"B", "N", "C"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    EXPECT_EQ(Save(), SaveEnd::Partial);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"b.bmp", "B"}));
    EXPECT_EQ(editor.rows, (Texts{"b.bmp", "C:\\p\\none.bmp", "C:\\p\\c.bmp"}));
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\c.bmp"));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, APictureOntoItselfCannotBeCopied) {
    platform.disks.PutLink("C:\\Shows", "C:\\link");
    platform.disks.PutFile("C:\\Shows\\e.bmp", "picture e");
    module.config.SaveSlides = true;
    UseSlides({"C:\\link\\e.bmp"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nPermission denied...");
    Save();
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\e.bmp"), "picture e");
}

TEST_F(WriteSlideFileTest, FailuresToWriteAreToldOfByTheirStage) {
    PutShow("former");
    UseSlides({"C:\\p\\b.bmp"});
    struct Failing {
        const char* operation;
        const char* text;
    };
    for (const Failing& failing :
         {Failing{"Create", "Unable to save slide show."},
          Failing{"Write", "An error occurred while trying to write the slide show header."},
          Failing{"Close", "An error occurred while saving slide show data."}}) {
        module.show.ShowChanged = true;
        platform.faults.Clear();
        platform.faults.FailAlways(Service::Files, failing.operation, ErrorNumber::DiskFull);
        ExpectStop(std::string(failing.text) + "\r\n\r\nDisk full...");
        Save();
        EXPECT_EQ(OnDisk(), "former");
        ExpectCountsAsSaved();
    }
}

TEST_F(WriteSlideFileTest, SlidesThatCannotBeWrittenAreToldOf) {
    UseSlides({"C:\\p\\b.bmp"});
    platform.faults.FailNth(Service::Files, 4, ErrorNumber::DiskFull);  // Create, FileExists, Write, Write
    ExpectStop("An error occurred while saving slide show data.\r\n\r\nDisk full...");
    Save();
    EXPECT_TRUE(platform.faults.Fired());
    EXPECT_EQ(OnDisk(), "none");
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, AFailureBehindACopyIsNoneOfTheCopy) {
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\b.bmp"});
    platform.faults.FailAlways(Service::Files, "Close", ErrorNumber::DiskFull);
    ExpectStop("An error occurred while saving slide show data.\r\n\r\nDisk full...");
    Save();
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
}

TEST_F(WriteSlideFileTest, ACountBeyondTheSlotsFailsAfterAllSlides) {
    UseSlides({});
    for (int i = 0; i <= 30'000; ++i)
        module.show.SlideFiles.Set(i, "a.bmp");
    module.show.SlideCount = 30'002;
    ExpectStop("An error occurred while saving slide show data.\r\n\r\nSubscript out of range...");
    Save();
    ExpectCountsAsSaved();
    ExpectExclamation(
        "The maximum of 30,000 slides has been loaded. Any remaining images in the Slide Show file will be "
        "ignored...");
    EXPECT_TRUE(LoadShowFile(module, ShowPath));
    EXPECT_EQ(module.show.SlideFiles.FirstEmpty(), 30'001);
}

TEST_F(WriteSlideFileTest, ASaveCanceledBeforeItBeginsLeavesAnEmptyFile) {
    UseSlides({"C:\\p\\b.bmp"});
    CancelAtYield(1);
    ExpectCanceled();
    EXPECT_EQ(Save(), SaveEnd::Canceled);
    EXPECT_EQ(OnDisk(), "");
    ExpectNotSaved();
    ExpectStop("An error occurred while reading the Slide Show file header.\r\n\r\nInput past end of file...",
               true);
    EXPECT_FALSE(LoadShowFile(module, ShowPath));
}

TEST_F(WriteSlideFileTest, ACancelIsSeenBeforeEachSlide) {
    module.config.SaveSlides = true;
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\c.bmp"});
    CancelAtYield(4);  // while the first is copied, after two labels and the look before it
    ExpectCanceled();
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"b.bmp", ""}));
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\c.bmp"));
    // The show that is being edited has been saved nowhere.
    EXPECT_EQ(editor.rows, (Texts{"C:\\p\\b.bmp", "C:\\p\\c.bmp"}));
    ExpectNotSaved();
}

TEST_F(WriteSlideFileTest, ACanceledSaveGivesTheSoundItsFormerPath) {
    module.config.SaveSlides = true;
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\m\\a.wav";
    UseSlides({"C:\\p\\b.bmp"});
    CancelAtYield(2);
    ExpectCanceled();
    Save();
    EXPECT_EQ(module.config.SoundFile, "C:\\m\\a.wav");
    ExpectNotSaved();
}

TEST_F(WriteSlideFileTest, TheEditorMayCloseWhileItSaves) {
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\Shows\\a.bmp"});
    toolkit.AtYield(3, [this] { app.Unload(editor); });
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"a.bmp", ""}));
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\Shows\\a.bmp"}));
}

TEST_F(WriteSlideFileTest, ACancelAfterTheLastSlideComesTooLate) {
    UseSlides({"C:\\p\\b.bmp"});
    CancelAtYield(4);
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", ""}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, AnEarlierCancelIsForgotten) {
    module.CancelCopy = true;
    UseSlides({"C:\\p\\b.bmp"});
    Save();
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, TheWindowMayBeClosedWhileItSaves) {
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\c.bmp"});
    toolkit.AtYield(1, [this] { app.Unload(*app.Loaded<WaitCopyFrm>()); });
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", "", "C:\\p\\c.bmp", ""}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, ACanceledSaveKeepsABackupOfTheFormerShow) {
    PutShow(FormerShow());
    SaveAndCancelAtYield(1);
    EXPECT_EQ(OnDisk(), "");
    EXPECT_EQ(BackupContent(), FormerShow());
}

TEST_F(WriteSlideFileTest, AShowHasOneBackupAndThatIsOfTheLastGoodSave) {
    PutShow(FormerShow());
    SaveAndCancelAtYield(3);
    EXPECT_EQ(OnDisk(), DefaultHeader());  // which reads back, too
    SaveAndCancelAtYield(3);
    SaveAndCancelAtYield(1);
    EXPECT_EQ(BackupContent(), FormerShow());
}

TEST_F(WriteSlideFileTest, ShowsOfOneNameHaveABackupEach) {
    platform.disks.PutFile("C:\\Other\\s.tvs", FormerShow("other.bmp"));
    PutShow(FormerShow());
    SaveAndCancelAtYield(1);
    UseSlides({"C:\\p\\b.bmp"});
    CancelAtYield(1);
    ExpectCanceled();
    WriteSlideFile(module, "C:\\Other\\", "s.tvs");
    EXPECT_EQ(Backups().size(), 2U);
}

TEST_F(WriteSlideFileTest, WhatDoesNotReadBackIsNotKept) {
    for (const std::string& content :
         {std::string("no show"), std::string(), Header() + Slides({"a.bmp", "A", "b.bmp"})}) {
        PutShow(content);
        SaveAndCancelAtYield(1);
        EXPECT_EQ(Backups(), Texts()) << content;
    }
}

TEST_F(WriteSlideFileTest, ABackupThatDoesNotReadBackMakesRoom) {
    PutShow(FormerShow());
    SaveAndCancelAtYield(1);
    platform.disks.PutFile("C:\\Tavrix\\" + Backups().at(0), "cut off");
    PutShow(FormerShow("other.bmp"));
    SaveAndCancelAtYield(1);
    EXPECT_EQ(BackupContent(), FormerShow("other.bmp"));
}

TEST_F(WriteSlideFileTest, WithoutABackupLessDoesNotTakeThePlaceOfTheFormerShow) {
    PutShow(FormerShow());
    for (const char* operation : {"Copy", "Open", "Read"}) {
        platform.faults.FailAlways(Service::Files, operation, ErrorNumber::DiskNotReady);
        SaveAndCancelAtYield(3);
        platform.faults.Clear();
        EXPECT_EQ(OnDisk(), FormerShow()) << operation;
        EXPECT_EQ(Backups(), Texts()) << operation;
    }
    // A whole one does.
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::DiskNotReady);
    UseSlides({"C:\\p\\b.bmp"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", ""}));
}

TEST_F(WriteSlideFileTest, ABackupIsNotFoundAmongTheShows) {
    PutShow(FormerShow());
    SaveAndCancelAtYield(1);
    EXPECT_EQ(platform.files.List("C:\\Tavrix", "*.tvs"), Texts());
}

TEST_F(WriteSlideFileTest, TheNextGoodSaveTakesTheBackupAway) {
    PutShow(FormerShow());
    SaveAndCancelAtYield(1);
    ASSERT_EQ(Backups().size(), 1U);
    UseSlides({"C:\\p\\b.bmp"});
    Save();
    EXPECT_EQ(Backups(), Texts());
}

TEST_F(WriteSlideFileTest, SoDoesASaveThatFailsAtAPicture) {
    PutShow(FormerShow());
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\none.bmp"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader());
    EXPECT_EQ(BackupContent(), FormerShow());
}

TEST_F(WriteSlideFileTest, ASaveThatSucceedsLeavesNoBackup) {
    PutShow(FormerShow());
    UseSlides({"C:\\p\\b.bmp"});
    Save();
    EXPECT_EQ(Backups(), Texts());
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, NoCopyLeavesTheFolder) {
    platform.disks.PutFolder("C:\\Shows\\x\\y");
    platform.disks.PutFolder("C:\\p\\q\\x\\y");
    platform.files.ChangeFolder("C:\\p\\q");
    platform.disks.PutFile("C:\\.bashrc", "mine");
    module.config.SaveSlides = true;
    for (const char* path : {"x\\y/../../.bashrc", "C:\\p\\q/../../p/.bashrc", "C:\\p/.bashrc"}) {
        platform.disks.PutFile("C:\\p\\.bashrc", "foreign");
        platform.disks.PutFile("C:\\p\\q\\.bashrc", "foreign");
        UseSlides({path});
        EXPECT_EQ(Save(), SaveEnd::Whole);
        EXPECT_EQ(platform.disks.Content("C:\\Shows\\.bashrc"), "foreign") << path;
        EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({".bashrc", ""})) << path;
        platform.disks.Remove("C:\\Shows\\.bashrc");
    }
    EXPECT_EQ(platform.disks.Content("C:\\.bashrc"), "mine");
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\p"));
}

TEST_F(WriteSlideFileTest, TheSoundDoesNotLeaveTheFolderEither) {
    platform.disks.PutFile("C:\\Shows\\.profile", "of the show");
    platform.disks.PutFile("C:\\.profile", "mine");
    platform.disks.PutFile("C:\\m\\.profile", "foreign");
    module.config.SoundMode = 1;
    module.config.SaveSlides = true;
    module.config.SoundFile = "C:\\m\\a/../../m/.profile";
    UseSlides({});
    Save();
    EXPECT_EQ(module.config.SoundFile, ".profile");
    EXPECT_EQ(platform.disks.Content("C:\\.profile"), "mine");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\.profile"), "foreign");
}

TEST_F(WriteSlideFileTest, APathWithoutANameIsNotCopied) {
    module.config.SaveSlides = true;
    for (const char* path : {"x\\..", "x\\.", "C:\\p\\b.bmp\\", "x/../.."}) {
        UseSlides({path});
        ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nBad file name or number...");
        Save();
        EXPECT_EQ(OnDisk(), DefaultHeader()) << path;
    }
}

TEST_F(WriteSlideFileTest, APathThatLeadsOutOfTheFolderIsNotRelativeToIt) {
    UseSlides(
        {"C:\\Shows\\..\\p\\b.bmp", "C:/Shows/sub/a.bmp", "C:\\Shows\\\\d.bmp", "C:\\p\\..\\Shows\\e.bmp"});
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\Shows\\..\\p\\b.bmp", "", "sub\\a.bmp", "", "d.bmp",
                                                  "", "e.bmp", ""}));
}

TEST_F(WriteSlideFileTest, ThePlanStandsBeforeTheFileIsOpened) {
    UseSlides({"C:\\p\\b.bmp"}, {"B"});
    bool opened = false;
    platform.faults.AtNth(Service::Files, 1, [&] {
        opened = platform.faults.Log().back() == "Files.Create C:\\Shows\\s.tvs";
        module.show.SlideFiles.Set(0, "C:\\other.bmp");
        module.show.SlideDescriptions.Set(0, "Other");
    });
    Save();
    EXPECT_TRUE(opened);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", "B"}));
}

TEST_F(WriteSlideFileTest, TextsBeyondTheCodePageSurvive) {
    UseSlides({"C:\\\xE6\x97\xA5.bmp", "C:\\\xC3\xA4.bmp"}, {"", "\xC3\xA9\xE2\x82\xAC"});
    Save();
    EXPECT_TRUE(LoadShowFile(module, ShowPath));
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\\xE6\x97\xA5.bmp", "C:\\\xC3\xA4.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"", "\xC3\xA9\xE2\x82\xAC"}));
}

TEST_F(WriteSlideFileTest, AQuoteInADescriptionIsWrittenAsItIs) {
    UseSlides({"a.bmp", "b.bmp"}, {"say \"hi\" now", "B"});
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + "\"a.bmp\"\r\n\"say \"hi\" now\"\r\n\"b.bmp\"\r\n\"B\"\r\n");
    ExpectStop("An error occurred while reading Slide Show data.\r\n\r\nInput past end of file...", true);
    EXPECT_TRUE(LoadShowFile(module, ShowPath));
    EXPECT_EQ(module.show.SlideDescriptions[0], "say ");
    EXPECT_EQ(SlideFiles(), (Texts{"a.bmp", "hi\" now\"", "B"}));
}

/// Whatever fails, the former show is on the disk, in its place or in the backup, or else the new one is complete; and
/// the user's pictures and sounds are as they were.
TEST_F(WriteSlideFileTest, WhicheverCallFailsNothingOfTheUsersIsLost) {
    const std::string former = Header() + Slides({"old.bmp", "Old"});
    const std::string saved =
        DefaultHeader("a.wav", "1") + Slides({"b.bmp", "B", "c.bmp", "C", "own.bmp", "O"});
    for (const char drive : {'C', 'A'}) {
        int call = 1;
        for (bool fired = true; fired; ++call) {
            headless::HeadlessServices machine;
            machine.disks.InsertDisk('A');
            const std::string folder = std::string(1, drive) + ":\\Shows\\";
            machine.disks.PutFile("C:\\p\\b.bmp", "picture b");
            machine.disks.PutFile("C:\\p\\c.bmp", "picture c");
            machine.disks.PutFile("C:\\m\\a.wav", "sound a");
            machine.disks.PutFile(folder + "own.bmp", "own");
            machine.disks.PutFile(folder + "s.tvs", former);
            headless::HeadlessToolkit silent;
            forms::Application application{silent};
            MainModule other{application, machine.services};
            other.AppPath = "C:\\";
            other.config.SoundMode = 1;
            other.config.SoundFile = "C:\\m\\a.wav";
            other.config.SaveSlides = true;
            other.config.UseRecentDocuments = false;
            other.show.SlideCount = 3;
            const Texts paths{"C:\\p\\b.bmp", "C:\\p\\c.bmp", folder + "own.bmp"};
            other.show.InsertSlides(0, paths);
            for (const int i : {0, 1, 2})
                other.show.SlideDescriptions.Set(i, Texts{"B", "C", "O"}[static_cast<std::size_t>(i)]);
            application.Load<FakeEditor>(other);

            machine.faults.FailNth(Service::Files, call, ErrorNumber::DiskNotReady);
            SaveEnd end{};
            EXPECT_NO_THROW(end = WriteSlideFile(other, folder, "s.tvs"));
            fired = machine.faults.Fired();
            machine.faults.Clear();

            const auto onDisk = machine.disks.Content(folder + "s.tvs");
            Texts backups = machine.files.List("C:\\", "Backup*");
            backups.push_back("none");
            const bool safe =
                onDisk == former || onDisk == saved || machine.disks.Content("C:\\" + backups[0]) == former;
            EXPECT_TRUE(end != SaveEnd::Whole || onDisk == saved) << drive << ", call " << call;
            EXPECT_TRUE(safe) << drive << ", call " << call << ": " << onDisk.value_or("none");
            EXPECT_EQ(machine.disks.Content("C:\\p\\b.bmp"), "picture b");
            EXPECT_EQ(machine.disks.Content("C:\\p\\c.bmp"), "picture c");
            EXPECT_EQ(machine.disks.Content("C:\\m\\a.wav"), "sound a");
            EXPECT_EQ(machine.disks.Content(folder + "own.bmp"), "own");
            EXPECT_EQ(application.Loaded<WaitCopyFrm>(), nullptr);
            EXPECT_FALSE(other.show.ShowChanged);

            // The next save goes through; the sound is taken to be there.
            WriteSlideFile(other, folder, "s.tvs");
            EXPECT_EQ(machine.disks.Content(folder + "s.tvs"), saved) << drive << ", call " << call;
        }
        EXPECT_GT(call, 8);
    }
}

}  // namespace
}  // namespace tavrix::test
