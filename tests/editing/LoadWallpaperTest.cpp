// What is brought in from the desktop's settings: the wallpaper, and the pattern that cannot be.

#include "DesktopTest.h"
#include "imaging/codecs/PngEncoder.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using headless::Service;

class LoadWallpaperTest : public DesktopTest {
  protected:
    static constexpr const char* NoWallpaper =
        "Nothing to display, desktop wallpaper is currently not in use...";
    static constexpr const char* NotRead = "Unable to read current desktop wallpaper file.\r\n\r\n";
    static constexpr const char* NotKept = "Unable to write wallpaper image to a temporary file.\r\n\r\n";

    bool Load() { return Choose(Menus().mnuLoadWallpaper); }
};

TEST_F(LoadWallpaperTest, TheWallpapersPictureBecomesAnUnsavedImage) {
    StartWithImage(2000, 2000);
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 600;
    Menus().mnuUndo.Enabled = true;
    bool looked = false;
    toolkit.AtYield(1, [&] {
        looked = true;
        EXPECT_TRUE(module.Busy());
        EXPECT_FALSE(View().picFrame.Visible);
    });
    EXPECT_FALSE(Load());
    EXPECT_TRUE(looked);
    ExpectBroughtIn(Different(50, 40));
    EXPECT_EQ(ContentOf(Wallpaper), BitmapOf(Different(50, 40)));
    EXPECT_EQ(module.config.Recent[0], Opened);
}

TEST_F(LoadWallpaperTest, WithoutAWallpaperThereIsNothingToDisplay) {
    StartWithImage(30, 20);
    for (const char* none : {"", "(None)"}) {
        SetValue("Wallpaper", none);
        ExpectTold(NoWallpaper);
        EXPECT_FALSE(Load());
        EXPECT_EQ(module.CurrentImage, Opened);
        ExpectShown(Different(30, 20));
        ExpectIdle();
    }
}

TEST_F(LoadWallpaperTest, AnUnsavedImageIsAskedForFirst) {
    StartWithImage(30, 20);
    MakeUnsaved();
    const Surface before = Shown();
    ExpectDiscard("Discard changes and continue?", Answer::No);
    EXPECT_FALSE(Load());
    ExpectEdited(before);
    ExpectUndo("&Undo Flip Vertically", true);
    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    EXPECT_FALSE(Load());
    ExpectBroughtIn(Different(50, 40));
}

TEST_F(LoadWallpaperTest, ReadsWhatDesktopsUse) {
    StartWithImage(30, 20);
    const Surface wallpaper = Different(50, 40);
    std::string png;
    ASSERT_TRUE(EncodePng(wallpaper, PngPacking::Stored, [&](std::span<const std::byte> bytes) {
        png.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return true;
    }));
    for (const char* path : {"C:\\Windows\\w.png", "C:\\Windows\\misnamed.jpg"}) {
        platform.disks.PutFile(path, png);
        SetValue("Wallpaper", path);
        if (module.CurrentImage == Working) ExpectDiscard("Discard changes and continue?", Answer::Yes);
        EXPECT_FALSE(Load());
        ExpectBroughtIn(wallpaper);
    }
}

TEST_F(LoadWallpaperTest, AFileThatCannotBeReadLeavesTheViewAsItWas) {
    StartWithImage(2000, 2000);
    View().hsbPict.Value = 300;
    View().vsbPict.Value = 600;
    platform.disks.PutFile("C:\\Windows\\text.bmp", "no picture");
    const auto expectUntouched = [&] {
        EXPECT_EQ(module.CurrentImage, Opened);
        ExpectShown(Different(2000, 2000));
        EXPECT_EQ(View().hsbPict.Value.Get(), 300);
        EXPECT_EQ(View().vsbPict.Value.Get(), 600);
        EXPECT_TRUE(View().picFrame.Visible);
        EXPECT_TRUE(Menus().mnuEdit.Visible);
        ExpectIdle();
    };
    SetValue("Wallpaper", "C:\\Windows\\text.bmp");
    ExpectStop(std::string(NotRead) + "Invalid picture...", expectUntouched);
    EXPECT_FALSE(Load());
    expectUntouched();
    SetValue("Wallpaper", "C:\\Windows\\gone.bmp");
    ExpectStop(std::string(NotRead) + "File not found...");
    EXPECT_FALSE(Load());
    expectUntouched();
    EXPECT_FALSE(platform.disks.Exists(Working));
}

TEST_F(LoadWallpaperTest, AnImageThatCannotBeWrittenLeavesTheViewEmpty) {
    StartWithImage(30, 20);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectStop(std::string(NotKept) + "Disk full...");
    EXPECT_FALSE(Load());
    ExpectEmptyView();
    ExpectIdle();
}

class DesktopPatternTest : public DesktopTest {
  protected:
    static constexpr const char* NoPattern = "Nothing to display, desktop pattern is currently not in use...";
    static constexpr const char* Unfinished =
        "Sorry, this command has not been finished yet -- check https://www.tavrix.example/tavrix/ for a "
        "newer "
        "version of this software...";
    static constexpr const char* NotKept = "Unable to write pattern image to a temporary file.\r\n\r\n";

    bool GetPattern() { return Choose(Menus().mnuGetDesktopPattern); }
};

TEST_F(DesktopPatternTest, TheImageOnShowBecomesAnUnsavedOne) {
    StartWithImage(2000, 2000);
    View().vsbPict.Value = 600;
    Menus().mnuUndo.Enabled = true;
    ExpectTold(Unfinished, [&] { EXPECT_FALSE(View().picFrame.Visible); });
    EXPECT_FALSE(GetPattern());
    ExpectBroughtIn(Different(2000, 2000));
    EXPECT_EQ(ContentOf(Opened), BitmapOf(Different(2000, 2000)));
}

TEST_F(DesktopPatternTest, WithoutAPatternThereIsNothingToDisplay) {
    StartWithImage(30, 20);
    for (const char* none :
         {"[Desktop]\r\nPattern=(None)\r\n", "[Desktop]\r\n", "[Desktop]\r\nPattern=   \r\n"}) {
        platform.disks.PutFile("C:\\Windows\\win.ini", none);
        ExpectTold(NoPattern);
        EXPECT_FALSE(GetPattern());
        EXPECT_EQ(module.CurrentImage, Opened);
        ExpectShown(Different(30, 20));
        ExpectIdle();
    }
}

TEST_F(DesktopPatternTest, AnUnsavedImageIsAskedForFirst) {
    StartWithImage(30, 20);
    MakeUnsaved();
    ExpectDiscard("Discard changes and continue?", Answer::No);
    EXPECT_FALSE(GetPattern());
    ExpectUndo("&Undo Flip Vertically", true);
    const Surface before = Shown();
    ExpectDiscard("Discard changes and continue?", Answer::Yes);
    ExpectTold(Unfinished);
    EXPECT_FALSE(GetPattern());
    ExpectBroughtIn(before);
}

TEST_F(DesktopPatternTest, AnImageThatCannotBeWrittenLeavesTheViewEmpty) {
    StartWithImage(30, 20);
    platform.faults.FailAlways(Service::Pictures, "SaveBitmap", ErrorNumber::DiskFull);
    ExpectTold(Unfinished);
    ExpectStop(std::string(NotKept) + "Disk full...");
    EXPECT_FALSE(GetPattern());
    ExpectEmptyView();
    ExpectIdle();
}

}  // namespace
}  // namespace tavrix::test
