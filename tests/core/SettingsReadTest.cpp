#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Settings.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

struct Flag {
    const char* key;
    bool AppConfig::*field;
};

constexpr std::array OnUnlessFalse{
    Flag{"Color256Msg", &AppConfig::Color256Msg},
    Flag{"UseRecycleBin", &AppConfig::UseRecycleBin},
    Flag{"UseRecentDocuments", &AppConfig::UseRecentDocuments},
    Flag{"DeleteUntitled", &AppConfig::DeleteUntitled},
    Flag{"ClearClipboard", &AppConfig::ClearClipboard},
    Flag{"AutosizeWindow", &AppConfig::AutosizeWindow},
    Flag{"LoopSlideShow", &AppConfig::LoopSlideShow},
    Flag{"AnimateGIF89", &AppConfig::AnimateGIF89},
};

constexpr std::array OffUnlessTrue{
    Flag{"RotatePreserve", &AppConfig::RotatePreserve},
    Flag{"ImageSizeAspect", &AppConfig::ImageSizeAspect},
    Flag{"TopMostWindow", &AppConfig::TopMostWindow},
    Flag{"SaveWindowSize", &AppConfig::SaveWindowSize},
    Flag{"NewGetsClipboard", &AppConfig::NewGetsClipboard},
    Flag{"SoundLoop", &AppConfig::SoundLoop},
    Flag{"RandomSlides", &AppConfig::RandomSlides},
    Flag{"ShowFilenames", &AppConfig::ShowFilenames},
    Flag{"ShowDescription", &AppConfig::ShowDescription},
    Flag{"ShowToolbar", &AppConfig::ShowToolbar},
    Flag{"SaveSlides", &AppConfig::SaveSlides},
    Flag{"ResumeLastDisplayed", &AppConfig::ResumeLastDisplayed},
    Flag{"WindowMaximized", &AppConfig::WindowMaximized},
    Flag{"ViewFullScreen", &AppConfig::ViewFullScreen},
    Flag{"EnlargeImages", &AppConfig::EnlargeImages},
    Flag{"ClickScreenOpen", &AppConfig::ClickScreenOpen},
    Flag{"DisplayLastOpened", &AppConfig::DisplayLastOpened},
    Flag{"ThumbnailDelete", &AppConfig::ThumbnailDelete},
    Flag{"OpenShowPreview", &AppConfig::OpenShowPreview},
    Flag{"WallpaperStretch", &AppConfig::WallpaperStretch},
    Flag{"WallpaperAspect", &AppConfig::WallpaperAspect},
    Flag{"SelectDuplicates", &AppConfig::SelectDuplicates},
};

/// On when missing, but off for any text other than TRUE.
constexpr std::array OnWhenMissing{
    Flag{"StretchImages", &AppConfig::StretchImages},
    Flag{"KeepRecent", &AppConfig::KeepRecent},
};

template <class Number>
struct NumberCase {
    const char* key;
    Number AppConfig::*field;
    Number missing;
    std::vector<std::pair<const char*, Number>> texts;
};

const std::string TooLong(200, 'x');

class SettingsReadTest : public ProgramFixture {
  protected:
    void Load() { LoadSettings(module); }
    void LoadWith(const std::string& key, const std::string& text) {
        Setting(key, text);
        Load();
    }
    template <class Number>
    void Try(const NumberCase<Number>& number) {
        SCOPED_TRACE(number.key);
        module.config = AppConfig();
        module.config.*number.field = 77;
        Load();
        EXPECT_EQ(module.config.*number.field, number.missing) << "missing";
        for (const auto& [text, expected] : number.texts) {
            LoadWith(number.key, text);
            EXPECT_EQ(module.config.*number.field, expected) << '<' << text << '>';
        }
        LoadWith(number.key, "");
        EXPECT_EQ(module.config.*number.field, number.missing) << "empty";
    }
    std::string CdRomDriveOf(const std::string& text) {
        LoadWith("CdRomDriveLetter", text);
        return module.config.CdRomDriveLetter;
    }
    std::string FloppyOf(const std::string& text) {
        LoadWith("DefaultFloppy", text);
        return module.config.DefaultFloppy;
    }
    std::string ExtensionOf(const std::string& text) {
        LoadWith("ThumbnailExtension", text);
        return module.config.ThumbnailExtension;
    }
    std::string ShowOf(const std::string& text) {
        LoadWith("RecentShow3", text);
        return module.config.RecentShows[2];
    }
    std::string FavoriteOf(const std::string& text) {
        LoadWith("FavoriteFile3", text);
        return module.config.FavoriteFiles[2];
    }
    std::string LastOpenedOf(const std::string& text) {
        LoadWith("LastOpenedFile", text);
        return module.CurrentImage;
    }
    std::string FavoriteFolderOf(const std::string& text) {
        LoadWith("FavoriteFolder", text);
        return module.config.FavoriteFolder;
    }
};

TEST_F(SettingsReadTest, WithoutAFileTheShowsFolderIsMadeAndTheFileIsNot) {
    Load();
    EXPECT_TRUE(platform.files.FolderExists("C:\\Tavrix\\SLIDES"));
    EXPECT_FALSE(platform.files.FileExists(SettingsPath));
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Tavrix\\SLIDES");
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(SettingsReadTest, FlagsThatAreOnGoOffOnlyForTheWordFalse) {
    for (const Flag& flag : OnUnlessFalse) {
        SCOPED_TRACE(flag.key);
        module.config.*flag.field = false;
        Load();
        EXPECT_TRUE(module.config.*flag.field) << "missing";
        for (const char* on : {"", "True", "yes", "0", "Falsee", "  ", "F"}) {
            LoadWith(flag.key, on);
            EXPECT_TRUE(module.config.*flag.field) << on;
        }
        for (const char* off : {"False", "FALSE", "false", " fAlSe "}) {
            LoadWith(flag.key, off);
            EXPECT_FALSE(module.config.*flag.field) << off;
        }
    }
}

TEST_F(SettingsReadTest, FlagsThatAreOffGoOnOnlyForTheWordTrue) {
    for (const Flag& flag : OffUnlessTrue) {
        SCOPED_TRACE(flag.key);
        module.config.*flag.field = true;
        Load();
        EXPECT_FALSE(module.config.*flag.field) << "missing";
        for (const char* off : {"", "False", "yes", "1", "Truee", "T", "-1"}) {
            LoadWith(flag.key, off);
            EXPECT_FALSE(module.config.*flag.field) << off;
        }
        for (const char* on : {"True", "TRUE", "true", " tRuE "}) {
            LoadWith(flag.key, on);
            EXPECT_TRUE(module.config.*flag.field) << on;
        }
    }
}

TEST_F(SettingsReadTest, StretchImagesAndKeepRecentAreOnWhenMissingAndOffForAnyOtherText) {
    for (const Flag& flag : OnWhenMissing) {
        SCOPED_TRACE(flag.key);
        module.config.*flag.field = false;
        Load();
        EXPECT_TRUE(module.config.*flag.field) << "missing";
        for (const char* on : {"", "True", " TRUE "}) {
            LoadWith(flag.key, on);
            EXPECT_TRUE(module.config.*flag.field) << on;
        }
        for (const char* off : {"yes", "False", "1", "Truee", "  "}) {
            LoadWith(flag.key, off);
            EXPECT_FALSE(module.config.*flag.field) << off;
        }
    }
}

TEST_F(SettingsReadTest, NumbersOutsideTheirRangeTakeTheDefault) {
    Try<std::int16_t>({"QualityJPG",
                       &AppConfig::QualityJPG,
                       8,
                       {{"0", 0}, {"10", 10}, {" 3 ", 3}, {"-1", 8}, {"11", 8}, {"abc", 8}, {"99999", 8}}});
    Try<std::int16_t>({"RotateAngle",
                       &AppConfig::RotateAngle,
                       180,
                       {{"1", 1}, {"180", 180}, {"0", 180}, {"181", 180}, {"x", 180}, {"70000", 180}}});
    Try<std::int16_t>(
        {"MouseSensitivity",
         &AppConfig::MouseSensitivity,
         4,
         {{"1", 1}, {"20", 20}, {"0", 4}, {"21", 4}, {"x", 4}, {"4x", 4}, {"-3", 4}, {"40000", 4}}});
}

TEST_F(SettingsReadTest, NumbersWithLimitsAreClamped) {
    const auto clamped = [this](const char* key, std::int16_t AppConfig::*field, std::int16_t missing,
                                std::int16_t low, std::int16_t high) {
        const std::string under = std::to_string(low - 1);
        const std::string lowest = std::to_string(low);
        const std::string highest = std::to_string(high);
        const std::string over = std::to_string(high + 1);
        Try<std::int16_t>({key,
                           field,
                           missing,
                           {{lowest.c_str(), low},
                            {highest.c_str(), high},
                            {under.c_str(), low},
                            {over.c_str(), high},
                            {"-32768", low},
                            {"32767", high},
                            {"-32769", missing},
                            {"32768", missing},
                            {"99999", missing},
                            {"99999999999999999999", missing},
                            {"x", missing},
                            {"5 5", missing},
                            {" 30 ", std::clamp<std::int16_t>(30, low, high)}}});
    };
    clamped("NewImageX", &AppConfig::NewImageX, 640, 4, 10000);
    clamped("NewImageY", &AppConfig::NewImageY, 480, 4, 10000);
    clamped("BackColorR", &AppConfig::BackColorR, 0, 0, 255);
    clamped("BackColorG", &AppConfig::BackColorG, 0, 0, 255);
    clamped("BackColorB", &AppConfig::BackColorB, 0, 0, 255);
    clamped("CDTrack", &AppConfig::CDTrack, 0, 0, 100);
    clamped("SlideInterval", &AppConfig::SlideInterval, 5, 0, 60);
    clamped("OpenPreviewTimer", &AppConfig::OpenPreviewTimer, 500, 1, 5000);
}

TEST_F(SettingsReadTest, DecimalsRoundToTheEvenNeighbour) {
    Try<std::int16_t>({"SlideInterval",
                       &AppConfig::SlideInterval,
                       5,
                       {{"6.5", 6}, {"7.5", 8}, {"6.4", 6}, {"-0.5", 0}, {"60.5", 60}}});
}

TEST_F(SettingsReadTest, ChoicesAreSingleDigits) {
    Try<std::int16_t>({"RotateDirection",
                       &AppConfig::RotateDirection,
                       0,
                       {{"1", 1}, {"0", 0}, {"2", 0}, {"01", 0}, {"True", 0}, {" 1", 0}}});
    Try<std::int16_t>(
        {"SoundMode",
         &AppConfig::SoundMode,
         0,
         {{"0", 0}, {"1", 1}, {"2", 2}, {"3", 0}, {"-1", 0}, {"x", 0}, {"01", 0}, {"99999", 0}}});
    Try<std::int16_t>({"PasswordDelay",
                       &AppConfig::PasswordDelay,
                       0,
                       {{"0", 0}, {"4", 4}, {"5", 0}, {"-1", 0}, {"x", 0}, {"44", 0}}});
    Try<std::int16_t>({"BackgroundColor",
                       &AppConfig::BackgroundColor,
                       0,
                       {{"0", 0}, {"1", 1}, {"5", 5}, {"6", 0}, {"-1", 0}, {"x", 0}}});
    Try<std::int16_t>({"StartupDialog",
                       &AppConfig::StartupDialog,
                       1,
                       {{"0", 0}, {"1", 1}, {"2", 2}, {"3", 3}, {"4", 4}, {"7", 4}, {"-1", 4}, {"x", 4}}});
}

TEST_F(SettingsReadTest, TheLastSlideHasNoLowerBound) {
    Try<std::int16_t>({"ImageLastDisplayed",
                       &AppConfig::ImageLastDisplayed,
                       0,
                       {{"30000", 30000},
                        {"30001", 0},
                        {"32767", 0},
                        {"-5", -5},
                        {"-32768", -32768},
                        {"-32769", 0},
                        {"x", 0}}});
}

TEST_F(SettingsReadTest, PlacesOfWindowsHave32Bits) {
    for (const auto& [key, field, missing] :
         {std::tuple{"MainPosX", &AppConfig::MainPosX, 0}, std::tuple{"MainPosY", &AppConfig::MainPosY, 0},
          std::tuple{"MainSizeX", &AppConfig::MainSizeX, 9510},
          std::tuple{"MainSizeY", &AppConfig::MainSizeY, 7110}}) {
        Try<std::int32_t>({key,
                           field,
                           missing,
                           {{"70000", 70000},
                            {"-120", -120},
                            {"2147483647", 2147483647},
                            {"2147483648", missing},
                            {"1202.5", 1202},
                            {"x", missing}}});
    }
}

TEST_F(SettingsReadTest, TheToolbarStaysOnTheScreen) {
    toolkit.screen = {1000, 800, 15, 15, 24};
    Try<std::int32_t>({"ToolbarX",
                       &AppConfig::ToolbarX,
                       0,
                       {{"-1", 0}, {"11790", 11790}, {"11791", 11790}, {"2000000", 11790}, {"x", 0}}});
    Try<std::int32_t>({"ToolbarY",
                       &AppConfig::ToolbarY,
                       0,
                       {{"-1", 0}, {"10665", 10665}, {"10666", 10665}, {"2000000", 10665}, {"x", 0}}});
}

TEST_F(SettingsReadTest, TheCdDriveIsALetterAndAColon) {
    Load();
    EXPECT_EQ(module.config.CdRomDriveLetter, "");
    EXPECT_EQ(CdRomDriveOf("D:\\"), "D:\\");
    EXPECT_EQ(CdRomDriveOf(" e: "), "e:");
    EXPECT_EQ(CdRomDriveOf("D:\\x"), "");
    EXPECT_EQ(CdRomDriveOf("D"), "");
    EXPECT_EQ(CdRomDriveOf("DD:"), "");
}

TEST_F(SettingsReadTest, TheFloppyDriveIsAOrB) {
    Load();
    EXPECT_EQ(module.config.DefaultFloppy, "A:\\");
    for (const char* b : {"b", "B", "b:", "B:", " B:\\ "})
        EXPECT_EQ(FloppyOf(b), "B:\\") << b;
    for (const char* a : {"a", "A:", "A:\\", "C:", "C:\\", "BB", "B:\\x", "1"})
        EXPECT_EQ(FloppyOf(a), "A:\\") << a;
}

TEST_F(SettingsReadTest, TheThumbnailExtensionIsAtMostThreePlainCharacters) {
    Load();
    EXPECT_EQ(module.config.ThumbnailExtension, "?");
    EXPECT_EQ(ExtensionOf("BMP"), "BMP");
    EXPECT_EQ(ExtensionOf(" jp "), "jp");
    EXPECT_EQ(ExtensionOf("JPEG"), "JPE");
    EXPECT_EQ(ExtensionOf("JPG*"), "JPG");  // what is cut off does no harm
    EXPECT_EQ(ExtensionOf("\xC3\xA4\xC3\xB6\xC3\xBCx"), "\xC3\xA4\xC3\xB6\xC3\xBC");
    for (const char* bad : {"", ".BMP", "*", "J*G", "a\\", "a b", "."})
        EXPECT_EQ(ExtensionOf(bad), "?") << bad;
}

TEST_F(SettingsReadTest, PlainTextsAreTrimmed) {
    using Field = std::pair<const char*, std::string AppConfig::*>;
    for (const auto& [key, field] :
         {Field{"SoundFile", &AppConfig::SoundFile}, Field{"LastCopyToPath", &AppConfig::LastCopyToPath},
          Field{"LastSlideShow", &AppConfig::LastSlideShow}}) {
        SCOPED_TRACE(key);
        Load();
        EXPECT_EQ(module.config.*field, "");
        LoadWith(key, "  C:\\a b.wav  ");
        EXPECT_EQ(module.config.*field, "C:\\a b.wav");
    }
}

TEST_F(SettingsReadTest, AllPlainTextsAreCutTo127Characters) {
    const std::string cut = TooLong.substr(0, 127);
    for (const char* key : {"SoundFile", "LastOpenedFile", "LastCopyToPath", "LastSlideShow", "Recent7"})
        Setting(key, TooLong);
    Load();
    EXPECT_EQ(module.config.SoundFile, cut);
    EXPECT_EQ(module.CurrentImage, cut);
    EXPECT_EQ(module.config.LastCopyToPath, cut);
    EXPECT_EQ(module.config.LastSlideShow, cut);
    EXPECT_EQ(module.config.Recent[6], cut);
}

TEST_F(SettingsReadTest, CharactersOfSeveralBytesAreNeverSplitByTheCut) {
    std::string umlauts;
    for (int i = 0; i < 130; ++i)
        umlauts += "\xC3\xA4";
    LoadWith("LastCopyToPath", umlauts);
    EXPECT_EQ(module.config.LastCopyToPath, umlauts.substr(0, 254));
}

TEST_F(SettingsReadTest, TheLastImageIsTheCurrentOneUnlessItIsAWorkingFile) {
    Load();
    EXPECT_EQ(module.CurrentImage, "");
    EXPECT_EQ(LastOpenedOf(" C:\\p\\a.bmp "), "C:\\p\\a.bmp");
    EXPECT_EQ(LastOpenedOf("C:\\Temp\\Untitled.BMP"), "");
    EXPECT_EQ(LastOpenedOf("C:\\Tavrix\\Untitled.BMP"), "");
    EXPECT_EQ(LastOpenedOf("C:\\Temp\\untitled.bmp"), "C:\\Temp\\untitled.bmp");
    EXPECT_EQ(LastOpenedOf("C:\\p\\Untitled.BMP"), "C:\\p\\Untitled.BMP");
}

TEST_F(SettingsReadTest, RecentFilesAreTakenAsTheyStand) {
    Setting("Recent1", " C:\\a.bmp ");
    Setting("Recent7", "no path");
    Setting("Recent8", "C:\\none.bmp");
    Load();
    EXPECT_EQ(module.config.Recent, (std::array<std::string, 7>{"C:\\a.bmp", "", "", "", "", "", "no path"}));
}

TEST_F(SettingsReadTest, RecentShowsMustBeShowsAndTheListKeepsItsGaps) {
    Setting("RecentShow1", "C:\\a.tvs");
    Setting("RecentShow20", "C:\\b.TVS");
    EXPECT_EQ(ShowOf("C:\\a.bmp"), "");
    EXPECT_EQ(ShowOf("C:\\.tvs"), "");
    EXPECT_EQ(ShowOf("show-a.tvs"), "");
    EXPECT_EQ(ShowOf(" C:\\x.tVs "), "C:\\x.tVs");
    EXPECT_EQ(ShowOf(""), "");
    EXPECT_EQ(module.config.RecentShows[0], "C:\\a.tvs");
    EXPECT_EQ(module.config.RecentShows[19], "C:\\b.TVS");
}

TEST_F(SettingsReadTest, FavoritesMustBePathsAndTheListKeepsItsGaps) {
    Setting("FavoriteFile1", "C:\\a.bmp");
    Setting("FavoriteFile20", "C:\\b.jpg");
    EXPECT_EQ(FavoriteOf("a.bmp"), "");
    EXPECT_EQ(FavoriteOf("long-name.bmp"), "");
    EXPECT_EQ(FavoriteOf("C:\\.bmp"), "");
    EXPECT_EQ(FavoriteOf(" C:\\a.txt "), "C:\\a.txt");
    EXPECT_EQ(FavoriteOf(""), "");
    EXPECT_EQ(module.config.FavoriteFiles[0], "C:\\a.bmp");
    EXPECT_EQ(module.config.FavoriteFiles[19], "C:\\b.jpg");
}

TEST_F(SettingsReadTest, TheFavoriteFolderMustExist) {
    platform.disks.PutFolder("C:\\Pictures");
    platform.disks.PutFile("C:\\file", "");
    EXPECT_EQ(FavoriteFolderOf(" C:\\Pictures "), "C:\\Pictures");
    EXPECT_EQ(FavoriteFolderOf("C:\\missing"), "C:\\Tavrix\\SLIDES");
    EXPECT_EQ(FavoriteFolderOf("C:\\file"), "C:\\Tavrix\\SLIDES");
    EXPECT_EQ(FavoriteFolderOf(""), "C:\\Tavrix\\SLIDES");
}

TEST_F(SettingsReadTest, WithoutTheShowsFolderTheProgramsFolderIsTheFavorite) {
    platform.disks.PutFile("C:\\Tavrix\\SLIDES", "a file is in the way");
    EXPECT_EQ(FavoriteFolderOf(""), "C:\\Tavrix\\");
    EXPECT_EQ(FavoriteFolderOf("C:\\Tavrix\\SLIDES"), "C:\\Tavrix\\");
    EXPECT_EQ(FavoriteFolderOf("C:\\missing"), "C:\\Tavrix\\");
    platform.disks.PutFolder("C:\\Pictures");
    EXPECT_EQ(FavoriteFolderOf("C:\\Pictures"), "C:\\Pictures");
}

TEST_F(SettingsReadTest, QuickFoldersAreCutTo40CharactersBeforeTheBlanksGo) {
    Load();
    EXPECT_EQ(module.config.QuickFolder[0], "");
    LoadWith("QuickFolder1", std::string(50, 'q'));
    EXPECT_EQ(module.config.QuickFolder[0], std::string(40, 'q'));
    LoadWith("QuickFolder4", "  " + std::string(50, 'q'));
    EXPECT_EQ(module.config.QuickFolder[3], std::string(38, 'q'));
    LoadWith("QuickFolder4", " Photos ");
    EXPECT_EQ(module.config.QuickFolder[3], "Photos");
}

TEST_F(SettingsReadTest, QuickFolderPathsEndInABackslash) {
    Load();
    EXPECT_EQ(module.config.QuickFolderPath[0], "");
    LoadWith("QuickFolderPath1", " C:\\a ");
    EXPECT_EQ(module.config.QuickFolderPath[0], "C:\\a\\");
    LoadWith("QuickFolderPath4", "C:\\b\\");
    EXPECT_EQ(module.config.QuickFolderPath[3], "C:\\b\\");
}

TEST_F(SettingsReadTest, KeysAndSectionAreFoundWithoutRegardToCase) {
    platform.disks.PutFile(SettingsPath, "[VIEWER]\r\nqualityjpg=3\r\n[Package]\r\nRotateAngle=5\r\n");
    Load();
    EXPECT_EQ(module.config.QualityJPG, 3);
    EXPECT_EQ(module.config.RotateAngle, 180);
}

TEST_F(SettingsReadTest, AFileOfNonsenseGivesDefaultsAndNoMessage) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.push_back(static_cast<char>(i * 37 % 256));
    platform.disks.PutFile(SettingsPath, bytes);
    Load();
    EXPECT_EQ(module.config.QualityJPG, 8);
    EXPECT_EQ(module.config.MainSizeX, 9510);
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(SettingsReadTest, WhateverServiceFailsNothingStopsTheReading) {
    Setting("QuickFolderPath4", "C:\\q");
    for (const auto service : {headless::Service::Files, headless::Service::Profile}) {
        bool fired = true;
        for (int nth = 1; fired; ++nth) {
            platform.faults.Clear();
            platform.disks.Remove("C:\\Tavrix\\SLIDES");
            platform.faults.FailNth(service, nth, ErrorNumber::PathFileAccessError);
            EXPECT_NO_THROW(Load()) << nth;
            fired = platform.faults.Fired();
            const bool wasRead = service != headless::Service::Profile || !fired;
            EXPECT_EQ(module.config.QuickFolderPath[3], wasRead ? "C:\\q\\" : "") << nth;
            EXPECT_NE(module.config.FavoriteFolder, "") << nth;
        }
    }
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

}  // namespace
}  // namespace tavrix::test
