// What holds without an X server; with one the real program is tested.

#include "backends/qt/saver/QtSaverPassword.h"

#include <gtest/gtest.h>

#include "backends/headless/HeadlessServices.h"
#include "backends/qt/saver/LockSetting.h"
#include "linux/Script.h"

namespace tavrix {
namespace {

class QtSaverPasswordTest : public testing::Test {
  protected:
    std::string Switch() {
        const auto value = machine_.registry.Read(qt::LockRegistry::Key, qt::LockRegistry::Name);
        return value ? value->text : "(no value)";
    }

    TestFolder folder_;
    headless::HeadlessServices machine_;
    std::string asked_;
    std::optional<bool> answer_;
    qt::QtSaverPassword password_{
        {PutScript(folder_, "guard", "echo 5; cat"), PutScript(folder_, "checker", "")},
        machine_.registry,
        [this](const std::string& text) {
            asked_ = text;
            return answer_;
        }};
};

TEST_F(QtSaverPasswordTest, ChangeTellsWhereAndTurnsTheSwitch) {
    password_.Change();
    EXPECT_EQ(asked_,
              "The password of the screen saver is the one of your account. It is changed in the settings of "
              "your account, "
              "or in a terminal by the command \"passwd\".\r\n\r\nIs the screen saver to ask for it before "
              "it ends?");
    EXPECT_EQ(Switch(), "(no value)");
    answer_ = true;
    password_.Change();
    EXPECT_EQ(Switch(), "1");
    answer_ = false;
    password_.Change();
    EXPECT_EQ(Switch(), "0");
}

TEST_F(QtSaverPasswordTest, WithoutAnXServerNothingIsHeldAndNothingGuarded) {
    EXPECT_FALSE(password_.MayGuard());
    EXPECT_FALSE(password_.SetRunning(true));
    EXPECT_TRUE(password_.SetRunning(false));
}

TEST(GuardProgramsTest, LieBesideTheFolderOfTheExecutable) {
    const TestFolder folder;
    const auto programs = qt::GuardPrograms::Of(folder.At("bin/tavrix"));
    EXPECT_EQ(programs.guard, folder.At("libexec/tavrix/tavrix-guard"));
    EXPECT_EQ(programs.checker, folder.At("libexec/tavrix/tavrix-password"));
    EXPECT_FALSE(programs.Exist());
    folder.PutFolder("libexec/tavrix");
    PutScript(folder, "libexec/tavrix/tavrix-guard", "");
    EXPECT_FALSE(programs.Exist());
    PutScript(folder, "libexec/tavrix/tavrix-password", "");
    EXPECT_TRUE(programs.Exist());
}

}  // namespace
}  // namespace tavrix
