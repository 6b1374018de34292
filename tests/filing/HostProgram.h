#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/HostDrives.h"
#include "backends/linux/HostFiles.h"
#include "core/MainModule.h"
#include "linux/TestFolder.h"

namespace tavrix::test {

/// Real files behind A:, a folder that stands for a floppy, C:, a folder of the usual temporary one, and D:, one on another
/// file system, as every user has it.
class HostDisks {
  public:
    HostDisks() {
        folder.PutFolder("c/p");
        folder.PutFolder("c/q");
        folder.PutFolder("a");
    }
    HostDisks(const HostDisks&) = delete;
    HostDisks& operator=(const HostDisks&) = delete;
    ~HostDisks() {
        std::error_code error;
        if (!other.empty()) std::filesystem::remove_all(other, error);
    }
    [[nodiscard]] bool OnTwoFileSystems() const {
        struct stat a {};
        struct stat b {};
        return !other.empty() && ::stat(folder.Path().c_str(), &a) == 0 && ::stat(other.c_str(), &b) == 0 &&
               a.st_dev != b.st_dev;
    }

    TestFolder folder;
    std::string other = [] {
        std::string name = "/dev/shm/tavrix-test-XXXXXX";
        return ::mkdtemp(name.data()) != nullptr ? name : std::string();
    }();
};

/// The program on such files, with its windows in memory and a temporary folder C:\Temp.
class HostProgram {
  public:
    explicit HostProgram(const HostDisks& disks) : map(Sources(disks)), files(map, Paths(disks)) {
        files.ChangeDrive("C");
        files.ChangeFolder("C:\\p");
        module.AppPath = "C:\\q\\";
    }

    /// The user has a dialog carry these files.
    template <class Dialog>
    void Carry(const std::string& from, const std::string& to, const std::vector<std::string>& names,
               int boxes) {
        auto& dialog = app.Load<Dialog>(module);
        dialog.Show();
        dialog.Source.GoTo(from);
        dialog.Destination.GoTo(to);
        dialog.File1.SelectNone();
        for (int row = 0; row < dialog.File1.ListCount(); ++row) {
            if (std::ranges::find(names, dialog.File1.List(row)) != names.end()) dialog.File1.Select(row);
        }
        for (int box = 0; box < boxes; ++box)
            toolkit.Expect({.text = "", .reply = forms::Answer::Yes});
        dialog.CmdCopy.Deliver(forms::ClickEvent{});
    }

  private:
    static DriveMap::Sources Sources(const HostDisks& disks) {
        DriveMap::Sources sources;
        sources.drives =
            "A=" + disks.folder.At("a") + ",floppy,disk;C=" + disks.folder.At("c") + ";D=" + disks.other;
        return sources;
    }

    static HostPaths Paths(const HostDisks& disks) {
        HostPaths paths;
        paths.temporary = disks.folder.At("c/Temp");
        return paths;
    }

  public:
    headless::HeadlessServices rest;
    headless::HeadlessToolkit toolkit;
    DriveMap map;
    HostFiles files;
    HostDrives drives{map};
    Services services{files,        drives,           rest.profile,  rest.registry,
                      rest.store,   rest.shell,       rest.pictures, rest.clipboard,
                      rest.sound,   rest.help,        rest.system,   rest.process,
                      rest.viewLib, rest.wakefulness, rest.desktop,  rest.saverPassword};
    forms::Application app{toolkit};
    MainModule module{app, services};
};

}  // namespace tavrix::test
