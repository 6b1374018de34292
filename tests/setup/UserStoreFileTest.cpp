#include "setup/UserStoreFile.h"

#include <gtest/gtest.h>

#include "linux/TestFolder.h"
#include "support/ErrorOfCall.h"

namespace tavrix::setup {
namespace {

TEST(UserStoreFile, AValueIsReadAndSet) {
    const TestFolder folder;
    EXPECT_EQ(ReadStored(folder.At("settings"), "CurrentSaver"), std::nullopt);
    WriteStored(folder.At("settings"), "CurrentSaver", "C:\\a.tvs");
    EXPECT_EQ(ReadStored(folder.At("settings"), "currentsaver"), "C:\\a.tvs");
    EXPECT_EQ(ReadStored(folder.At("settings"), "Other"), std::nullopt);
}

TEST(UserStoreFile, TakingOneOutLeavesAllOthersByteByByte) {
    const TestFolder folder;
    folder.Put("settings",
               "; mine\r\n[Settings]\r\nEXEPath=C:\\caf\xE9\\\r\ncurrentSaver = x\r\n[Other]\r\na=b");
    WriteStored(folder.At("settings"), "CurrentSaver", std::nullopt);
    EXPECT_EQ(folder.Content("settings"), "; mine\r\n[Settings]\r\nEXEPath=C:\\caf\xE9\\\r\n[Other]\r\na=b");
}

TEST(UserStoreFile, AFileThatHoldsNothingElseGoes) {
    const TestFolder folder;
    folder.Put("settings", "\n[settings]\nCurrentSaver=x");
    WriteStored(folder.At("settings"), "CurrentSaver", std::nullopt);
    EXPECT_FALSE(folder.Has("settings"));
    WriteStored(folder.At("settings"), "CurrentSaver", std::nullopt);
    EXPECT_FALSE(folder.Has("settings"));
}

TEST(UserStoreFile, AFolderThatIsMissingIsAFailure) {
    const TestFolder folder;
    EXPECT_NE(ErrorOfCall([&] { WriteStored(folder.At("none/settings"), "CurrentSaver", "x"); }), 0);
}

}  // namespace
}  // namespace tavrix::setup
