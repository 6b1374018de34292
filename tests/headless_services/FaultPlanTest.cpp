#include "backends/headless/FaultPlan.h"

#include <gtest/gtest.h>

#include "backends/headless/HeadlessServices.h"
#include "support/ErrorOfCall.h"

namespace tavrix::headless {
namespace {

TEST(FaultPlan, FailsTheNthCallOfAService) {
    HeadlessServices platform;
    platform.disks.PutFile("C:\\a.bmp", "a");
    platform.faults.FailNth(Service::Files, 2, ErrorNumber::DiskFull);
    EXPECT_EQ(ErrorOfCall([&] { platform.files.Copy("C:\\a.bmp", "C:\\b.bmp"); }), 0);
    platform.shell.AddRecent("C:\\a.bmp");  // another service counts on its own
    EXPECT_FALSE(platform.faults.Fired());
    EXPECT_EQ(ErrorOfCall([&] { platform.files.Copy("C:\\a.bmp", "C:\\c.bmp"); }), 61);
    EXPECT_TRUE(platform.faults.Fired());
    EXPECT_FALSE(platform.disks.Exists("C:\\c.bmp"));
    EXPECT_EQ(ErrorOfCall([&] { platform.files.Copy("C:\\a.bmp", "C:\\c.bmp"); }), 0);
    EXPECT_EQ(platform.faults.Calls(Service::Files), 3);
    EXPECT_EQ(platform.faults.Log().at(1), "Shell.AddRecent C:\\a.bmp");
}

TEST(FaultPlan, FailsWithAnyTextEvenAnEmptyOne) {
    HeadlessServices platform;
    platform.faults.FailNth(Service::Pictures, 1, ErrorNumber::InvalidPicture, "");
    try {
        static_cast<void>(platform.pictures.Load("C:\\a.bmp"));
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
        EXPECT_EQ(error.Description(), "");
    }
}

TEST(FaultPlan, CallsWithoutErrorsAnswerNo) {
    HeadlessServices platform;
    platform.disks.PutFile("C:\\a.bmp", "a");
    platform.faults.FailNth(Service::Files, 1, ErrorNumber::DiskNotReady);
    EXPECT_FALSE(platform.files.FileExists("C:\\a.bmp"));
    EXPECT_TRUE(platform.files.FileExists("C:\\a.bmp"));
    platform.store.values["a"] = "1";
    platform.faults.FailNth(Service::UserStore, 1, ErrorNumber::PermissionDenied);
    EXPECT_EQ(platform.store.Get("a", "fallback"), "fallback");
    EXPECT_EQ(platform.store.Get("a", "fallback"), "1");
}

TEST(FaultPlan, FailsAnOperationAlways) {
    HeadlessServices platform;
    platform.disks.PutFile("C:\\a.bmp", "a");
    platform.faults.FailAlways(Service::Files, "Delete", ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOfCall([&] { platform.files.Delete("C:\\a.bmp"); }), 70);
    EXPECT_EQ(ErrorOfCall([&] { platform.files.Delete("C:\\a.bmp"); }), 70);
    platform.faults.Clear();
    EXPECT_FALSE(platform.faults.Fired());
    EXPECT_EQ(ErrorOfCall([&] { platform.files.Delete("C:\\a.bmp"); }), 0);
}

TEST(FaultPlan, SwapsADiskInTheMiddle) {
    HeadlessServices platform;
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\one.bmp", "1");
    platform.faults.AtNth(Service::Files, 2, [&] {
        platform.disks.PullDisk('A');
        platform.disks.InsertDisk('A');
        platform.disks.PutFile("A:\\two.bmp", "2");
    });
    EXPECT_EQ(platform.files.First("A:\\*.*"), "one.bmp");
    EXPECT_EQ(platform.files.First("A:\\*.*"), "two.bmp");
}

TEST(FaultPlan, GoesThroughAllThatCanFailInAnOperation) {
    int runs = 0;
    for (int nth = 1;; ++nth, ++runs) {
        HeadlessServices platform;
        platform.disks.PutFile("C:\\a.txt", "old");
        platform.faults.FailNth(Service::Files, nth, ErrorNumber::PathFileAccessError);
        const int error = ErrorOfCall([&] {
            const auto writer = platform.files.Create("C:\\a.txt");
            writer->Write(std::as_bytes(std::span("new", 3)));
            writer->Close();
        });
        EXPECT_EQ(platform.disks.Content("C:\\a.txt"), error == 0 ? "new" : "old");
        if (!platform.faults.Fired()) break;
        EXPECT_EQ(error, 75);
    }
    EXPECT_EQ(runs, 3);
}

TEST(FaultPlan, EndOfTheProcessPassesTheTrapsOfTheLogic) {
    HeadlessServices platform;
    const auto trapped = [&] {
        try {
            platform.process.End();
        } catch (const std::exception&) {  // as the logic would
        }
    };
    EXPECT_THROW(trapped(), ProcessEnded);
    EXPECT_TRUE(platform.process.ended);
}

}  // namespace
}  // namespace tavrix::headless
