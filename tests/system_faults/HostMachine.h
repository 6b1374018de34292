#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "backends/headless/HeadlessServices.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostDrives.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/HostPaths.h"
#include "backends/linux/HostPictures.h"
#include "backends/linux/HostProfile.h"
#include "backends/linux/HostViewLib.h"
#include "linux/TestFolder.h"

namespace tavrix::test {

/// A machine whose files are real ones below a folder of the test's own (C: is its folder c, the program's folder
/// C:\Tavrix); all that is no file is in memory.
class HostMachine {
  public:
    HostMachine() {
        folder.PutFolder("c/Tavrix/SLIDES");
        folder.PutFolder("c/p");
        folder.PutFolder("c/q");
        rest.store.Set("EXEPath", "C:\\Tavrix\\");
        rest.store.Set("ProgramRun", "1");
        rest.store.Set("Show Tips at Startup", "0");
        files.ChangeDrive("C");
        files.ChangeFolder("C:\\p");
    }
    HostMachine(const HostMachine&) = delete;
    HostMachine& operator=(const HostMachine&) = delete;

    /// All files below C:, hidden ones too, by their path below it ("p/a.bmp").
    [[nodiscard]] std::map<std::string, std::string> AllFiles() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.At("c"))) {
            if (!entry.is_regular_file()) continue;
            const std::string path = std::filesystem::relative(entry.path(), folder.At("c")).string();
            contents[path] = folder.Content("c/" + path);
        }
        return contents;
    }

    TestFolder folder;

  private:
    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.At("c");
        sources.program = folder.At("c/Tavrix");
        return sources;
    }
    [[nodiscard]] HostPaths Paths() const {
        HostPaths paths;
        paths.program = folder.At("c/Tavrix");
        paths.temporary = folder.At("c/Temp");
        paths.data = folder.At("data");
        return paths;
    }

  public:
    headless::HeadlessServices rest;
    DriveMap map{Sources()};
    HostFiles files{map, Paths()};
    HostDrives drives{map};
    HostProfile profile{map};
    HostPictures pictures{files};
    HostViewLib viewLib{files};
    Services services{files,    drives,           profile,      rest.registry,     rest.store,  rest.shell,
                      pictures, rest.clipboard,   rest.sound,   rest.help,         rest.system, rest.process,
                      viewLib,  rest.wakefulness, rest.desktop, rest.saverPassword};
};

}  // namespace tavrix::test
