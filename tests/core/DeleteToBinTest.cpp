#include "core/FileServices.h"
#include "support/ErrorOfCall.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using headless::RecordingShell;
using headless::Service;

constexpr const char* File = "C:\\p\\a.bmp";
constexpr const char* ToBin =
    "Are you sure you want to send the following file to the Recycle Bin?\r\n\r\nC:\\p\\a.bmp";
constexpr const char* ForGood = "Are you sure you want to delete the following file?\r\n\r\nC:\\p\\a.bmp";

class DeleteToBinTest : public ProgramFixture {
  protected:
    DeleteToBinTest() {
        platform.disks.PutFile(File, "picture");
        platform.disks.PutFile("C:\\p\\b.bmp", "other");
    }
    void ExpectQuestion(const std::string& text, forms::Answer reply) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
    void ExpectFailure(const std::string& text) { Expect({.text = text, .icon = forms::BoxIcon::Stop}); }
    int ErrorOfDeleting(const std::string& path, bool confirm) {
        return ErrorOfCall([&] { DeleteToBin(module, path, confirm); });
    }
    [[nodiscard]] bool Stands() const { return platform.disks.Content(File) == "picture"; }
    [[nodiscard]] bool InTrash() const {
        return platform.shell.trash == std::vector<RecordingShell::Trashed>{{File, "picture"}};
    }
};

TEST_F(DeleteToBinTest, AgreedToItGoesToTheBin) {
    ExpectQuestion(ToBin, forms::Answer::Yes);
    EXPECT_EQ(DeleteToBin(module, File, true), Deletion::Done);
    EXPECT_FALSE(Stands());
    EXPECT_TRUE(InTrash());
    EXPECT_EQ(platform.disks.Content("C:\\p\\b.bmp"), "other");
}

TEST_F(DeleteToBinTest, UnaskedItGoesToTheBin) {
    EXPECT_EQ(DeleteToBin(module, "c:\\P\\A.BMP", false), Deletion::Done);
    EXPECT_FALSE(Stands());
    EXPECT_TRUE(InTrash());
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(DeleteToBinTest, WithoutABinItIsRemoved) {
    module.config.UseRecycleBin = false;
    ExpectQuestion(ForGood, forms::Answer::Yes);
    EXPECT_EQ(DeleteToBin(module, File, true), Deletion::Done);
    EXPECT_EQ(DeleteToBin(module, "C:\\p\\b.bmp", false), Deletion::Done);
    EXPECT_FALSE(Stands());
    EXPECT_FALSE(platform.disks.Exists("C:\\p\\b.bmp"));
    EXPECT_TRUE(platform.shell.trash.empty());
    EXPECT_EQ(platform.faults.Calls(Service::Shell), 0);
}

TEST_F(DeleteToBinTest, DeclinedItStands) {
    for (const bool bin : {true, false}) {
        module.config.UseRecycleBin = bin;
        ExpectQuestion(bin ? ToBin : ForGood, forms::Answer::No);
        EXPECT_EQ(DeleteToBin(module, File, true), Deletion::Declined);
    }
    EXPECT_TRUE(Stands());
    EXPECT_EQ(platform.faults.Calls(Service::Shell), 0);
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
}

TEST_F(DeleteToBinTest, WhatTheBinRefusesStands) {
    for (const ErrorNumber number :
         {ErrorNumber::PermissionDenied, ErrorNumber::PathFileAccessError, ErrorNumber::DiskFull}) {
        platform.shell.trashRefusal = number;
        EXPECT_EQ(ErrorOfDeleting(File, false), static_cast<int>(number));
        ExpectQuestion(ToBin, forms::Answer::Yes);
        EXPECT_EQ(ErrorOfDeleting(File, true), static_cast<int>(number));
    }
    EXPECT_TRUE(Stands());
    EXPECT_TRUE(platform.shell.trash.empty());
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);  // not by the other way either
}

TEST_F(DeleteToBinTest, WhatCannotBeRemovedStands) {
    module.config.UseRecycleBin = false;
    platform.disks.SetReadOnly(File, true);
    EXPECT_EQ(ErrorOfDeleting(File, false), 70);
    EXPECT_TRUE(Stands());
    EXPECT_EQ(ErrorOfDeleting("C:\\p\\none.bmp", false), 53);
}

TEST_F(DeleteToBinTest, AMissingFileAndAFolderFail) {
    EXPECT_EQ(ErrorOfDeleting("C:\\p\\none.bmp", false), 53);
    EXPECT_EQ(ErrorOfDeleting("C:\\p", false), 53);
    EXPECT_EQ(ErrorOfDeleting("A:\\a.bmp", false), 71);
    EXPECT_EQ(ErrorOfDeleting("Q:\\a.bmp", false), 68);
    EXPECT_TRUE(Stands());
}

TEST_F(DeleteToBinTest, TheUserIsToldOfAFailure) {
    platform.shell.trashRefusal = ErrorNumber::PermissionDenied;
    ExpectQuestion(ToBin, forms::Answer::Yes);
    ExpectFailure(
        "Unable to send the file to the Recycle Bin, it has not been deleted:\r\n\r\nC:\\p\\a.bmp\r\n\r\n"
        "Permission denied...");
    EXPECT_FALSE(DeleteAsUserAgrees(module, File));

    module.config.UseRecycleBin = false;
    platform.disks.SetReadOnly(File, true);
    ExpectQuestion(ForGood, forms::Answer::Yes);
    ExpectFailure("Unable to delete the file:\r\n\r\nC:\\p\\a.bmp\r\n\r\nPermission denied...");
    EXPECT_FALSE(DeleteAsUserAgrees(module, File));
    EXPECT_TRUE(Stands());
}

TEST_F(DeleteToBinTest, TheUserDecides) {
    ExpectQuestion(ToBin, forms::Answer::No);
    EXPECT_FALSE(DeleteAsUserAgrees(module, File));
    EXPECT_TRUE(Stands());
    ExpectQuestion(ToBin, forms::Answer::Yes);
    EXPECT_TRUE(DeleteAsUserAgrees(module, File));
    EXPECT_TRUE(InTrash());
}

TEST_F(DeleteToBinTest, ThePointerStaysAsItIs) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    ExpectQuestion(ToBin, forms::Answer::Yes);
    EXPECT_TRUE(DeleteAsUserAgrees(module, File));
    EXPECT_TRUE(module.Busy());
}

/// Each call of the services failing in turn: the file is where it was, or all of it in the trash.
TEST_F(DeleteToBinTest, NoFaultLosesTheFile) {
    for (const bool bin : {true, false}) {
        for (const Service service : {Service::Shell, Service::Files}) {
            int faults = 0;
            for (int call = 1;; ++call) {
                module.config.UseRecycleBin = bin;
                platform.disks.PutFile(File, "picture");
                platform.shell.trash.clear();
                platform.faults.Clear();
                platform.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
                const int error = ErrorOfDeleting(File, false);
                if (!platform.faults.Fired()) {
                    EXPECT_EQ(error, 0);
                    EXPECT_FALSE(Stands());
                    EXPECT_EQ(InTrash(), bin);
                    break;
                }
                ++faults;
                EXPECT_EQ(error, 71);
                EXPECT_TRUE(Stands());
                EXPECT_TRUE(platform.shell.trash.empty());
            }
            EXPECT_EQ(faults, (service == Service::Shell) == bin ? 1 : 0);
        }
    }
}

}  // namespace
}  // namespace tavrix::test
