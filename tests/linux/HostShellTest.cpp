#include "backends/linux/HostShell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "LinkBytes.h"
#include "TestFolder.h"
#include "backends/linux/HostFile.h"
#include "backends/linux/Programs.h"
#include "support/IoCount.h"

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

TEST_F(HostShellTest, RecentDocumentsAreWrittenLaterWhereSomebodyDoesIt) {
    std::vector<std::function<void()>> later;
    shell.Later = [&](std::function<void()> work) { later.push_back(std::move(work)); };
    shell.AddRecent("C:\\a.jpg");
    shell.AddRecent("C:\\b.jpg");
    EXPECT_FALSE(folder.Has("data/recently-used.xbel"));
    ASSERT_EQ(later.size(), 1U);
    later.front()();
    const std::string list = folder.Content("data/recently-used.xbel");
    EXPECT_LT(list.find("/a.jpg\""), list.find("/b.jpg\""));
    EXPECT_NE(list.find("/b.jpg\""), std::string::npos) << list;

    shell.AddRecent("C:\\c.jpg");
    ASSERT_EQ(later.size(), 2U);
    shell.WriteRecent();  // as at the end
    EXPECT_NE(folder.Content("data/recently-used.xbel").find("/c.jpg\""), std::string::npos);
    const std::string whole = folder.Content("data/recently-used.xbel");
    later.back()();
    EXPECT_EQ(folder.Content("data/recently-used.xbel"), whole);
}

TEST_F(HostShellTest, RecentDocumentsBearTheTime) {
    const auto day = [] {
        const std::time_t now = std::time(nullptr);
        std::tm parts{};
        ::gmtime_r(&now, &parts);
        std::string text(10, '\0');
        text.resize(std::strftime(text.data(), text.size() + 1, "%Y-%m-%d", &parts));
        return "visited=\"" + text;
    };
    const std::string before = day();
    shell.AddRecent("C:\\a.jpg");
    const std::string list = folder.Content("data/recently-used.xbel");
    EXPECT_TRUE(list.find(before) != std::string::npos || list.find(day()) != std::string::npos) << list;
}

TEST_F(HostShellTest, AListThatLiesElsewhereStaysThereAndAnotherProgramThatWritesItIsWaitedFor) {
    folder.PutFolder("data");
    folder.PutFolder("elsewhere");
    std::filesystem::create_symlink(folder.At("elsewhere/list"), folder.At("data/recently-used.xbel"));
    const FolderLock another(folder.At("elsewhere"));
    const auto before = std::chrono::steady_clock::now();
    shell.AddRecent("C:\\a.jpg");
    // This one never ends, so its turn is over at last.
    EXPECT_GE(std::chrono::steady_clock::now() - before, FolderLock::Patience);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.At("data/recently-used.xbel")));
    EXPECT_NE(folder.Content("elsewhere/list").find("/a.jpg\""), std::string::npos);
}

TEST_F(HostShellTest, NoListIsMadeForNothing) {
    shell.Later = [](const std::function<void()>&) {};
    shell.WriteRecent();
    EXPECT_FALSE(folder.Has("data/recently-used.xbel"));
}

TEST_F(HostShellTest, WhatWaitsIsClearedWithTheListOfRecentDocuments) {
    shell.Later = [](const std::function<void()>&) {};
    shell.AddRecent("C:\\a.jpg");
    EXPECT_TRUE(shell.ClearRecent());
    shell.WriteRecent();
    EXPECT_EQ(folder.Content("data/recently-used.xbel").find("<bookmark "), std::string::npos);
}

TEST_F(HostShellTest, LeavesAForeignListAlone) {
    folder.Put("data/recently-used.xbel", "no list");
    shell.AddRecent("C:\\a.jpg");
    EXPECT_EQ(folder.Content("data/recently-used.xbel"), "no list");
    shell.AddRecent("");
    shell.AddRecent("Q:\\a.jpg");
    shell.AddRecent("nonsense");
}

TEST_F(HostShellTest, AddsToAUsualListWithOneReadingAndOneWriting) {
    for (int i = 0; i < 300; ++i)
        shell.AddRecent("C:\\picture number " + std::to_string(i) + ".jpg");
    const auto size = std::filesystem::file_size(folder.At("data/recently-used.xbel"));
    EXPECT_GT(size, 100'000U);
    const IoCount before = IoCount::Now();
    if (!before.Known()) GTEST_SKIP() << "the system does not count what is read";
    shell.AddRecent("C:\\new.jpg");
    const IoCount took = IoCount::Now() - before;
    EXPECT_GE(took.read, size);
    EXPECT_LT(took.read, size + size / 10);
    EXPECT_GE(took.written, size);
    EXPECT_LT(took.written, size + size / 10);
}

TEST_F(HostShellTest, AListOfNoReasonableSizeStaysAsItIs) {
    const std::string huge(LargestWholeFile + 1, ' ');
    folder.Put("data/recently-used.xbel", huge);
    folder.Put("a.bmp", "");
    const IoCount before = IoCount::Now();
    shell.AddRecent("C:\\a.bmp");
    const IoCount took = IoCount::Now() - before;
    EXPECT_LT(took.read, huge.size() / 10);
    EXPECT_EQ(std::filesystem::file_size(folder.At("data/recently-used.xbel")), huge.size());
}

TEST_F(HostShellTest, ClearsTheListOfRecentDocuments) {
    shell.AddRecent("C:\\pictures\\a.jpg");
    ASSERT_TRUE(folder.Has("data/recently-used.xbel"));
    EXPECT_TRUE(shell.ClearRecent());
    EXPECT_EQ(folder.Content("data/recently-used.xbel").find("<bookmark "), std::string::npos);
    folder.Put("data/recently-used.xbel", "not a list");
    EXPECT_FALSE(shell.ClearRecent());
    EXPECT_EQ(folder.Content("data/recently-used.xbel"), "not a list");
}

TEST_F(HostShellTest, OpensAddressesOfTheWebAlone) {
    PutProgram("xdg-open");
    const ScopedVariable path("PATH", folder.At("bin") + ":/bin:/usr/bin");
    EXPECT_TRUE(shell.OpenAddress("https://www.example.org/a?b=c&d"));
    EXPECT_EQ(Called(), folder.At("bin/xdg-open") + " https://www.example.org/a?b=c&d\n");
    EXPECT_FALSE(shell.OpenAddress("file:///etc/passwd"));
    EXPECT_FALSE(shell.OpenAddress("--help"));
    EXPECT_FALSE(folder.Has("called"));
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

TEST_F(HostShellTest, AMessengerThatFailsAtOnceHasOpenedNothing) {
    const ScopedVariable path("PATH", folder.At("bin") + ":/usr/bin:/bin");
    const auto put = [this](const std::string& name, const std::string& script) {
        folder.Put("bin/" + name, "#!/bin/sh\n" + script + "\n");
        ::chmod(folder.At("bin/" + name).c_str(), 0755);
    };
    folder.PutFolder("Pictures");
    put("xdg-open", "exit 3");
    put("gio", "exit 2");
    EXPECT_FALSE(shell.Run("explorer.exe C:\\Pictures"));
    EXPECT_FALSE(shell.Run("explorer.exe"));
    put("gio", "exit 0");
    EXPECT_TRUE(shell.Run("explorer.exe C:\\Pictures"));
    // A file manager that is started itself goes on running.
    put("xdg-open", "exec sleep 30");
    put("gio", "exit 2");
    EXPECT_TRUE(shell.Run("explorer.exe C:\\Pictures"));
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
}

TEST(Programs, ToolsForDisksAreStartedOnADeviceAlone) {
    const std::string format = "rundll32.exe shell32.dll,SHFormatDrive";
    const std::string copy = "rundll32.exe diskcopy.dll,DiskCopyRunDll 0,0";
    EXPECT_EQ(DiskLettersOf(format), "AB");
    EXPECT_EQ(DiskLettersOf(copy), "A");
    EXPECT_EQ(DiskLettersOf("rundll32.exe diskcopy.dll,DiskCopyRunDll 1,1"), "B");
    EXPECT_EQ(DiskLettersOf("explorer.exe A:\\"), "");
    for (const std::string& line : {format, copy})
        EXPECT_TRUE(CallsFor(line, "GNOME", "", "").empty());
    EXPECT_EQ(CallsFor(format, "GNOME", "", "/dev/fd0").front(),
              (ProgramCall{"gnome-disks", "--block-device", "/dev/fd0", "--format-device"}));
    EXPECT_EQ(CallsFor(copy, "GNOME", "", "/dev/fd0").front(),
              (ProgramCall{"gnome-disks", "--block-device", "/dev/fd0"}));
    EXPECT_EQ(CallsFor(copy, "KDE", "", "/dev/fd0").front(), (ProgramCall{"partitionmanager", "/dev/fd0"}));
    for (const std::string& line : {format, copy}) {
        for (const ProgramCall& call : CallsFor(line, "KDE", "", "/dev/fd0"))
            EXPECT_TRUE(std::ranges::find(call, "/dev/fd0") != call.end()) << call.front();
    }
}

TEST_F(HostShellTest, NoToolIsStartedOnAFolder) {
    const ScopedVariable path("PATH", folder.At("bin") + ":/usr/bin:/bin");
    PutProgram("gnome-disks");
    EXPECT_FALSE(shell.Run("rundll32.exe shell32.dll,SHFormatDrive"));
    EXPECT_FALSE(shell.Run("rundll32.exe diskcopy.dll,DiskCopyRunDll 0,0"));
    EXPECT_FALSE(folder.Has("called"));
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

class ShortcutTest : public HostShellTest {
  protected:
    /// Where a shortcut in C:\Links leads.
    [[nodiscard]] std::string Target(const LinkBytes& link) {
        folder.Put("Links/x.lnk", link.Bytes());
        return shell.ResolveLink("C:\\Links\\X.LNK");
    }
    static LinkBytes To(const std::string& localPath, const std::string& relativePath = {}) {
        LinkBytes link{.flags = 2, .linkInfo = LinkBytes::Info{.localPath = localPath}.Bytes()};
        if (!relativePath.empty()) {
            link.flags |= 8U;
            link.strings = LinkBytes::CountedBytes(relativePath);
        }
        return link;
    }
};

TEST_F(ShortcutTest, AStoredTargetThatIsThereIsGivenAsItIs) {
    folder.Put("Pictures/a.jpg", "");
    folder.Put("Links/a.jpg", "");
    EXPECT_EQ(Target(To("c:\\PICTURES\\a.jpg", "a.jpg")), "c:\\PICTURES\\a.jpg");
    EXPECT_EQ(Target(To("C:\\Pictures")), "C:\\Pictures");
}

TEST_F(ShortcutTest, ElseTheTargetIsLookedForFromTheLink) {
    folder.Put("Pictures/a.jpg", "");
    EXPECT_EQ(Target(To("D:\\none\\a.jpg", "..\\Pictures\\a.jpg")), "C:\\Pictures\\a.jpg");
    EXPECT_EQ(Target(To("C:\\none\\a.jpg", "..\\Pictures\\a.jpg")), "C:\\Pictures\\a.jpg");
    folder.Put("Links/b.jpg", "");
    EXPECT_EQ(Target(To("C:\\none\\b.jpg", ".\\b.jpg")), "C:\\Links\\b.jpg");
}

TEST_F(ShortcutTest, ElseInTheWorkingFolder) {
    folder.Put("Pictures/a.jpg", "");
    LinkBytes link = To("C:\\none\\a.jpg");
    link.flags |= 0x10U;
    link.strings = LinkBytes::CountedBytes("C:\\Pictures");
    EXPECT_EQ(Target(link), "C:\\Pictures\\a.jpg");
}

TEST_F(ShortcutTest, ElseTheStoredPathIsGivenAllTheSame) {
    EXPECT_EQ(Target(To("D:\\none\\a.jpg", "..\\Pictures\\a.jpg")), "D:\\none\\a.jpg");
    LinkBytes share{.flags = 2};
    share.linkInfo =
        LinkBytes::Info{.network = LinkBytes::Network("\\\\s\\x", ""), .suffix = "a.jpg"}.Bytes();
    EXPECT_EQ(Target(share), "\\\\s\\x\\a.jpg");
    share.linkInfo =
        LinkBytes::Info{.network = LinkBytes::Network("\\\\s\\x", "C:"), .suffix = "a.jpg"}.Bytes();
    folder.Put("a.jpg", "");
    EXPECT_EQ(Target(share), "C:\\a.jpg");
}

TEST_F(ShortcutTest, TheUsersFolderStandsForItsVariable) {
    folder.Put("me/a.jpg", "");
    const ScopedVariable home("HOME", folder.At("me"));
    LinkBytes link{.blocks = LinkBytes::VariableBlock("%UserProfile%\\a.jpg", u"")};
    EXPECT_EQ(Target(link), "C:\\me\\a.jpg");
    link.blocks = LinkBytes::VariableBlock("%SystemDrive%\\me\\a.jpg", u"");
    EXPECT_EQ(Target(link), "C:\\me\\a.jpg");
    link.blocks = LinkBytes::VariableBlock("%OTHER%\\me\\a.jpg", u"");
    EXPECT_EQ(Target(link), "");
    link.blocks = LinkBytes::VariableBlock("C:\\me\\100%.jpg", u"");
    EXPECT_EQ(Target(link), "C:\\me\\100%.jpg");
}

TEST_F(ShortcutTest, WhatIsNoShortcutHasNoTarget) {
    folder.Put("a.lnk", "");
    folder.Put("b.lnk", "C:\\a.jpg");
    folder.Put("c.lnk", To("C:\\a.jpg").Bytes().substr(0, 75));
    folder.Put("d.lnk", LinkBytes().Bytes());
    folder.Put("huge.lnk", To("C:\\a.jpg").Bytes());
    std::filesystem::resize_file(folder.At("huge.lnk"), 2U << 20U);
    folder.PutFolder("f.lnk");
    for (const char* name : {"a", "b", "c", "d", "huge", "f", "none"})
        EXPECT_EQ(shell.ResolveLink("C:\\" + std::string(name) + ".lnk"), "") << name;
}

TEST_F(HostShellTest, SendsFilesToTheTrash) {
    folder.Put("Pictures/a.jpg", "picture");
    shell.Trash("C:\\pictures\\A.JPG");
    EXPECT_FALSE(folder.Has("Pictures/a.jpg"));
    EXPECT_EQ(folder.Content("data/Trash/files/a.jpg"), "picture");
    EXPECT_NE(folder.Content("data/Trash/info/a.jpg.trashinfo").find("\nPath=" + folder.At("Pictures/a.jpg")),
              std::string::npos);
}

TEST_F(HostShellTest, WhatCannotGoToTheTrashStays) {
    folder.Put("data/Trash", "no folder");
    folder.Put("a.jpg", "picture");
    EXPECT_EQ(ErrorOfCall([&] { shell.Trash("C:\\a.jpg"); }), 70);
    EXPECT_EQ(folder.Content("a.jpg"), "picture");
    EXPECT_EQ(ErrorOfCall([&] { shell.Trash("C:\\none.jpg"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { shell.Trash("C:\\data"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { shell.Trash("Q:\\a.jpg"); }), 68);
    EXPECT_EQ(ErrorOfCall([&] { shell.Trash("nonsense"); }), 52);
}

TEST(HostShellFloppy, AFloppysFilesGoHomeAndItStaysADisk) {
    const TestFolder folder;
    folder.Put("a/a.jpg", "picture");
    DriveMap::Sources sources;
    sources.drives = "A=" + folder.At("a") + ";C=" + folder.At("c");
    DriveMap drives(sources);
    HostPaths paths;
    paths.data = folder.At("data");
    HostShell shell(drives, paths);
    shell.Trash("A:\\a.jpg");
    EXPECT_EQ(folder.Content("data/Trash/files/a.jpg"), "picture");
    const auto drive = drives.Find('A');
    EXPECT_TRUE(drive && DriveMap::HasDisk(*drive));
    EXPECT_EQ(ErrorOfCall([&] { shell.Trash("A:\\a.jpg"); }), 53);
}

}  // namespace
}  // namespace tavrix
