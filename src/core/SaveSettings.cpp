#include <array>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/KeptWorkingFiles.h"
#include "core/RecentLists.h"
#include "core/Settings.h"
#include "core/SettingsText.h"

namespace tavrix {
namespace {

void WriteStateOfSession(const MainModule& module, const std::optional<MainViewPlacement>& placement,
                         const std::string& tempFolder) {
    const AppConfig& c = module.config;
    SettingsWriter write(module);
    if (placement) {
        write.Single("MainPosX", placement->left);
        write.Single("MainPosY", placement->top);
        write.Single("MainSizeX", placement->width);
        write.Single("MainSizeY", placement->height);
    }
    write.Number("NewImageX", c.NewImageX);
    write.Number("NewImageY", c.NewImageY);
    write.Number("BackColorR", c.BackColorR);
    write.Number("BackColorG", c.BackColorG);
    write.Number("BackColorB", c.BackColorB);
    write.Flag("NewGetsClipboard", c.NewGetsClipboard);
    write.Number("ToolbarX", c.ToolbarX);
    write.Number("ToolbarY", c.ToolbarY);
    write.Flag("TopMostWindow", c.TopMostWindow);
    const bool stays = module.CurrentImage.empty() && module.LastOpenedStays;
    if (!stays && module.CurrentImage != tempFolder + "Untitled.BMP")
        write.Text("LastOpenedFile", module.CurrentImage);
    write.Text("LastCopyToPath", c.LastCopyToPath);
    write.Text("ThumbnailExtension", c.ThumbnailExtension);
    write.Flag("ThumbnailDelete", c.ThumbnailDelete);
    write.Number("QualityJPG", c.QualityJPG);
    write.Number("RotateAngle", c.RotateAngle);
    write.Number("RotateDirection", c.RotateDirection);
    write.Flag("RotatePreserve", c.RotatePreserve);
    write.Flag("ImageSizeAspect", c.ImageSizeAspect);
    write.Flag("OpenShowPreview", c.OpenShowPreview);
    write.Flag("WallpaperStretch", c.WallpaperStretch);
    write.Flag("WallpaperAspect", c.WallpaperAspect);
    write.Flag("SelectDuplicates", c.SelectDuplicates);
    write.Text("LastSlideShow", c.LastSlideShow);
    write.WriteTo(SettingsFile(module));
}

void WriteLists(const MainModule& module) {
    const AppConfig& c = module.config;
    SettingsWriter write(module);
    write.List("Recent", c.Recent);
    write.List("RecentShow", c.RecentShows);
    write.List("FavoriteFile", c.FavoriteFiles);
    write.Text("FavoriteFolder", c.FavoriteFolder);
    for (std::size_t i = 0; i < c.QuickFolder.size(); ++i) {
        write.Text("QuickFolder" + std::to_string(i + 1), c.QuickFolder[i]);
        write.Text("QuickFolderPath" + std::to_string(i + 1), c.QuickFolderPath[i]);
    }
    write.WriteTo(SettingsFile(module));
}

void RemoveTemporaryFiles(MainModule& module, const std::string& tempFolder) {
    Files& files = module.platform.files;
    SkipFailure([&] { files.Delete(tempFolder + "~undo.tmp"); });
    for (const std::string& folder : {tempFolder, module.AppPath}) {
        const std::string path = folder + "Untitled.BMP";
        const bool kept = IsKeptWorkingFile(module, path) && path != module.CurrentImage;
        if (module.config.DeleteUntitled && !kept) SkipFailure([&] { files.Delete(path); });
    }
    RemoveRecentFile(module, tempFolder + "Untitled.BMP");
    RemoveRecentFile(module, module.AppPath + "Untitled.BMP");
}

void AskAboutClipboard(const MainModule& module) {
    Clipboard& clipboard = module.platform.clipboard;
    if (!HoldsPicture(clipboard)) return;
    if (!module.config.ClearClipboard || module.ScreenSaverMode || module.StartedAsShow) {
        clipboard.Persist();
        return;
    }
    const forms::Answer answer =
        module.app.MessageBox({.text = "There is an image on the clipboard." + std::string(NewLine2) +
                                       "Do you want this data to be available to other applications?",
                               .icon = forms::BoxIcon::Question,
                               .buttons = forms::BoxButtons::YesNo});
    if (answer == forms::Answer::No) {
        clipboard.Clear();
        module.DoEvents();
    } else {
        clipboard.Persist();
    }
}

}  // namespace

std::string SettingsFile(const MainModule& module) {
    return module.AppPath + "tavrix.ini";
}

void SavePreferenceSettings(const MainModule& module) {
    const AppConfig& c = module.config;
    SettingsWriter write(module);
    write.Flag("WindowMaximized", c.WindowMaximized);
    write.Flag("SaveWindowSize", c.SaveWindowSize);
    write.Number("BackgroundColor", c.BackgroundColor);
    write.Number("StartupDialog", c.StartupDialog);
    write.Flag("DeleteUntitled", c.DeleteUntitled);
    write.Flag("ClearClipboard", c.ClearClipboard);
    write.Flag("AutosizeWindow", c.AutosizeWindow);
    write.Flag("ViewFullScreen", c.ViewFullScreen);
    write.Flag("StretchImages", c.StretchImages);
    write.Flag("EnlargeImages", c.EnlargeImages);
    write.Flag("ClickScreenOpen", c.ClickScreenOpen);
    write.Flag("DisplayLastOpened", c.DisplayLastOpened);
    write.Flag("KeepRecent", c.KeepRecent);
    SkipFailure([&] { write.WriteTo(SettingsFile(module)); });
}

void SaveSlideSettings(const MainModule& module) {
    const AppConfig& c = module.config;
    SettingsWriter write(module);
    write.Number("SoundMode", c.SoundMode);
    write.Text("SoundFile", c.SoundFile);
    write.Number("CDTrack", c.CDTrack);
    write.Flag("SoundLoop", c.SoundLoop);
    write.Number("SlideInterval", c.SlideInterval);
    write.Flag("RandomSlides", c.RandomSlides);
    write.Flag("ShowFilenames", c.ShowFilenames);
    write.Flag("ShowToolbar", c.ShowToolbar);
    write.Flag("AnimateGIF89", c.AnimateGIF89);
    write.Flag("SaveSlides", c.SaveSlides);
    write.Flag("ShowDescription", c.ShowDescription);
    write.Flag("LoopSlideShow", c.LoopSlideShow);
    SkipFailure([&] { write.WriteTo(SettingsFile(module)); });
}

void SaveSaverSettings(const MainModule& module) {
    const AppConfig& c = module.config;
    SettingsWriter write(module);
    write.Text("LastSlideShow", c.LastSlideShow);
    if (c.KeepRecent) write.List("RecentShow", c.RecentShows);
    write.Number("BackgroundColor", c.BackgroundColor);
    write.Flag("ResumeLastDisplayed", c.ResumeLastDisplayed);
    write.Number("PasswordDelay", c.PasswordDelay);
    SkipFailure([&] { write.WriteTo(SettingsFile(module)); });
}

void SaveAllSettings(MainModule& module, const std::optional<MainViewPlacement>& placement) {
    const std::string tempFolder = GetTempFolder(module);
    // Written before the question below, which may be the last thing that this process lives to see.
    SkipFailure([&] { WriteStateOfSession(module, placement, tempFolder); });
    RemoveTemporaryFiles(module, tempFolder);
    SkipFailure([&] { AskAboutClipboard(module); });
    SkipFailure([&] { WriteLists(module); });
}

void SaveSessionSettings(const MainModule& module, const std::optional<MainViewPlacement>& placement) {
    SkipFailure([&] { WriteStateOfSession(module, placement, GetTempFolder(module)); });
    SkipFailure([&] { WriteLists(module); });
}

void WritePackageSettings(const MainModule& module, const std::string& folder) {
    const AppConfig& c = module.config;
    const std::string file = folder + "tavrix.ini";
    SkipFailure([&] { module.platform.files.Delete(file); });

    SettingsWriter write(module);
    write.Flag("Color256Msg", true);
    write.Number("MouseSensitivity", 4);
    write.Number("BackgroundColor", c.BackgroundColor);
    write.Number("StartupDialog", c.StartupDialog);
    write.Flag("ViewFullScreen", false);
    write.Flag("StretchImages", c.StretchImages);
    write.Flag("EnlargeImages", c.EnlargeImages);
    write.Flag("ClickScreenOpen", false);
    write.Flag("DisplayLastOpened", false);
    write.Flag("DeleteUntitled", true);
    write.Flag("ClearClipboard", true);
    write.Flag("TopMostWindow", false);
    write.Number("SoundMode", c.SoundMode);
    write.EmptyText("SoundFile");
    write.Number("CDTrack", c.CDTrack);
    write.Flag("SoundLoop", c.SoundLoop);
    write.Number("SlideInterval", c.SlideInterval);
    write.Flag("RandomSlides", c.RandomSlides);
    write.Flag("LoopSlideShow", c.LoopSlideShow);
    write.Flag("ShowFilenames", c.ShowFilenames);
    write.Flag("ShowDescription", c.ShowDescription);
    write.Flag("ShowToolbar", c.ShowToolbar);
    write.Number("PasswordDelay", c.PasswordDelay);
    write.Flag("SaveSlides", c.SaveSlides);
    write.Flag("SelectDuplicates", c.SelectDuplicates);
    write.EmptyText("LastOpenedFile");
    write.EmptyText("LastSlideShow");
    write.WriteTo(file);
}

}  // namespace tavrix
