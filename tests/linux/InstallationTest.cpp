#include "backends/linux/Installation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "TestFolder.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostProcess.h"
#include "backends/linux/HostUserStore.h"

namespace tavrix {
namespace {

/// A user for whom an installed tree is in a folder of its own.
class InstallationTest : public testing::Test {
  protected:
    InstallationTest() {
        folder.Put("tree/bin/tavrix", "");
        folder.PutFolder("home");
    }
    void Install() { folder.Put("tree/share/tavrix/TAVRIX.HLP", ""); }
    HostPaths Paths() { return HostPaths::FromEnvironment(folder.At("tree/bin/tavrix")); }
    /// The program starts; what is noted then.
    std::string NotedByAStart() {
        const HostPaths paths = Paths();
        DriveMap map{DriveMap::SourcesOf(paths)};
        HostProcess process(map, paths, {});
        HostUserStore store(paths);
        NoteFirstStart(paths, process, store);
        return store.Get("EXEPath", "nothing");
    }

    TestFolder folder;
    ScopedVariable home{"HOME", folder.At("home")};
    ScopedVariable config{"XDG_CONFIG_HOME", ""};
    ScopedVariable data{"XDG_DATA_HOME", ""};
    ScopedVariable program{"TAVRIX_HOME", ""};
    ScopedVariable drives{"TAVRIX_DRIVES", "C=" + folder.Path()};
};

TEST_F(InstallationTest, AnInstalledProgramKeepsNothingBesideItself) {
    EXPECT_EQ(Paths().program, folder.At("tree/bin"));
    Install();
    EXPECT_EQ(Paths().program, folder.At("home/.local/share/tavrix"));
    EXPECT_EQ(Paths().shared, folder.At("tree/share/tavrix"));
}

TEST_F(InstallationTest, TheSystemsFoldersAreNeverAUsers) {
    EXPECT_TRUE(IsInstalled("/usr"));
    EXPECT_TRUE(IsInstalled("/usr/bin"));
    EXPECT_FALSE(IsInstalled("/usrlocal/bin"));
}

TEST_F(InstallationTest, TheFirstStartNotesTheUsersFolder) {
    Install();
    EXPECT_EQ(NotedByAStart(), "C:\\home\\.local\\share\\tavrix\\");
    EXPECT_TRUE(folder.Has("home/.local/share/tavrix"));
}

TEST_F(InstallationTest, WhatIsNotedStays) {
    Install();
    HostUserStore(Paths()).Set("EXEPath", "C:\\elsewhere\\");
    EXPECT_EQ(NotedByAStart(), "C:\\elsewhere\\");
}

TEST_F(InstallationTest, AProgramThatNobodyInstalledNotesNothing) {
    EXPECT_EQ(NotedByAStart(), "nothing");
    EXPECT_FALSE(folder.Has("home/.config/tavrix"));
}

TEST_F(InstallationTest, WhatCannotBeNotedIsLeftToTheChecksOfTheStart) {
    Install();
    folder.Put("home/.config", "a file in the way");
    EXPECT_EQ(NotedByAStart(), "nothing");
}

}  // namespace
}  // namespace tavrix
