#include "core/KeptWorkingFiles.h"

#include "core/Settings.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

class KeptWorkingFilesTest : public ProgramFixture {
  protected:
    static constexpr const char* One = "C:\\Temp\\Untitled.BMP";
    static constexpr const char* Other = "C:\\Tavrix\\Untitled.BMP";
};

TEST_F(KeptWorkingFilesTest, SeveralAreKeptAndForgottenOneByOne) {
    EXPECT_FALSE(IsKeptWorkingFile(module, One));
    KeepWorkingFile(module, One);
    KeepWorkingFile(module, Other);
    KeepWorkingFile(module, One);
    EXPECT_TRUE(IsKeptWorkingFile(module, One));
    EXPECT_TRUE(IsKeptWorkingFile(module, Other));
    EXPECT_FALSE(IsKeptWorkingFile(module, ""));
    EXPECT_FALSE(IsKeptWorkingFile(module, "C:\\Temp"));
    ForgetWorkingFile(module, One);
    EXPECT_FALSE(IsKeptWorkingFile(module, One));
    EXPECT_TRUE(IsKeptWorkingFile(module, Other));
    ForgetWorkingFile(module, One);
    ForgetWorkingFile(module, Other);
    EXPECT_EQ(module.KeptWorkingFile, "");
}

TEST_F(KeptWorkingFilesTest, TheExitLeavesAllThatAreKept) {
    for (const char* path : {One, Other}) {
        platform.disks.PutFile(path, "an edit");
        KeepWorkingFile(module, path);
    }
    SaveAllSettings(module, {});
    EXPECT_TRUE(platform.disks.Exists(One));
    EXPECT_TRUE(platform.disks.Exists(Other));
    ForgetWorkingFile(module, One);
    SaveAllSettings(module, {});
    EXPECT_FALSE(platform.disks.Exists(One));
    EXPECT_TRUE(platform.disks.Exists(Other));
}

}  // namespace
}  // namespace tavrix::test
