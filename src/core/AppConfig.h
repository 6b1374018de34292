#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/ShowOptions.h"

namespace tavrix {

/// All user settings and short lists, one field for each key of tavrix.ini. Windows read and write it in memory;
/// the save procedures write back what they own. The initial values are those of missing keys.
///
/// The options of the show that the windows share are among the settings, and there only: the settings give them their
/// values at the start, a show's file replaces them, and the options dialog saves whatever they are then.
struct AppConfig : ShowOptions {
    bool Color256Msg = true;
    bool UseRecycleBin = true;
    bool UseRecentDocuments = true;
    std::int16_t QualityJPG = 8;       ///< 0 to 10
    std::int16_t RotateAngle = 180;    ///< degrees, 1 to 180
    std::int16_t RotateDirection = 0;  ///< 1 or 0
    bool RotatePreserve = false;
    bool ImageSizeAspect = false;
    std::int16_t MouseSensitivity = 4;  ///< 1 to 20; edited by hand only
    std::string CdRomDriveLetter;
    std::string DefaultFloppy = "A:\\";  ///< "A:\" or "B:\"
    bool TopMostWindow = false;
    bool SaveWindowSize = false;
    std::int32_t MainPosX = 0;      ///< twips
    std::int32_t MainPosY = 0;      ///< twips
    std::int32_t MainSizeX = 9510;  ///< twips
    std::int32_t MainSizeY = 7110;  ///< twips
    std::int16_t NewImageX = 640;   ///< pixels, 4 to 10000
    std::int16_t NewImageY = 480;   ///< pixels, 4 to 10000
    std::int16_t BackColorR = 0;    ///< 0 to 255
    std::int16_t BackColorG = 0;    ///< 0 to 255
    std::int16_t BackColorB = 0;    ///< 0 to 255
    bool NewGetsClipboard = false;
    bool DeleteUntitled = true;
    bool ClearClipboard = true;
    bool AutosizeWindow = true;
    bool ShowToolbar = false;
    std::int32_t ToolbarX = 0;  ///< twips
    std::int32_t ToolbarY = 0;  ///< twips
    bool SaveSlides = false;
    bool ResumeLastDisplayed = false;
    std::int16_t PasswordDelay = 0;       ///< 0 to 4
    std::int16_t ImageLastDisplayed = 0;  ///< not above 30000; negative values pass
    bool WindowMaximized = false;
    std::int16_t BackgroundColor = 0;  ///< 0 to 5
    std::int16_t StartupDialog = 1;    ///< 0 to 4
    bool ViewFullScreen = false;
    bool StretchImages = true;
    bool EnlargeImages = false;
    bool ClickScreenOpen = false;
    bool DisplayLastOpened = false;
    std::string LastCopyToPath;
    std::string ThumbnailExtension = "?";  ///< at most 3 characters
    bool ThumbnailDelete = false;
    bool OpenShowPreview = false;
    std::int16_t OpenPreviewTimer = 500;  ///< milliseconds, 1 to 5000
    bool WallpaperStretch = false;
    bool WallpaperAspect = false;
    bool SelectDuplicates = false;
    std::string LastSlideShow;
    bool KeepRecent = true;
    std::array<std::string, 7> Recent;          ///< Recent1 to Recent7, the latest first
    std::array<std::string, 20> RecentShows;    ///< RecentShow1 to RecentShow20
    std::array<std::string, 20> FavoriteFiles;  ///< FavoriteFile1 to FavoriteFile20; gaps stay
    std::string FavoriteFolder;
    std::array<std::string, 4> QuickFolder;      ///< names, at most 40 characters
    std::array<std::string, 4> QuickFolderPath;  ///< with a backslash at the end

    void SetShowOptions(const ShowOptions& options) { static_cast<ShowOptions&>(*this) = options; }
};

}  // namespace tavrix
