#include "backends/linux/HostProfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "KilledChild.h"
#include "TestFolder.h"
#include "backends/linux/HostRegistry.h"
#include "backends/linux/HostUserStore.h"
#include "backends/shared/ProfileText.h"
#include "base/Text.h"

namespace tavrix {
namespace {

class HostProfileTest : public testing::Test {
  protected:
    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.Path();
        sources.program = folder.At("user");
        sources.shared = folder.At("shared");
        return sources;
    }
    void Write(const std::string& key, const std::string& value, const std::string& file = "C:\\tavrix.ini") {
        profile.Write("Viewer", std::array{ProfileEntry{key, value}}, file);
    }
    [[nodiscard]] std::ptrdiff_t Entries() const {
        return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
    }

    TestFolder folder;
    DriveMap drives{Sources()};
    HostProfile profile{drives};
};

TEST_F(HostProfileTest, WhatIsForeignSurvives) {
    folder.Put("tavrix.ini",
               "; by hand \xE4\r\n[Viewer]\r\n;MouseSensitivity=3\r\nMouseSensitivity=7\r\nUnknown=kept\r\n"
               "QualityJPG=8\r\n\r\n[Package]\r\nPackageName=Holiday\r\n");
    const std::array entries{ProfileEntry{"QualityJPG", "5"},
                             ProfileEntry{"LastOpenedFile", "C:\\\u00e4.bmp"}};
    profile.Write("Viewer", entries, "C:\\TAVRIX.INI");
    EXPECT_EQ(folder.Content("tavrix.ini"),
              "; by hand \xE4\r\n[Viewer]\r\n;MouseSensitivity=3\r\nMouseSensitivity=7\r\nUnknown=kept\r\n"
              "QualityJPG=5\r\nLastOpenedFile=C:\\\xE4.bmp\r\n\r\n[Package]\r\nPackageName=Holiday\r\n");
    const ProfileSection viewer = profile.Read("Viewer", "C:\\tavrix.ini");
    EXPECT_EQ(viewer.Read("MouseSensitivity"), "7");
    EXPECT_EQ(viewer.Read("LastOpenedFile"), "C:\\\u00e4.bmp");
    EXPECT_EQ(profile.Read("Package", "C:\\tavrix.ini").Read("PackageName"), "Holiday");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(HostProfileTest, MissingIsEmptyAndAWriteMakesIt) {
    EXPECT_FALSE(profile.Read("Viewer", "C:\\tavrix.ini").Has("X"));
    EXPECT_FALSE(profile.Read("Viewer", "Q:\\none\\tavrix.ini").Has("X"));
    Write("X", "1");
    EXPECT_EQ(folder.Content("tavrix.ini"), "[Viewer]\r\nX=1\r\n");
    EXPECT_EQ(ErrorOfCall([&] { Write("X", "1", "C:\\none\\tavrix.ini"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { Write("X", "1", "Q:\\tavrix.ini"); }), 68);
}

TEST_F(HostProfileTest, KeepsModeAndLinks) {
    folder.Put("real/settings.ini", "[Viewer]\nX=1\n");
    ::chmod(folder.At("real/settings.ini").c_str(), 0604);
    std::filesystem::create_symlink("real/settings.ini", folder.At("tavrix.ini"));
    Write("X", "2");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.At("tavrix.ini")));
    EXPECT_EQ(folder.Content("real/settings.ini"), "[Viewer]\nX=2\n");
    struct stat status {};
    ASSERT_EQ(::stat(folder.At("real/settings.ini").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0604U);
}

TEST_F(HostProfileTest, AReadOnlyFileStaysAsItIs) {
    folder.Put("tavrix.ini", "[Viewer]\r\nX=1\r\n");
    ::chmod(folder.At("tavrix.ini").c_str(), 0444);
    EXPECT_EQ(ErrorOfCall([&] { Write("X", "2"); }), 70);
    EXPECT_EQ(folder.Content("tavrix.ini"), "[Viewer]\r\nX=1\r\n");
    folder.PutFolder("folder.ini");
    EXPECT_EQ(ErrorOfCall([&] { Write("X", "2", "C:\\folder.ini"); }), 75);
}

TEST_F(HostProfileTest, AFileThatCouldNotBeReadIsNotWrittenLater) {
    folder.Put("real.ini", "[Viewer]\r\nX=1\r\n");
    // Nobody reads through a folder, and no link in a ring can be followed.
    folder.PutFolder("tavrix.ini");
    std::filesystem::create_symlink("ring.ini", folder.At("ring.ini"));
    EXPECT_FALSE(profile.Read("Viewer", "C:\\tavrix.ini").Has("X"));
    EXPECT_FALSE(profile.Read("Viewer", "C:\\ring.ini").Has("X"));
    for (const char* name : {"tavrix.ini", "ring.ini"}) {
        std::filesystem::remove(folder.At(name));
        std::filesystem::rename(folder.At("real.ini"), folder.At(name));
        const std::string path = std::string("C:\\") + name;
        EXPECT_EQ(ErrorOfCall([&] { Write("X", "2", path); }), 70) << name;
        // To read it now helps nothing: the settings are long in use.
        EXPECT_EQ(profile.Read("Viewer", path).Read("X"), "1");
        EXPECT_EQ(ErrorOfCall([&] { Write("X", "2", UpperCase(path)); }), 70) << name;
        EXPECT_EQ(folder.Content(name), "[Viewer]\r\nX=1\r\n");
        std::filesystem::rename(folder.At(name), folder.At("real.ini"));
        // Where nothing stands, nothing is lost.
        Write("X", "2", path);
        EXPECT_EQ(folder.Content(name), "[Viewer]\r\nX=2\r\n");
    }
    EXPECT_FALSE(HostProfile(drives).Read("Viewer", "C:\\none.ini").Has("X"));
    Write("X", "3", "C:\\none.ini");  // missing is not unreadable
}

TEST_F(HostProfileTest, AForbiddenFileKeepsItsLinesWhenItIsAllowedAgain) {
    folder.Put("tavrix.ini", "[Viewer]\r\nX=1\r\n");
    ::chmod(folder.Path().c_str(), 0777);
    ::chmod(folder.At("tavrix.ini").c_str(), 0000);
    const pid_t child = ::fork();
    if (child == 0) {
        // The superuser is kept out by no mode.
        constexpr uid_t Nobody = 65534;
        const uid_t self = ::geteuid();
        if (self == 0 && ::seteuid(Nobody) != 0) ::_exit(99);
        if (profile.Read("Viewer", "C:\\tavrix.ini").Has("X")) ::_exit(98);
        if (self == 0 && ::seteuid(self) != 0) ::_exit(97);
        ::chmod(folder.At("tavrix.ini").c_str(), 0666);
        ::_exit(ErrorOfCall([&] { Write("X", "default"); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 70);
    EXPECT_EQ(folder.Content("tavrix.ini"), "[Viewer]\r\nX=1\r\n");
}

TEST_F(HostProfileTest, EqualValuesWriteNothing) {
    folder.Put("tavrix.ini", "[Viewer]\r\nX=1\r\n");
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::stat(folder.At("tavrix.ini").c_str(), &before), 0);
    Write("X", "1");
    ASSERT_EQ(::stat(folder.At("tavrix.ini").c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(before.st_mtim.tv_nsec, after.st_mtim.tv_nsec);
}

TEST_F(HostProfileTest, StartsFromTheSharedFile) {
    folder.Put("shared/tavrix.ini", "[Viewer]\nX=1\nY=2\n");
    folder.PutFolder("user");
    EXPECT_EQ(profile.Read("Viewer", "C:\\user\\tavrix.ini").Read("X"), "1");
    Write("X", "3", "C:\\user\\tavrix.ini");
    EXPECT_EQ(folder.Content("user/tavrix.ini"), "[Viewer]\nX=3\nY=2\n");
    EXPECT_EQ(folder.Content("shared/tavrix.ini"), "[Viewer]\nX=1\nY=2\n");
}

/// Whether the file is one that some write has left: foreign lines whole, and all keys of one generation.
void ExpectWhole(const std::string& content) {
    ASSERT_TRUE(content.starts_with("; foreign\r\n[Viewer]\r\nMouseSensitivity=7\r\n")) << content;
    ASSERT_TRUE(content.ends_with("[Package]\r\nPackageName=Holiday\r\n")) << content;
    const ProfileSection viewer = ReadProfileSection(content, "Viewer");
    const std::string generation = viewer.Read("Key0");
    for (int key = 1; key < 40; ++key) {
        ASSERT_EQ(viewer.Read("Key" + std::to_string(key)), generation) << content;
    }
}

TEST_F(HostProfileTest, AKillLeavesTheOldFileOrTheNewOne) {
    folder.Put("tavrix.ini",
               "; foreign\r\n[Viewer]\r\nMouseSensitivity=7\r\n\r\n[Package]\r\nPackageName=Holiday\r\n");
    std::string last;
    int changes = 0;
    KillWhileWriting(
        60,
        [&](int number) {
            std::vector<ProfileEntry> entries;
            for (int key = 0; key < 40; ++key)
                entries.emplace_back("Key" + std::to_string(key), std::to_string(number));
            profile.Write("Viewer", entries, "C:\\tavrix.ini");
        },
        [&] {
            const std::string content = folder.Content("tavrix.ini");
            ExpectWhole(content);
            if (content != last) ++changes;
            last = content;
        });
    EXPECT_GT(changes, 5);  // the children did get to write
    Write("After", "1");    // no lock is left behind
    EXPECT_EQ(profile.Read("Viewer", "C:\\tavrix.ini").Read("After"), "1");
}

TEST_F(HostProfileTest, TwoWritersLoseNothing) {
    folder.Put("tavrix.ini", "; foreign\r\n");
    constexpr int Keys = 20;
    std::vector<pid_t> children;
    for (const char* section : {"Viewer", "Package", "Viewer"}) {
        const std::string prefix = std::string("W") + std::to_string(children.size()) + "_";
        children.push_back(InChild([&] {
            for (int key = 0; key < Keys; ++key) {
                profile.Write(section, std::array{ProfileEntry{prefix + std::to_string(key), "x"}},
                              "C:\\tavrix.ini");
            }
        }));
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    const ProfileSection viewer = profile.Read("Viewer", "C:\\tavrix.ini");
    const ProfileSection package = profile.Read("Package", "C:\\tavrix.ini");
    for (int key = 0; key < Keys; ++key) {
        EXPECT_TRUE(viewer.Has("W0_" + std::to_string(key))) << key;
        EXPECT_TRUE(package.Has("W1_" + std::to_string(key))) << key;
        EXPECT_TRUE(viewer.Has("W2_" + std::to_string(key))) << key;
    }
    EXPECT_TRUE(folder.Content("tavrix.ini").starts_with("; foreign\r\n"));
    EXPECT_EQ(Entries(), 1);
}

TEST_F(HostProfileTest, ALockThatIsHeldForEverIsWaitedForOnce) {
    const FileDescriptor lock(::open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY));
    ASSERT_EQ(::flock(lock.Number(), LOCK_EX), 0);
    const auto start = std::chrono::steady_clock::now();
    for (const char* key : {"First", "Second", "Third"})
        Write(key, "kept");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2500));
    EXPECT_EQ(profile.Read("Viewer", "C:\\tavrix.ini").Read("First"), "kept");
    EXPECT_EQ(profile.Read("Viewer", "C:\\tavrix.ini").Read("Third"), "kept");
}

TEST_F(HostProfileTest, AFileOfNoReasonableSizeIsNeitherReadNorWritten) {
    folder.Put("tavrix.ini", "[Viewer]\r\nKey=value\r\n;" + std::string(std::size_t{2} << 20U, 'x'));
    const std::uintmax_t size = std::filesystem::file_size(folder.At("tavrix.ini"));
    EXPECT_EQ(profile.Read("Viewer", "C:\\tavrix.ini").Read("Key"), "");
    EXPECT_NE(ErrorOfCall([&] { Write("Key", "other"); }), 0);
    EXPECT_EQ(std::filesystem::file_size(folder.At("tavrix.ini")), size);
}

TEST_F(HostProfileTest, TheStoreKeepsNamesWithBlanks) {
    HostPaths paths;
    paths.config = folder.At("config/tavrix");
    HostUserStore store(paths);
    EXPECT_EQ(store.Get("Show Tips at Startup", "1"), "1");
    store.Set("Show Tips at Startup", "0");
    store.Set("EXEPath", "C:\\Program Files\\Tavrix\\");
    store.Set("CurrentSaver", "");
    EXPECT_EQ(store.Get("Show Tips at Startup", "1"), "0");
    EXPECT_EQ(store.Get("EXEPath", ""), "C:\\Program Files\\Tavrix\\");
    EXPECT_EQ(store.Get("CurrentSaver", "fallback"), "");
    EXPECT_EQ(HostUserStore(paths).Get("EXEPath", ""), "C:\\Program Files\\Tavrix\\");
    const std::string longPath(500, 'x');
    store.Set("EXEPath", longPath);
    EXPECT_EQ(store.Get("EXEPath", ""), longPath);
}

TEST_F(HostProfileTest, TheRegistryKeepsTextByKeyAndName) {
    HostPaths paths;
    paths.config = folder.At("config/tavrix");
    HostRegistry registry(paths);
    EXPECT_FALSE(registry.Read("Control Panel\\desktop", "Wallpaper"));
    registry.Write("Control Panel\\desktop", "Wallpaper", "C:\\a b.bmp");
    registry.Write("Control Panel\\desktop", "TileWallpaper", "1");
    const auto value = registry.Read("control panel\\DESKTOP", "wallpaper");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->type, 1);
    EXPECT_EQ(value->text, "C:\\a b.bmp");
    EXPECT_FALSE(registry.Read("Control Panel\\desktop", "Pattern"));
}

}  // namespace
}  // namespace tavrix
