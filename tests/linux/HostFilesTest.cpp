#include "backends/linux/HostFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

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

TEST_F(HostFilesTest, NeverWaitsForAPipe) {
    ASSERT_EQ(::mkfifo(folder.At("c/pipe").c_str(), 0600), 0);
    EXPECT_FALSE(files.FileExists("C:\\pipe"));
    EXPECT_EQ(ErrorOfCall([&] { Read("C:\\pipe"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\pipe", ""); }), 75);
}

TEST_F(HostFilesTest, ANameThatIsTooLongIsMalformed) {
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\" + std::string(300, 'x'), ""); }), 52);
}

TEST_F(HostFilesTest, TheProcessStaysInItsFolder) {
    folder.PutFolder("c/Pictures");
    const std::string before = std::filesystem::current_path().string();
    files.ChangeDrive("C");
    files.ChangeFolder("C:\\Pictures");
    EXPECT_EQ(files.CurrentFolder(), "C:\\Pictures");
    EXPECT_EQ(std::filesystem::current_path().string(), before);
}

using Names = std::vector<std::string>;

TEST_F(HostFilesTest, ListsOnlyFilesAndFoldersThatAreThere) {
    folder.Put("c/p/a.bmp", "");
    folder.PutFolder("c/p/Sub");
    ASSERT_EQ(::mkfifo(folder.At("c/p/pipe.bmp").c_str(), 0600), 0);
    std::filesystem::create_symlink("nothing", folder.At("c/p/dangling.bmp"));
    std::filesystem::create_symlink("y.bmp", folder.At("c/p/x.bmp"));
    std::filesystem::create_symlink("x.bmp", folder.At("c/p/y.bmp"));
    std::filesystem::create_symlink("a.bmp/deeper", folder.At("c/p/through.bmp"));
    EXPECT_EQ(files.List("C:\\p", "*.*"), (Names{"a.bmp"}));
    EXPECT_EQ(files.Folders("C:\\p"), (Names{"C:\\p\\Sub"}));
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Folders("C:\\p\\dangling.bmp")); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Folders("C:\\p\\x.bmp")); }), 76);
}

TEST_F(HostFilesTest, ListsStrangeNamesSoThatTheyAreFoundAgain) {
    const Names strange{"10:20.bmp",  "back\\slash.bmp", "raw\xff.bmp", "\"quoted\".bmp",  "line\nend.bmp",
                        " blank.bmp", "star*.bmp",       "what?.bmp",   "\xE2\x90\xA6.bmp"};
    for (const std::string& name : strange) {
        folder.Put("c/p/" + name, name);
        folder.PutFolder("c/f/" + name);
    }
    const Names names = files.List("C:\\p", "*.bmp");
    ASSERT_EQ(names.size(), strange.size());
    EXPECT_TRUE(std::ranges::is_sorted(names, ListsBefore));
    Names contents;
    for (const std::string& name : names)
        contents.push_back(Read("C:\\p\\" + name));
    EXPECT_TRUE(std::ranges::is_permutation(contents, strange));

    const Names folders = files.Folders("C:\\f");
    ASSERT_EQ(folders.size(), strange.size());
    for (const std::string& path : folders)
        EXPECT_EQ(files.Folders(path), Names{}) << path;
    // A look-alike in a pattern is the character that it shows.
    EXPECT_EQ(files.List("C:\\p", "10\uA789*").size(), 1U);
}

TEST_F(HostFilesTest, FoldersWithALetterOfTheirOwnAreNotListedBelowOthers) {
    folder.PutFolder("c/shows/Sub");
    folder.PutFolder("c/other");
    folder.PutFolder("c/deep/media/stick");
    DriveMap::Sources sources;
    sources.drives = "C=" + folder.At("c") + ";D=" + folder.At("c/shows") +
                     ";E=" + folder.At("c/deep/media") + ";F=" + folder.At("c/other") +
                     ";G=" + folder.At("c/other");
    DriveMap map{sources};
    HostFiles mapped{map, Paths()};
    EXPECT_EQ(mapped.Folders("C:\\"), (Names{"C:\\deep"}));
    EXPECT_EQ(mapped.Folders("C:\\deep"), Names{});
    EXPECT_EQ(mapped.Folders("D:\\"), (Names{"D:\\Sub"}));
    EXPECT_EQ(mapped.Folders("E:\\"), (Names{"E:\\stick"}));
    folder.PutFolder("c/other/x");
    EXPECT_EQ(mapped.Folders("F:\\"), (Names{"F:\\x"}));
    EXPECT_EQ(mapped.Folders("g:\\"), (Names{"G:\\x"}));  // the letter that was asked for
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(mapped.List("C:\\shows", "")); }), 76);
}

TEST_F(HostFilesTest, FoldersOfTheSystemAreNotListed) {
    DriveMap::Sources sources;
    sources.drives = "C=/";
    DriveMap map{sources};
    HostFiles whole{map, Paths()};
    const Names folders = whole.Folders("C:\\");
    for (const char* hidden : {"C:\\proc", "C:\\sys", "C:\\dev"}) {
        EXPECT_EQ(std::ranges::count(folders, hidden), 0) << hidden;
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(whole.Folders(hidden)); }), 76) << hidden;
    }
    EXPECT_EQ(std::ranges::count(folders, "C:\\usr"), 1);
}

TEST_F(HostFilesTest, SharedFilesAreListedOnceAndOnlyWhereTheyAreSeen) {
    for (const char* name : {"TIPS.TXT", "own.txt", "folder.txt", "z.txt", "lost.txt"})
        folder.Put("shared/" + std::string(name), "shared");
    folder.Put("shared/Help/a.hlp", "shared");
    folder.Put("shared/Only/b.hlp", "shared");
    folder.Put("program/tips.txt", "own");
    folder.Put("program/own.txt", "own");
    folder.PutFolder("program/FOLDER.TXT");
    folder.Put("program/HELP/mine.hlp", "own");
    std::filesystem::create_symlink("nothing", folder.At("program/lost.txt"));
    EXPECT_EQ(files.List("P:\\", "*.txt"), (Names{"lost.txt", "own.txt", "tips.txt", "z.txt"}));
    for (const std::string& name : files.List("P:\\", "*.txt")) {
        const bool own = name == "own.txt" || name == "tips.txt";
        EXPECT_EQ(Read("P:\\" + name), own ? "own" : "shared") << name;
    }
    EXPECT_EQ(files.Folders("P:\\"), (Names{"P:\\FOLDER.TXT", "P:\\HELP", "P:\\Only"}));
    // Below, too: in a folder that both have, however it is spelled, and in one that only is shared.
    EXPECT_EQ(files.List("P:\\help", "*.hlp"), (Names{"a.hlp", "mine.hlp"}));
    EXPECT_EQ(files.First("P:\\help\\*.hlp"), "a.hlp");
    EXPECT_EQ(files.List("P:\\Only", "*.hlp"), (Names{"b.hlp"}));
    EXPECT_EQ(files.First("P:\\f*.txt"), "");  // a folder has the name
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

TEST_F(HostFilesTest, AFileThatWasSaidToBeLongerOrShorterHasWhatWasWritten) {
    const std::string content(3'000'001, 'x');
    for (const std::uint64_t said : {std::uint64_t{0}, std::uint64_t{1} << 20U, std::uint64_t{3'000'001},
                                     std::uint64_t{50'000'000}, std::uint64_t{1} << 60U}) {
        const auto file = files.Create("C:\\said", said);
        file->Write(std::as_bytes(std::span(content)));
        file->Close();
        EXPECT_TRUE(folder.Content("c/said") == content) << said;
        const auto status = StatusOf("c/said");
        constexpr std::int64_t Sector = 512;
        // No room behind its end stays with it.
        EXPECT_LT(status.st_blocks * Sector, status.st_size + (1 << 20)) << said;
    }
}

/// A working file and what it was before, in the temporary folder.
class OwnCopyTest : public HostFilesTest {
  protected:
    OwnCopyTest() { Write(working, "first"); }

    [[nodiscard]] struct stat StatusIn(const std::string& name) const { return StatusOf("c/temp/" + name); }
    [[nodiscard]] std::string ContentIn(const std::string& name) const {
        return folder.Content("c/temp/" + name);
    }

    const std::string temporary = files.Folder(KnownFolder::Temporary) + "\\";
    const std::string working = temporary + "w.bmp";
    const std::string undo = temporary + "~u.tmp";
};

TEST_F(OwnCopyTest, TakesNoRoomAndStaysWhatItWas) {
    for (const std::string before : {"first", "second", "third"}) {
        EXPECT_EQ(ContentIn("w.bmp"), before);
        EXPECT_TRUE(files.Copy(working, undo));
        EXPECT_EQ(StatusIn("w.bmp").st_ino, StatusIn("~u.tmp").st_ino);
        EXPECT_TRUE(files.FileExists(undo));
        EXPECT_TRUE(files.Copy(working, undo)) << "it is one already";
        EXPECT_TRUE(files.Copy(undo, working));
        Write(working, before == "first" ? "second" : "third");
        EXPECT_EQ(ContentIn("~u.tmp"), before);
        EXPECT_NE(StatusIn("w.bmp").st_ino, StatusIn("~u.tmp").st_ino);
        EXPECT_EQ(EntriesIn("c/temp"), 2);
    }
}

TEST_F(OwnCopyTest, IsOneOfItsOwnWhereTheOriginalIsProtected) {
    ::chmod(folder.At("c/temp/w.bmp").c_str(), 0444);
    EXPECT_TRUE(files.Copy(working, undo));
    EXPECT_FALSE(files.Info(undo).readOnly);
    EXPECT_TRUE(files.Info(working).readOnly);
    EXPECT_NE(StatusIn("w.bmp").st_ino, StatusIn("~u.tmp").st_ino);
}

TEST_F(OwnCopyTest, LeavesAProtectedTargetAlone) {
    Write(undo, "kept");
    ::chmod(folder.At("c/temp/~u.tmp").c_str(), 0444);
    EXPECT_EQ(ErrorOfCall([&] { files.Copy(working, undo); }), 70);
    EXPECT_EQ(ContentIn("~u.tmp"), "kept");
}

TEST_F(OwnCopyTest, MayBeGivenUp) {
    EXPECT_FALSE(files.Copy(working, undo, [] { return false; }));
    EXPECT_FALSE(files.FileExists(undo));
}

TEST_F(OwnCopyTest, IsOneOfItsOwnToAndFromOtherFolders) {
    folder.Put("c/a.bmp", "opened");
    files.Copy("C:\\a.bmp", undo);
    EXPECT_NE(StatusOf("c/a.bmp").st_ino, StatusIn("~u.tmp").st_ino);
    files.Copy(working, "C:\\b.bmp");
    EXPECT_NE(StatusOf("c/b.bmp").st_ino, StatusIn("w.bmp").st_ino);
    std::filesystem::create_directory(folder.At("c/temp/2"));
    files.Copy(working, temporary + "2\\w.bmp");
    EXPECT_NE(StatusIn("2/w.bmp").st_ino, StatusIn("w.bmp").st_ino);
}

TEST_F(OwnCopyTest, ALinkIsFollowedAndNotDoubled) {
    folder.Put("c/a.bmp", "opened");
    std::filesystem::create_symlink(folder.At("c/a.bmp"), folder.At("c/temp/soft.bmp"));
    EXPECT_TRUE(files.Copy(temporary + "soft.bmp", undo));
    EXPECT_TRUE(S_ISREG(StatusIn("~u.tmp").st_mode));
    EXPECT_EQ(ContentIn("~u.tmp"), "opened");
    EXPECT_NE(StatusOf("c/a.bmp").st_ino, StatusIn("~u.tmp").st_ino);
}

TEST_F(OwnCopyTest, IsNotWrittenOverWhenTheDiskIsFull) {
    ASSERT_TRUE(files.Copy(working, undo));
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(ErrorOfCall([&] { Write(working, std::string(100'000, 'x')); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(ContentIn("w.bmp"), "first");
    EXPECT_EQ(ContentIn("~u.tmp"), "first");
}

TEST_F(HostFilesTest, ALargeFileIsCopiedBesideOtherWork) {
    std::string large(20'000'000, '\0');
    for (std::size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 7919 >> 5U);
    folder.Put("c/large", large);
    folder.Put("c/copy", "former");
    {
        const auto copy = files.BeginCopy("C:\\large", "C:\\copy");
        EXPECT_EQ(folder.Content("c/copy"), "former") << "it stands when it was waited for";
        copy->Finish();
    }
    EXPECT_TRUE(folder.Content("c/copy") == large);
    folder.Put("c/copy", "former");
    static_cast<void>(files.BeginCopy("C:\\large", "C:\\copy"));  // dropped
    EXPECT_EQ(folder.Content("c/copy"), "former");
    EXPECT_EQ(EntriesIn("c"), 2);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.BeginCopy("C:\\none", "C:\\copy")); }), 53);

    folder.Put("c/small", "small");
    files.BeginCopy("C:\\small", "C:\\copy")->Finish();
    EXPECT_EQ(folder.Content("c/copy"), "small");
}

TEST_F(HostFilesTest, ALargeCopyThatFailsBesideSaysSo) {
    folder.Put("c/large", std::string(20'000'000, 'x'));
    folder.Put("c/copy", "former");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto copy = files.BeginCopy("C:\\large", "C:\\copy");
        ::_exit(ErrorOfCall([&] { copy->Finish(); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(folder.Content("c/copy"), "former");
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

TEST_F(HostFilesTest, AFloppysFileIsReplacedAsAWholeAndTheDiskHasItsSize) {
    folder.Put("a/a.txt", "old content");
    const ino_t inode = StatusOf("a/a.txt").st_ino;
    auto writer = files.Create("A:\\a.txt");
    EXPECT_EQ(folder.Content("a/a.txt"), "old content");
    writer->Write(std::as_bytes(std::span("new", 3)));
    EXPECT_EQ(folder.Content("a/a.txt"), "old content");
    writer->Close();
    EXPECT_EQ(folder.Content("a/a.txt"), "new");
    EXPECT_NE(StatusOf("a/a.txt").st_ino, inode);
    EXPECT_EQ(EntriesIn("a"), 1);

    Write("A:\\large", std::string(1'457'000, 'x'));
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\more", std::string(1'000, 'x')); }), 61);
    EXPECT_FALSE(folder.Has("a/more"));
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

TEST_F(HostFilesTest, AFullDiskKeepsTheFormerFileOfAFolderThatTakesNoNewOnes) {
    folder.Put("c/closed/a.txt", std::string(3000, 'o'));
    ::chmod(folder.At("c/closed/a.txt").c_str(), 0666);
    ::chmod(folder.At("c/closed").c_str(), 0555);
    ::chmod(folder.Path().c_str(), 0755);
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && ::seteuid(Nobody) != 0) ::_exit(99);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(ErrorOfCall([&] { Write("C:\\closed\\a.txt", std::string(100'000, 'x')); }));
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(folder.Content("c/closed/a.txt"), std::string(3000, 'o'));
    ::chmod(folder.At("c/closed").c_str(), 0755);
}

TEST_F(HostFilesTest, WhatAKillLeftIsGoneAfterTheNextWrite) {
    folder.Put("c/.tavrix-abcdefghijkl", "left by a kill");
    folder.Put("c/.tavrix-bcdefghijklm", "being written");
    folder.Put("c/.tavrix-notes", "the user's own");
    folder.Put("c/.tavrix-xdefghijklmnop", "the user's own");
    const FileDescriptor writing(::open(folder.At("c/.tavrix-bcdefghijklm").c_str(), O_WRONLY));
    ASSERT_EQ(::flock(writing.Number(), LOCK_EX), 0);
    Write("C:\\a.txt", "new");
    EXPECT_FALSE(folder.Has("c/.tavrix-abcdefghijkl"));
    EXPECT_EQ(folder.Content("c/.tavrix-bcdefghijklm"), "being written");
    EXPECT_EQ(EntriesIn("c"), 4);
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
    HostPaths paths = Paths();
    paths.data.clear();
    DriveMap map(Sources());
    EXPECT_EQ(HostFiles(map, paths).Folder(KnownFolder::Windows), "");
    paths.data = folder.At("c/me/data");
    EXPECT_EQ(HostFiles(map, paths).Folder(KnownFolder::Windows), "C:\\me\\data\\tavrix\\windows");
    EXPECT_TRUE(folder.Has("c/me/data/tavrix/windows"));
    Write("C:\\temp\\~undo.tmp", "x");
    EXPECT_EQ(folder.Content("c/temp/~undo.tmp"), "x");
}

TEST_F(HostFilesTest, KnowsTheDocumentsBeforeTheyAreMade) {
    HostPaths paths = Paths();
    DriveMap map(Sources());
    EXPECT_EQ(HostFiles(map, paths).Folder(KnownFolder::Documents), "");
    paths.documents = folder.At("c/me/Documents");
    HostFiles own(map, paths);
    EXPECT_EQ(own.Folder(KnownFolder::Documents), "C:\\me\\Documents");
    folder.PutFolder("c/me");
    own.MakeFolder(own.Folder(KnownFolder::Documents));
    EXPECT_TRUE(folder.Has("c/me/Documents"));
    EXPECT_EQ(own.Folder(KnownFolder::Documents), "C:\\me\\Documents");
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
