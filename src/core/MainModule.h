#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/AppConfig.h"
#include "core/Random.h"
#include "core/SlideShow.h"
#include "platform/forms/Application.h"
#include "platform/services/Services.h"

namespace tavrix {

/// The state that all windows share, for the whole life of the process, with the platform that they work on.
struct MainModule {
    MainModule(forms::Application& application, const Services& services)
        : app(application), platform(services) {}

    forms::Application& app;
    const Services& platform;

    AppConfig config;
    SlideShow show;
    Random random;
    std::string AppPath;       ///< the program's folder, with a backslash at the end
    std::string CommandText;   ///< the command line as the start leaves it
    std::string CurrentImage;  ///< the path of the image on show; empty for none
    /// The working files that alone hold an edit which nobody was asked about, see core/KeptWorkingFiles.h.
    std::vector<std::string> KeptWorkingFiles;
    /// The start left the image of the last time unseen and none has been opened since: the settings keep it.
    bool LastOpenedStays = false;
    bool ScreenSaverMode = false;
    bool StartedAsShow = false;
    bool SlideShowActive = false;
    std::string StageImage;           ///< what the stage shows while SlideShowActive is off
    bool StageImageAnimated = false;  ///< it is an animated GIF that is to be played
    bool CancelCopy = false;          ///< set by the copy window, polled by the copying loops

    // What the checks at start found out.
    bool ShowDisplayDialog = false;
    std::int32_t FrameWidth = 0;   ///< both sizing borders, twips
    std::int32_t FrameHeight = 0;  ///< both sizing borders, twips
    bool WaveDevicePresent = false;
    bool MidiDevicePresent = false;
    bool CdDevicePresent = false;
    bool FirstRun = false;
    std::int32_t OsPlatformId = 0;
    bool UsePassword = false;

    std::string HelpFile;  ///< set by InitHelp

    /// Shows the recent files in the menu. The main view sets it while it is loaded.
    std::function<void()> RefreshRecentMenu = [] {};

    /// Texts of tavrix.ini that may have been longer than the 127 characters that are read, by key, as they stand in
    /// the settings. They are written only once they have changed, so that no text in the file is cut.
    std::map<std::string, std::string> PerhapsCut;

    [[nodiscard]] forms::Screen& Screen() const { return app.Screen(); }
    void DoEvents() const { app.DoEvents(); }
    /// Whether an operation is running: the screen's pointer is the program's lock.
    [[nodiscard]] bool Busy() const {
        return app.Screen().MousePointer.Get() != forms::MousePointer::Default;
    }
};

/// The name of the product, as titles and messages say it.
inline constexpr const char* ProductName = "Tavrix";

}  // namespace tavrix
