#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/LicenceTexts.h"
#include "platform/services/ProgramFiles.h"

namespace tavrix {

/// The program as it runs anywhere: its own files, the launchers that start it from a folder, and all that it needs of this
/// system. In a package these lie in one folder without subfolders; a name with '=' in it stands for a path below the
/// folder that a launcher makes (qt=platforms=libqxcb.so).
///
/// Of a program that runs from a package itself, they are that package's files.
class HostProgramFiles final : public ProgramFiles {
  public:
    /// A file that lies directly in a package.
    struct Entry {
        std::string name;
        bool opaque =
            false;  ///< nobody looks into it: where there is none of the name, a stand-in takes its place
    };
    /// A file that is looked for below a folder of the toolkit's or another library's own.
    struct Data {
        std::string name;  ///< with slashes
        std::string path;  ///< host path
    };
    struct Places {
        std::string executable;            ///< what starts the program
        std::string setup;                 ///< the program that installs
        std::string launchers;             ///< the folder of what lies directly in a package
        std::vector<std::string> folders;  ///< where the rest of that is looked for, such as the help file
        std::vector<Entry> layout;         ///< in the order in which they are copied
        std::string library;               ///< the name of the folder for all others
        std::string list;                  ///< the name of the list of what lies in that folder
        std::function<std::vector<Data>()> plugins = [] { return std::vector<Data>(); };
        std::string soundFonts;
        std::string keyboards = "/usr/share/X11/xkb";
        std::string audio = "/usr/share/alsa";
        LicencePlaces licences{};
    };

    /// All host paths. The list is written into the temporary folder of `files`.
    HostProgramFiles(HostFiles& files, DriveMap& drives, Places places)
        : files_(files), drives_(drives), places_(std::move(places)) {}

    /// Whether what packages are started by is installed here, or this runs from one itself.
    [[nodiscard]] bool Available() const;
    /// Throws 53 for a file that must be there and is not.
    std::vector<ProgramFile> List() override;

  private:
    /// The package that this runs from; empty where it runs from none.
    [[nodiscard]] std::string OwnPackage() const;
    [[nodiscard]] std::vector<ProgramFile> OfPackage(const std::string& folder);
    [[nodiscard]] std::vector<ProgramFile> OfSystem();
    [[nodiscard]] std::string PathOf(const Entry& entry) const;
    /// The drive path of the list of these names, which is written.
    [[nodiscard]] std::string WriteList(const std::vector<Data>& library);

    HostFiles& files_;
    DriveMap& drives_;
    Places places_;
};

}  // namespace tavrix
