#include "backends/linux/HostPaths.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "TestFolder.h"
#include "backends/linux/TemporaryFolder.h"

namespace tavrix {
namespace {

mode_t ModeOf(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(HostPaths, EnvironmentVariablesMoveEverything) {
    const TestFolder folder;
    folder.PutFolder("shared");
    const ScopedVariable home("TAVRIX_HOME", folder.At("program/"));
    const ScopedVariable shared("TAVRIX_SHARED", folder.At("shared"));
    const ScopedVariable temp("TAVRIX_TEMP", folder.At("temp"));
    const ScopedVariable config("XDG_CONFIG_HOME", folder.At("config"));
    const ScopedVariable data("XDG_DATA_HOME", folder.At("data/"));
    const HostPaths paths = HostPaths::FromEnvironment();
    EXPECT_EQ(paths.program, folder.At("program"));
    EXPECT_EQ(paths.shared, folder.At("shared"));
    EXPECT_EQ(paths.temporary, folder.At("temp"));
    EXPECT_EQ(paths.config, folder.At("config/tavrix"));
    EXPECT_EQ(paths.data, folder.At("data"));
    EXPECT_EQ(paths.executable, std::filesystem::read_symlink("/proc/self/exe").string());
    EXPECT_FALSE(folder.Has("program"));
}

TEST(HostPaths, AProgramThatIsCarriedHasALauncherAndAStoreOfItsOwn) {
    const TestFolder folder;
    const ScopedVariable executable("TAVRIX_EXECUTABLE", folder.At("TAVRIX.EXE"));
    const ScopedVariable config("TAVRIX_CONFIG", folder.At("store/"));
    EXPECT_EQ(HostPaths::FromEnvironment().executable, folder.At("TAVRIX.EXE"));
    EXPECT_EQ(HostPaths::FromEnvironment().config, folder.At("store"));
    EXPECT_EQ(HostPaths::FromEnvironment("/bin/true").executable,
              std::filesystem::canonical("/bin/true").string());
}

TEST(HostPaths, TheUsualPlacesAreBelowTheHomeFolder) {
    const ScopedVariable home("HOME", "/home/me");
    const ScopedVariable config("XDG_CONFIG_HOME", "");
    const ScopedVariable data("XDG_DATA_HOME", "relative/is/ignored");
    const ScopedVariable program("TAVRIX_HOME", "");
    const HostPaths paths = HostPaths::FromEnvironment();
    EXPECT_EQ(paths.config, "/home/me/.config/tavrix");
    EXPECT_EQ(paths.data, "/home/me/.local/share");
    // A program that runs from a folder that can be written keeps its things there.
    EXPECT_EQ(paths.program, std::filesystem::path(paths.executable).parent_path().string());
}

TEST(HostPaths, TheDocumentsAreWhereTheDesktopNotedThem) {
    const TestFolder folder;
    const ScopedVariable home("HOME", folder.At("me/"));
    const ScopedVariable config("XDG_CONFIG_HOME", folder.At("config"));
    const auto documents = [&folder](const std::string& note) {
        folder.Put("config/user-dirs.dirs", note);
        return HostPaths::FromEnvironment().documents;
    };
    EXPECT_EQ(HostPaths::FromEnvironment().documents, folder.At("me/Documents"));
    EXPECT_EQ(documents("# written by the desktop\nXDG_DESKTOP_DIR=\"$HOME/Desk\"\n"
                        "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n"),
              folder.At("me/Dokumente"));
    EXPECT_EQ(documents("XDG_DOCUMENTS_DIR=\"/srv/My \\\"own\\\" papers/\""), "/srv/My \"own\" papers");
    EXPECT_EQ(documents("XDG_DOCUMENTS_DIR=\"/first\"\n  XDG_DOCUMENTS_DIR=\"/second\"\n"), "/second");
    EXPECT_EQ(documents("XDG_DOCUMENTS_DIR=\"$HOME\"\n"), folder.At("me"));
    EXPECT_EQ(documents("XDG_DOCUMENTS_DIR=\"$HOME/\"\n"), folder.At("me"));
}

TEST(HostPaths, AnUnusableNoteOfTheDocumentsCountsForNothing) {
    const TestFolder folder;
    const ScopedVariable home("HOME", folder.At("me"));
    const ScopedVariable config("XDG_CONFIG_HOME", folder.At("config"));
    for (const char* note : {"", "XDG_DOCUMENTS_DIR=", "XDG_DOCUMENTS_DIR=\"\"", "XDG_DOCUMENTS_DIR=/bare",
                             "XDG_DOCUMENTS_DIR=\"relative\"", "XDG_DOCUMENTS_DIR=\"$HOMES/x\"",
                             "#XDG_DOCUMENTS_DIR=\"/x\"", "XDG_DOCUMENTS_DIRS=\"/x\"", "\xff\n\n\"\\"}) {
        folder.Put("config/user-dirs.dirs", note);
        EXPECT_EQ(HostPaths::FromEnvironment().documents, folder.At("me/Documents")) << note;
    }
}

TEST(TemporaryFolder, IsPrivate) {
    const TestFolder folder;
    const TemporaryFolder temporary(folder.At("a/b"));
    EXPECT_EQ(temporary.Path(), folder.At("a/b"));
    EXPECT_EQ(ModeOf(temporary.Path()), 0700U);
}

TEST(TemporaryFolder, IsAPrivateOneInAFolderThatOthersMayEnter) {
    const TestFolder folder;
    folder.PutFolder("temp");
    for (const mode_t mode : {0777U, 01777U, 0750U, 0711U}) {
        ::chmod(folder.At("temp").c_str(), mode);
        const TemporaryFolder temporary(folder.At("temp"));
        EXPECT_EQ(temporary.Path(), folder.At("temp/tavrix-" + std::to_string(::geteuid())));
        EXPECT_EQ(ModeOf(temporary.Path()), 0700U);
        EXPECT_EQ(ModeOf(folder.At("temp")), mode) << "its permissions are not ours to change";
    }
}

TEST(TemporaryFolder, LeavesThePermissionsInItAlone) {
    const TestFolder folder;
    folder.PutFolder("t/2");
    ::chmod(folder.At("t").c_str(), 0700);
    ::chmod(folder.At("t/2").c_str(), 0755);
    const TemporaryFolder first(folder.At("t"));
    const TemporaryFolder second(folder.At("t"));
    EXPECT_EQ(first.Path(), folder.At("t"));
    EXPECT_EQ(second.Path(), folder.At("t/3"));
    EXPECT_EQ(ModeOf(folder.At("t/2")), 0755U);
}

TEST(TemporaryFolder, LeavesNothingButWhatWasPutThere) {
    const TestFolder folder;
    { const TemporaryFolder temporary(folder.At("t")); }
    EXPECT_TRUE(std::filesystem::is_empty(folder.At("t")));
}

TEST(TemporaryFolder, IsNeverReachedThroughALink) {
    const TestFolder folder;
    folder.PutFolder("elsewhere");
    std::filesystem::create_directory_symlink(folder.At("elsewhere"), folder.At("temp"));
    EXPECT_EQ(TemporaryFolder(folder.At("temp")).Path(), "");
}

TEST(TemporaryFolder, EachLiveProcessHasItsOwn) {
    const TestFolder folder;
    auto first = std::make_unique<TemporaryFolder>(folder.At("t"));
    const TemporaryFolder second(folder.At("t"));
    const TemporaryFolder third(folder.At("t"));
    EXPECT_EQ(first->Path(), folder.At("t"));
    EXPECT_EQ(second.Path(), folder.At("t/2"));
    EXPECT_EQ(third.Path(), folder.At("t/3"));
    EXPECT_EQ(ModeOf(second.Path()), 0700U);
    folder.Put("t/Untitled.BMP", "left behind");
    first.reset();
    const TemporaryFolder next(folder.At("t"));
    EXPECT_EQ(next.Path(), folder.At("t"));
    EXPECT_EQ(folder.Content("t/Untitled.BMP"), "left behind");
}

TEST(TemporaryFolder, TakesAnotherPlaceWhenTheNameIsTaken) {
    const TestFolder folder;
    folder.PutFolder("tmp");
    folder.PutFolder("run");
    folder.PutFolder("elsewhere");
    const ScopedVariable tmp("TMPDIR", folder.At("tmp"));
    const ScopedVariable runtime("XDG_RUNTIME_DIR", folder.At("run"));
    const std::string name = "tmp/tavrix-" + std::to_string(::geteuid());
    { EXPECT_EQ(TemporaryFolder("").Path(), folder.At(name)); }
    std::filesystem::remove_all(folder.At(name));
    std::filesystem::create_directory_symlink(folder.At("elsewhere"), folder.At(name));
    EXPECT_EQ(TemporaryFolder("").Path(), folder.At("run/tavrix"));
}

}  // namespace
}  // namespace tavrix
