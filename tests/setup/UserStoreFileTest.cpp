#include "setup/UserStoreFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include <string>
#include <vector>

#include "backends/linux/HostFile.h"
#include "linux/TestFolder.h"
#include "support/ErrorOfCall.h"
#include "system_faults/SystemFaults.h"

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

TEST(UserStoreFile, OneOfAnotherSectionIsAnother) {
    const TestFolder folder;
    folder.Put("settings", "CurrentSaver=no section\n[Settings]\nCurrentSaver=x\n[other]\nCurrentSaver=y\n");
    EXPECT_EQ(ReadStored(folder.At("settings"), "CurrentSaver"), "x");
    WriteStored(folder.At("settings"), "CurrentSaver", std::nullopt);
    EXPECT_EQ(folder.Content("settings"), "CurrentSaver=no section\n[Settings]\n[other]\nCurrentSaver=y\n");
}

TEST(UserStoreFile, IsTheUsersAlone) {
    const TestFolder folder;
    const std::string file = folder.At("settings");
    const auto mode = [&file] { return std::filesystem::status(file).permissions(); };
    using std::filesystem::perms;
    WriteStored(file, "CurrentSaver", "x");
    EXPECT_EQ(mode(), perms::owner_read | perms::owner_write);
    WriteStored(file, "Other", "y");
    WriteStored(file, "CurrentSaver", std::nullopt);
    EXPECT_EQ(mode(), perms::owner_read | perms::owner_write);
}

TEST(UserStoreFile, WhileOneIsTakenOutNobodyElseWrites) {
    for (const char* more : {"Other=y\n", ""}) {
        const TestFolder folder;
        folder.Put("settings", std::string("[Settings]\nCurrentSaver=x\n") + more);
        const FileDescriptor other(::open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        std::vector<std::string> unlocked;
        test::SystemFaults calls(folder.Path());
        calls.Watch([&](std::string_view call) {
            if (::flock(other.Number(), LOCK_EX | LOCK_NB) != 0) return;
            ::flock(other.Number(), LOCK_UN);
            unlocked.emplace_back(call);
        });
        WriteStored(folder.At("settings"), "CurrentSaver", std::nullopt);
        EXPECT_EQ(unlocked, std::vector<std::string>{"open"}) << "of the folder that is locked";
        EXPECT_GT(calls.Calls(), 2);
    }
}

TEST(UserStoreFile, ALongValueIsReadWhole) {
    const TestFolder folder;
    const std::string value = "C:\\" + std::string(400, 'x');
    WriteStored(folder.At("settings"), "CurrentSaver", value);
    EXPECT_EQ(ReadStored(folder.At("settings"), "CurrentSaver"), value);
}

TEST(UserStoreFile, WhatCannotBeReadIsNotTakenForNothing) {
    const TestFolder folder;
    folder.PutFolder("settings");
    const std::string file = folder.At("settings");
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(ReadStored(file, "CurrentSaver")); }), 75);
    EXPECT_EQ(ErrorOfCall([&] { WriteStored(file, "CurrentSaver", std::nullopt); }), 75);
}

TEST(UserStoreFile, AFolderThatIsMissingIsAFailure) {
    const TestFolder folder;
    EXPECT_NE(ErrorOfCall([&] { WriteStored(folder.At("none/settings"), "CurrentSaver", "x"); }), 0);
}

}  // namespace
}  // namespace tavrix::setup
