#include "shows/files/WriteSlideFile.h"

#include <memory>

#include "ShowsTest.h"
#include "dialogs/WaitCopyFrm.h"
#include "shows/files/LoadShowFile.h"

namespace tavrix::test {
namespace {

using forms::BoxIcon;
using headless::Service;
using Texts = std::vector<std::string>;

/// An editor as a save sees it.
class RowsInMemory final : public SlideRows {
  public:
    [[nodiscard]] std::string Row(int index) const override {
        return rows.at(static_cast<std::size_t>(index));
    }
    void SetRow(int index, const std::string& path) override {
        rows.at(static_cast<std::size_t>(index)) = path;
    }
    void SetFilename(const std::string& path) override { filename = path; }

    Texts rows;
    std::string filename = "Untitled.tvs";
};

constexpr const char* Folder = "C:\\Shows\\";
constexpr const char* Canceled =
    "Save was canceled before it could complete, slide show file may be corrupt as a result...";
constexpr const char* Backup = "C:\\Tavrix\\Backup of s.tvs";

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

    /// The slides of the next save, in the arrays and in the editor.
    void UseSlides(const Texts& paths, const Texts& descriptions = {}) {
        module.show.EraseSlides();
        for (std::size_t i = 0; i < paths.size(); ++i)
            module.show.SlideFiles.Set(static_cast<int>(i), paths[i]);
        for (std::size_t i = 0; i < descriptions.size(); ++i)
            module.show.SlideDescriptions.Set(static_cast<int>(i), descriptions[i]);
        editor.rows = paths;
        module.show.SlideCount = static_cast<std::int16_t>(paths.size());
    }
    void Save(const std::string& name = "s.tvs") { WriteSlideFile(module, Folder, name, &editor); }
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
                    EXPECT_EQ(app.FormCount(), 0);
                }});
    }
    void ExpectCountsAsSaved() {
        EXPECT_FALSE(module.show.ShowChanged);
        EXPECT_EQ(module.config.LastSlideShow, ShowPath);
        EXPECT_EQ(module.config.RecentShows[0], ShowPath);
        EXPECT_EQ(app.FormCount(), 0);
    }
    void ExpectNotSaved() {
        EXPECT_TRUE(module.show.ShowChanged);
        EXPECT_EQ(module.config.LastSlideShow, "former.tvs");
        EXPECT_EQ(module.config.RecentShows[0], "");
        EXPECT_EQ(editor.filename, "Untitled.tvs");
        EXPECT_EQ(app.FormCount(), 0);
    }

    RowsInMemory editor;
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
    EXPECT_EQ(app.FormCount(), 0);
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
    for (int i = 0; i < 3; ++i)
        module.show.SlideFiles.Set(i, "other");
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"sub\\a.bmp", "A", "b.bmp", "B", "d.bmp", "D"}));
    EXPECT_EQ(editor.rows, (Texts{"sub\\a.bmp", "b.bmp", "d.bmp"}));
    EXPECT_EQ(editor.filename, ShowPath);
    EXPECT_EQ(SlideFiles(), (Texts{"other", "other", "other"}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, FromTheArraysNothingGoesBack) {
    module.config.SaveSlides = true;
    const Texts paths{"C:\\SHOWS\\sub\\a.bmp", "C:\\p\\b.bmp", "d.bmp"};
    UseSlides(paths);
    editor.rows = {"x", "y", "z"};
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"sub\\a.bmp", "", "b.bmp", "", "d.bmp", ""}));
    EXPECT_EQ(SlideFiles(), paths);
    EXPECT_EQ(editor.rows, (Texts{"x", "y", "z"}));
    EXPECT_EQ(editor.filename, "Untitled.tvs");
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, WithoutAnEditorTheArraysServe) {
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\p\\b.bmp"});
    WriteSlideFile(module, Folder, "s.tvs", nullptr);
    EXPECT_EQ(OnDisk(), DefaultHeader() + Slides({"C:\\p\\b.bmp", ""}));
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
    WriteSlideFile(module, folder, "s.tvs", &editor);
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
                EXPECT_EQ(app.FormCount(), 1);
            }});
    Save();
    EXPECT_FALSE(platform.disks.Exists("C:\\Shows\\b.bmp"));
    EXPECT_EQ(OnDisk(), "former");
    EXPECT_FALSE(platform.disks.Exists(Backup));
    EXPECT_EQ(editor.filename, ShowPath);
    EXPECT_EQ(editor.rows, (Texts{"C:\\p\\b.bmp"}));
    ExpectCountsAsSaved();
}

TEST_F(WriteSlideFileTest, AMissingFolderIsToldOf) {
    UseSlides({"C:\\p\\b.bmp"});
    ExpectStop("Unable to save slide show.\r\n\r\nPath not found...");
    WriteSlideFile(module, "C:\\none\\", "s.tvs", &editor);
    EXPECT_EQ(module.config.LastSlideShow, "C:\\none\\s.tvs");
    EXPECT_FALSE(module.show.ShowChanged);
}

TEST_F(WriteSlideFileTest, APictureThatCannotBeCopiedEndsTheFileThere) {
    module.config.SaveSlides = true;
    module.show.SaveFromArrays = false;
    UseSlides({"C:\\p\\b.bmp", "C:\\p\\none.bmp", "C:\\p\\c.bmp"}, {"B", "N", "C"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    Save();
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
    Save();
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
    EXPECT_EQ(editor.rows, (Texts{"b.bmp", "C:\\p\\c.bmp"}));
    ExpectNotSaved();
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
    PutShow("good show");
    for (const int yield : {1, 3}) {
        UseSlides({"C:\\p\\b.bmp"});
        CancelAtYield(yield);
        ExpectCanceled();
        Save();
        EXPECT_EQ(platform.disks.Content(Backup), "good show");
    }
    // The second one found an empty file, which is not worth a backup.
    EXPECT_FALSE(platform.disks.Exists("C:\\Tavrix\\Backup (2) of s.tvs"));

    UseSlides({"C:\\p\\b.bmp"});
    CancelAtYield(1);
    ExpectCanceled();
    Save();
    EXPECT_EQ(platform.disks.Content(Backup), "good show");
    EXPECT_EQ(platform.disks.Content("C:\\Tavrix\\Backup (2) of s.tvs"), DefaultHeader());
}

TEST_F(WriteSlideFileTest, SoDoesASaveThatFailsAtAPicture) {
    PutShow("good show");
    module.config.SaveSlides = true;
    UseSlides({"C:\\p\\none.bmp"});
    ExpectStop("Unable to copy all images to slide show directory...\r\n\r\nFile not found...");
    Save();
    EXPECT_EQ(OnDisk(), DefaultHeader());
    EXPECT_EQ(platform.disks.Content(Backup), "good show");
}

TEST_F(WriteSlideFileTest, ASaveThatSucceedsLeavesNoBackup) {
    PutShow("good show");
    UseSlides({"C:\\p\\b.bmp"});
    Save();
    EXPECT_FALSE(platform.disks.Exists(Backup));
    ExpectCountsAsSaved();
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
            other.AppPath = "C:\\Tavrix\\";
            other.config.SoundMode = 1;
            other.config.SoundFile = "C:\\m\\a.wav";
            other.config.SaveSlides = true;
            other.config.UseRecentDocuments = false;
            other.show.SlideCount = 3;
            RowsInMemory rows;
            rows.rows = {"C:\\p\\b.bmp", "C:\\p\\c.bmp", folder + "own.bmp"};
            for (const int i : {0, 1, 2})
                other.show.SlideDescriptions.Set(i, Texts{"B", "C", "O"}[static_cast<std::size_t>(i)]);

            machine.faults.FailNth(Service::Files, call, ErrorNumber::DiskNotReady);
            EXPECT_NO_THROW(WriteSlideFile(other, folder, "s.tvs", &rows));
            fired = machine.faults.Fired();
            machine.faults.Clear();

            const auto onDisk = machine.disks.Content(folder + "s.tvs");
            const bool safe = onDisk == former || onDisk == saved || machine.disks.Content(Backup) == former;
            EXPECT_TRUE(safe) << drive << ", call " << call << ": " << onDisk.value_or("none");
            EXPECT_EQ(machine.disks.Content("C:\\p\\b.bmp"), "picture b");
            EXPECT_EQ(machine.disks.Content("C:\\p\\c.bmp"), "picture c");
            EXPECT_EQ(machine.disks.Content("C:\\m\\a.wav"), "sound a");
            EXPECT_EQ(machine.disks.Content(folder + "own.bmp"), "own");
            EXPECT_EQ(application.FormCount(), 0);
            EXPECT_FALSE(other.show.ShowChanged);

            // The next save goes through; the sound is taken to be there.
            WriteSlideFile(other, folder, "s.tvs", &rows);
            EXPECT_EQ(machine.disks.Content(folder + "s.tvs"), saved) << drive << ", call " << call;
        }
        EXPECT_GT(call, 8);
    }
}

}  // namespace
}  // namespace tavrix::test
