#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/MainModule.h"
#include "platform/services/ProgramFiles.h"

namespace tavrix::package {

/// A package's folder for the show with its pictures and its sound.
inline constexpr const char* SlidesFolder = "SLIDES";
/// Its folder for the libraries that the program needs where it is not installed. What lies in it stands in LibraryList.
inline constexpr const char* LibraryFolder = "TAVRIX.LIB";
/// The names of the files in LibraryFolder, a line each.
inline constexpr const char* LibraryList = "SETUP.LST";
inline constexpr const char* ProgramName = "TAVRIX.EXE";
inline constexpr const char* SetupIni = "setup.ini";
inline constexpr const char* SettingsIni = "tavrix.ini";

/// A file of the program that lies directly in a package.
struct LayoutEntry {
    std::string_view name;
    bool ofSystem = false;             ///< it comes from the system's folder, and else from the program's
    std::string_view sourceName = {};  ///< empty: the same
};

/// In the order in which they are copied.
inline constexpr std::array<LayoutEntry, 21> Layout{{{"TAVRIX.EXE"},
                                                     {"TAVRIX.HLP"},
                                                     {"README.TXT"},
                                                     {"TIPOFDAY.DAT"},
                                                     {"TVS.ICO"},
                                                     {"TAVRIX.ICO"},
                                                     {"SETUP.EXE"},
                                                     {"SETUP.LST"},
                                                     {"SETUP1.EXE"},
                                                     {"UN-SETUP.EXE"},
                                                     {"TAVRIXRT.DLL", true},
                                                     {"NVIEWLIB.DLL", true},
                                                     {"TAVRIXLNK.DLL", true},
                                                     {"GIF89.DLL", true},
                                                     {"OLEAUT32.DLL", true},
                                                     {"OLEPRO32.DLL", true},
                                                     {"ASYCFILT.DLL", true},
                                                     {"COMCAT.DLL", true},
                                                     {"STDOLE2.TLB", true},
                                                     {"TavrixSCR.SCR", true, "Tavrix Screen Saver.SCR"},
                                                     {"TAVRIXSCR.DAT", true}}};

/// What a package holds besides, once it has been set up or used.
inline constexpr std::array<std::string_view, 4> WrittenFiles{"SETUP.INI", "tavrix.ini", "SETUPTMP.EXE",
                                                              "TAVRIX.GID"};

/// The files of an installation that keeps them where the layout says: in the program's folder and the system's.
class InstalledFiles final : public ProgramFiles {
  public:
    explicit InstalledFiles(const MainModule& module) : module_(module) {}
    std::vector<ProgramFile> List() override;

  private:
    const MainModule& module_;
};

}  // namespace tavrix::package
