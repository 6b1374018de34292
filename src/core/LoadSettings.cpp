#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/Settings.h"
#include "core/SettingsText.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

std::string CdRomLetter(const std::string& text) {
    const bool sensible = Left(From(text, 1), 1) == ":" && CharacterCount(text) <= 3;
    return sensible ? text : "";
}

std::string Floppy(const std::string& text) {
    std::string drive = UpperCase(text);
    if (drive == "A" || drive == "A:") drive = "A:\\";
    if (drive == "B" || drive == "B:") drive = "B:\\";
    return drive == "B:\\" ? drive : "A:\\";
}

std::string Extension(const std::string& text) {
    if (text.empty()) return "?";
    const std::string extension = Left(text, 3);
    return extension.find_first_of("*\\ .") == std::string::npos ? extension : "?";
}

bool HoldsColonAndName(const std::string& path) {
    return path.find(':') != std::string::npos && CharacterCount(path) > 7;
}

std::string ShowPath(const std::string& path) {
    return HoldsColonAndName(path) && EndsInIgnoringCase(path, ".TVS") ? NormalPath(path) : "";
}

std::string FavoritePath(const std::string& path) {
    return HoldsColonAndName(path) ? NormalPath(path) : "";
}

/// A toolbar position that a screen of this size can show.
std::int32_t OnScreen(std::int32_t position, float screenSize, float toolbarSize) {
    const auto last = static_cast<std::int32_t>(screenSize - toolbarSize);
    if (position < 0) return 0;
    return std::min(position, last);
}

std::string LastOpenedFile(const MainModule& module, const std::string& text) {
    const bool workingFile =
        text == GetTempFolder(module) + "Untitled.BMP" || text == module.AppPath + "Untitled.BMP";
    return workingFile ? "" : NormalPath(text);
}

std::string FavoriteFolder(const MainModule& module, const std::string& text) {
    Files& files = module.platform.files;
    const std::string shows = module.AppPath + "SLIDES";
    const std::string folder = text.empty() ? shows : text;
    if (files.FolderExists(folder)) return folder;
    if (folder != shows && files.FolderExists(shows)) return shows;
    return module.AppPath;
}

template <std::size_t Count, class Repair>
void ReadList(SettingsReader& read, const std::string& key, std::array<std::string, Count>& list,
              Repair repair) {
    for (std::size_t i = 0; i < Count; ++i) {
        const std::string name = key + std::to_string(i + 1);
        list[i] = repair(read.Text(name));
        read.Keep(name, list[i]);
    }
}

void ReadViewerAndDesktop(AppConfig& c, SettingsReader& read) {
    c.Color256Msg = read.OnlyFalseClears("Color256Msg");
    c.UseRecycleBin = read.OnlyFalseClears("UseRecycleBin");
    c.UseRecentDocuments = read.OnlyFalseClears("UseRecentDocuments");
    c.QualityJPG = read.Within("QualityJPG", 8, 0, 10);
    c.RotateAngle = read.Within("RotateAngle", 180, 1, 180);
    c.RotateDirection = read.Raw("RotateDirection") == "1" ? 1 : 0;
    c.RotatePreserve = read.OnlyTrueSets("RotatePreserve");
    c.ImageSizeAspect = read.OnlyTrueSets("ImageSizeAspect");
    c.MouseSensitivity = read.Within("MouseSensitivity", 4, 1, 20);
    c.CdRomDriveLetter = CdRomLetter(read.Text("CdRomDriveLetter"));
    c.DefaultFloppy = Floppy(read.Text("DefaultFloppy"));
    c.TopMostWindow = read.OnlyTrueSets("TopMostWindow");
    c.SaveWindowSize = read.OnlyTrueSets("SaveWindowSize");
    c.MainPosX = read.Long("MainPosX", 0);
    c.MainPosY = read.Long("MainPosY", 0);
    c.MainSizeX = read.Long("MainSizeX", 9510);
    c.MainSizeY = read.Long("MainSizeY", 7110);
    c.NewImageX = read.Clamped("NewImageX", 640, 4, 10000);
    c.NewImageY = read.Clamped("NewImageY", 480, 4, 10000);
    c.BackColorR = read.Clamped("BackColorR", 0, 0, 255);
    c.BackColorG = read.Clamped("BackColorG", 0, 0, 255);
    c.BackColorB = read.Clamped("BackColorB", 0, 0, 255);
    c.NewGetsClipboard = read.OnlyTrueSets("NewGetsClipboard");
    c.DeleteUntitled = read.OnlyFalseClears("DeleteUntitled");
    c.ClearClipboard = read.OnlyFalseClears("ClearClipboard");
    c.AutosizeWindow = read.OnlyFalseClears("AutosizeWindow");
}

void ReadShowsAndSaver(const MainModule& module, AppConfig& c, SettingsReader& read) {
    c.SoundMode = read.Digit("SoundMode", 2, 0, 0);
    c.SoundFile = read.Text("SoundFile");
    read.Keep("SoundFile", c.SoundFile);
    c.CDTrack = read.Clamped("CDTrack", 0, 0, 100);
    c.SoundLoop = read.OnlyTrueSets("SoundLoop");
    c.SlideInterval = read.Clamped("SlideInterval", 5, 0, 60);
    c.RandomSlides = read.OnlyTrueSets("RandomSlides");
    c.ShowFilenames = read.OnlyTrueSets("ShowFilenames");
    c.ShowDescription = read.OnlyTrueSets("ShowDescription");
    c.LoopSlideShow = read.OnlyFalseClears("LoopSlideShow");
    c.AnimateGIF89 = read.OnlyFalseClears("AnimateGIF89");
    c.ShowToolbar = read.OnlyTrueSets("ShowToolbar");
    c.ToolbarX = OnScreen(read.Long("ToolbarX", 0), module.Screen().Width(), 3210);
    c.ToolbarY = OnScreen(read.Long("ToolbarY", 0), module.Screen().Height(), 1335);
    c.SaveSlides = read.OnlyTrueSets("SaveSlides");
    c.ResumeLastDisplayed = read.OnlyTrueSets("ResumeLastDisplayed");
    c.PasswordDelay = read.Digit("PasswordDelay", 4, 0, 0);
    c.ImageLastDisplayed = read.Integer("ImageLastDisplayed", 0);
    if (c.ImageLastDisplayed > 30000) c.ImageLastDisplayed = 0;
}

void ReadWindowsAndDialogs(AppConfig& c, SettingsReader& read) {
    c.WindowMaximized = read.OnlyTrueSets("WindowMaximized");
    c.BackgroundColor = read.Digit("BackgroundColor", 5, 0, 0);
    c.StartupDialog = read.Digit("StartupDialog", 3, 1, 4);
    c.ViewFullScreen = read.OnlyTrueSets("ViewFullScreen");
    c.StretchImages = read.OnlyTrueSets("StretchImages", true);
    c.EnlargeImages = read.OnlyTrueSets("EnlargeImages");
    c.ClickScreenOpen = read.OnlyTrueSets("ClickScreenOpen");
    c.DisplayLastOpened = read.OnlyTrueSets("DisplayLastOpened");
    c.LastCopyToPath = read.Text("LastCopyToPath");
    read.Keep("LastCopyToPath", c.LastCopyToPath);
    c.ThumbnailExtension = Extension(read.Text("ThumbnailExtension"));
    c.ThumbnailDelete = read.OnlyTrueSets("ThumbnailDelete");
    c.OpenShowPreview = read.OnlyTrueSets("OpenShowPreview");
    c.OpenPreviewTimer = read.Clamped("OpenPreviewTimer", 500, 1, 5000);
    c.WallpaperStretch = read.OnlyTrueSets("WallpaperStretch");
    c.WallpaperAspect = read.OnlyTrueSets("WallpaperAspect");
    c.SelectDuplicates = read.OnlyTrueSets("SelectDuplicates");
    c.LastSlideShow = NormalPath(read.Text("LastSlideShow"));
    read.KeepShared("LastSlideShow", c.LastSlideShow);
    c.KeepRecent = read.OnlyTrueSets("KeepRecent", true);
}

}  // namespace

void LoadSettings(MainModule& module) {
    AppConfig& c = module.config;
    Files& files = module.platform.files;
    SettingsReader read(module);

    ReadViewerAndDesktop(c, read);
    ReadShowsAndSaver(module, c, read);
    ReadWindowsAndDialogs(c, read);
    SkipFailure([&] { module.CurrentImage = LastOpenedFile(module, read.Text("LastOpenedFile")); });
    read.Keep("LastOpenedFile", module.CurrentImage);

    const std::string shows = module.AppPath + "SLIDES";
    if (!files.FolderExists(shows)) SkipFailure([&] { files.MakeFolder(shows); });

    ReadList(read, "Recent", c.Recent, NormalPath);
    ReadList(read, "RecentShow", c.RecentShows, ShowPath);
    for (std::size_t i = 0; i < c.RecentShows.size(); ++i)
        read.KeepShared("RecentShow" + std::to_string(i + 1), c.RecentShows[i]);
    ReadList(read, "FavoriteFile", c.FavoriteFiles, FavoritePath);
    c.FavoriteFolder = FavoriteFolder(module, read.Text("FavoriteFolder"));
    read.Keep("FavoriteFolder", c.FavoriteFolder);
    for (std::size_t i = 0; i < c.QuickFolder.size(); ++i) {
        c.QuickFolder[i] = Trim(Left(read.Raw("QuickFolder" + std::to_string(i + 1)), 40));
    }
    ReadList(read, "QuickFolderPath", c.QuickFolderPath,
             [](const std::string& text) { return text.empty() ? text : WithBackslash(text); });
}

}  // namespace tavrix
