#pragma once

#include <string>

namespace tavrix {

/// Where things lie on this system; host paths without a slash at the end. All of it can be moved by environment
/// variables, so that tests, demonstrations and sandboxes never touch a user's own state:
///
///   TAVRIX_HOME      the program's folder (tavrix.ini, SLIDES, help and tips)
///   TAVRIX_SHARED    the folder of the files that all users share, seen through the program's folder
///   TAVRIX_TEMP      the temporary folder
///   TAVRIX_CONFIG    the user's configuration folder of this program
///   TAVRIX_EXECUTABLE  what starts the program, where that is not its own file
///   TAVRIX_DRIVES    the drives, see DriveMap
///   XDG_CONFIG_HOME  holds tavrix/drives, tavrix/registry.ini and tavrix/settings, and the desktop's user-dirs.dirs
///   XDG_DATA_HOME    holds tavrix (the program's folder of an installed program) and recently-used.xbel
///   XDG_RUNTIME_DIR, TMPDIR, HOME   as everywhere
struct HostPaths {
    /// The folder of the executable when it can be written and nobody has installed it there, else a folder of the user's.
    std::string program;
    /// What is missing in the program's folder is looked for here; empty when there is no such folder.
    std::string shared;
    /// The temporary folder that is wanted, see TemporaryFolder. Empty: the usual places.
    std::string temporary;
    std::string config;      ///< the user's configuration folder of this program
    std::string data;        ///< the user's data folder of all programs
    std::string executable;  ///< what starts the program: mostly its own file
    std::string documents;   ///< the user's documents; it may have yet to be made

    /// `ofProgram` is the executable that these are the paths of; the running one when it is empty.
    [[nodiscard]] static HostPaths FromEnvironment(const std::string& ofProgram = {});
};

/// An environment variable, or `otherwise` when it is missing or empty.
[[nodiscard]] std::string EnvironmentValue(const char* name, const std::string& otherwise = {});

}  // namespace tavrix
