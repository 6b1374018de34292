#include "core/FloppyPrompt.h"

#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using headless::Service;

class FloppyPromptTest : public ProgramFixture {
  protected:
    void ExpectInsert(const std::string& file, const std::string& drive, forms::Answer reply) {
        Expect({.text = "Insert the disk that contains the file:\r\n\r\n" + file +
                        "\r\n\r\n...into Floppy Drive " + drive +
                        "\r\n\r\nPress the \"OK\" button to continue.",
                .buttons = forms::BoxButtons::OkCancel,
                .reply = reply});
    }
};

TEST_F(FloppyPromptTest, OnlyTheRootsOfAAndBAreFloppies) {
    for (const char* path : {"A:\\x.bmp", "a:\\x.bmp", "B:\\x.bmp", "b:\\", "A:\\"})
        EXPECT_TRUE(IsOnFloppy(path)) << path;
    for (const char* path : {"C:\\x.bmp", "A:x.bmp", "A:", "A:/x.bmp", "", "AA:\\x", " A:\\x.bmp"})
        EXPECT_FALSE(IsOnFloppy(path)) << path;
}

TEST_F(FloppyPromptTest, SevenCharactersAreNoFile) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\.bmp", "x");
    Expect({.text = "A:\\.bmp is not a valid filename..."});
    EXPECT_FALSE(PassesFloppyGuard(module, "A:\\.bmp", ImageOnFloppy));
    Expect({.text = "b:\\ is not a valid filename...", .systemModal = true});
    EXPECT_FALSE(PassesFloppyGuard(module, "b:\\", ShowOnFloppy));
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
}

TEST_F(FloppyPromptTest, SevenCharactersOfMoreBytesAreNoFileEither) {
    Expect({.text = "A:\\\xC3\xA4.jp is not a valid filename..."});
    EXPECT_FALSE(PassesFloppyGuard(module, "A:\\\xC3\xA4.jp", ImageOnFloppy));
}

TEST_F(FloppyPromptTest, AnyFileOnTheDiskIsEnough) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\README", "x");
    EXPECT_TRUE(PassesFloppyGuard(module, "a:\\x.bmp", ImageOnFloppy));
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(FloppyPromptTest, WithoutADiskTheUserDecides) {
    ExpectInsert("Sub\\x.bmp", "A:\\", forms::Answer::Cancel);
    EXPECT_FALSE(PassesFloppyGuard(module, "a:\\Sub\\x.bmp", ImageOnFloppy));
    ExpectInsert("x.bmp", "B:\\", forms::Answer::Ok);
    EXPECT_TRUE(PassesFloppyGuard(module, "B:\\x.bmp", ImageOnFloppy));
    EXPECT_EQ(platform.faults.Calls(Service::Files), 2);  // no second look after OK
}

TEST_F(FloppyPromptTest, ADiskThatCannotBeReadCountsAsNone) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\x.bmp", "x");
    platform.faults.FailAlways(Service::Files, "First", ErrorNumber::DiskNotReady);
    ExpectInsert("x.bmp", "A:\\", forms::Answer::Cancel);
    EXPECT_FALSE(PassesFloppyGuard(module, "A:\\x.bmp", ImageOnFloppy));
}

TEST_F(FloppyPromptTest, TheUserCanBeAskedWithoutALookAtTheDrive) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\x.bmp", "x");
    ExpectInsert("x.bmp", "A:\\", forms::Answer::Ok);
    EXPECT_TRUE(AsksForDisk(module, "a:\\x.bmp", ImageOnFloppy));
    ExpectInsert("x.bmp", "A:\\", forms::Answer::Cancel);
    EXPECT_FALSE(AsksForDisk(module, "A:\\x.bmp", ImageOnFloppy));
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
}

}  // namespace
}  // namespace tavrix::test
