#pragma once

#include <optional>
#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// The main view's place on the screen in twips, while it is neither minimised nor maximised.
struct MainViewPlacement {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

/// The settings file of the program: tavrix.ini in its folder.
[[nodiscard]] std::string SettingsFile(const MainModule& module);

/// Reads all settings, repairs bad values, and makes the folder for slide shows where it is missing. Nothing in the
/// file stops the program or brings a message.
void LoadSettings(MainModule& module);

/// Writes what the preferences dialog owns. A file that cannot be written keeps its old values: no failure, no message.
void SavePreferenceSettings(const MainModule& module);

/// Writes what the slide options own; failures as above.
void SaveSlideSettings(const MainModule& module);

/// Writes what the settings of the screen saver own, and the recent shows while they are kept; failures as above.
void SaveSaverSettings(const MainModule& module);

/// Writes what is saved at exit, removes the temporary files that are due, and asks about an image on the clipboard.
/// Failures are skipped: the process ends all the same.
void SaveAllSettings(MainModule& module, const std::optional<MainViewPlacement>& placement);

/// Writes what is saved at exit, and no more: nothing is removed or asked. Failures are skipped.
void SaveSessionSettings(const MainModule& module, const std::optional<MainViewPlacement>& placement);

/// Writes a fresh settings file for a slide show package into a folder (with a backslash at the end). Failures are
/// those of Profile::Write.
void WritePackageSettings(const MainModule& module, const std::string& folder);

}  // namespace tavrix
