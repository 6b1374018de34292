#include "backends/linux/HostProgramFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>

#include "TestFolder.h"
#include "backends/linux/LateLibraryNames.h"
#include "backends/linux/LibraryClosure.h"
#include "base/Text.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

class HostProgramFilesTest : public ::testing::Test {
  protected:
    HostProgramFilesTest() {
        std::filesystem::create_directories(folder.At("app"));
        for (const char* program : {"app/tavrix", "app/tavrix-setup"})
            std::filesystem::copy_file("/proc/self/exe", folder.At(program));
        for (const char* file : {"TAVRIX.EXE", "SETUP.EXE", "OPAQUE.DLL", "LICENCE.TXT"})
            folder.Put(std::string("launchers/") + file, file);
        folder.Put("shared/TIPOFDAY.DAT", "tips");
        folder.Put("plugins/platforms/libq.so", "plugin");
        folder.Put("sounds/b.sf2", "font");
        folder.Put("sounds/chosen.sf2", "the system's choice");
        std::filesystem::create_symlink("chosen.sf2", folder.At("sounds/default-GM.sf2"));
        folder.Put("xkb/rules/evdev", "rules");
        folder.Put("xkb/types/Basic", "types");
        folder.Put("xkb/types/basic", "its look-alike");
        folder.Put("xkb/types/a:b", "a name that not every disk takes");
        folder.Put("xkb/symbols/us", "symbols");
        folder.Put("xkb/symbols/de", "symbols of a language");
        folder.Put("alsa/alsa.conf", "audio");
        folder.Put("alsa/pcm/front.conf", "audio");
        places.executable = folder.At("app/tavrix");
        places.setup = folder.At("app/tavrix-setup");
        places.launchers = folder.At("launchers");
        places.folders = {folder.At("shared"), folder.At("app")};
        places.layout = {{"TAVRIX.EXE"}, {"TIPOFDAY.DAT"}, {"SETUP.EXE"}, {"SETUP.LST"}, {"GIF89.DLL", true}};
        places.library = "TAVRIX.LIB";
        places.list = "SETUP.LST";
        places.plugins = [this] {
            return std::vector<HostProgramFiles::Data>{
                {"platforms/libq.so", folder.At("plugins/platforms/libq.so")}};
        };
        places.soundFonts = folder.At("sounds");
        places.keyboards = folder.At("xkb");
        places.audio = folder.At("alsa");
        places.licences = {folder.At("info"), folder.At("doc")};
    }

    std::vector<ProgramFile> List() { return HostProgramFiles(files, map, places).List(); }
    /// The host path of each name.
    std::map<std::string, std::string> ByName() {
        std::map<std::string, std::string> found;
        for (const ProgramFile& file : List())
            found[file.name] = files.HostPathOf(file.source);
        return found;
    }

    TestFolder folder;
    HostProgramFiles::Places places;
    HostPaths paths = [this] {
        HostPaths own;
        own.temporary = folder.At("temporary");
        return own;
    }();
    DriveMap map{DriveMap::Sources{.drives = "C=/", .file = {}, .program = {}, .shared = {}}};
    HostFiles files{map, paths};
};

TEST_F(HostProgramFilesTest, TheLayoutComesFirstAndInItsOrder) {
    folder.Put("shared/TAVRIX.EXE", "not the launcher");
    const auto list = List();
    ASSERT_GT(list.size(), places.layout.size());
    for (std::size_t i = 0; i < places.layout.size(); ++i)
        EXPECT_EQ(list[i].name, places.layout[i].name);
    auto found = ByName();
    EXPECT_EQ(found["TAVRIX.EXE"], folder.At("launchers/TAVRIX.EXE"));
    EXPECT_EQ(found["TIPOFDAY.DAT"], folder.At("shared/TIPOFDAY.DAT"));
    EXPECT_EQ(found["GIF89.DLL"], folder.At("launchers/OPAQUE.DLL"));
}

TEST_F(HostProgramFilesTest, WhatNoLinkerShowsIsThere) {
    auto found = ByName();
    EXPECT_EQ(found["TAVRIX.LIB\\tavrix"], folder.At("app/tavrix"));
    EXPECT_EQ(found["TAVRIX.LIB\\tavrix-setup"], folder.At("app/tavrix-setup"));
    EXPECT_TRUE(found.contains("TAVRIX.LIB\\ld.so"));
    EXPECT_TRUE(found.contains("TAVRIX.LIB\\libc.so.6"));
    EXPECT_EQ(found["TAVRIX.LIB\\qt=platforms=libq.so"], folder.At("plugins/platforms/libq.so"));
    EXPECT_EQ(found["TAVRIX.LIB\\sounds=chosen.sf2"], folder.At("sounds/chosen.sf2"));
    EXPECT_FALSE(found.contains("TAVRIX.LIB\\sounds=default-GM.sf2"));
    EXPECT_FALSE(found.contains("TAVRIX.LIB\\sounds=b.sf2"));
    EXPECT_EQ(found["TAVRIX.LIB\\xkb=rules=evdev"], folder.At("xkb/rules/evdev"));
    EXPECT_EQ(found["TAVRIX.LIB\\xkb=symbols=us"], folder.At("xkb/symbols/us"));
    EXPECT_FALSE(found.contains("TAVRIX.LIB\\xkb=symbols=de"));
    EXPECT_FALSE(found.contains("TAVRIX.LIB\\xkb=types=a:b"));
    EXPECT_FALSE(found.contains("TAVRIX.LIB\\xkb=rules=base")) << "it is not there";
    EXPECT_EQ(found["TAVRIX.LIB\\alsa=alsa.conf"], folder.At("alsa/alsa.conf"));
    EXPECT_EQ(found["TAVRIX.LIB\\alsa=pcm=front.conf"], folder.At("alsa/pcm/front.conf"));
    EXPECT_EQ(found["TAVRIX.LIB\\LICENCE.TXT"], folder.At("launchers/LICENCE.TXT"));
}

TEST_F(HostProgramFilesTest, NoTwoNamesDifferInCaseAloneAndNoneIsALink) {
    std::set<std::string> names;
    for (const auto& [name, path] : ByName()) {
        EXPECT_TRUE(names.insert(UpperCase(name)).second) << name;
        EXPECT_EQ(std::filesystem::canonical(path).string(), path);
    }
    EXPECT_TRUE(names.contains("TAVRIX.LIB\\XKB=TYPES=BASIC"));
}

TEST_F(HostProgramFilesTest, TheListNamesWhatLiesInTheFolder) {
    std::string wanted;
    for (const ProgramFile& file : List()) {
        if (file.name.starts_with("TAVRIX.LIB\\")) wanted += file.name.substr(11) + "\r\n";
    }
    const std::string path = ByName()["SETUP.LST"];
    EXPECT_EQ(ReadWholeFile(path), wanted);
    EXPECT_TRUE(path.starts_with(folder.At("temporary") + "/")) << path;
}

TEST_F(HostProgramFilesTest, LicencesOfWhatIsCarriedGoAlong) {
    folder.Put("info/soundfont.list", folder.At("sounds/chosen.sf2") + "\n");
    folder.Put("doc/soundfont/copyright", "licence");
    EXPECT_EQ(ByName()["TAVRIX.LIB\\licences=soundfont"], folder.At("doc/soundfont/copyright"));
}

TEST_F(HostProgramFilesTest, WhatPluginsNeedAndWhatIsLoadedLateGoesAlong) {
    // A program that needs next to nothing by itself.
    for (const std::string& program : {places.executable, places.setup})
        std::filesystem::copy_file("/bin/true", program, std::filesystem::copy_options::overwrite_existing);
    auto found = ByName();
    for (const SharedLibrary& late : ClosureOf("/bin/true", {}, LateLibraryNames).libraries)
        EXPECT_TRUE(found.contains("TAVRIX.LIB\\" + late.name)) << late.name;
    // Any library that brings one along which is not there yet.
    for (const SharedLibrary& plugin : ClosureOf("/proc/self/exe", {}, {}).libraries) {
        const std::array<std::string, 1> alone{plugin.path};
        for (const SharedLibrary& needed : ClosureOf("/bin/true", alone, {}).libraries) {
            if (found.contains("TAVRIX.LIB\\" + needed.name)) continue;
            places.plugins = [&] {
                return std::vector<HostProgramFiles::Data>{{"generic/libp.so", plugin.path}};
            };
            EXPECT_TRUE(ByName().contains("TAVRIX.LIB\\" + needed.name)) << needed.name;
            return;
        }
    }
    GTEST_SKIP() << "each library here is loaded late as well";
}

TEST_F(HostProgramFilesTest, ANameThatIsTakenByAnotherIsAFailure) {
    using Data = HostProgramFiles::Data;
    const Data plugin{"platforms/libq.so", folder.At("plugins/platforms/libq.so")};
    places.plugins = [&] { return std::vector<Data>{plugin, plugin}; };
    EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(List()); }), 0);
    folder.Put("plugins/other.so", "another");
    places.plugins = [&] {
        return std::vector<Data>{plugin, {"platforms/LIBQ.SO", folder.At("plugins/other.so")}};
    };
    EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(List()); }), 58);
    places.plugins = [&] { return std::vector<Data>{plugin, {plugin.name, folder.At("plugins/other.so")}}; };
    EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(List()); }), 58);
}

TEST_F(HostProgramFilesTest, WhatIsMissingIsAFailure) {
    const auto fails = [this](const std::string& name) {
        const std::filesystem::path path = folder.At(name);
        std::filesystem::rename(path, path.string() + ".away");
        EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(List()); }), 53) << name;
        std::filesystem::rename(path.string() + ".away", path);
    };
    for (const char* name : {"app/tavrix", "app/tavrix-setup", "launchers/TAVRIX.EXE",
                             "launchers/LICENCE.TXT", "shared/TIPOFDAY.DAT", "plugins/platforms/libq.so"})
        fails(name);
    EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(List()); }), 0);
}

TEST_F(HostProgramFilesTest, APackageHandsOutItself) {
    folder.Put("stick/SETUP.LST", "tavrix\r\nqt=a.so\r\n../letter\r\n..\r\n.\r\n\r\na\\b\r\n");
    places.executable = folder.At("stick/TAVRIX.EXE");
    places.launchers.clear();
    HostProgramFiles programFiles(files, map, places);
    EXPECT_TRUE(programFiles.Available());
    const auto list = programFiles.List();
    ASSERT_EQ(list.size(), places.layout.size() + 2);
    EXPECT_EQ(list[1], (ProgramFile{"TIPOFDAY.DAT", map.ToDrivePath(folder.At("stick/TIPOFDAY.DAT"))}));
    EXPECT_EQ(list[6],
              (ProgramFile{"TAVRIX.LIB\\qt=a.so", map.ToDrivePath(folder.At("stick/TAVRIX.LIB/qt=a.so"))}));
}

TEST_F(HostProgramFilesTest, AFolderThatIsNotKnownIsNotTheRoot) {
    places.folders = {""};
    places.layout = {{folder.At("shared/TIPOFDAY.DAT").substr(1)}};
    EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(List()); }), 53);
}

TEST_F(HostProgramFilesTest, NoPackageIsOfferedWithoutLaunchers) {
    EXPECT_TRUE(HostProgramFiles(files, map, places).Available());
    places.launchers.clear();
    EXPECT_FALSE(HostProgramFiles(files, map, places).Available());
}

}  // namespace
}  // namespace tavrix
