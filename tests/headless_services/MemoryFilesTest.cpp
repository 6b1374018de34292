#include "platform/headless/MemoryFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "platform/headless/HeadlessServices.h"
#include "support/ErrorOfCall.h"

namespace tavrix::headless {
namespace {

class MemoryFilesTest : public testing::Test {
  protected:
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

    HeadlessServices platform;
    MemoryDisks& disks = platform.disks;
    MemoryFiles& files = platform.files;
};

TEST_F(MemoryFilesTest, LookUpIgnoresCaseTheExactSpellingFirst) {
    disks.PutFolder("C:\\Pictures");
    disks.PutFile("C:\\Pictures\\Sun.bmp", "first");
    disks.Remove("C:\\Pictures\\Sun.bmp");
    const auto folder = disks.Locate(PartsOf("C:\\Pictures")).node;
    folder->children["b.BMP"] = std::make_shared<MemoryNode>(MemoryNode{.content = "lower"});
    folder->children["B.bmp"] = std::make_shared<MemoryNode>(MemoryNode{.content = "upper"});
    EXPECT_EQ(Read("C:\\Pictures\\b.BMP"), "lower");
    EXPECT_EQ(Read("C:\\Pictures\\B.bmp"), "upper");
    EXPECT_EQ(Read("c:\\PICTURES\\B.BMP"), "upper");  // the first in list order
    EXPECT_TRUE(files.FolderExists("C:\\pictures\\"));
    EXPECT_EQ(files.ShortPath("c:\\PICTURES"), "C:\\Pictures\\");
    EXPECT_EQ(files.ShortPath("C:\\absent"), "");
}

TEST_F(MemoryFilesTest, TellsFailuresApart) {
    disks.PutFile("C:\\a.bmp", "a");
    disks.PutFolder("C:\\Folder");
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
}

TEST_F(MemoryFilesTest, KeepsACurrentFolderPerDrive) {
    disks.AddDrive('D', DriveType::Fixed);
    disks.InsertDisk('D');
    disks.PutFolder("C:\\Pictures");
    disks.PutFile("D:\\Shows\\a.tvs", "show");
    EXPECT_EQ(files.CurrentFolder(), "C:\\");
    files.ChangeFolder("D:\\SHOWS");
    EXPECT_EQ(files.CurrentFolder(), "C:\\");
    files.ChangeFolder("C:\\Pictures\\");
    EXPECT_EQ(files.CurrentFolder(), "C:\\Pictures");
    files.ChangeDrive("d:\\whatever");
    EXPECT_EQ(files.CurrentFolder(), "D:\\Shows");
    EXPECT_TRUE(files.FileExists("a.tvs"));
    files.ChangeDrive("");
    EXPECT_EQ(files.CurrentFolder(), "D:\\Shows");
    EXPECT_EQ(Read("D:a.tvs"), "show");
}

TEST_F(MemoryFilesTest, FindsTheFirstNormalFile) {
    disks.PutFolder("C:\\p\\a");
    disks.PutFile("C:\\p\\c.bmp", "");
    disks.PutFile("C:\\p\\B.bmp", "");
    disks.PutFile("C:\\p\\README", "");
    disks.PutFile("C:\\p\\.hidden", "");
    disks.PutFile("C:\\p\\a.bmp", "");
    disks.SetHidden("C:\\p\\a.bmp", true);
    EXPECT_EQ(files.First("C:\\p\\*.*"), "B.bmp");
    EXPECT_EQ(files.First("C:\\p\\R*.*"), "README");
    EXPECT_EQ(files.First("C:\\p\\C.BMP"), "c.bmp");
    EXPECT_EQ(files.First("C:\\p\\*.gif"), "");
    EXPECT_EQ(files.First("C:\\none\\*.*"), "");
}

TEST_F(MemoryFilesTest, CopiesOverWhatStandsThere) {
    disks.PutFile("C:\\a.bmp", "new", {1999, 1, 2, 3, 4, 5});
    disks.SetReadOnly("C:\\a.bmp", true);
    disks.PutFile("C:\\b.bmp", "old");
    files.Copy("C:\\a.bmp", "C:\\B.BMP");
    EXPECT_EQ(disks.Content("C:\\b.bmp"), "new");
    EXPECT_EQ(files.Info("C:\\b.bmp").modified, (DateTime{1999, 1, 2, 3, 4, 5}));
    EXPECT_FALSE(files.Info("C:\\b.bmp").readOnly);
    EXPECT_EQ(files.Info("C:\\b.bmp").length, 3);
}

TEST_F(MemoryFilesTest, NeverCopiesAFileOntoItself) {
    disks.PutFile("C:\\a.bmp", "a");
    disks.PutLink("C:\\a.bmp", "C:\\link.bmp");
    disks.AddDrive('D', DriveType::Fixed);
    disks.InsertDisk('D', disks.Drives().at('C').disk);
    for (const char* target : {"C:\\a.bmp", "c:\\A.BMP", "C:\\link.bmp", "D:\\a.bmp"}) {
        EXPECT_TRUE(files.Same("C:\\a.bmp", target)) << target;
        EXPECT_EQ(ErrorOfCall([&] { files.Copy("C:\\a.bmp", target); }), 70) << target;
    }
    EXPECT_EQ(disks.Content("C:\\a.bmp"), "a");
    EXPECT_FALSE(files.Same("C:\\a.bmp", "C:\\none.bmp"));
    EXPECT_FALSE(files.Same("C:\\none.bmp", "C:\\none.bmp"));
}

TEST_F(MemoryFilesTest, ProtectsWhatIsMarked) {
    disks.PutFile("C:\\a.bmp", "a");
    disks.SetReadOnly("C:\\a.bmp", true);
    disks.PutFile("C:\\b.bmp", "b");
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("C:\\a.bmp"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\a.bmp", "x"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { files.Copy("C:\\b.bmp", "C:\\a.bmp"); }), 70);
    EXPECT_EQ(disks.Content("C:\\a.bmp"), "a");
    disks.InsertDisk('A');
    disks.PutFile("A:\\c.bmp", "c");
    disks.SetWriteProtected('A', true);
    EXPECT_EQ(ErrorOfCall([&] { files.Delete("A:\\c.bmp"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\c.bmp", "x"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { files.MakeFolder("A:\\x"); }), 70);
    EXPECT_EQ(disks.Content("A:\\c.bmp"), "c");
}

TEST_F(MemoryFilesTest, FullDisksKeepTheFormerFile) {
    disks.PutFile("C:\\a.bmp", "12345");
    disks.SetCapacity('C', 12);
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\a.bmp", "12345678"); }), 61);
    EXPECT_EQ(disks.Content("C:\\a.bmp"), "12345");
    EXPECT_EQ(ErrorOfCall([&] { Write("C:\\a.bmp", "1234567"); }), 0);
    EXPECT_EQ(ErrorOfCall([&] { files.Copy("C:\\a.bmp", "C:\\b.bmp"); }), 61);
    EXPECT_FALSE(disks.Exists("C:\\b.bmp"));
}

TEST_F(MemoryFilesTest, FloppiesAreWrittenInPlace) {
    disks.InsertDisk('A');
    disks.PutFile("A:\\a.bmp", "12345");
    disks.SetCapacity('A', 8);
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\a.bmp", "12345678"); }), 0);
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\a.bmp", "123456789"); }), 61);
    EXPECT_EQ(disks.Content("A:\\a.bmp"), "");
}

TEST_F(MemoryFilesTest, AWriterPutsTheWholeInPlaceOnClose) {
    disks.PutFile("C:\\a.txt", "old");
    auto writer = files.Create("C:\\A.TXT");
    writer->Write(std::as_bytes(std::span("ne", 2)));
    EXPECT_EQ(disks.Content("C:\\a.txt"), "old");
    writer->Write(std::as_bytes(std::span("w", 1)));
    writer->Close();
    EXPECT_EQ(disks.Content("C:\\a.txt"), "new");
    EXPECT_FALSE(disks.AllFiles().contains("C:\\A.TXT"));

    writer = files.Create("C:\\a.txt");
    writer->Write(std::as_bytes(std::span("dropped", 7)));
    writer.reset();
    EXPECT_EQ(disks.Content("C:\\a.txt"), "dropped");
}

TEST_F(MemoryFilesTest, ADiskPulledWhileWritingIsNoticed) {
    disks.InsertDisk('A');
    const auto writer = files.Create("A:\\a.txt");
    disks.PullDisk('A');
    EXPECT_EQ(ErrorOfCall([&] { writer->Write(std::as_bytes(std::span("x", 1))); }), 71);
}

TEST_F(MemoryFilesTest, KnowsTheFolders) {
    EXPECT_EQ(files.Folder(KnownFolder::Temporary), "C:\\Temp");
    files.SetFolder(KnownFolder::System, "");
    EXPECT_EQ(files.Folder(KnownFolder::System), "");
}

}  // namespace
}  // namespace tavrix::headless
