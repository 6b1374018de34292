#include "core/Settings.h"

#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

class SettingsTest : public ProgramFixture {};

TEST_F(SettingsTest, WithoutAFileEveryKeyTakesItsDefault) {
    LoadSettings(module);
    EXPECT_TRUE(module.config.StretchImages);
    EXPECT_TRUE(module.config.KeepRecent);
    EXPECT_TRUE(module.config.UseRecycleBin);
    EXPECT_TRUE(module.config.LoopSlideShow);
    EXPECT_TRUE(platform.files.FolderExists("C:\\Tavrix\\SLIDES"));
    EXPECT_EQ(module.config.FavoriteFolder, "C:\\Tavrix\\SLIDES");
}

}  // namespace
}  // namespace tavrix::test
