#include <string>

#include "Backend.h"
#include "platform/services/Files.h"

namespace tavrix::test {
namespace {

constexpr std::size_t Piece = std::size_t{8} << 20U;

TEST_P(FilesConformance, RenamesWithinAFolder) {
    backend->PutFile("C:\\p\\a.bmp", "content");
    const DateTime date = files.Info("C:\\p\\a.bmp").modified;
    files.Rename("C:\\p\\a.bmp", "C:\\p\\b.bmp");
    EXPECT_EQ(backend->Content("C:\\p\\b.bmp"), "content");
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), std::nullopt);
    EXPECT_EQ(files.Info("C:\\p\\b.bmp").modified, date);
}

TEST_P(FilesConformance, RenamesAcrossFoldersAndDrives) {
    backend->PutFile("C:\\p\\a.bmp", "content");
    backend->PutFolder("D:\\q");
    files.Rename("C:\\p\\a.bmp", "D:\\q\\b.bmp");
    EXPECT_EQ(backend->Content("D:\\q\\b.bmp"), "content");
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), std::nullopt);
    backend->InsertDisk();
    files.Rename("D:\\q\\b.bmp", "A:\\c.bmp");
    EXPECT_EQ(backend->Content("A:\\c.bmp"), "content");
    EXPECT_EQ(backend->Content("D:\\q\\b.bmp"), std::nullopt);
    files.Rename("A:\\c.bmp", "C:\\p\\d.bmp");
    EXPECT_EQ(backend->Content("C:\\p\\d.bmp"), "content");
    EXPECT_TRUE(files.FolderExists("A:\\"));  // the disk stays one
}

TEST_P(FilesConformance, RenameReplacesNothing) {
    backend->PutFile("C:\\p\\a.bmp", "a");
    backend->PutFile("C:\\p\\b.bmp", "b");
    backend->PutFile("D:\\b.bmp", "other");
    backend->PutFolder("C:\\p\\folder");
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\p\\b.bmp"); }), 58);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\p\\B.BMP"); }), 58);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\p\\folder"); }), 58);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "D:\\b.bmp"); }), 58);
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), "a");
    EXPECT_EQ(backend->Content("C:\\p\\b.bmp"), "b");
    EXPECT_EQ(backend->Content("D:\\b.bmp"), "other");
}

TEST_P(FilesConformance, RenamesToAnotherSpellingOfTheName) {
    backend->PutFile("C:\\p\\a.bmp", "a");
    files.Rename("C:\\p\\a.bmp", "C:\\p\\A.BMP");
    EXPECT_EQ(backend->Content("C:\\p\\A.BMP"), "a");
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), std::nullopt);
    files.Rename("C:\\p\\A.BMP", "C:\\p\\A.BMP");
    EXPECT_EQ(backend->Content("C:\\p\\A.BMP"), "a");
}

TEST_P(FilesConformance, RenameTakesTheExactSpellingFirst) {
    backend->PutFile("C:\\p\\x.bmp", "small");
    backend->PutFile("C:\\p\\X.BMP", "large");
    files.Rename("C:\\p\\x.bmp", "C:\\p\\y.bmp");
    EXPECT_EQ(backend->Content("C:\\p\\y.bmp"), "small");
    EXPECT_EQ(backend->Content("C:\\p\\X.BMP"), "large");
}

TEST_P(FilesConformance, RenameTellsWhatIsMissing) {
    backend->PutFile("C:\\p\\a.bmp", "a");
    backend->PutFolder("C:\\p\\folder");
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\none.bmp", "C:\\p\\b.bmp"); }), 53);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\none\\a.bmp", "C:\\p\\b.bmp"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\none\\b.bmp"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "A:\\b.bmp"); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "Q:\\b.bmp"); }), 68);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\p\\b:.bmp"); }), 52);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\folder", "C:\\p\\other"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\p\\a.bmp", "C:\\"); }), 58);
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), "a");
}

TEST_P(FilesConformance, MoveReplacesAFile) {
    backend->PutFile("C:\\p\\a.bmp", "new");
    backend->PutFile("C:\\q\\a.bmp", "old");
    backend->PutFile("D:\\a.bmp", "older");
    EXPECT_TRUE(files.Move("C:\\p\\a.bmp", "C:\\q\\a.bmp"));
    EXPECT_EQ(backend->Content("C:\\q\\a.bmp"), "new");
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), std::nullopt);
    EXPECT_TRUE(files.Move("C:\\q\\a.bmp", "D:\\A.BMP"));
    EXPECT_EQ(backend->Content("D:\\A.BMP"), "new");
    EXPECT_EQ(backend->Content("D:\\a.bmp"), std::nullopt);
    EXPECT_EQ(backend->Content("C:\\q\\a.bmp"), std::nullopt);
}

TEST_P(FilesConformance, MoveRefusesFoldersReadOnlyTargetsAndItself) {
    backend->PutFile("C:\\p\\a.bmp", "new");
    backend->PutFolder("C:\\q\\a.bmp");
    backend->PutFile("C:\\r\\a.bmp", "kept");
    backend->SetReadOnly("C:\\r\\a.bmp", true);
    backend->PutFile("C:\\s\\a.bmp", "file");
    backend->PutLink("C:\\s\\a.bmp", "C:\\s\\link.bmp");
    EXPECT_EQ(ErrorOfCall([&] { files.Move("C:\\p\\a.bmp", "C:\\q\\a.bmp"); }), 58);
    EXPECT_EQ(ErrorOfCall([&] { files.Move("C:\\p\\a.bmp", "C:\\r\\a.bmp"); }), 58);
    EXPECT_EQ(ErrorOfCall([&] { files.Move("C:\\s\\a.bmp", "C:\\s\\link.bmp"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { files.Move("C:\\s\\a.bmp", "C:\\s\\a.bmp"); }), 70);
    EXPECT_EQ(backend->Content("C:\\p\\a.bmp"), "new");
    EXPECT_EQ(backend->Content("C:\\r\\a.bmp"), "kept");
    EXPECT_EQ(backend->Content("C:\\s\\a.bmp"), "file");
}

TEST_P(FilesConformance, MoveOntoAFullDiskChangesNothing) {
    backend->InsertDisk();
    backend->PutFile("A:\\big.bmp", std::string(1'400'000, 'o'));
    backend->PutFile("C:\\a.bmp", std::string(100'000, 'n'));
    EXPECT_EQ(ErrorOfCall([&] { files.Move("C:\\a.bmp", "A:\\a.bmp"); }), 61);
    EXPECT_EQ(ErrorOfCall([&] { files.Rename("C:\\a.bmp", "A:\\a.bmp"); }), 61);
    EXPECT_EQ(backend->Content("A:\\a.bmp"), std::nullopt);
    EXPECT_EQ(backend->Content("C:\\a.bmp"), std::string(100'000, 'n'));
    // The room of what is replaced counts.
    EXPECT_TRUE(files.Move("C:\\a.bmp", "A:\\big.bmp"));
    EXPECT_EQ(backend->Content("A:\\big.bmp"), std::string(100'000, 'n'));
}

TEST_P(FilesConformance, CopyAsksBetweenPiecesWhetherToGoOn) {
    backend->PutFile("C:\\big.bmp", std::string(2 * Piece + 1, 'x'));
    backend->PutFile("D:\\big.bmp", "old");
    int asked = 0;
    EXPECT_FALSE(files.Copy("C:\\big.bmp", "D:\\big.bmp", [&] { return ++asked < 2; }));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(backend->Content("D:\\big.bmp"), "old");
    EXPECT_FALSE(files.Copy("C:\\big.bmp", "D:\\none.bmp", [] { return false; }));
    EXPECT_EQ(backend->Content("D:\\none.bmp"), std::nullopt);
    EXPECT_EQ(files.List("D:\\", "*.*"), (std::vector<std::string>{"big.bmp"}));
    asked = 0;
    EXPECT_TRUE(files.Copy("C:\\big.bmp", "D:\\big.bmp", [&] { return ++asked < 10; }));
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(backend->Content("D:\\big.bmp"), std::string(2 * Piece + 1, 'x'));
}

TEST_P(FilesConformance, AMoveThatIsGivenUpChangesNothing) {
    backend->InsertDisk();
    backend->PutFile("C:\\a.bmp", "new");
    backend->PutFile("A:\\a.bmp", "old");
    EXPECT_FALSE(files.Move("C:\\a.bmp", "A:\\a.bmp", [] { return false; }));
    EXPECT_EQ(backend->Content("C:\\a.bmp"), "new");
    EXPECT_EQ(backend->Content("A:\\a.bmp"), "old");
}

TEST_P(FilesConformance, ClearsTheReadOnlyMark) {
    backend->PutFile("C:\\a.bmp", "a");
    backend->SetReadOnly("C:\\a.bmp", true);
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("C:\\a.bmp"); }), 70);
    files.ClearAttributes("C:\\a.bmp");
    EXPECT_FALSE(files.Info("C:\\a.bmp").readOnly);
    files.ClearAttributes("C:\\a.bmp");
    files.Delete("C:\\a.bmp");
    EXPECT_EQ(ErrorOfCall([&] { files.ClearAttributes("C:\\a.bmp"); }), 53);
}

TEST_P(FilesConformance, RemovesOnlyEmptyFolders) {
    backend->PutFolder("C:\\p\\empty");
    backend->PutFile("C:\\full\\.hidden", "");
    backend->PutLink("C:\\p\\empty", "C:\\link");
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("C:\\"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("C:\\p"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("C:\\full"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("C:\\link"); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("C:\\none"); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("C:\\full\\.hidden"); }), 76);
    backend->PutFolder("D:\\");
    EXPECT_EQ(ErrorOfCall([&] { files.RemoveFolder("D:\\"); }), 75);
    files.RemoveFolder("C:\\p\\empty\\");
    EXPECT_FALSE(files.FolderExists("C:\\p\\empty"));
    EXPECT_TRUE(files.FolderExists("C:\\p"));
}

TEST_P(FilesConformance, LooksIntoAFolderInOnePass) {
    backend->PutFile("C:\\p\\b.bmp", "");
    backend->PutFile("C:\\p\\A.gif", "");
    backend->PutFile("C:\\p\\note.txt", "");
    backend->PutFile("C:\\p\\.hidden.bmp", "");
    backend->PutFolder("C:\\p\\Zoo");
    backend->PutFolder("C:\\p\\attic");
    backend->PutFolder("C:\\p\\.secret");
    backend->PutLink("C:\\p\\Zoo", "C:\\p\\again");
    backend->PutLink("C:\\p\\b.bmp", "C:\\p\\c.bmp");
    const auto look = files.Look("C:\\P", "*.bmp;*.gif");
    while (!look->Wait(1000)) {
    }
    const FolderContent content = look->Take();
    EXPECT_EQ(content.files, (std::vector<std::string>{"A.gif", "b.bmp", "c.bmp"}));
    EXPECT_EQ(content.folders, (std::vector<std::string>{"C:\\p\\attic", "C:\\p\\Zoo"}));
}

TEST_P(FilesConformance, ALookTellsFilesApartAndWhatDoesNotCount) {
    backend->PutFile("C:\\p\\c.bmp", "");
    backend->PutFile("C:\\p\\B.bmp", "");
    backend->PutFile("C:\\p\\a.txt", "");
    backend->PutFolder("C:\\p\\attic");
    backend->PutLink("C:\\p\\attic", "C:\\p\\Zoo.bmp");
    backend->PutLink("C:\\p\\attic", "C:\\p\\again");
    backend->PutLink("C:\\p\\c.bmp", "C:\\p\\a.bmp");
    const FolderContent content = files.Look("C:\\p", "*.bmp")->Take();
    EXPECT_EQ(content.files, (std::vector<std::string>{"a.bmp", "B.bmp", "c.bmp"}));
    const std::vector<FileNumber>& numbers = content.numbers;
    ASSERT_EQ(numbers.size(), 3U);
    EXPECT_EQ(numbers[0], numbers[2]);
    EXPECT_NE(numbers[0], numbers[1]);
    for (const FileNumber number : numbers)
        EXPECT_NE(number, UnknownFileNumber);
    EXPECT_EQ(content.uncounted, (std::vector<std::string>{"C:\\p\\again", "C:\\p\\Zoo.bmp"}));
}

TEST_P(FilesConformance, ALookThatFailsTellsItInTake) {
    backend->PutFile("C:\\a.bmp", "");
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Look("C:\\none", "*.*")->Take()); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Look("C:\\a.bmp", "*.*")->Take()); }), 76);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Look("A:\\", "*.*")->Take()); }), 71);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Look("Q:\\", "*.*")->Take()); }), 68);
    // A look that nobody waits for leaves the next one alone.
    static_cast<void>(files.Look("C:\\", "*.*"));
    EXPECT_EQ(files.Look("C:\\", "*.*")->Take().files, (std::vector<std::string>{"a.bmp"}));
}

TEST_P(FilesConformance, KnowsAFileByItsExactSpelling) {
    backend->PutFile("C:\\Pics\\x.bmp", "");
    EXPECT_TRUE(files.HasExactly("C:\\Pics\\x.bmp"));
    EXPECT_FALSE(files.HasExactly("C:\\Pics\\X.bmp"));
    EXPECT_FALSE(files.HasExactly("C:\\PICS\\x.bmp"));
    EXPECT_FALSE(files.HasExactly("C:\\Pics"));
    EXPECT_FALSE(files.HasExactly("C:\\Pics\\none.bmp"));
    EXPECT_FALSE(files.HasExactly("A:\\x.bmp"));
    files.ChangeDrive("C:");
    files.ChangeFolder("C:\\Pics");
    EXPECT_TRUE(files.HasExactly("x.bmp"));
}

TEST_P(FilesConformance, ALinkIsOneEntryWithWhatItLeadsTo) {
    backend->PutFile("C:\\a.bmp", "a");
    backend->PutFile("C:\\b.bmp", "a");
    backend->PutLink("C:\\a.bmp", "C:\\link.bmp");
    EXPECT_TRUE(files.SameEntry("C:\\a.bmp", "C:\\link.bmp"));
    EXPECT_TRUE(files.SameEntry("C:\\a.bmp", "C:\\A.BMP"));
    EXPECT_FALSE(files.SameEntry("C:\\a.bmp", "C:\\b.bmp"));
    EXPECT_FALSE(files.SameEntry("C:\\a.bmp", "C:\\none.bmp"));
}

}  // namespace
}  // namespace tavrix::test
