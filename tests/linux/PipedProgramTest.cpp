#include "backends/linux/PipedProgram.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "linux/Script.h"

namespace tavrix {
namespace {

using namespace std::chrono_literals;

constexpr auto Long = 20s;

/// Whether a process is gone from the table of processes within that time.
bool IsGone(const std::optional<std::string>& id) {
    const auto limit = std::chrono::steady_clock::now() + Long;
    while (id && ::kill(std::stoi(*id), 0) == 0) {
        if (std::chrono::steady_clock::now() > limit) return false;
        ::usleep(1000);
    }
    return id.has_value();
}

TEST(PipedProgramTest, IsTalkedToAndTellsItsEnd) {
    const TestFolder folder;
    auto program = PipedProgram::Start(PutScript(folder, "echo", "read line; echo \"<$line>\"; cat; exit 7"));
    ASSERT_TRUE(program);
    EXPECT_TRUE(program->Write("one\ntwo"));
    EXPECT_EQ(program->ReadLine(Long), "<one>");
    program->EndInput();
    EXPECT_EQ(program->ReadLine(Long), "two");
    EXPECT_EQ(program->Status(Long), 7);
    EXPECT_EQ(program->Status(Long), std::nullopt);  // told once
}

TEST(PipedProgramTest, HearsOfOurEnd) {
    const TestFolder folder;
    const std::string path =
        PutScript(folder, "wait", "cat > /dev/null; echo over > '" + folder.At("over") + "'");
    { ASSERT_TRUE(PipedProgram::Start(path)); }
    while (folder.Content("over").empty())
        ::usleep(1000);
}

TEST(PipedProgramTest, NoneIsLeftInTheTableOfProcesses) {
    const TestFolder folder;
    const std::string path = PutScript(folder, "wait", "echo $$; cat > /dev/null");
    auto program = PipedProgram::Start(path);
    ASSERT_TRUE(program);
    const auto first = program->ReadLine(Long);
    program = PipedProgram::Start(path);
    ASSERT_TRUE(program);
    EXPECT_TRUE(IsGone(first));
    const auto second = program->ReadLine(Long);
    program.reset();
    EXPECT_TRUE(IsGone(second));
}

TEST(PipedProgramTest, NoSignalIsBlockedOrIgnored) {
    sigset_t one;
    sigset_t former;
    ::sigemptyset(&one);
    ::sigaddset(&one, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &one, &former);
    const auto handler = ::signal(SIGUSR2, SIG_IGN);
    auto program = PipedProgram::Start("grep", {"-E", "SigBlk|SigIgn", "/proc/self/status"});
    ::signal(SIGUSR2, handler);
    ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
    ASSERT_TRUE(program);
    EXPECT_EQ(program->ReadLine(Long), "SigBlk:\t0000000000000000");
    const std::string ignored = program->ReadLine(Long).value_or("");
    ASSERT_TRUE(ignored.starts_with("SigIgn:\t")) << ignored;
    // The two that the library keeps for itself do not count.
    EXPECT_EQ(std::stoull(ignored.substr(8), nullptr, 16) & 0x7FFFFFFFU, 0U) << ignored;
}

TEST(PipedProgramTest, AMissingOneDoesNotStart) {
    EXPECT_FALSE(PipedProgram::Start("/none/of/that"));
    EXPECT_FALSE(PipedProgram::Start("tavrix-none-of-that"));
}

TEST(PipedProgramTest, WritingToOneThatHasEndedFailsAndEndsNobody) {
    auto program = PipedProgram::Start("true");
    ASSERT_TRUE(program);
    EXPECT_EQ(program->Status(Long), 0);
    EXPECT_FALSE(program->Write("x"));
}

TEST(PipedProgramTest, WhatItDoesNotTakeAtOnceIsNotWaitedFor) {
    auto program = PipedProgram::Start("sleep", {"600"});
    ASSERT_TRUE(program);
    EXPECT_FALSE(program->Write(std::string(std::size_t{64} << 20U, 'x')));
    program->Kill();
}

TEST(PipedProgramTest, OneThatSaysNothingIsNotWaitedForLonger) {
    auto program = PipedProgram::Start("sh", {"-c", "printf part; exec sleep 600"});
    ASSERT_TRUE(program);
    EXPECT_EQ(program->ReadLine(Long, 4), "part");
    EXPECT_EQ(program->ReadLine(1ms), std::nullopt);
    EXPECT_EQ(program->Status(1ms), std::nullopt);
    program->Kill();
    EXPECT_EQ(program->Status(Long), std::nullopt);
}

TEST(PipedProgramTest, OneThatWillNotEndIsEnded) {
    const TestFolder folder;
    auto program = PipedProgram::Start(
        PutScript(folder, "stubborn", "trap '' HUP INT TERM; echo $$; while :; do sleep 0.1; done"));
    ASSERT_TRUE(program);
    const auto id = program->ReadLine(Long);
    program->Kill();
    EXPECT_EQ(program->Status(Long), std::nullopt);
    EXPECT_TRUE(IsGone(id));
}

TEST(PipedProgramTest, ALineHasAnEnd) {
    auto program = PipedProgram::Start("yes", {std::string(1000, 'y')});
    ASSERT_TRUE(program);
    EXPECT_EQ(program->ReadLine(Long, 10), std::string(10, 'y'));
    program->Kill();
}

TEST(PipedProgramTest, ItIsOfASessionOfItsOwn) {
    auto program = PipedProgram::Start("sh", {"-c", "cut -d ' ' -f 6 /proc/$$/stat"});
    ASSERT_TRUE(program);
    const auto line = program->ReadLine(Long);
    ASSERT_TRUE(line);
    EXPECT_NE(std::atoi(line->c_str()), ::getsid(0));
}

}  // namespace
}  // namespace tavrix
