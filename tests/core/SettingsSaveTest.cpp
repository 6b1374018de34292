#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/Settings.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using Written = std::vector<std::pair<std::string, std::string>>;

constexpr MainViewPlacement Placement{120, 240, 9510, 7110};
const std::string LongPath = "C:\\" + std::string(200, 'x') + ".bmp";

class SettingsSaveTest : public ProgramFixture {
  protected:
    SettingsSaveTest() {
        AppConfig& c = module.config;
        c.FavoriteFolder = "C:\\Fav";
        c.SoundFile = "C:\\a.wav";
        c.LastCopyToPath = "C:\\Copies";
        c.LastSlideShow = "C:\\s.tvs";
        c.Recent = {"C:\\1.bmp", "C:\\2.bmp", "", "", "", "", "C:\\7.bmp"};
        c.RecentShows[1] = "C:\\b.tvs";
        c.FavoriteFiles[19] = "C:\\f.jpg";
        c.QuickFolder = {"One", "Two", "Three", "Four"};
        c.QuickFolderPath = {"C:\\1\\", "C:\\2\\", "", "C:\\4\\"};
        module.CurrentImage = "C:\\p\\a.bmp";
    }

    /// The keys and values written to a file so far, in order.
    Written WrittenTo(const std::string& file) {
        Written written;
        for (const auto& entry : platform.profile.Journal()) {
            EXPECT_EQ(entry.section, "Viewer");
            if (entry.file == file) written.emplace_back(entry.key, entry.value);
        }
        return written;
    }
    bool WasWritten(const std::string& key) {
        for (const auto& [name, value] : WrittenTo(SettingsPath)) {
            if (name == key) return true;
        }
        return false;
    }

    static Written ExitState() {
        return {{"NewImageX", "640"},
                {"NewImageY", "480"},
                {"BackColorR", "0"},
                {"BackColorG", "0"},
                {"BackColorB", "0"},
                {"NewGetsClipboard", "False"},
                {"ToolbarX", "0"},
                {"ToolbarY", "0"},
                {"TopMostWindow", "False"},
                {"LastOpenedFile", "C:\\p\\a.bmp"},
                {"LastCopyToPath", "C:\\Copies"},
                {"ThumbnailExtension", "?"},
                {"ThumbnailDelete", "False"},
                {"QualityJPG", "8"},
                {"RotateAngle", "180"},
                {"RotateDirection", "0"},
                {"RotatePreserve", "False"},
                {"ImageSizeAspect", "False"},
                {"OpenShowPreview", "False"},
                {"WallpaperStretch", "False"},
                {"WallpaperAspect", "False"},
                {"SelectDuplicates", "False"},
                {"LastSlideShow", "C:\\s.tvs"}};
    }
    static Written ExitLists() {
        Written lists;
        for (int i = 1; i <= 7; ++i) {
            const bool filled = i <= 2 || i == 7;
            lists.emplace_back("Recent" + std::to_string(i),
                               filled ? "C:\\" + std::to_string(i) + ".bmp" : std::string());
        }
        for (int i = 1; i <= 20; ++i)
            lists.emplace_back("RecentShow" + std::to_string(i), i == 2 ? "C:\\b.tvs" : "");
        for (int i = 1; i <= 20; ++i)
            lists.emplace_back("FavoriteFile" + std::to_string(i), i == 20 ? "C:\\f.jpg" : "");
        const Written rest{
            {"FavoriteFolder", "C:\\Fav"}, {"QuickFolder1", "One"},         {"QuickFolderPath1", "C:\\1\\"},
            {"QuickFolder2", "Two"},       {"QuickFolderPath2", "C:\\2\\"}, {"QuickFolder3", "Three"},
            {"QuickFolderPath3", ""},      {"QuickFolder4", "Four"},        {"QuickFolderPath4", "C:\\4\\"}};
        lists.insert(lists.end(), rest.begin(), rest.end());
        return lists;
    }
};

TEST_F(SettingsSaveTest, ThePreferencesAreWrittenInTheirOrder) {
    module.config.WindowMaximized = true;
    module.config.BackgroundColor = 3;
    module.config.StartupDialog = 4;
    module.config.KeepRecent = false;
    SavePreferenceSettings(module);
    EXPECT_EQ(WrittenTo(SettingsPath), (Written{{"WindowMaximized", "True"},
                                                {"SaveWindowSize", "False"},
                                                {"BackgroundColor", "3"},
                                                {"StartupDialog", "4"},
                                                {"DeleteUntitled", "True"},
                                                {"ClearClipboard", "True"},
                                                {"AutosizeWindow", "True"},
                                                {"ViewFullScreen", "False"},
                                                {"StretchImages", "True"},
                                                {"EnlargeImages", "False"},
                                                {"ClickScreenOpen", "False"},
                                                {"DisplayLastOpened", "False"},
                                                {"KeepRecent", "False"}}));
}

TEST_F(SettingsSaveTest, TheSlideOptionsAreWrittenInTheirOrder) {
    module.config.SoundMode = 2;
    module.config.CDTrack = 12;
    module.config.SlideInterval = 60;
    module.config.ShowToolbar = true;
    SaveSlideSettings(module);
    EXPECT_EQ(WrittenTo(SettingsPath), (Written{{"SoundMode", "2"},
                                                {"SoundFile", "C:\\a.wav"},
                                                {"CDTrack", "12"},
                                                {"SoundLoop", "False"},
                                                {"SlideInterval", "60"},
                                                {"RandomSlides", "False"},
                                                {"ShowFilenames", "False"},
                                                {"ShowToolbar", "True"},
                                                {"AnimateGIF89", "True"},
                                                {"SaveSlides", "False"},
                                                {"ShowDescription", "False"},
                                                {"LoopSlideShow", "True"}}));
}

TEST_F(SettingsSaveTest, ADialogsSettingsThatCannotBeWrittenAreNoFailureOfTheDialog) {
    platform.faults.FailAlways(headless::Service::Profile, "Write", ErrorNumber::PermissionDenied);
    EXPECT_NO_THROW(SavePreferenceSettings(module));
    EXPECT_NO_THROW(SaveSlideSettings(module));
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(SettingsSaveTest, ADialogsSettingsAreInTheFileWholeOrNotAtAll) {
    const std::string mine =
        "; by hand\r\n[Viewer]\r\nMouseSensitivity=7\r\nKeepRecent=True\r\nSoundMode=1\r\n";
    module.config.KeepRecent = false;
    module.config.SoundMode = 2;
    using Save = void (*)(const MainModule&);
    for (const auto& [save, key] : {std::pair<Save, const char*>{SavePreferenceSettings, "KeepRecent"},
                                    {SaveSlideSettings, "SoundMode"}}) {
        for (const auto service : {headless::Service::Profile, headless::Service::Files}) {
            bool fired = true;
            for (int nth = 1; fired; ++nth) {
                SCOPED_TRACE(std::string(key) + ", call " + std::to_string(nth));
                platform.disks.PutFile(SettingsPath, mine);
                platform.faults.Clear();
                platform.faults.FailNth(service, nth, ErrorNumber::DiskFull);
                EXPECT_NO_THROW(save(module));
                fired = platform.faults.Fired();
                platform.faults.Clear();
                const std::string content = platform.disks.Content(SettingsPath).value_or("(none)");
                EXPECT_EQ(content == mine, fired);
                EXPECT_EQ(Saved("MouseSensitivity"), "7");
                EXPECT_TRUE(content.starts_with("; by hand\r\n"));
                // The next save is a whole one.
                save(module);
                EXPECT_EQ(Saved(key), save == SaveSlideSettings ? "2" : "False");
            }
        }
        platform.disks.PutFile(SettingsPath, mine);
        platform.disks.SetCapacity('C', 40);
        EXPECT_NO_THROW(save(module));
        EXPECT_EQ(platform.disks.Content(SettingsPath), mine);
        platform.disks.SetCapacity('C', 1 << 20);
    }
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(SettingsSaveTest, APackageWhoseSettingsCannotBeWrittenFails) {
    EXPECT_THROW(WritePackageSettings(module, "C:\\none\\"), RuntimeError);
}

TEST_F(SettingsSaveTest, APackageGetsAFreshFileOfItsOwn) {
    platform.disks.PutFile("C:\\Package\\tavrix.ini", "[Viewer]\r\nTopMostWindow=True\r\nOld=1\r\n");
    module.config.BackgroundColor = 5;
    module.config.StretchImages = false;
    module.config.ViewFullScreen = true;
    module.config.ClickScreenOpen = true;
    module.config.DisplayLastOpened = true;
    module.config.DeleteUntitled = false;
    module.config.ClearClipboard = false;
    module.config.TopMostWindow = true;
    module.config.SoundMode = 1;
    module.config.PasswordDelay = 2;
    module.config.Color256Msg = false;
    module.config.MouseSensitivity = 9;
    WritePackageSettings(module, "C:\\Package\\");
    EXPECT_EQ(WrittenTo("C:\\Package\\tavrix.ini"), (Written{{"Color256Msg", "True"},
                                                             {"MouseSensitivity", "4"},
                                                             {"BackgroundColor", "5"},
                                                             {"StartupDialog", "1"},
                                                             {"ViewFullScreen", "False"},
                                                             {"StretchImages", "False"},
                                                             {"EnlargeImages", "False"},
                                                             {"ClickScreenOpen", "False"},
                                                             {"DisplayLastOpened", "False"},
                                                             {"DeleteUntitled", "True"},
                                                             {"ClearClipboard", "True"},
                                                             {"TopMostWindow", "False"},
                                                             {"SoundMode", "1"},
                                                             {"SoundFile", ""},
                                                             {"CDTrack", "0"},
                                                             {"SoundLoop", "False"},
                                                             {"SlideInterval", "5"},
                                                             {"RandomSlides", "False"},
                                                             {"LoopSlideShow", "True"},
                                                             {"ShowFilenames", "False"},
                                                             {"ShowDescription", "False"},
                                                             {"ShowToolbar", "False"},
                                                             {"PasswordDelay", "2"},
                                                             {"SaveSlides", "False"},
                                                             {"SelectDuplicates", "False"},
                                                             {"LastOpenedFile", ""},
                                                             {"LastSlideShow", ""}}));
    EXPECT_EQ(platform.disks.Content("C:\\Package\\tavrix.ini")->find("Old"), std::string::npos);
    EXPECT_FALSE(platform.files.FileExists(SettingsPath));
}

TEST_F(SettingsSaveTest, APackageOwesNothingToTheLengthOfTheProgramsOwnTexts) {
    const std::string working = "C:\\" + std::string(111, 't') + "\\";
    platform.files.SetFolder(KnownFolder::Temporary, working);
    Setting("LastOpenedFile", working + "Untitled.BMP");  // read as the working file, since it is cut
    LoadSettings(module);
    WritePackageSettings(module, "C:\\Temp\\");
    EXPECT_EQ(WrittenTo("C:\\Temp\\tavrix.ini").size(), 27U);
}

TEST_F(SettingsSaveTest, TheExitWritesItsKeysInTheirOrder) {
    SaveAllSettings(module, Placement);
    Written expected{{"MainPosX", "120"}, {"MainPosY", "240"}, {"MainSizeX", "9510"}, {"MainSizeY", "7110"}};
    for (const Written& part : {ExitState(), ExitLists()})
        expected.insert(expected.end(), part.begin(), part.end());
    EXPECT_EQ(WrittenTo(SettingsPath), expected);
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(SettingsSaveTest, AWindowThatIsNotInItsNormalStateKeepsThePlaceFromBefore) {
    Setting("MainPosX", "33");
    platform.faults.Clear();
    const std::size_t before = platform.profile.Journal().size();
    SaveAllSettings(module, std::nullopt);
    EXPECT_EQ(platform.profile.Journal().at(before).key, "NewImageX");
    EXPECT_EQ(Saved("MainPosX"), "33");
}

TEST_F(SettingsSaveTest, PlacesAreSinglePrecisionTexts) {
    SaveAllSettings(module, MainViewPlacement{-60.5F, 0.1F, 1234567, 7.5F});
    EXPECT_EQ(Saved("MainPosX"), "-60.5");
    EXPECT_EQ(Saved("MainPosY"), "0.1");
    EXPECT_EQ(Saved("MainSizeX"), "1234567");
    EXPECT_EQ(Saved("MainSizeY"), "7.5");
}

TEST_F(SettingsSaveTest, AnEmptyCurrentImageIsSavedAsSuch) {
    Setting("LastOpenedFile", "C:\\old.bmp");
    module.CurrentImage = "";
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastOpenedFile"), "");
}

TEST_F(SettingsSaveTest, TheWorkingFileNeverBecomesTheLastImage) {
    Setting("LastOpenedFile", "C:\\old.bmp");
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\old.bmp");
    module.CurrentImage = "C:\\Temp\\untitled.bmp";  // compared with case
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\Temp\\untitled.bmp");
}

TEST_F(SettingsSaveTest, TheWorkingFileBesideTheProgramDoes) {
    Setting("LastOpenedFile", "C:\\old.bmp");
    module.CurrentImage = "C:\\Tavrix\\Untitled.BMP";
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\Tavrix\\Untitled.BMP");
}

TEST_F(SettingsSaveTest, AnImageThatWasNotShownAtTheStartStaysTheLastOne) {
    Setting("LastOpenedFile", "C:\\old.bmp");
    module.CurrentImage = "";
    module.LastOpenedStays = true;
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\old.bmp");
    module.CurrentImage = "C:\\new.bmp";
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastOpenedFile"), "C:\\new.bmp");
}

TEST_F(SettingsSaveTest, SettingsThatCouldNotBeReadAtTheStartAreNotReplacedByDefaultsAtTheExit) {
    const std::string mine = "[Viewer]\r\nQualityJPG=3\r\nRecent1=C:\\mine.bmp\r\n";
    platform.disks.PutFile(SettingsPath, mine);
    platform.faults.FailNth(headless::Service::Profile, 1, ErrorNumber::PermissionDenied);
    LoadSettings(module);
    EXPECT_TRUE(platform.faults.Fired());
    EXPECT_EQ(module.config.QualityJPG, 8);
    platform.faults.Clear();
    SavePreferenceSettings(module);
    SaveSlideSettings(module);
    SaveAllSettings(module, Placement);
    EXPECT_EQ(platform.disks.Content(SettingsPath), mine);
}

TEST_F(SettingsSaveTest, ForeignLinesAndMouseSensitivityComeThroughAStartAndAnExit) {
    platform.disks.PutFile(SettingsPath,
                           "; by hand\r\n[Viewer]\r\nMouseSensitivity=7\r\nUnknown=x\r\nQualityJPG=3\r\n\r\n"
                           "[Package]\r\nName=Holiday\r\n");
    LoadSettings(module);
    EXPECT_EQ(module.config.MouseSensitivity, 7);
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("MouseSensitivity"), "7");
    EXPECT_EQ(Saved("Unknown"), "x");
    EXPECT_EQ(Saved("QualityJPG"), "3");
    EXPECT_EQ(platform.profile.Read("Package", SettingsPath).Read("Name"), "Holiday");
    EXPECT_TRUE(platform.disks.Content(SettingsPath)->starts_with("; by hand\r\n"));
    EXPECT_FALSE(WasWritten("MouseSensitivity"));
}

TEST_F(SettingsSaveTest, WhatIsReadAndWrittenIsTheSameAfterwards) {
    SaveAllSettings(module, Placement);
    SavePreferenceSettings(module);
    SaveSlideSettings(module);
    const auto first = platform.disks.Content(SettingsPath);
    platform.disks.PutFolder("C:\\Fav");
    LoadSettings(module);
    SaveAllSettings(module, MainViewPlacement{static_cast<float>(module.config.MainPosX),
                                              static_cast<float>(module.config.MainPosY),
                                              static_cast<float>(module.config.MainSizeX),
                                              static_cast<float>(module.config.MainSizeY)});
    SavePreferenceSettings(module);
    SaveSlideSettings(module);
    EXPECT_EQ(platform.disks.Content(SettingsPath), first);
}

TEST_F(SettingsSaveTest, TextsThatWereTooLongToReadStayInTheFile) {
    const std::string show = "C:\\" + std::string(200, 's') + ".tvs";
    platform.disks.PutFolder("C:\\" + std::string(200, 'f'));
    Setting("SoundFile", LongPath);
    Setting("LastOpenedFile", LongPath);
    Setting("LastCopyToPath", LongPath);
    Setting("LastSlideShow", show);
    Setting("Recent3", LongPath);
    Setting("RecentShow4", show);
    Setting("FavoriteFile5", LongPath);
    Setting("FavoriteFolder", "C:\\" + std::string(200, 'f'));
    Setting("QuickFolderPath2", LongPath);
    LoadSettings(module);
    EXPECT_EQ(module.config.RecentShows[3], "");  // what is left of it does not end like a show
    SaveAllSettings(module, Placement);
    SaveSlideSettings(module);
    EXPECT_EQ(Saved("SoundFile"), LongPath);
    EXPECT_EQ(Saved("LastOpenedFile"), LongPath);
    EXPECT_EQ(Saved("LastCopyToPath"), LongPath);
    EXPECT_EQ(Saved("LastSlideShow"), show);
    EXPECT_EQ(Saved("Recent3"), LongPath);
    EXPECT_EQ(Saved("RecentShow4"), show);
    EXPECT_EQ(Saved("FavoriteFile5"), LongPath);
    EXPECT_EQ(Saved("FavoriteFolder"), "C:\\" + std::string(200, 'f'));
    EXPECT_EQ(Saved("QuickFolderPath2"), LongPath);
}

TEST_F(SettingsSaveTest, ANewTextReplacesOneThatWasTooLong) {
    Setting("LastCopyToPath", LongPath);
    Setting("Recent1", LongPath);
    LoadSettings(module);
    module.config.LastCopyToPath = "C:\\new";
    module.config.Recent[0] = "";
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastCopyToPath"), "C:\\new");
    EXPECT_EQ(Saved("Recent1"), "");
}

TEST_F(SettingsSaveTest, WhatTheSettingsOfTheScreenSaverWroteMeanwhileStays) {
    Setting("LastSlideShow", "C:\\old.tvs");
    Setting("RecentShow1", "C:\\old.tvs");
    LoadSettings(module);
    Setting("LastSlideShow", "C:\\saver.tvs");
    Setting("RecentShow1", "C:\\saver.tvs");
    Setting("RecentShow2", "C:\\old.tvs");
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastSlideShow"), "C:\\saver.tvs");
    EXPECT_EQ(Saved("RecentShow1"), "C:\\saver.tvs");
    EXPECT_EQ(Saved("RecentShow2"), "C:\\old.tvs");
}

TEST_F(SettingsSaveTest, WhatChangedHereIsWrittenOverIt) {
    Setting("LastSlideShow", "C:\\old.tvs");
    Setting("RecentShow1", "C:\\old.tvs");
    LoadSettings(module);
    Setting("LastSlideShow", "C:\\saver.tvs");
    module.config.LastSlideShow = "C:\\mine.tvs";
    module.config.RecentShows[0] = "";
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("LastSlideShow"), "C:\\mine.tvs");
    EXPECT_EQ(Saved("RecentShow1"), "");
}

TEST_F(SettingsSaveTest, TheSettingsOfTheScreenSaverAreWrittenInTheirOrder) {
    module.config.ResumeLastDisplayed = true;
    module.config.PasswordDelay = 3;
    SaveSaverSettings(module);
    Written expected{{"LastSlideShow", "C:\\s.tvs"}};
    for (const auto& entry : ExitLists())
        if (entry.first.starts_with("RecentShow")) expected.push_back(entry);
    const Written rest{{"BackgroundColor", std::to_string(module.config.BackgroundColor)},
                       {"ResumeLastDisplayed", "True"},
                       {"PasswordDelay", "3"}};
    expected.insert(expected.end(), rest.begin(), rest.end());
    EXPECT_EQ(WrittenTo(SettingsPath), expected);
}

TEST_F(SettingsSaveTest, TheTemporaryFilesGo) {
    for (const char* file : {"C:\\Temp\\~undo.tmp", "C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"})
        platform.disks.PutFile(file, "x");
    platform.disks.PutFile("C:\\Temp\\other.bmp", "x");
    SaveAllSettings(module, Placement);
    EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\~undo.tmp"));
    EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\Untitled.BMP"));
    EXPECT_FALSE(platform.disks.Exists("C:\\Tavrix\\Untitled.BMP"));
    EXPECT_TRUE(platform.disks.Exists("C:\\Temp\\other.bmp"));
}

TEST_F(SettingsSaveTest, DeletedWorkingFilesLeaveTheRecentList) {
    for (const char* file : {"C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"})
        platform.disks.PutFile(file, "x");
    module.config.Recent = {"C:\\1.bmp", "C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"};
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("Recent1"), "C:\\1.bmp");
    EXPECT_EQ(Saved("Recent2"), "");
    EXPECT_EQ(Saved("Recent3"), "");
}

TEST_F(SettingsSaveTest, AWorkingFileThatHoldsAnEditThatWasNotExportedStays) {
    for (const char* file : {"C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"}) {
        for (const char* other : {"C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"})
            platform.disks.PutFile(other, "x");
        module.CurrentImage = "C:\\p\\x.JPG";
        module.KeptWorkingFiles = {file};
        SaveAllSettings(module, Placement);
        EXPECT_EQ(platform.disks.Exists("C:\\Temp\\Untitled.BMP"),
                  file == std::string("C:\\Temp\\Untitled.BMP"));
        EXPECT_EQ(platform.disks.Exists("C:\\Tavrix\\Untitled.BMP"),
                  file != std::string("C:\\Temp\\Untitled.BMP"));
    }
    // On show again, it has been asked about.
    module.CurrentImage = module.KeptWorkingFiles.front();
    SaveAllSettings(module, Placement);
    EXPECT_FALSE(platform.disks.Exists(module.CurrentImage));
}

TEST_F(SettingsSaveTest, WithDeleteUntitledOffTheWorkingFileStays) {
    module.config.DeleteUntitled = false;
    for (const char* file : {"C:\\Temp\\~undo.tmp", "C:\\Temp\\Untitled.BMP", "C:\\Tavrix\\Untitled.BMP"})
        platform.disks.PutFile(file, "x");
    module.config.Recent[0] = "C:\\Temp\\Untitled.BMP";
    SaveAllSettings(module, Placement);
    EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\~undo.tmp"));
    EXPECT_TRUE(platform.disks.Exists("C:\\Temp\\Untitled.BMP"));
    EXPECT_TRUE(platform.disks.Exists("C:\\Tavrix\\Untitled.BMP"));
    EXPECT_EQ(Saved("Recent1"), "C:\\Temp\\Untitled.BMP");  // it is still there
}

TEST_F(SettingsSaveTest, WorkingFilesThatAreGoneLeaveTheRecentListWhateverDeletedThem) {
    module.config.DeleteUntitled = false;
    module.config.Recent = {"C:\\1.bmp", "c:\\temp\\untitled.bmp", "C:\\Tavrix\\Untitled.BMP", "C:\\4.bmp"};
    SaveAllSettings(module, Placement);
    EXPECT_EQ(Saved("Recent1"), "C:\\1.bmp");
    EXPECT_EQ(Saved("Recent2"), "C:\\4.bmp");
    EXPECT_EQ(Saved("Recent3"), "");
}

class ClipboardAtExit : public SettingsSaveTest {
  protected:
    void ExpectQuestion(forms::Answer reply) {
        Expect({.text = "There is an image on the clipboard.\r\n\r\n"
                        "Do you want this data to be available to other applications?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
};

TEST_F(ClipboardAtExit, IsClearedOnNo) {
    for (const auto format :
         {ClipboardFormat::Bitmap, ClipboardFormat::Metafile, ClipboardFormat::DeviceIndependentBitmap}) {
        platform.clipboard.formats = {format};
        ExpectQuestion(forms::Answer::No);
        SaveAllSettings(module, Placement);
        EXPECT_TRUE(platform.clipboard.formats.empty());
    }
    EXPECT_EQ(platform.clipboard.timesCleared, 3);
    EXPECT_EQ(platform.clipboard.timesPersisted, 0);
}

TEST_F(ClipboardAtExit, StaysOnYes) {
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    ExpectQuestion(forms::Answer::Yes);
    SaveAllSettings(module, Placement);
    EXPECT_EQ(platform.clipboard.timesCleared, 0);
    EXPECT_EQ(platform.clipboard.timesPersisted, 1);
}

TEST_F(ClipboardAtExit, StaysWithoutAQuestionWhenItIsNotToBeCleared) {
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    module.config.ClearClipboard = false;
    SaveAllSettings(module, Placement);
    module.config.ClearClipboard = true;
    module.ScreenSaverMode = true;
    SaveAllSettings(module, Placement);
    module.ScreenSaverMode = false;
    module.StartedAsShow = true;
    SaveAllSettings(module, Placement);
    EXPECT_EQ(toolkit.BoxesShown(), 0);
    EXPECT_EQ(platform.clipboard.timesCleared, 0);
    EXPECT_EQ(platform.clipboard.timesPersisted, 3);
}

TEST_F(ClipboardAtExit, WithoutAnImageIsNotAskedAbout) {
    SaveAllSettings(module, Placement);
    EXPECT_EQ(toolkit.BoxesShown(), 0);
    EXPECT_EQ(platform.clipboard.timesCleared, 0);
}

TEST_F(ClipboardAtExit, TheQuestionComesAfterTheStateIsSavedAndTheFilesAreGone) {
    platform.disks.PutFile("C:\\Temp\\~undo.tmp", "x");
    platform.clipboard.formats = {ClipboardFormat::Bitmap};
    bool asked = false;
    Expect({.text = "There is an image on the clipboard.\r\n\r\n"
                    "Do you want this data to be available to other applications?",
            .icon = forms::BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNo,
            .reply = forms::Answer::Yes,
            .whileOpen = [&] {
                asked = true;
                EXPECT_EQ(Saved("LastSlideShow"), "C:\\s.tvs");
                EXPECT_FALSE(platform.disks.Exists("C:\\Temp\\~undo.tmp"));
                EXPECT_FALSE(WasWritten("Recent1"));
            }});
    SaveAllSettings(module, Placement);
    EXPECT_TRUE(asked);
    EXPECT_EQ(Saved("Recent1"), "C:\\1.bmp");
}

/// Whatever fails, the exit goes on to its end and the user's files are as they were.
class FailingExit : public ClipboardAtExit {
  protected:
    void Sweep(headless::Service service) {
        bool fired = true;
        for (int nth = 1; fired; ++nth) {
            SCOPED_TRACE(nth);
            platform.faults.Clear();
            platform.disks.PutFile(SettingsPath, "; by hand\r\n[Viewer]\r\nMouseSensitivity=7\r\n");
            platform.disks.PutFile("C:\\p\\a.bmp", "the user's own");
            platform.disks.PutFile("C:\\Temp\\~undo.tmp", "x");
            platform.disks.PutFile("C:\\Temp\\Untitled.BMP", "x");
            platform.disks.PutFile("C:\\Tavrix\\Untitled.BMP", "x");
            platform.clipboard.formats = {ClipboardFormat::Bitmap};
            // With the format's call failing the question does not come.
            if (service != headless::Service::Clipboard || nth > 1) ExpectQuestion(forms::Answer::No);
            platform.faults.FailNth(service, nth, ErrorNumber::PermissionDenied);
            EXPECT_NO_THROW(SaveAllSettings(module, Placement));
            fired = platform.faults.Fired();
            platform.faults.Clear();
            EXPECT_EQ(platform.disks.Content("C:\\p\\a.bmp"), "the user's own");
            EXPECT_EQ(Saved("MouseSensitivity"), "7");
            const int failedWrite = service == headless::Service::Profile && fired ? nth : 0;
            EXPECT_EQ(Saved("RotateAngle"), failedWrite == 1 ? "" : "180");
            EXPECT_EQ(Saved("FavoriteFolder"), failedWrite == 2 ? "" : "C:\\Fav");
            EXPECT_TRUE(fired || !platform.disks.Exists("C:\\Temp\\~undo.tmp"));
        }
    }
};

TEST_F(FailingExit, GoesOnWhenFilesFail) {
    Sweep(headless::Service::Files);
}
TEST_F(FailingExit, GoesOnWhenTheSettingsFileFails) {
    Sweep(headless::Service::Profile);
}
TEST_F(FailingExit, GoesOnWhenTheClipboardFails) {
    Sweep(headless::Service::Clipboard);
}

TEST_F(FailingExit, LeavesTheOldFileWhenTheDiskIsFull) {
    platform.disks.PutFile(SettingsPath, "[Viewer]\r\nQualityJPG=3\r\n");
    platform.disks.SetCapacity('C', 40);
    EXPECT_NO_THROW(SaveAllSettings(module, Placement));
    EXPECT_EQ(platform.disks.Content(SettingsPath), "[Viewer]\r\nQualityJPG=3\r\n");
}

}  // namespace
}  // namespace tavrix::test
