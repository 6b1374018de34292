#include "platform/host/HostFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <string>

#include "TestFolder.h"

namespace tavrix {
namespace {

class HostFilesTest : public testing::Test {
  protected:
    HostFilesTest() {
        folder.PutFolder("c");
        folder.PutFolder("a");
        folder.PutFolder("program");
        folder.PutFolder("shared");
    }

    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "A=" + folder.At("a") + ",floppy;C=" + folder.At("c") + ";P=" + folder.At("program");
        sources.program = folder.At("program");
        sources.shared = folder.At("shared");
        return sources;
    }
    [[nodiscard]] HostPaths Paths() const {
        HostPaths paths;
        paths.program = folder.At("program");
        paths.shared = folder.At("shared");
        paths.temporary = folder.At("c/temp");
        paths.data = folder.At("data");
        return paths;
    }

    void Write(const std::string& path, const std::string& content) {
        const auto writer = files.Create(path);
        writer->Write(std::as_bytes(std::span(content)));
        writer->Close();
    }
    std::string Read(const std::string& path) {
        const auto reader = files.Open(path);
        std::string content;
        std::array<std::byte, 3> part{};
        while (const std::size_t count = reader->Read(part)) {
            content.append(reinterpret_cast<const char*>(part.data()), count);
        }
        return content;
    }
    [[nodiscard]] struct stat StatusOf(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(::lstat(folder.At(name).c_str(), &status), 0) << name;
        return status;
    }
    /// How many entries a folder has, hidden ones included.
    [[nodiscard]] std::ptrdiff_t EntriesIn(const std::string& name) const {
        const std::filesystem::directory_iterator entries(folder.At(name));
        return std::distance(entries, {});
    }

    TestFolder folder;
    DriveMap drives{Sources()};
    HostFiles files{drives, Paths()};
};

TEST_F(HostFilesTest, WritesAndReads) {
    Write("C:\\a.txt", "content");
    EXPECT_EQ(folder.Content("c/a.txt"), "content");
    EXPECT_EQ(Read("c:\\A.TXT"), "content");
    Write("C:\\A.TXT", "new");
    EXPECT_EQ(folder.Content("c/a.txt"), "new");
    EXPECT_EQ(EntriesIn("c"), 1);
    Write("C:\\a.txt", "");
    EXPECT_EQ(folder.Content("c/a.txt"), "");
}

TEST_F(HostFilesTest, TellsFailuresApart) {
    folder.Put("c/a.bmp", "a");
    folder.PutFolder("c/Folder");
    EXPECT_EQ(ErrorOfCall([&] { Read("C:\\none.bmp"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { Read("C:\\none\\a.bmp"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { Read("C:\\a.bmp\\a.bmp"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { Read("Q:\\a.bmp"); }), 68);
    EXPECT_EQ(ErrorOfCall([&] { Read("A:\\a.bmp"); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { Read(""); }), 52);
    EXPECT_EQ(ErrorOfCall([&] { Read("C:\\Folder"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\Folder", ""); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\none\\a.bmp", ""); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("C:\\none.bmp"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("C:\\Folder"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { files.MakeFolder("C:\\folder"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { files.MakeFolder("C:\\x\\y"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.First("A:\\*.*")); }), 52);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.First("Q:\\*.*")); }), 52);
    EXPECT_EQ(ErrorOfCall([&] { files.ChangeDrive("A"); }), 68);
    EXPECT_EQ(ErrorOfCall([&] { files.ChangeDrive("Untitled.tvs"); }), 68);
    EXPECT_EQ(ErrorOfCall([&] { files.ChangeFolder("C:\\none"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { files.ChangeFolder("A:\\none"); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\" + std::string(300, 'x'), ""); }), 52);
    EXPECT_FALSE(files.FileExists("A:\\a.bmp"));
    EXPECT_FALSE(files.FileExists(""));
    EXPECT_FALSE(files.FileExists("C:\\Folder"));
    EXPECT_FALSE(files.FolderExists("C:\\a.bmp"));
    EXPECT_TRUE(files.FolderExists("C:\\FOLDER\\"));
}

TEST_F(HostFilesTest, NeverWaitsForAPipe) {
    ASSERT_EQ(::mkfifo(folder.At("c/pipe").c_str(), 0600), 0);
    EXPECT_FALSE(files.FileExists("C:\\pipe"));
    EXPECT_EQ(ErrorOfCall([&] { Read("C:\\pipe"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\pipe", ""); }), 75);
}

TEST_F(HostFilesTest, KeepsACurrentFolderPerDrive) {
    folder.PutFolder("c/Pictures");
    folder.Put("program/Shows/a.tvs", "show");
    const std::string before = std::filesystem::current_path().string();
    files.ChangeDrive("C");
    files.ChangeFolder("P:\\SHOWS");
    files.ChangeFolder("C:\\pictures\\");
    EXPECT_EQ(files.CurrentFolder(), "C:\\Pictures");
    files.ChangeDrive("p:\\whatever");
    EXPECT_EQ(files.CurrentFolder(), "P:\\Shows");
    EXPECT_TRUE(files.FileExists("a.tvs"));
    EXPECT_TRUE(files.FileExists("p:a.tvs"));
    EXPECT_EQ(std::filesystem::current_path().string(), before);
}

TEST_F(HostFilesTest, FindsTheFirstNormalFile) {
    folder.PutFolder("c/p/a");
    folder.Put("c/p/c.bmp", "");
    folder.Put("c/p/B.bmp", "");
    folder.Put("c/p/README", "");
    folder.Put("c/p/.hidden", "");
    std::filesystem::create_symlink(folder.At("c/p/README"), folder.At("c/p/aa.lnk"));
    std::filesystem::create_symlink(folder.At("c/p/a"), folder.At("c/p/a0"));
    EXPECT_EQ(files.First("C:\\p\\*.*"), "aa.lnk");
    EXPECT_EQ(files.First("C:\\p\\*.BMP"), "B.bmp");
    EXPECT_EQ(files.First("C:\\p\\R*.*"), "README");
    EXPECT_EQ(files.First("C:\\p\\*.gif"), "");
    EXPECT_EQ(files.First("C:\\none\\*.*"), "");
}

TEST_F(HostFilesTest, CopiesKeepTheDateAndDropTheMark) {
    folder.Put("c/a.bmp", "new");
    const std::array<timespec, 2> times{timespec{915246245, 0}, timespec{915246245, 123456789}};
    ASSERT_EQ(::utimensat(AT_FDCWD, folder.At("c/a.bmp").c_str(), times.data(), 0), 0);
    ::chmod(folder.At("c/a.bmp").c_str(), 0444);
    folder.Put("c/b.bmp", "old");
    files.Copy("C:\\a.bmp", "C:\\B.BMP");
    EXPECT_EQ(folder.Content("c/b.bmp"), "new");
    EXPECT_EQ(StatusOf("c/b.bmp").st_mtim.tv_sec, 915246245);
    EXPECT_EQ(files.Info("C:\\b.bmp").modified, files.Info("C:\\a.bmp").modified);
    EXPECT_TRUE(files.Info("C:\\a.bmp").readOnly);
    EXPECT_FALSE(files.Info("C:\\b.bmp").readOnly);
    EXPECT_EQ(files.Info("C:\\b.bmp").length, 3);
    files.Copy("C:\\a.bmp", "C:\\new.bmp");
    EXPECT_EQ(folder.Content("c/new.bmp"), "new");
    EXPECT_EQ(EntriesIn("c"), 3);
}

TEST_F(HostFilesTest, CopiesWhatIsLarge) {
    std::string large(5'000'000, '\0');
    for (std::size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 7919 >> 5U);
    folder.Put("c/large", large);
    files.Copy("C:\\large", "C:\\copy");
    EXPECT_TRUE(folder.Content("c/copy") == large);
}

TEST_F(HostFilesTest, NeverCopiesAFileOntoItself) {
    folder.Put("c/a.bmp", "a");
    std::filesystem::create_symlink("a.bmp", folder.At("c/soft.bmp"));
    std::filesystem::create_hard_link(folder.At("c/a.bmp"), folder.At("c/hard.bmp"));
    std::filesystem::create_directory_symlink(folder.At("c"), folder.At("c/here"));
    for (const char* target : {"C:\\a.bmp", "c:\\A.BMP", "C:\\soft.bmp", "C:\\hard.bmp", "C:\\here\\a.bmp"}) {
        EXPECT_TRUE(files.Same("C:\\a.bmp", target)) << target;
        EXPECT_EQ(ErrorOfCall([&] { files.Copy("C:\\a.bmp", target); }), 70) << target;
        EXPECT_EQ(ErrorOfCall([&] { files.Copy(target, "C:\\a.bmp"); }), 70) << target;
    }
    EXPECT_EQ(folder.Content("c/a.bmp"), "a");
    EXPECT_FALSE(files.Same("C:\\a.bmp", "C:\\none.bmp"));
}

TEST_F(HostFilesTest, ProtectsWhatIsMarked) {
    folder.Put("c/a.bmp", "a");
    folder.Put("c/b.bmp", "b");
    ::chmod(folder.At("c/a.bmp").c_str(), 0444);
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("C:\\a.bmp"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\a.bmp", "x"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { files.Copy("C:\\b.bmp", "C:\\a.bmp"); }), 70);
    EXPECT_EQ(folder.Content("c/a.bmp"), "a");
    files.Delete("C:\\b.bmp");
    EXPECT_FALSE(folder.Has("c/b.bmp"));
}

TEST_F(HostFilesTest, WritingFollowsLinksAndKeepsTheMode) {
    folder.Put("c/real/a.txt", "old");
    ::chmod(folder.At("c/real/a.txt").c_str(), 0640);
    std::filesystem::create_symlink("real/a.txt", folder.At("c/link.txt"));
    std::filesystem::create_symlink("real/b.txt", folder.At("c/dangling.txt"));
    Write("C:\\link.txt", "new");
    Write("C:\\dangling.txt", "made");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.At("c/link.txt")));
    EXPECT_EQ(folder.Content("c/real/a.txt"), "new");
    EXPECT_EQ(StatusOf("c/real/a.txt").st_mode & 0777U, 0640U);
    EXPECT_EQ(folder.Content("c/real/b.txt"), "made");
    EXPECT_EQ(EntriesIn("c/real"), 2);
}

TEST_F(HostFilesTest, ALoopOfLinksFails) {
    std::filesystem::create_symlink("y", folder.At("c/x"));
    std::filesystem::create_symlink("x", folder.At("c/y"));
    EXPECT_NE(ErrorOfCall([&] { Write("C:\\x", "new"); }), 0);
    EXPECT_FALSE(files.FileExists("C:\\x"));
}

TEST_F(HostFilesTest, AWriterPutsTheWholeInPlaceOnClose) {
    folder.Put("c/a.txt", "old");
    auto writer = files.Create("C:\\a.txt");
    EXPECT_EQ(folder.Content("c/a.txt"), "old");
    writer->Write(std::as_bytes(std::span("ne", 2)));
    EXPECT_EQ(folder.Content("c/a.txt"), "old");
    EXPECT_EQ(files.First("C:\\*.*"), "a.txt");  // what is being written is not to be seen
    writer->Write(std::as_bytes(std::span("w", 1)));
    writer->Close();
    EXPECT_EQ(folder.Content("c/a.txt"), "new");

    writer = files.Create("C:\\a.txt");
    writer->Write(std::as_bytes(std::span("dropped", 7)));
    writer.reset();
    EXPECT_EQ(folder.Content("c/a.txt"), "dropped");
}

TEST_F(HostFilesTest, AFloppyIsWrittenInPlaceAndHasItsSize) {
    folder.Put("a/a.txt", "old content");
    const ino_t inode = StatusOf("a/a.txt").st_ino;
    auto writer = files.Create("A:\\a.txt");
    EXPECT_EQ(folder.Content("a/a.txt"), "old content");
    writer->Write(std::as_bytes(std::span("new", 3)));
    EXPECT_EQ(folder.Content("a/a.txt"), "new");
    writer->Close();
    EXPECT_EQ(StatusOf("a/a.txt").st_ino, inode);

    Write("A:\\large", std::string(1'457'000, 'x'));
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\more", std::string(1'000, 'x')); }), 61);
    folder.Put("c/more", std::string(1'000, 'x'));
    EXPECT_EQ(ErrorOfCall([&] { files.Copy("C:\\more", "A:\\copy"); }), 61);
    Write("A:\\large", std::string(1'457'000, 'y'));  // its own room counts as free
}

TEST_F(HostFilesTest, AnEmptiedFloppyIsStillADisk) {
    folder.Put("a/a.txt", "x");
    files.Delete("A:\\a.txt");
    EXPECT_EQ(files.First("A:\\*.*"), "");
    Write("A:\\b.txt", "y");
    EXPECT_EQ(folder.Content("a/b.txt"), "y");
}

TEST_F(HostFilesTest, AFullDiskKeepsTheFormerFile) {
    // A limit on the size of files stands for the full disk.
    folder.Put("c/a.txt", "old");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const int error = ErrorOfCall([&] { Write("C:\\a.txt", std::string(100'000, 'x')); });
        ::_exit(error);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(folder.Content("c/a.txt"), "old");
    EXPECT_EQ(EntriesIn("c"), 1);
}

TEST_F(HostFilesTest, AFolderThatTakesNoNewFilesKeepsItsOldOnesWritable) {
    folder.Put("c/closed/a.txt", "old");
    ::chmod(folder.At("c/closed/a.txt").c_str(), 0666);
    ::chmod(folder.At("c/closed").c_str(), 0555);
    ::chmod(folder.Path().c_str(), 0755);
    const pid_t child = ::fork();
    if (child == 0) {
        // The superuser is kept out by no mode.
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && ::seteuid(Nobody) != 0) ::_exit(99);
        Write("C:\\closed\\a.txt", "new");
        ::_exit(ErrorOfCall([&] { Write("C:\\closed\\b.txt", "new"); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 70);
    EXPECT_EQ(folder.Content("c/closed/a.txt"), "new");
    ::chmod(folder.At("c/closed").c_str(), 0755);
}

TEST_F(HostFilesTest, SharedFilesAreSeenThroughTheProgramsFolder) {
    folder.Put("shared/TIPS.TXT", "shared tips");
    folder.Put("shared/Help/a.hlp", "help");
    folder.Put("program/own.txt", "own");
    EXPECT_EQ(Read("P:\\tips.txt"), "shared tips");
    EXPECT_EQ(Read("P:\\HELP\\a.hlp"), "help");
    EXPECT_TRUE(files.FileExists("P:\\TIPS.TXT"));
    EXPECT_EQ(files.First("P:\\*.*"), "own.txt");
    EXPECT_EQ(files.First("P:\\t*.txt"), "TIPS.TXT");
    EXPECT_TRUE(files.Info("P:\\TIPS.TXT").readOnly);
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("P:\\TIPS.TXT"); }), 53);
    Write("P:\\TIPS.TXT", "mine");
    EXPECT_EQ(Read("P:\\TIPS.TXT"), "mine");
    EXPECT_EQ(folder.Content("shared/TIPS.TXT"), "shared tips");
}

TEST_F(HostFilesTest, KnowsTheFolders) {
    EXPECT_EQ(files.Folder(KnownFolder::Temporary), "C:\\temp");
    EXPECT_EQ(StatusOf("c/temp").st_mode & 0777U, 0700U);
    EXPECT_EQ(files.Folder(KnownFolder::Program), "P:\\");
    EXPECT_EQ(files.Folder(KnownFolder::Windows), "");
    Write("C:\\temp\\~undo.tmp", "x");
    EXPECT_EQ(folder.Content("c/temp/~undo.tmp"), "x");
}

TEST_F(HostFilesTest, TellsCanonicalSpellings) {
    folder.PutFolder("c/Pictures/Old Ones");
    EXPECT_EQ(files.ShortPath("c:\\PICTURES\\old ones"), "C:\\Pictures\\Old Ones\\");
    EXPECT_EQ(files.ShortPath("C:\\"), "C:\\");
    EXPECT_EQ(files.ShortPath("C:\\none"), "");
    EXPECT_EQ(files.ShortPath("A:\\none"), "");
}

TEST_F(HostFilesTest, NamesWithStrangeCharactersGoBothWays) {
    folder.Put("c/10:20.bmp", "x");
    const std::string name = files.First("C:\\*.bmp");
    EXPECT_EQ(Read("C:\\" + name), "x");
    files.Copy("C:\\" + name, "C:\\copy of " + name);
    EXPECT_TRUE(folder.Has("c/copy of 10:20.bmp"));
    files.Delete("C:\\" + name);
    EXPECT_FALSE(folder.Has("c/10:20.bmp"));
}

}  // namespace
}  // namespace tavrix
