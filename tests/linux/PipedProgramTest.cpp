#include "backends/linux/PipedProgram.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "linux/Script.h"

namespace tavrix {
namespace {

using namespace std::chrono_literals;

constexpr auto Long = 20s;

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

TEST(PipedProgramTest, OneThatSaysNothingIsNotWaitedForLonger) {
    auto program = PipedProgram::Start("sleep", {"600"});
    ASSERT_TRUE(program);
    EXPECT_EQ(program->ReadLine(1ms), std::nullopt);
    EXPECT_EQ(program->Status(1ms), std::nullopt);
    program->Kill();
    EXPECT_EQ(program->Status(Long), std::nullopt);
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
