#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// What the user entered about a package, as the settings keep it.
struct PackageValues {
    std::string PackageName = "Untitled";
    std::string PackageSource;            ///< the folder of the show
    std::string PackageDestination;       ///< the package's folder
    std::string PackageSize = "Unknown";  ///< in megabytes
    bool PackageScreenSaver = false;
    bool PackageDefaultSaver = true;
    bool PackageShortcut = false;

    friend bool operator==(const PackageValues&, const PackageValues&) = default;
};

/// Reads the values of the last package; what cannot be read has its default.
[[nodiscard]] PackageValues LoadPackageSettings(const MainModule& module);

/// Writes them. Paths and names that may have been cut when they were read, and have not changed since, stay in the file
/// as they are. A file that cannot be written keeps its values: no failure, no message.
void SavePackageSettings(const MainModule& module, const PackageValues& values);

/// Writes the file that tells the installer about a show, by its file name. Failures are those of Profile::Write.
void WriteSetupIni(const MainModule& module, const PackageValues& values, const std::string& show);

/// The name that the file in a folder gives the package; empty where it has none.
[[nodiscard]] std::string NameInSetupIni(const MainModule& module, const std::string& folder);

}  // namespace tavrix
