#include "backends/headless/MemoryFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
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

TEST_F(MemoryFilesTest, HiddenFilesAndFoldersAreSkipped) {
    disks.PutFile("C:\\p\\a.bmp", "");
    disks.PutFile("C:\\p\\b.bmp", "");
    disks.PutFolder("C:\\p\\Sub");
    disks.SetHidden("C:\\p\\a.bmp", true);
    disks.SetHidden("C:\\p\\Sub", true);
    EXPECT_EQ(files.First("C:\\p\\*.*"), "b.bmp");
    EXPECT_EQ(files.List("C:\\p", "*.*"), (std::vector<std::string>{"b.bmp"}));
    EXPECT_TRUE(files.Folders("C:\\p").empty());
}

TEST_F(MemoryFilesTest, ListingsCountAndFailAsPlanned) {
    disks.PutFile("C:\\p\\a.bmp", "");
    platform.faults.FailNth(Service::Files, 2, ErrorNumber::PermissionDenied, "");
    EXPECT_EQ(files.List("C:\\p", "*.bmp;*.jpg").size(), 1U);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.Folders("C:\\p")); }), 70);
    EXPECT_TRUE(platform.faults.Fired());
    EXPECT_EQ(platform.faults.Log(),
              (std::vector<std::string>{"Files.List C:\\p *.bmp;*.jpg", "Files.Folders C:\\p"}));
    platform.faults.Clear();
    platform.faults.FailAlways(Service::Files, "List", ErrorNumber::DiskNotReady);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(files.List("C:\\p", "")); }), 71);
    EXPECT_TRUE(files.Folders("C:\\p").empty());
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

TEST_F(MemoryFilesTest, AWriteThatFailedIsNotPutInPlace) {
    disks.PutFile("C:\\a.bmp", "12345");
    for (const int call : {1, 2}) {
        const auto writer = files.Create("C:\\a.bmp");
        platform.faults.FailNth(Service::Files, call, ErrorNumber::DiskFull);
        const int ofWrite = ErrorOfCall([&] { writer->Write(std::as_bytes(std::span("x", 1))); });
        EXPECT_EQ(ofWrite, call == 1 ? 61 : 0);
        EXPECT_EQ(ErrorOfCall([&] { writer->Close(); }), 61);
        EXPECT_EQ(ErrorOfCall([&] { writer->Close(); }), 61);
    }
    EXPECT_EQ(disks.Content("C:\\a.bmp"), "12345");
}

TEST_F(MemoryFilesTest, AFloppyNeedsNoRoomForTwo) {
    disks.InsertDisk('A');
    disks.PutFile("A:\\a.bmp", "12345");
    disks.SetCapacity('A', 8);
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\a.bmp", "12345678"); }), 0);
    EXPECT_EQ(ErrorOfCall([&] { Write("A:\\a.bmp", "123456789"); }), 61);
    EXPECT_EQ(disks.Content("A:\\a.bmp"), "12345678");
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
