#include "platform/host/HostShell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <string>

#include "TestFolder.h"
#include "platform/host/Programs.h"

namespace tavrix {
namespace {

class HostShellTest : public testing::Test {
  protected:
    [[nodiscard]] HostPaths Paths() const {
        HostPaths paths;
        paths.data = folder.At("data");
        paths.executable = folder.At("bin/tavrix");
        return paths;
    }
    void PutProgram(const std::string& name) const {
        folder.Put("bin/" + name, "#!/bin/sh\necho \"$0\" \"$@\" > '" + folder.At("called.tmp") + "'\nmv '" +
                                      folder.At("called.tmp") + "' '" + folder.At("called") + "'\n");
        ::chmod(folder.At("bin/" + name).c_str(), 0755);
    }
    /// What the started program wrote, once it has.
    [[nodiscard]] std::string Called() const {
        for (int i = 0; i < 5000 && !folder.Has("called"); ++i) {
            const timespec millisecond{0, 1'000'000};
            ::nanosleep(&millisecond, nullptr);
        }
        const std::string called = folder.Content("called");
        std::filesystem::remove(folder.At("called"));
        return called;
    }

    TestFolder folder;
    DriveMap drives{[this] {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.Path();
        return sources;
    }()};
    HostShell shell{drives, Paths()};
};

TEST_F(HostShellTest, AddsRecentDocuments) {
    folder.Put("Pictures/a b.jpg", "");
    shell.AddRecent("C:\\pictures\\A B.JPG");
    const std::string list = folder.Content("data/recently-used.xbel");
    EXPECT_NE(list.find("href=\"file://" + folder.At("Pictures/a%20b.jpg") + "\""), std::string::npos)
        << list;
    struct stat status {};
    ASSERT_EQ(::stat(folder.At("data/recently-used.xbel").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(HostShellTest, LeavesAForeignListAlone) {
    folder.Put("data/recently-used.xbel", "no list");
    shell.AddRecent("C:\\a.jpg");
    EXPECT_EQ(folder.Content("data/recently-used.xbel"), "no list");
    shell.AddRecent("");
    shell.AddRecent("Q:\\a.jpg");
    shell.AddRecent("nonsense");
}

TEST_F(HostShellTest, AddsToAUsualListAtOnce) {
    for (int i = 0; i < 300; ++i)
        shell.AddRecent("C:\\picture number " + std::to_string(i) + ".jpg");
    const auto size = std::filesystem::file_size(folder.At("data/recently-used.xbel"));
    EXPECT_GT(size, 100'000U);
    auto best = std::chrono::steady_clock::duration::max();
    for (int i = 0; i < 10; ++i) {
        const auto start = std::chrono::steady_clock::now();
        shell.AddRecent("C:\\new " + std::to_string(i) + ".jpg");
        best = std::min(best, std::chrono::steady_clock::now() - start);
    }
    const double milliseconds = std::chrono::duration<double, std::milli>(best).count();
    RecordProperty("milliseconds", std::to_string(milliseconds));
    EXPECT_LT(milliseconds, 20.0);  // ten times what it may take: for loaded machines and sanitizers
}

TEST_F(HostShellTest, RunsTheDesktopsOwnPrograms) {
    const ScopedVariable path("PATH", folder.At("bin") + ":/usr/bin:/bin");
    PutProgram("xfce4-display-settings");
    PutProgram("xdg-open");
    PutProgram("tavrix");
    const ScopedVariable desktop("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_TRUE(shell.Run("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,3"));
    EXPECT_EQ(Called(), folder.At("bin/xfce4-display-settings") + "\n");
    folder.PutFolder("My Pictures; rm -rf $HOME");
    EXPECT_TRUE(shell.Run("explorer.exe C:\\My Pictures; rm -rf $HOME"));
    EXPECT_EQ(Called(), folder.At("bin/xdg-open") + " " + folder.At("My Pictures; rm -rf $HOME") + "\n");
    EXPECT_TRUE(shell.Run("C:\\Tavrix\\TAVRIX.EXE /C"));
    EXPECT_EQ(Called(), folder.At("bin/tavrix") + " /C\n");
}

TEST_F(HostShellTest, TellsWhenNothingCanBeStarted) {
    const ScopedVariable path("PATH", folder.At("bin"));
    EXPECT_FALSE(shell.Run("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,3"));
    EXPECT_FALSE(shell.Run("format c:"));
    EXPECT_FALSE(shell.Run(""));
    EXPECT_FALSE(shell.Run("explorer.exe C:\\none"));
}

TEST(Programs, TheRunningDesktopComesFirst) {
    const std::string display = "rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,3";
    EXPECT_EQ(CallsFor(display, "ubuntu:GNOME", "", "").front(),
              (ProgramCall{"gnome-control-center", "display"}));
    EXPECT_EQ(CallsFor(display, "KDE", "", "").front(), (ProgramCall{"systemsettings", "kcm_kscreen"}));
    EXPECT_EQ(CallsFor(display, "", "", "").front(), (ProgramCall{"lxrandr"}));
    EXPECT_EQ(CallsFor("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,1", "KDE", "", "").front(),
              (ProgramCall{"systemsettings", "kcm_screenlocker"}));
    EXPECT_EQ(CallsFor("rundll32.exe diskcopy.dll,DiskCopyRunDll 0,0", "", "", "").front(),
              (ProgramCall{"gnome-disks"}));
}

TEST_F(HostShellTest, ResolvesLinks) {
    folder.Put("a b.jpg", "");
    std::filesystem::create_symlink("a b.jpg", folder.At("soft"));
    std::filesystem::create_symlink("none", folder.At("dangling"));
    folder.Put("link.desktop", "[Desktop Entry]\nType=Link\nURL=file://" + folder.At("a%20b.jpg") + "\n");
    folder.Put("web.desktop", "[Desktop Entry]\nType=Link\nURL=http://example.org/\n");
    folder.Put("app.desktop", "[Desktop Entry]\nType=Application\nURL=file:///x\n");
    folder.Put("a.lnk", "L");
    EXPECT_EQ(shell.ResolveLink("C:\\soft"), "C:\\a b.jpg");
    EXPECT_EQ(shell.ResolveLink("C:\\LINK.desktop"), "C:\\a b.jpg");
    for (const char* path :
         {"C:\\dangling", "C:\\web.desktop", "C:\\app.desktop", "C:\\a.lnk", "C:\\a b.jpg", "C:\\none", ""}) {
        EXPECT_EQ(shell.ResolveLink(path), "") << path;
    }
}

}  // namespace
}  // namespace tavrix
