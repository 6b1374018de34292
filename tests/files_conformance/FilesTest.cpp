#include <string>

#include "Backend.h"

namespace tavrix::test {
namespace {

TEST_P(FilesConformance, TellsFailuresApart) {
    backend->PutFile("C:\\a.bmp", "a");
    backend->PutFolder("C:\\Folder");
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
    EXPECT_FALSE(files.FileExists("A:\\a.bmp"));
    EXPECT_FALSE(files.FileExists(""));
    EXPECT_FALSE(files.FileExists("C:\\Folder"));
    EXPECT_FALSE(files.FolderExists("C:\\a.bmp"));
    EXPECT_TRUE(files.FolderExists("C:\\FOLDER\\"));
}

TEST_P(FilesConformance, LookUpIgnoresCaseTheExactSpellingFirst) {
    backend->PutFile("C:\\Pictures\\b.BMP", "lower");
    backend->PutFile("C:\\Pictures\\B.bmp", "upper");
    EXPECT_EQ(Read("C:\\Pictures\\b.BMP"), "lower");
    EXPECT_EQ(Read("C:\\Pictures\\B.bmp"), "upper");
    EXPECT_EQ(Read("c:\\PICTURES\\B.BMP"), "upper");  // the first in list order
    EXPECT_TRUE(files.FolderExists("C:\\pictures\\"));
}

TEST_P(FilesConformance, FindsTheFirstNormalFile) {
    backend->PutFolder("C:\\p\\a");
    backend->PutFile("C:\\p\\c.bmp", "");
    backend->PutFile("C:\\p\\B.bmp", "");
    backend->PutFile("C:\\p\\README", "");
    backend->PutFile("C:\\p\\.hidden", "");
    EXPECT_EQ(files.First("C:\\p\\*.*"), "B.bmp");
    EXPECT_EQ(files.First("C:\\p\\*.BMP"), "B.bmp");
    EXPECT_EQ(files.First("C:\\p\\C.BMP"), "c.bmp");
    EXPECT_EQ(files.First("C:\\p\\R*.*"), "README");
    EXPECT_EQ(files.First("C:\\p\\*.gif"), "");
    EXPECT_EQ(files.First("C:\\none\\*.*"), "");
    backend->PutLink("C:\\p\\README", "C:\\p\\aa.lnk");
    backend->PutLink("C:\\p\\a", "C:\\p\\a0");
    EXPECT_EQ(files.First("C:\\p\\*.*"), "aa.lnk");
}

TEST_P(FilesConformance, KeepsACurrentFolderPerDrive) {
    backend->PutFolder("C:\\Pictures");
    backend->PutFile("D:\\Shows\\a.tvs", "show");
    files.ChangeDrive("C");
    files.ChangeFolder("C:\\");
    EXPECT_EQ(files.CurrentFolder(), "C:\\");
    files.ChangeFolder("D:\\SHOWS");
    EXPECT_EQ(files.CurrentFolder(), "C:\\");
    files.ChangeFolder("C:\\pictures\\");
    EXPECT_EQ(files.CurrentFolder(), "C:\\Pictures");
    files.ChangeDrive("d:\\whatever");
    EXPECT_EQ(files.CurrentFolder(), "D:\\Shows");
    EXPECT_TRUE(files.FileExists("a.tvs"));
    EXPECT_TRUE(files.FileExists("d:a.tvs"));
    files.ChangeDrive("");
    EXPECT_EQ(files.CurrentFolder(), "D:\\Shows");
    EXPECT_EQ(Read("D:a.tvs"), "show");
}

TEST_P(FilesConformance, TellsCanonicalSpellings) {
    backend->PutFolder("C:\\Pictures\\Old Ones");
    EXPECT_EQ(files.ShortPath("c:\\PICTURES\\old ones"), "C:\\Pictures\\Old Ones\\");
    EXPECT_EQ(files.ShortPath("C:\\"), "C:\\");
    EXPECT_EQ(files.ShortPath("C:\\none"), "");
    EXPECT_EQ(files.ShortPath("A:\\none"), "");
}

TEST_P(FilesConformance, AWriterPutsTheWholeInPlaceOnClose) {
    backend->PutFile("C:\\a.txt", "old");
    auto writer = files.Create("C:\\A.TXT");
    EXPECT_EQ(backend->Content("C:\\a.txt"), "old");
    writer->Write(std::as_bytes(std::span("ne", 2)));
    EXPECT_EQ(backend->Content("C:\\a.txt"), "old");
    // What is being written is not to be seen.
    EXPECT_EQ(files.List("C:\\", "").size(), 1U);
    writer->Write(std::as_bytes(std::span("w", 1)));
    writer->Close();
    EXPECT_EQ(backend->Content("C:\\a.txt"), "new");
    EXPECT_FALSE(backend->Content("C:\\A.TXT"));
}

TEST_P(FilesConformance, AWriterThatIsDroppedLeavesTheFormerFile) {
    backend->InsertDisk();
    for (const char* path : {"C:\\a.txt", "A:\\a.txt"}) {
        backend->PutFile(path, "old");
        auto writer = files.Create(path);
        writer->Write(std::as_bytes(std::span("dropped", 7)));
        writer.reset();
        EXPECT_EQ(backend->Content(path), "old");
    }
    files.Create("A:\\new.txt")->Write(std::as_bytes(std::span("dropped", 7)));
    EXPECT_FALSE(backend->Content("A:\\new.txt"));
}

}  // namespace
}  // namespace tavrix::test
