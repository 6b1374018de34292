#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>

#include "linux/TestFolder.h"
#include "setup/Installation.h"

namespace tavrix::setup {

/// A package on a stick, and a user who has a few things of his own.
class SetupTest : public ::testing::Test {
  protected:
    SetupTest() {
        folder.Put("stick/TAVRIX.EXE", "launcher");
        folder.Put("stick/README.TXT", "read");
        folder.Put("stick/SETUP.LST", "libx.so\r\nqt=platforms=libq.so\r\n../user/letter\r\nlib/deep.so\r\n");
        folder.Put("stick/TAVRIX.LIB/libx.so", "library");
        folder.Put("stick/TAVRIX.LIB/qt=platforms=libq.so", "plugin");
        folder.Put("stick/SLIDES/Größe.tvs", "show");
        folder.Put("stick/SLIDES/a.bmp", "picture");
        folder.Put("stick/SLIDES/deep/er/b.bmp", "picture below");
        folder.Put("stick/tavrix.ini", "[Viewer]\r\nStretchImages=True\r\n");
        folder.Put("stick/letter", "somebody's own");
        PutNotes("True", "True", "True");
        folder.Put("user/data/applications/other.desktop", "other");
        folder.Put("user/letter", "own");
    }

    void PutNotes(const std::string& saver, const std::string& makeDefault,
                  const std::string& shortcut) const {
        folder.Put("stick/setup.ini", "[Tavrix Setup]\r\nSlideShowFile=Größe.tvs\r\nSlideShowName=" + name +
                                          "\r\nInstallSize=7.5\r\nScreenSaver=" + saver +
                                          "\r\nMakeDefaultSaver=" + makeDefault +
                                          "\r\nSlideShowShortcut=" + shortcut + "\r\n");
    }
    /// The user has a screen saver already.
    void WriteFormer(const std::string& saver) const {
        folder.Put("user/config/tavrix/settings", "[Settings]\nCurrentSaver=" + saver + "\n");
    }
    [[nodiscard]] std::string Stick() const { return folder.At("stick"); }
    [[nodiscard]] std::string Target() const { return InstallFolder(places, name); }
    [[nodiscard]] std::string InTarget(const std::string& file) const {
        return folder.Content("user/data/tavrix-packages/" + name + "/" + file);
    }
    bool Install(const Progress& progress = {}) { return setup::Install(Stick(), names, places, progress); }
    bool Remove() { return setup::Remove(Target(), names, places); }

    /// All of the user's, and of the stick's, by paths; folders hold "folder".
    [[nodiscard]] std::map<std::string, std::string> All() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
            const std::string path = std::filesystem::relative(entry.path(), folder.Path()).string();
            all[path] = entry.is_directory() ? "folder" : folder.Content(path);
        }
        return all;
    }
    /// The texts of the entries in the menu that are not the user's.
    [[nodiscard]] std::vector<std::string> Entries() const {
        std::vector<std::string> texts;
        for (const auto& entry : std::filesystem::directory_iterator(folder.At("user/data/applications"))) {
            const std::string file = entry.path().filename().string();
            if (file != "other.desktop") texts.push_back(folder.Content("user/data/applications/" + file));
        }
        std::ranges::sort(texts);
        return texts;
    }

    TestFolder folder;
    std::string name = "Trip";
    PackageNames names{
        .files = {"TAVRIX.EXE", "README.TXT", "SETUP.LST", "TVS.ICO", "setup.ini", "tavrix.ini"},
        .library = "TAVRIX.LIB",
        .list = "SETUP.LST",
        .slides = "SLIDES",
        .notes = "setup.ini"};
    UserPlaces places{folder.At("user/data"), folder.At("user/config/tavrix/settings"),
                      [](const std::string& path) {
                          std::string drivePath = "C:" + path;
                          std::ranges::replace(drivePath, '/', '\\');
                          return drivePath;
                      }};
};

}  // namespace tavrix::setup
