#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>

#include "TestFolder.h"
#include "backends/linux/HostFiles.h"
#include "platform/services/DrivePath.h"

namespace tavrix {
namespace {

/// C: is a folder of the usual temporary one, D: one on another file system, as every user has it.
class FileMoveTest : public testing::Test {
  protected:
    FileMoveTest() {
        folder.PutFolder("c/p");
        folder.PutFolder("c/q");
    }
    ~FileMoveTest() override {
        std::error_code error;
        if (!other.empty()) std::filesystem::remove_all(other, error);
    }

    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.At("c") + ";D=" + other;
        return sources;
    }
    [[nodiscard]] bool OnTwoFileSystems() const {
        struct stat a {};
        struct stat b {};
        return !other.empty() && ::stat(folder.Path().c_str(), &a) == 0 && ::stat(other.c_str(), &b) == 0 &&
               a.st_dev != b.st_dev;
    }
    [[nodiscard]] static mode_t ModeOf(const std::string& path) {
        struct stat status {};
        return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }
    [[nodiscard]] static std::string LinkAt(const std::string& path) {
        return std::filesystem::read_symlink(path).string();
    }

    TestFolder folder;
    std::string other = [] {
        std::string name = "/dev/shm/tavrix-test-XXXXXX";
        return ::mkdtemp(name.data()) != nullptr ? name : std::string();
    }();
    DriveMap drives{Sources()};
    HostFiles files{drives, HostPaths{}};
};

TEST_F(FileMoveTest, DateAndModeComeAlongAcrossFileSystems) {
    if (!OnTwoFileSystems()) GTEST_SKIP() << "/dev/shm is no second file system here";
    folder.Put("c/p/a.bmp", "content");
    const std::string path = folder.At("c/p/a.bmp");
    ASSERT_EQ(::chmod(path.c_str(), 0466), 0);
    const timespec times[2] = {{1'000'000'000, 0}, {1'000'000'000, 123'456'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_TRUE(files.Move("C:\\p\\a.bmp", "D:\\a.bmp"));
    EXPECT_FALSE(folder.Has("c/p/a.bmp"));
    EXPECT_EQ(ModeOf(other + "/a.bmp"), 0466U);
    struct stat status {};
    ASSERT_EQ(::stat((other + "/a.bmp").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(status.st_mtim.tv_nsec, 123'456'000);
    EXPECT_EQ(status.st_size, 7);
}

TEST_F(FileMoveTest, AcrossFileSystemsNothingIsLostWhereTheOriginalCannotGo) {
    if (!OnTwoFileSystems()) GTEST_SKIP() << "/dev/shm is no second file system here";
    folder.Put("c/p/a.bmp", "content");
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(folder.At("c/p").c_str(), 0555), 0);
    ASSERT_EQ(::chmod(other.c_str(), 0777), 0);
    // The superuser may take away any file.
    constexpr uid_t Nobody = 65534;
    const bool superuser = ::geteuid() == 0;
    ASSERT_TRUE(!superuser || ::seteuid(Nobody) == 0);
    const int error = ErrorOfCall([&] { files.Move("C:\\p\\a.bmp", "D:\\a.bmp"); });
    ASSERT_TRUE(!superuser || ::seteuid(0) == 0);
    ASSERT_EQ(::chmod(folder.At("c/p").c_str(), 0755), 0);
    EXPECT_EQ(error, 70);
    EXPECT_TRUE(folder.Has("c/p/a.bmp"));
    EXPECT_FALSE(std::filesystem::exists(other + "/a.bmp"));
}

TEST_F(FileMoveTest, AMovedLinkLeadsWhereItLed) {
    folder.Put("c/p/file.bmp", "content");
    std::filesystem::create_symlink("file.bmp", folder.At("c/p/near.bmp"));
    std::filesystem::create_symlink(folder.At("c/p/file.bmp"), folder.At("c/p/far.bmp"));
    files.Rename("C:\\p\\near.bmp", "C:\\q\\near.bmp");
    EXPECT_EQ(folder.Content("c/q/near.bmp"), "content");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.At("c/q/near.bmp")));
    EXPECT_FALSE(std::filesystem::is_symlink(folder.At("c/p/near.bmp")));
    EXPECT_TRUE(files.Move("C:\\p\\far.bmp", "C:\\q\\far.bmp"));
    EXPECT_EQ(LinkAt(folder.At("c/q/far.bmp")), folder.At("c/p/file.bmp"));
    // Within its folder it stays as it is written.
    files.Rename("C:\\q\\near.bmp", "C:\\p\\back.bmp");
    std::filesystem::create_symlink("file.bmp", folder.At("c/p/one.bmp"));
    files.Rename("C:\\p\\one.bmp", "C:\\p\\two.bmp");
    EXPECT_EQ(LinkAt(folder.At("c/p/two.bmp")), "file.bmp");
    EXPECT_EQ(folder.Content("c/p/file.bmp"), "content");
}

TEST_F(FileMoveTest, ALinkGoesToAnotherFileSystemAsALink) {
    if (!OnTwoFileSystems()) GTEST_SKIP() << "/dev/shm is no second file system here";
    folder.Put("c/p/file.bmp", "content");
    std::filesystem::create_symlink(folder.At("c/p/file.bmp"), folder.At("c/q/link.bmp"));
    std::filesystem::create_symlink("../p/file.bmp", folder.At("c/q/near.bmp"));
    EXPECT_TRUE(files.Move("C:\\q\\link.bmp", "D:\\link.bmp"));
    files.Rename("C:\\q\\near.bmp", "D:\\near.bmp");
    EXPECT_EQ(LinkAt(other + "/link.bmp"), folder.At("c/p/file.bmp"));
    EXPECT_TRUE(files.SameEntry("D:\\near.bmp", "C:\\p\\file.bmp"));
    EXPECT_EQ(folder.Content("c/p/file.bmp"), "content");
}

TEST_F(FileMoveTest, AReplacedLinkIsReplacedItself) {
    folder.Put("c/p/file.bmp", "kept");
    folder.Put("c/p/a.bmp", "new");
    folder.Put("c/p/b.bmp", "newer");
    std::filesystem::create_symlink(folder.At("c/p/file.bmp"), folder.At("c/q/a.bmp"));
    EXPECT_TRUE(files.Move("C:\\p\\a.bmp", "C:\\q\\a.bmp"));
    EXPECT_EQ(folder.Content("c/q/a.bmp"), "new");
    EXPECT_FALSE(std::filesystem::is_symlink(folder.At("c/q/a.bmp")));
    EXPECT_EQ(folder.Content("c/p/file.bmp"), "kept");
    if (!OnTwoFileSystems()) return;
    std::filesystem::create_symlink(folder.At("c/p/file.bmp"), other + "/b.bmp");
    EXPECT_TRUE(files.Move("C:\\p\\b.bmp", "D:\\b.bmp"));
    EXPECT_FALSE(std::filesystem::is_symlink(other + "/b.bmp"));
    EXPECT_EQ(folder.Content("c/p/file.bmp"), "kept");
    EXPECT_FALSE(folder.Has("c/p/b.bmp"));
}

TEST_F(FileMoveTest, ADanglingLinkAtTheTargetIsInTheWay) {
    folder.Put("c/p/a.bmp", "new");
    std::filesystem::create_symlink("nowhere", folder.At("c/q/a.bmp"));
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\q\\a.bmp"); }), 58);
    EXPECT_TRUE(folder.Has("c/p/a.bmp"));
    if (!OnTwoFileSystems()) return;
    std::filesystem::create_symlink("nowhere", other + "/a.bmp");
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "D:\\a.bmp"); }), 58);
    EXPECT_TRUE(folder.Has("c/p/a.bmp"));
    EXPECT_FALSE(std::filesystem::exists(other + "/nowhere"));
}

TEST_F(FileMoveTest, HardLinksAreTwoEntriesOfOneFile) {
    folder.Put("c/p/a.bmp", "content");
    std::filesystem::create_hard_link(folder.At("c/p/a.bmp"), folder.At("c/q/a.bmp"));
    EXPECT_TRUE(files.Same("C:\\p\\a.bmp", "C:\\q\\a.bmp"));
    EXPECT_FALSE(files.SameEntry("C:\\p\\a.bmp", "C:\\q\\a.bmp"));
    // A rename of one over the other would do nothing, and a removal then would take one of two names.
    EXPECT_EQ(ErrorOfCall([&] { files.Move("C:\\p\\a.bmp", "C:\\q\\a.bmp"); }), 70);
    EXPECT_TRUE(folder.Has("c/p/a.bmp"));
    EXPECT_TRUE(folder.Has("c/q/a.bmp"));
}

TEST_F(FileMoveTest, FoldersThatDifferInCaseAreTwo) {
    folder.Put("c/Pics/a.bmp", "mixed");
    folder.Put("c/PICS/a.bmp", "large");
    folder.Put("c/Pics/b.bmp", "b");
    EXPECT_TRUE(files.Move("C:\\Pics\\a.bmp", "C:\\q\\a.bmp"));
    EXPECT_EQ(folder.Content("c/PICS/a.bmp"), "large");
    files.Rename("C:\\Pics\\b.bmp", "C:\\PICS\\b.bmp");
    EXPECT_EQ(folder.Content("c/PICS/b.bmp"), "b");
    EXPECT_FALSE(files.HasExactly("C:\\Pics\\a.bmp"));
}

TEST_F(FileMoveTest, FoldersOfTheSystemAndLinksAreNotLookedInto) {
    DriveMap::Sources sources;
    sources.drives = "C=/";
    DriveMap whole(sources);
    HostFiles system(whole, HostPaths{});
    const FolderContent root = system.Look("C:\\", "*.*")->Take();
    // Lists have all of them but those that have no place on a disk.
    std::vector<std::string> all = root.folders;
    std::ranges::copy(root.uncounted, std::back_inserter(all));
    std::ranges::sort(all, ListsBefore);
    EXPECT_EQ(all, system.Folders("C:\\"));
    EXPECT_EQ(std::ranges::find(root.folders, "C:\\proc"), root.folders.end());
    EXPECT_EQ(std::ranges::find(root.folders, "C:\\sys"), root.folders.end());
    EXPECT_EQ(std::ranges::find(root.folders, "C:\\dev"), root.folders.end());
    EXPECT_EQ(std::ranges::find(root.folders, "C:\\run"), root.folders.end());
    EXPECT_NE(std::ranges::find(root.folders, "C:\\usr"), root.folders.end());
}

TEST_F(FileMoveTest, ALinkHasTheNumberOfItsFileAndSoHasEveryNameOfIt) {
    folder.Put("c/q/b.bmp", "b");
    folder.Put("c/q/r/x.bmp", "x");
    ASSERT_EQ(::link(folder.At("c/q/b.bmp").c_str(), folder.At("c/q/A.bmp").c_str()), 0);
    ASSERT_EQ(::symlink("r/x.bmp", folder.At("c/q/c.bmp").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere.bmp", folder.At("c/q/d.bmp").c_str()), 0);
    const FolderContent content = files.Look("C:\\q", "*.bmp")->Take();
    ASSERT_EQ(content.files, (std::vector<std::string>{"A.bmp", "b.bmp", "c.bmp"}));
    struct stat status {};
    std::vector<FileNumber> wanted;
    for (const char* path : {"c/q/b.bmp", "c/q/b.bmp", "c/q/r/x.bmp"}) {
        ASSERT_EQ(::stat(folder.At(path).c_str(), &status), 0);
        wanted.push_back(status.st_ino);
    }
    EXPECT_EQ(content.numbers, wanted);
}

TEST_F(FileMoveTest, ALookThatIsGivenUpHoldsUpNobody) {
    for (int i = 0; i < 100; ++i)
        folder.Put("c/q/" + std::to_string(i) + ".bmp", "");
    for (int i = 0; i < 200; ++i) {
        const auto dropped = files.Look("C:\\q", "*.*");
        EXPECT_EQ(files.Look("C:\\q", "*.bmp")->Take().files.size(), 100U);
    }
}

}  // namespace
}  // namespace tavrix
