#include "backends/linux/TrashCan.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <ctime>
#include <functional>
#include <set>
#include <string>

#include "TestFolder.h"

namespace tavrix {
namespace {

/// A home and a "mounted" disk; which folders are mounts is told by the test, so that no mount is needed.
class TrashCanTest : public testing::Test {
  protected:
    TrashCanTest() {
        folder.PutFolder("home");
        folder.PutFolder("disk/pictures");
        ::chmod(folder.Path().c_str(), 0755);
    }

    [[nodiscard]] TrashCan Can() const {
        return TrashCan(folder.At("home/data/Trash"), [this](const std::string& path) {
            return path.starts_with(folder.At("disk")) ? folder.At("disk") : folder.Path();
        });
    }
    void Take(const std::string& name, TrashCan::Place place = TrashCan::Place::Any) const {
        Can().Take(folder.At(name), place);
    }
    [[nodiscard]] static std::string User() { return std::to_string(::geteuid()); }

    /// The names of what is in a folder, with a blank behind each.
    [[nodiscard]] std::string Names(const std::string& name) const {
        std::set<std::string> names;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(folder.At(name), error))
            names.insert(entry.path().filename().string());
        std::string text;
        for (const std::string& entry : names)
            text += entry + " ";
        return text;
    }
    [[nodiscard]] std::string NotedPath(const std::string& trash, const std::string& name) const {
        const std::string note = folder.Content(trash + "/info/" + name + ".trashinfo");
        const std::string start = "[Trash Info]\nPath=";
        EXPECT_TRUE(note.starts_with(start)) << note;
        return note.starts_with(start)
                   ? note.substr(start.size(), note.find('\n', start.size()) - start.size())
                   : std::string();
    }
    void ExpectInHome(const std::string& names, const std::string& notes) const {
        EXPECT_EQ(Names("home/data/Trash/files"), names);
        EXPECT_EQ(Names("home/data/Trash/info"), notes);
    }
    void BlockHome() const { folder.Put("home/data/Trash", "a file where the trash would be"); }
    void BlockDisk() const { folder.Put("disk/.Trash-" + User(), "a file where the trash would be"); }
    /// What a call ends with when no superuser makes it.
    static int ErrorAsOrdinaryUser(const std::function<void()>& call) {
        const pid_t child = ::fork();
        if (child == 0) {
            constexpr uid_t Nobody = 65534;
            if (::geteuid() == 0 && ::seteuid(Nobody) != 0) ::_exit(99);
            ::_exit(ErrorOfCall(call));
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return WEXITSTATUS(status);
    }

    TestFolder folder;
};

TEST_F(TrashCanTest, TakesAFileOfTheSameSystemHome) {
    folder.Put("home/a.jpg", "picture");
    Take("home/a.jpg");
    EXPECT_FALSE(folder.Has("home/a.jpg"));
    ExpectInHome("a.jpg ", "a.jpg.trashinfo ");
    EXPECT_EQ(folder.Content("home/data/Trash/files/a.jpg"), "picture");
    EXPECT_EQ(NotedPath("home/data/Trash", "a.jpg"), folder.At("home/a.jpg"));
    for (const char* name : {"home/data/Trash", "home/data/Trash/files", "home/data/Trash/info"}) {
        struct stat status {};
        ASSERT_EQ(::stat(folder.At(name).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0700U) << name;
    }
}

TEST_F(TrashCanTest, NotesTheMomentInTheUsersTime) {
    const ScopedVariable zone("TZ", "XXX-5");
    ::tzset();
    folder.Put("home/a.jpg", "");
    const std::time_t before = std::time(nullptr);
    Take("home/a.jpg");
    const std::time_t after = std::time(nullptr);
    const std::string note = folder.Content("home/data/Trash/info/a.jpg.trashinfo");
    const std::string key = "\nDeletionDate=";
    ASSERT_NE(note.find(key), std::string::npos) << note;
    std::tm moment{};
    const char* end = ::strptime(note.c_str() + note.find(key) + key.size(), "%Y-%m-%dT%H:%M:%S", &moment);
    ASSERT_NE(end, nullptr) << note;
    EXPECT_STREQ(end, "\n");
    const std::time_t noted = ::timegm(&moment) - 5 * 3600;
    EXPECT_GE(noted, before);
    EXPECT_LE(noted, after);
}

TEST_F(TrashCanTest, EscapesPaths) {
    folder.Put("home/100% \xC3\xA4#?\n[x].jpg", "p");
    Take("home/100% \xC3\xA4#?\n[x].jpg");
    EXPECT_EQ(NotedPath("home/data/Trash", "100% \xC3\xA4#?\n[x].jpg"),
              folder.At("home/100%25%20%C3%A4%23%3F%0A%5Bx%5D.jpg"));
}

TEST_F(TrashCanTest, GivesEachFileANameOfItsOwn) {
    for (const char* content : {"1", "2", "3"}) {
        folder.Put("home/a.b.jpg", content);
        Take("home/a.b.jpg");
    }
    ExpectInHome("a.b.2.jpg a.b.3.jpg a.b.jpg ",
                 "a.b.2.jpg.trashinfo a.b.3.jpg.trashinfo a.b.jpg.trashinfo ");
    EXPECT_EQ(folder.Content("home/data/Trash/files/a.b.2.jpg"), "2");
    for (const char* content : {"4", "5"}) {
        folder.Put("home/.hidden", content);
        Take("home/.hidden");
    }
    EXPECT_EQ(folder.Content("home/data/Trash/files/.hidden.2"), "5");
}

TEST_F(TrashCanTest, NeverWritesOverWhatLostItsNote) {
    folder.Put("home/data/Trash/files/a.jpg", "older");
    folder.Put("home/data/Trash/info/a.2.jpg.trashinfo", "note without a file");
    folder.Put("home/a.jpg", "newer");
    Take("home/a.jpg");
    EXPECT_EQ(folder.Content("home/data/Trash/files/a.jpg"), "older");
    EXPECT_EQ(folder.Content("home/data/Trash/files/a.3.jpg"), "newer");
    EXPECT_EQ(folder.Content("home/data/Trash/info/a.2.jpg.trashinfo"), "note without a file");
}

TEST_F(TrashCanTest, LongNamesAreCutAtACharacter) {
    std::string name;
    for (int i = 0; i < 125; ++i)
        name += "\xC3\xA4";
    folder.Put("home/x" + name + ".jpg", "p");
    Take("home/x" + name + ".jpg");
    EXPECT_FALSE(folder.Has("home/x" + name + ".jpg"));
    EXPECT_EQ(Names("home/data/Trash/files"), "x" + name.substr(0, 198) + ".jpg ");
    EXPECT_TRUE(NotedPath("home/data/Trash", "x" + name.substr(0, 198) + ".jpg").ends_with("%C3%A4.jpg"));
}

TEST_F(TrashCanTest, AnotherSystemHasItsOwnTrash) {
    folder.Put("disk/pictures/a b.jpg", "picture");
    Take("disk/pictures/a b.jpg");
    EXPECT_FALSE(folder.Has("disk/pictures/a b.jpg"));
    const std::string trash = "disk/.Trash-" + User();
    EXPECT_EQ(folder.Content(trash + "/files/a b.jpg"), "picture");
    EXPECT_EQ(NotedPath(trash, "a b.jpg"), "pictures/a%20b.jpg");
    ExpectInHome("", "");
    struct stat status {};
    ASSERT_EQ(::stat(folder.At(trash).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(TrashCanTest, TheAdministratorsTrashComesFirst) {
    folder.PutFolder("disk/.Trash");
    ::chmod(folder.At("disk/.Trash").c_str(), 01777);
    folder.Put("disk/pictures/a.jpg", "picture");
    Take("disk/pictures/a.jpg");
    EXPECT_EQ(folder.Content("disk/.Trash/" + User() + "/files/a.jpg"), "picture");
    EXPECT_EQ(NotedPath("disk/.Trash/" + User(), "a.jpg"), "pictures/a.jpg");
    EXPECT_FALSE(folder.Has("disk/.Trash-" + User()));
}

TEST_F(TrashCanTest, AnAdministratorsTrashThatIsNotSafeIsNotUsed) {
    folder.PutFolder("disk/.Trash");
    ::chmod(folder.At("disk/.Trash").c_str(), 0777);  // not sticky
    folder.Put("disk/a.jpg", "1");
    Take("disk/a.jpg");
    EXPECT_EQ(Names("disk/.Trash"), "");
    EXPECT_EQ(folder.Content("disk/.Trash-" + User() + "/files/a.jpg"), "1");

    std::filesystem::remove(folder.At("disk/.Trash"));
    folder.PutFolder("elsewhere");
    ::chmod(folder.At("elsewhere").c_str(), 01777);
    std::filesystem::create_symlink(folder.At("elsewhere"), folder.At("disk/.Trash"));
    folder.Put("disk/a.jpg", "2");
    Take("disk/a.jpg");
    EXPECT_EQ(Names("elsewhere"), "");
    EXPECT_EQ(folder.Content("disk/.Trash-" + User() + "/files/a.2.jpg"), "2");
}

TEST_F(TrashCanTest, ALinkIsNoTrash) {
    folder.PutFolder("elsewhere");
    std::filesystem::create_symlink(folder.At("elsewhere"), folder.At("disk/.Trash-" + User()));
    folder.Put("disk/a.jpg", "picture");
    Take("disk/a.jpg");
    EXPECT_EQ(Names("elsewhere"), "");
    ExpectInHome("a.jpg ", "a.jpg.trashinfo ");
}

TEST_F(TrashCanTest, WithoutATrashOfItsOwnAFileIsCopiedHome) {
    BlockDisk();
    folder.Put("disk/pictures/a.jpg", std::string(300'000, 'p'));
    ::chmod(folder.At("disk/pictures/a.jpg").c_str(), 0440);
    const auto modified = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000);
    std::filesystem::last_write_time(folder.At("disk/pictures/a.jpg"), modified);
    Take("disk/pictures/a.jpg");
    EXPECT_FALSE(folder.Has("disk/pictures/a.jpg"));
    ExpectInHome("a.jpg ", "a.jpg.trashinfo ");
    const std::string copy = folder.At("home/data/Trash/files/a.jpg");
    EXPECT_EQ(folder.Content("home/data/Trash/files/a.jpg"), std::string(300'000, 'p'));
    EXPECT_EQ(NotedPath("home/data/Trash", "a.jpg"), folder.At("disk/pictures/a.jpg"));
    struct stat status {};
    ASSERT_EQ(::stat(copy.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0440U);
    EXPECT_LT(std::chrono::abs(std::filesystem::last_write_time(copy) - modified), std::chrono::seconds(1));
}

TEST_F(TrashCanTest, MediaWithoutRoomToSpareAreCopiedHomeAtOnce) {
    folder.Put("disk/a.jpg", "picture");
    Take("disk/a.jpg", TrashCan::Place::Home);
    ExpectInHome("a.jpg ", "a.jpg.trashinfo ");
    EXPECT_EQ(Names("disk"), "pictures ");
}

TEST_F(TrashCanTest, AMountThatWasNotSeenIsCopiedFrom) {
    const ScopedVariable temporary("TMPDIR", "/dev/shm");
    const TestFolder other;
    struct stat here {};
    struct stat there {};
    ASSERT_EQ(::stat(folder.Path().c_str(), &here), 0);
    ASSERT_EQ(::stat(other.Path().c_str(), &there), 0);
    if (here.st_dev == there.st_dev) GTEST_SKIP() << "both folders are on one file system";
    other.Put("a.jpg", "picture");
    Can().Take(other.At("a.jpg"));  // it is told that this is the home's file system
    EXPECT_FALSE(other.Has("a.jpg"));
    EXPECT_EQ(folder.Content("home/data/Trash/files/a.jpg"), "picture");
    EXPECT_EQ(MountFolderOf(other.Path()), "/dev/shm");
}

TEST_F(TrashCanTest, WithoutAnyTrashTheFileStays) {
    BlockHome();
    BlockDisk();
    folder.Put("home/a.jpg", "1");
    folder.Put("disk/b.jpg", "2");
    EXPECT_EQ(ErrorOfCall([&] { Take("home/a.jpg"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { Take("disk/b.jpg"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { Take("disk/b.jpg", TrashCan::Place::Home); }), 70);
    EXPECT_EQ(folder.Content("home/a.jpg"), "1");
    EXPECT_EQ(folder.Content("disk/b.jpg"), "2");
}

TEST_F(TrashCanTest, AFileThatMayNotBeTakenAwayStays) {
    folder.Put("home/closed/a.jpg", "1");
    folder.Put("home/common/a.jpg", "2");
    ::chmod(folder.At("home/closed").c_str(), 0555);
    ::chmod(folder.At("home/common").c_str(), 01777);
    ::chmod(folder.At("home").c_str(), 0777);
    EXPECT_EQ(ErrorAsOrdinaryUser([&] { Take("home/closed/a.jpg"); }), 70);
    if (::geteuid() == 0) {
        EXPECT_EQ(ErrorAsOrdinaryUser([&] { Take("home/common/a.jpg"); }), 70);
        EXPECT_EQ(folder.Content("home/common/a.jpg"), "2");
    }
    EXPECT_EQ(folder.Content("home/closed/a.jpg"), "1");
    EXPECT_EQ(Names("home/data/Trash/files"), "");
    EXPECT_EQ(Names("home/data/Trash/info"), "");
    ::chmod(folder.At("home/closed").c_str(), 0755);
}

TEST_F(TrashCanTest, AFullTrashLeavesTheFileAndNoTraces) {
    BlockDisk();
    folder.Put("disk/a.jpg", std::string(100'000, 'p'));
    const pid_t child = ::fork();
    if (child == 0) {
        // A limit on the size of files stands for the full disk.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(ErrorOfCall([&] { Take("disk/a.jpg"); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(folder.Content("disk/a.jpg"), std::string(100'000, 'p'));
    ExpectInHome("", "");
}

TEST_F(TrashCanTest, ANoteThatCannotBeWrittenLeavesTheFileAndNoTraces) {
    folder.Put("home/a.jpg", "p");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10, 10};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(ErrorOfCall([&] { Take("home/a.jpg"); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(folder.Content("home/a.jpg"), "p");
    ExpectInHome("", "");
}

TEST_F(TrashCanTest, LinksAreTakenThemselves) {
    folder.Put("home/a.jpg", "p");
    std::filesystem::create_symlink("a.jpg", folder.At("home/link"));
    std::filesystem::create_symlink("../home/a.jpg", folder.At("disk/link"));
    Take("home/link");
    BlockDisk();
    Take("disk/link");
    EXPECT_EQ(folder.Content("home/a.jpg"), "p");
    EXPECT_EQ(std::filesystem::read_symlink(folder.At("home/data/Trash/files/link")), "a.jpg");
    EXPECT_EQ(std::filesystem::read_symlink(folder.At("home/data/Trash/files/link.2")), "../home/a.jpg");
}

TEST_F(TrashCanTest, TheRealPlaceIsNoted) {
    folder.Put("disk/pictures/a.jpg", "p");
    std::filesystem::create_symlink(folder.At("disk/pictures"), folder.At("home/link"));
    Take("home/link/a.jpg");
    EXPECT_EQ(NotedPath("disk/.Trash-" + User(), "a.jpg"), "pictures/a.jpg");
}

TEST_F(TrashCanTest, FoldersAndMissingFilesAreNotTaken) {
    EXPECT_EQ(ErrorOfCall([&] { Take("disk/pictures"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { Take("home/none.jpg"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { Take("none/none.jpg"); }), 53);
    EXPECT_TRUE(folder.Has("disk/pictures"));
}

TEST(MountFolder, IsTheHighestOfTheSameSystem) {
    EXPECT_EQ(MountFolderOf("/"), "/");
    EXPECT_EQ(MountFolderOf("/proc/self"), "/proc");
}

}  // namespace
}  // namespace tavrix
