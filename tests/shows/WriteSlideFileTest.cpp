#include "shows/files/WriteSlideFile.h"

#include <algorithm>
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
    using Trash = std::vector<headless::RecordingShell::Trashed>;

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
    /// How often a service was asked for something, counted by the start of the note.
    [[nodiscard]] long Asked(const std::string& start) const {
        return std::ranges::count_if(platform.faults.Log(),
                                     [&start](const std::string& call) { return call.starts_with(start); });
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

TEST_F(WriteSlideFileTest, PicturesAreCopiedOverWhateverIsThereWhichGoesToTheTrash) {
    platform.disks.PutFile("C:\\Shows\\b.bmp", "another b");
    module.config.SaveSlides = true;
    module.config.UseRecycleBin = false;  // nobody was asked about this one
    UseSlides({"C:\\p\\b.bmp"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
    EXPECT_EQ(platform.disks.Content("C:\\p\\b.bmp"), "picture b");
    EXPECT_EQ(platform.shell.trash, (Trash{{"C:\\Shows\\b.bmp", "another b"}}));
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

TEST_F(WriteSlideFileTest, AFileThatIsThereAlreadyIsNoCopyAndNoFailure) {
    platform.disks.PutLink("C:\\Shows", "C:\\link");
    platform.disks.PutFile("C:\\Shows\\e.bmp", "picture e");
    platform.disks.PutFile("C:\\Shows\\b.bmp", "picture b");
    platform.disks.PutFile("C:\\Shows\\a.wav", "sound");
    module.config.SaveSlides = true;
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\link\\a.wav";
    UseSlides({"C:\\link\\e.bmp", "C:\\p\\b.bmp"});
    platform.faults.Clear();
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader("a.wav", "1") + Slides({"e.bmp", "", "b.bmp", ""}));
    EXPECT_EQ(Asked("Files.Copy"), 0);
    EXPECT_EQ(platform.shell.trash, Trash());
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\e.bmp"), "picture e");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\a.wav"), "sound");
}

TEST_F(WriteSlideFileTest, FailuresToWriteAreToldOfByTheirStage) {
    PutShow(FormerShow());
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
        EXPECT_EQ(OnDisk(), FormerShow());
        ExpectCountsAsSaved();
    }
}

TEST_F(WriteSlideFileTest, SlidesThatCannotBeWrittenAreToldOf) {
    UseSlides({"C:\\p\\b.bmp"});
    platform.faults.FailNth(Service::Files, 4, ErrorNumber::DiskFull);  // Open, Create, Write, Write
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

TEST_F(WriteSlideFileTest, WhoClosesTheWindowCancels) {
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\c.bmp"});
    toolkit.AtYield(3, [this] { app.Unload(*app.Loaded<WaitCopyFrm>()); });
    ExpectCanceled();
    EXPECT_EQ(Save(), SaveEnd::Canceled);
    EXPECT_EQ(OnDisk(), DefaultHeader());
    ExpectNotSaved();
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
        EXPECT_EQ(platform.shell.trash, content.empty() ? Trash() : (Trash{{ShowPath, content}}));
        platform.shell.trash.clear();
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

TEST_F(WriteSlideFileTest, ABackupThatCannotBeReadNowIsNotReplaced) {
    PutShow(FormerShow());
    SaveAndCancelAtYield(1);
    const std::string backup = BackupContent();
    PutShow(FormerShow("other.bmp"));
    const std::size_t before = platform.faults.Log().size();
    platform.faults.FailNth(Service::Files, 5, ErrorNumber::DiskNotReady);  // Open, Read, Read, Create, Open
    SaveAndCancelAtYield(3);
    EXPECT_TRUE(platform.faults.Log().at(before + 4).starts_with("Files.Open C:\\Tavrix\\Backup of"));
    EXPECT_EQ(BackupContent(), backup);
    EXPECT_EQ(OnDisk(), FormerShow("other.bmp"));
}

TEST_F(WriteSlideFileTest, WithoutABackupLessDoesNotTakeThePlaceOfTheFormerShow) {
    PutShow(FormerShow());
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::DiskNotReady);
    SaveAndCancelAtYield(3);
    EXPECT_EQ(OnDisk(), FormerShow());
    EXPECT_EQ(Backups(), Texts());
    // A whole one does.
    UseSlides({"C:\\p\\b.bmp"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", ""}));
    EXPECT_EQ(platform.shell.trash, Trash());
}

TEST_F(WriteSlideFileTest, AShowThatCannotBeReadGoesToTheTrash) {
    for (const char* operation : {"Open", "Read"}) {
        PutShow(FormerShow());
        platform.faults.FailAlways(Service::Files, operation, ErrorNumber::DiskNotReady);
        UseSlides({"C:\\p\\b.bmp"});
        EXPECT_EQ(Save(), SaveEnd::Whole);
        platform.faults.Clear();
        EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", ""}));
        EXPECT_EQ(Backups(), Texts());
        EXPECT_EQ(platform.shell.trash, (Trash{{ShowPath, FormerShow()}})) << operation;
        platform.shell.trash.clear();
    }
}

TEST_F(WriteSlideFileTest, SoDoesOneThatIsNotWholeOrNoShow) {
    std::string tooMany = Header();
    for (int i = 0; i < 30'002; ++i)
        tooMany += "a\r\n\r\n";
    for (const std::string& former : {std::string("no show"), Header() + Slides({"a.bmp", "A", "b.bmp"}),
                                      tooMany, Lines({Quoted("Tavrix Slide Show"), Quoted("Version 2")})}) {
        PutShow(former);
        UseSlides({"C:\\p\\b.bmp"});
        EXPECT_EQ(Save(), SaveEnd::Whole);
        EXPECT_EQ(platform.shell.trash, (Trash{{ShowPath, former}}));
        platform.shell.trash.clear();
    }
    UseSlides({"C:\\p\\c.bmp"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.shell.trash, Trash()) << "it was whole this time";
}

TEST_F(WriteSlideFileTest, AShowThatIsJustFullIsWhole) {
    std::string full = Header();
    for (int i = 0; i < 30'001; ++i)
        full += "a\r\n\r\n";
    PutShow(full);
    UseSlides({"C:\\p\\b.bmp"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.shell.trash, Trash());
}

TEST_F(WriteSlideFileTest, SoDoesOneThatWasLoadedInPartThoughItCanBeReadNow) {
    module.show.SaveFromArrays = false;
    PutShow(Header() + Slides({"C:\\p\\b.bmp", "B", "C:\\p\\c.bmp", "C"}));
    const std::string whole = OnDisk();
    platform.faults.FailNth(Service::Files, 3, ErrorNumber::DiskNotReady);  // Open, Read, Read
    ExpectStop("An error occurred while reading Slide Show data.\r\n\r\nDisk not ready...", true);
    LoadShowFile(module, "c:/shows/S.tvs");
    platform.faults.Clear();
    editor.SetFilename(ShowPath);
    module.show.SlideCount = 1;
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.shell.trash, (Trash{{ShowPath, whole}}));
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.shell.trash.size(), 1U) << "what was saved since is the editor's own";
}

TEST_F(WriteSlideFileTest, ALaterReadingOfTheWholeCounts) {
    PutShow(FormerShow());
    platform.faults.FailNth(Service::Files, 1, ErrorNumber::DiskNotReady);
    ExpectStop("Unable to open Slide Show file.\r\n\r\nDisk not ready...", true);
    LoadShowFile(module, ShowPath);
    EXPECT_TRUE(editor.HasReadInPart(ShowPath));
    platform.faults.Clear();
    LoadShowFile(module, ShowPath);
    EXPECT_FALSE(editor.HasReadInPart(ShowPath));
    module.show.SlideCount = 1;
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.shell.trash, Trash());
}

TEST_F(WriteSlideFileTest, WithoutATrashABackupKeepsWhatIsReplaced) {
    platform.shell.trashRefusal = ErrorNumber::PathFileAccessError;
    platform.disks.PutFile("C:\\Tavrix\\Backup of b.bmp 1.bak", "an earlier one");
    platform.disks.PutFile("C:\\Shows\\b.bmp", "another b");
    PutShow("no show");
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\b.bmp"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(platform.disks.Content("C:\\Tavrix\\Backup of b.bmp 1.bak"), "an earlier one");
    EXPECT_EQ(platform.disks.Content("C:\\Tavrix\\Backup of b.bmp 2.bak"), "another b");
    EXPECT_EQ(platform.disks.Content("C:\\Tavrix\\Backup of s.tvs 1.bak"), "no show");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
}

TEST_F(WriteSlideFileTest, WhatCannotBeKeptIsNotReplaced) {
    platform.shell.trashRefusal = ErrorNumber::PathFileAccessError;
    platform.faults.FailAlways(Service::Files, "Copy", ErrorNumber::DiskFull);
    PutShow("no show");
    UseSlides({"C:\\p\\b.bmp"});
    ExpectStop("Unable to save slide show.\r\n\r\nDisk full...");
    EXPECT_EQ(Save(), SaveEnd::Partial);
    EXPECT_EQ(OnDisk(), "no show");
    ExpectCountsAsSaved();

    platform.disks.Remove(ShowPath);
    platform.disks.PutFile("C:\\Shows\\b.bmp", "another b");
    module.config.SaveSlides = true;
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nDisk full...");
    EXPECT_EQ(Save(), SaveEnd::Partial);
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "another b");
}

TEST_F(WriteSlideFileTest, APictureThatCannotBeReadReplacesNothing) {
    platform.disks.PutFile("C:\\Shows\\none.bmp", "another");
    platform.disks.PutFile("C:\\Shows\\b.bmp", "protected");
    platform.disks.SetReadOnly("C:\\Shows\\b.bmp", true);
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\none.bmp"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    Save();
    UseSlides({"C:\\p\\b.bmp"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nPermission denied...");
    Save();
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\none.bmp"), "another");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "protected");
    EXPECT_EQ(platform.shell.trash, Trash());
}

TEST_F(WriteSlideFileTest, ThePlaceOfAFolderIsNotTaken) {
    platform.disks.PutFolder("C:\\Shows\\b.bmp");
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\b.bmp"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nPath/File access error...");
    Save();
    EXPECT_EQ(platform.shell.trash, Trash());
}

TEST_F(WriteSlideFileTest, DifferentPicturesOfOneNameGetNumbers) {
    platform.disks.PutFile("C:\\q\\B.BMP", "picture q");
    platform.disks.PutFile("C:\\r\\b.bmp", "picture r");
    platform.disks.PutFile("C:\\same\\b.bmp", "picture b");
    platform.disks.PutFile("C:\\Shows\\B (2).BMP", "nobody's");
    module.config.SaveSlides = true;
    const Texts paths{"C:\\p\\b.bmp", "C:\\q\\B.BMP", "c:\\P\\b.bmp", "C:\\r\\b.bmp", "C:\\same\\b.bmp"};
    const std::string expected =
        DefaultHeader() + Slides({"b.bmp", "", "B (3).BMP", "", "b.bmp", "", "b (4).bmp", "", "b.bmp", ""});
    for (int round = 0; round < 2; ++round) {
        UseSlides(paths);
        EXPECT_EQ(Save(), SaveEnd::Whole);
        EXPECT_EQ(OnDisk(), expected) << "in round " << round << " too";
        EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "picture b");
        EXPECT_EQ(platform.disks.Content("C:\\Shows\\B (2).BMP"), "nobody's");
        EXPECT_EQ(platform.disks.Content("C:\\Shows\\B (3).BMP"), "picture q");
        EXPECT_EQ(platform.disks.Content("C:\\Shows\\b (4).bmp"), "picture r");
    }
    EXPECT_EQ(platform.shell.trash, Trash());
}

TEST_F(WriteSlideFileTest, TheShowsOwnFilesKeepTheirNames) {
    platform.disks.PutFile("C:\\Shows\\b.bmp", "of the show");
    platform.disks.PutFile("C:\\Shows\\c.bmp", "of the show");
    platform.disks.PutFile("C:\\p\\a.wav", "not a sound");
    platform.disks.PutFile("C:\\p\\s.tvs", "not a show");
    platform.disks.PutFile("C:\\p\\name", "without an ending");
    platform.disks.PutFile("C:\\Shows\\name", "another");
    module.config.SaveSlides = true;
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\m\\a.wav";
    UseSlides({"C:\\p\\b.bmp", "C:\\Shows\\B.bmp", "C:\\p\\c.bmp", "c.bmp", "C:\\p\\a.wav", "C:\\p\\s.tvs",
               "C:\\p\\name", "name"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader("a.wav", "1") +
                            Slides({"b (2).bmp", "", "B.bmp", "", "c (2).bmp", "", "c.bmp", "", "a (2).wav",
                                    "", "s (2).tvs", "", "name (2)", "", "name", ""}));
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), "of the show");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\c.bmp"), "of the show");
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\a.wav"), "sound a");
    EXPECT_EQ(platform.shell.trash, Trash());
}

/// An editor's show that lies in C:\Shows.
class SaveAsTest : public WriteSlideFileTest {
  protected:
    SaveAsTest() {
        module.show.SaveFromArrays = false;
        editor.SetFilename(ShowPath);
        platform.disks.PutFolder("C:\\Else");
        platform.disks.PutFile("C:\\Shows\\a.bmp", "picture a");
        platform.disks.PutFile("C:\\Shows\\sub\\d.bmp", "picture d");
        platform.disks.PutFile("C:\\Shows\\a.wav", "sound of the show");
        platform.files.ChangeFolder("C:\\p");
        module.config.SoundMode = 1;
        module.config.SoundFile = "a.wav";
    }
    SaveEnd SaveElse() { return WriteSlideFile(module, "C:\\Else\\", "e.tvs"); }
    [[nodiscard]] std::string InElse() const {
        return platform.disks.Content("C:\\Else\\e.tvs").value_or("none");
    }
};

TEST_F(SaveAsTest, WhatStandsInTheFormerFolderIsNamedInFull) {
    UseSlides({"a.bmp", "sub\\d.bmp", "missing.bmp", "C:\\p\\b.bmp", "b.bmp", "..\\p\\c.bmp"});
    EXPECT_EQ(SaveElse(), SaveEnd::Whole);
    EXPECT_EQ(InElse(), DefaultHeader("C:\\Shows\\a.wav", "1") +
                            Slides({"C:\\Shows\\a.bmp", "", "C:\\Shows\\sub\\d.bmp", "", "missing.bmp", "",
                                    "C:\\p\\b.bmp", "", "b.bmp", "", "C:\\p\\c.bmp", ""}));
    EXPECT_EQ(editor.rows, (Texts{"C:\\Shows\\a.bmp", "C:\\Shows\\sub\\d.bmp", "missing.bmp", "C:\\p\\b.bmp",
                                  "b.bmp", "C:\\p\\c.bmp"}));
    EXPECT_EQ(module.config.SoundFile, "C:\\Shows\\a.wav");
    EXPECT_EQ(editor.filename, "C:\\Else\\e.tvs");
}

TEST_F(SaveAsTest, WithCopiesItIsCopied) {
    module.config.SaveSlides = true;
    UseSlides({"a.bmp", "sub\\d.bmp"});
    EXPECT_EQ(SaveElse(), SaveEnd::Whole);
    EXPECT_EQ(InElse(), DefaultHeader("a.wav", "1") + Slides({"a.bmp", "", "d.bmp", ""}));
    EXPECT_EQ(platform.disks.Content("C:\\Else\\a.bmp"), "picture a");
    EXPECT_EQ(platform.disks.Content("C:\\Else\\d.bmp"), "picture d");
    EXPECT_EQ(platform.disks.Content("C:\\Else\\a.wav"), "sound of the show");
}

TEST_F(SaveAsTest, IntoAFolderBelowOrAboveItIsFoundToo) {
    platform.disks.PutFolder("C:\\Shows\\sub");
    UseSlides({"a.bmp", "sub\\d.bmp"});
    WriteSlideFile(module, "C:\\Shows\\sub\\", "e.tvs");
    EXPECT_EQ(editor.rows, (Texts{"C:\\Shows\\a.bmp", "d.bmp"}));
    WriteSlideFile(module, "C:\\", "e.tvs");
    EXPECT_EQ(editor.rows, (Texts{"Shows\\a.bmp", "Shows\\sub\\d.bmp"}));
}

TEST_F(SaveAsTest, UnderAnotherNameInTheSameFolderNothingMoves) {
    module.config.SaveSlides = true;
    const Texts rows{"a.bmp", "sub\\d.bmp", "missing.bmp"};
    UseSlides(rows);
    platform.faults.Clear();
    EXPECT_EQ(WriteSlideFile(module, "c:\\shows\\", "e.tvs"), SaveEnd::Whole);
    EXPECT_EQ(editor.rows, rows);
    EXPECT_EQ(module.config.SoundFile, "a.wav");
    EXPECT_EQ(Asked("Files.Copy"), 0);
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\d.bmp"));
}

TEST_F(SaveAsTest, AFailureLeavesTheOtherRowsFindable) {
    module.config.SaveSlides = true;
    UseSlides({"a.bmp", "C:\\p\\none.bmp", "sub\\d.bmp", "missing.bmp"}, {"A", "N", "D", "M"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    EXPECT_EQ(SaveElse(), SaveEnd::Partial);
    EXPECT_EQ(editor.filename, "C:\\Else\\e.tvs");
    EXPECT_EQ(editor.rows, (Texts{"a.bmp", "C:\\p\\none.bmp", "C:\\Shows\\sub\\d.bmp", "missing.bmp"}));
    EXPECT_EQ(SlideDescriptions(), (Texts{"A", "N", "D", "M"}));
}

TEST_F(SaveAsTest, ACancelLeavesRowsAndSoundAsTheyWere) {
    module.config.SaveSlides = true;
    const Texts rows{"a.bmp", "sub\\d.bmp"};
    UseSlides(rows);
    CancelAtYield(5);
    ExpectCanceled();
    EXPECT_EQ(SaveElse(), SaveEnd::Canceled);
    EXPECT_EQ(editor.rows, rows);
    EXPECT_EQ(module.config.SoundFile, "a.wav");
    EXPECT_EQ(editor.filename, ShowPath);
}

TEST_F(SaveAsTest, ASoundThatIsNotInTheFolderComesFromTheCurrentOne) {
    module.config.SaveSlides = true;
    module.config.SoundFile = "b.wav";
    platform.disks.PutFile("C:\\p\\b.wav", "sound b");
    for (const char* folder : {"C:\\Else\\", "C:\\Shows\\"}) {
        UseSlides({"a.bmp"});
        EXPECT_EQ(WriteSlideFile(module, folder, "e.tvs"), SaveEnd::Whole);
        EXPECT_EQ(module.config.SoundFile, "b.wav");
        EXPECT_EQ(platform.disks.Content(std::string(folder) + "b.wav"), "sound b");
        editor.SetFilename(ShowPath);
    }
}

TEST_F(SaveAsTest, TheSoundInTheFolderKeepsItsName) {
    module.config.SaveSlides = true;
    platform.disks.PutFile("C:\\p\\a.wav", "no sound");
    UseSlides({"C:\\p\\a.wav"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_EQ(OnDisk(), DefaultHeader("a.wav", "1") + Slides({"a (2).wav", ""}));
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\a.wav"), "sound of the show");
}

TEST_F(SaveAsTest, RowsOfAnotherShowAreNotTakenForTheEditors) {
    module.show.SaveFromArrays = true;
    UseSlides({"a.bmp"});
    EXPECT_EQ(SaveElse(), SaveEnd::Whole);
    EXPECT_EQ(InElse(), DefaultHeader("a.wav", "1") + Slides({"a.bmp", ""}));
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
    platform.faults.AtNth(Service::Files, 2, [&] {
        opened = platform.faults.Log().back() == "Files.Create C:\\Shows\\s.tvs";
        module.show.SlideFiles.Set(0, "C:\\other.bmp");
        module.show.SlideDescriptions.Set(0, "Other");
    });
    Save();
    EXPECT_TRUE(opened);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", "B"}));
}

TEST_F(WriteSlideFileTest, FilesAreLookedAtOnceTheWindowIsSeen) {
    module.config.SaveSlides = true;
    platform.disks.PutFile("C:\\q\\b.bmp", "another b");
    UseSlides({"C:\\p\\b.bmp", "C:\\q\\b.bmp"}, {"B", "Q"});
    bool seen = false;
    toolkit.AtYield(1, [&] {
        seen = true;
        EXPECT_EQ(app.Loaded<WaitCopyFrm>()->lblMsg.Caption.Get(),
                  "Tavrix is saving the slide show file, please wait...");
        EXPECT_EQ(Asked("Files.Open C:\\p"), 0);
        // It is the show of this moment that is saved.
        module.show.SlideFiles.Set(0, "C:\\other.bmp");
        module.show.SlideDescriptions.Set(0, "Other");
        module.config.SaveSlides = false;
        module.config.SlideInterval = 9;
    });
    Save();
    EXPECT_TRUE(seen);
    EXPECT_GT(Asked("Files.Open C:\\p"), 0);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"b.bmp", "B", "b (2).bmp", "Q"}));
}

TEST_F(WriteSlideFileTest, ACancelEndsTheLookAtFiles) {
    module.config.SaveSlides = true;
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\m\\a.wav";
    Texts paths;
    for (int i = 0; i < 20; ++i) {
        paths.push_back("C:\\q" + std::to_string(i) + "\\b.bmp");
        platform.disks.PutFile(paths.back(), "picture " + std::to_string(i));
    }
    UseSlides(paths);
    PutShow(FormerShow());
    long looks = 0;
    toolkit.AtYield(2, [&] {
        looks = Asked("Files.Open C:\\q");
        app.Loaded<WaitCopyFrm>()->CmdCancel.Deliver(forms::ClickEvent{});
    });
    // It takes its time.
    for (int call = 1; call < 40; ++call)
        platform.faults.AtNth(Service::Files, call, [&] { toolkit.Advance(forms::Milliseconds(50)); });
    ExpectCanceled();
    EXPECT_EQ(Save(), SaveEnd::Canceled);
    EXPECT_LT(looks, 10);
    EXPECT_LE(Asked("Files.Open C:\\q"), looks + 3);
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\b.bmp"), std::nullopt);
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\a.wav"), std::nullopt);
    EXPECT_EQ(module.config.SoundFile, "C:\\m\\a.wav");
    EXPECT_EQ(OnDisk(), "");
    EXPECT_EQ(BackupContent(), FormerShow());
    ExpectNotSaved();
}

TEST_F(WriteSlideFileTest, ALargeCopyIsCanceledInItsMiddle) {
    module.config.SaveSlides = true;
    platform.disks.PutFile("C:\\p\\large.bmp", std::string(std::size_t{20} << 20U, 'x'));
    platform.disks.PutFile("C:\\Shows\\large.bmp", "foreign");
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\large.bmp", "C:\\p\\c.bmp"}, {"B", "L", "C"});
    WatchLabel();
    Save();
    const auto copying = std::ranges::find(labels, "Tavrix is copying the file:\r\n\r\nC:\\p\\large.bmp");
    ASSERT_EQ(std::ranges::count(labels, *copying), 4) << "before, after each 8 MiB, and behind it";
    const int middle = static_cast<int>(copying - labels.begin()) + 2;

    platform.disks.Remove("C:\\Shows\\large.bmp");
    module.show.ShowChanged = true;
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\large.bmp", "C:\\p\\c.bmp"}, {"B", "L", "C"});
    CancelAtYield(middle);
    ExpectCanceled();
    EXPECT_EQ(Save(), SaveEnd::Canceled);
    EXPECT_EQ(platform.disks.Content("C:\\Shows\\large.bmp"), std::nullopt) << "no part of it is left";
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"b.bmp", "B"}));
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(WriteSlideFileTest, WhatStandsBehindAnEmptyPathIsNotLost) {
    const std::string hole = Header() + Slides({"a.bmp", "A", "", "", "b.bmp", "B"});
    for (const std::string& former : {hole, Header() + Slides({"a.bmp", "A", "", "About nothing"}),
                                      OldHeader() + Slides({"a.bmp", "", "b.bmp"})}) {
        platform.shell.trash.clear();
        PutShow(former);
        UseSlides({"a.bmp"}, {"A"});
        EXPECT_EQ(Save(), SaveEnd::Whole);
        EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"a.bmp", "A"}));
        ASSERT_EQ(platform.shell.trash.size(), 1U) << former;
        EXPECT_EQ(platform.shell.trash[0].content, former);
    }
    // Nothing behind it is nothing to lose.
    platform.shell.trash.clear();
    PutShow(Header() + Slides({"a.bmp", "A", "", "", "", ""}));
    UseSlides({"a.bmp"}, {"A"});
    EXPECT_EQ(Save(), SaveEnd::Whole);
    EXPECT_TRUE(platform.shell.trash.empty());
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

/// Whatever fails, the former show is on the disk, in its place or in the backup, or else the new one is complete; the
/// user's pictures and sounds are as they were, and foreign ones stand or were put aside.
TEST_F(WriteSlideFileTest, WhicheverCallFailsNothingOfTheUsersIsLost) {
    const std::string whole = Header() + Slides({"old.bmp", "Old"});
    const std::string broken = Header() + Slides({"old.bmp", "Old", "cut.bmp"});
    const std::string saved =
        DefaultHeader("a.wav", "1") + Slides({"b.bmp", "B", "c.bmp", "C", "own.bmp", "O"});
    struct Run {
        char drive;
        Service service;
        const std::string& former;
        int leastCalls;
    };
    for (const Run& run : {Run{'C', Service::Files, whole, 20}, Run{'A', Service::Files, whole, 20},
                           Run{'C', Service::Files, broken, 20}, Run{'C', Service::Shell, whole, 2},
                           Run{'C', Service::Shell, broken, 3}}) {
        int call = 1;
        for (bool fired = true; fired; ++call) {
            headless::HeadlessServices machine;
            machine.disks.InsertDisk('A');
            const std::string folder = std::string(1, run.drive) + ":\\Shows\\";
            machine.disks.PutFile("C:\\p\\b.bmp", "picture b");
            machine.disks.PutFile("C:\\p\\c.bmp", "picture c");
            machine.disks.PutFile("C:\\m\\a.wav", "sound a");
            machine.disks.PutFile(folder + "own.bmp", "own");
            machine.disks.PutFile(folder + "c.bmp", "foreign c");
            machine.disks.PutFile(folder + "a.wav", "foreign sound");
            machine.disks.PutFile(folder + "s.tvs", run.former);
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
            const auto kept = [&machine](const std::string& content) {
                const auto files = machine.disks.AllFiles();
                const auto& trash = machine.shell.trash;
                return std::ranges::any_of(files, [&](const auto& file) { return file.second == content; }) ||
                       std::ranges::any_of(trash, [&](const auto& file) { return file.content == content; });
            };

            machine.faults.FailNth(run.service, call, ErrorNumber::DiskNotReady);
            SaveEnd end{};
            EXPECT_NO_THROW(end = WriteSlideFile(other, folder, "s.tvs"));
            fired = machine.faults.Fired();
            machine.faults.Clear();

            const auto onDisk = machine.disks.Content(folder + "s.tvs");
            const std::string where = std::string(1, run.drive) + ", call " + std::to_string(call);
            EXPECT_TRUE(end != SaveEnd::Whole || onDisk == saved) << where;
            EXPECT_TRUE(onDisk == saved || kept(run.former)) << where << ": " << onDisk.value_or("none");
            EXPECT_TRUE(run.former == whole || kept(run.former)) << where;
            EXPECT_TRUE(kept("foreign c")) << where;
            EXPECT_TRUE(kept("foreign sound")) << where;
            EXPECT_EQ(machine.disks.Content("C:\\p\\b.bmp"), "picture b");
            EXPECT_EQ(machine.disks.Content("C:\\p\\c.bmp"), "picture c");
            EXPECT_EQ(machine.disks.Content("C:\\m\\a.wav"), "sound a");
            EXPECT_EQ(machine.disks.Content(folder + "own.bmp"), "own");
            EXPECT_EQ(application.Loaded<WaitCopyFrm>(), nullptr);
            EXPECT_FALSE(other.show.ShowChanged);

            // The next save goes through; the sound is taken to be there.
            WriteSlideFile(other, folder, "s.tvs");
            EXPECT_EQ(machine.disks.Content(folder + "s.tvs"), saved) << where;
            EXPECT_TRUE(kept("foreign c") && kept("foreign sound")) << where;
        }
        EXPECT_GE(call, run.leastCalls);
    }
}

}  // namespace
}  // namespace tavrix::test
