#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "setup/Package.h"

namespace tavrix::setup {

/// Where a user's things lie; host paths without a slash at the end.
struct UserPlaces {
    std::string data;   ///< of all programs
    std::string store;  ///< the file of the values that Tavrix keeps for the user apart from its folder
    std::function<std::string(const std::string&)> drivePath;  ///< of a host path
};

/// Told after each file; false to give up.
using Progress = std::function<bool(std::int64_t bytesDone)>;

/// Where the package of that name is, or would be, installed.
[[nodiscard]] std::string InstallFolder(const UserPlaces& places, const std::string& name);

/// Whether a folder is what Install has made of a package.
[[nodiscard]] bool IsInstalled(const std::string& folder, const PackageNames& names);

/// Installs the package in a folder for the user: its files, the entries of the menu and the user's screen saver, as it
/// notes. False when it was given up. A failure or that leaves everything as it was; throws the failure, and 58 where
/// InstallFolder is taken.
bool Install(const std::string& package, const PackageNames& names, const UserPlaces& places,
             const Progress& progress = {});

/// Removes what Install has made in a folder and for it, the program's own settings in it too. The screen saver of before
/// is the user's again, unless another has been chosen since. What else lies in the folder stays; whether something does.
/// Throws 53 for a folder that Install has not made, and the first failure, after which it may be tried again.
bool Remove(const std::string& folder, const PackageNames& names, const UserPlaces& places);

}  // namespace tavrix::setup
