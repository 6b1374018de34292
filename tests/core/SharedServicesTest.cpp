#include "core/DesktopSettings.h"
#include "core/FileServices.h"
#include "core/HelpCommands.h"
#include "core/UnsavedImage.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using headless::Service;

class DesktopSettingsTest : public ProgramFixture {
  protected:
    std::string PatternOf(const std::string& text) {
        const ProfileEntry entry{"Pattern", text};
        platform.profile.Write("Desktop", {&entry, 1}, "C:\\Windows\\win.ini");
        return GetDesktopPattern(module);
    }
    std::string WallpaperOf(const std::string& text) {
        platform.registry.Put("Control Panel\\desktop", "Wallpaper", {1, text});
        return GetWallpaperPath(module);
    }
};

TEST_F(DesktopSettingsTest, ThePatternIsThatOfTheDesktopsProfile) {
    EXPECT_EQ(GetDesktopPattern(module), "");
    EXPECT_EQ(PatternOf(" 0 1 2 3 4 5 6 7 "), "0 1 2 3 4 5 6 7");
    EXPECT_EQ(PatternOf("(None)"), "");
    EXPECT_EQ(PatternOf(" (None) "), "");
    EXPECT_EQ(PatternOf(""), "");
    EXPECT_EQ(PatternOf(std::string(200, '1')), std::string(127, '1'));
}

TEST_F(DesktopSettingsTest, WithoutAWindowsFolderThereIsNoPattern) {
    platform.files.SetFolder(KnownFolder::Windows, "");
    EXPECT_EQ(GetDesktopPattern(module), "");
    EXPECT_EQ(platform.faults.Calls(Service::Profile), 0);  // no file of another folder stands in for it
}

TEST_F(DesktopSettingsTest, TheWallpaperIsThatOfTheRegistry) {
    EXPECT_EQ(GetWallpaperPath(module), "");
    EXPECT_EQ(WallpaperOf("C:\\w.bmp"), "C:\\w.bmp");
    EXPECT_EQ(WallpaperOf(std::string("C:\\w.bmp\0junk", 13)), "C:\\w.bmp");
    EXPECT_EQ(WallpaperOf("(None)"), "");
    EXPECT_EQ(WallpaperOf(std::string("(None)\0", 7)), "");
    EXPECT_EQ(WallpaperOf("C:\\w.bmp"), "C:\\w.bmp");
    platform.faults.FailAlways(Service::Registry, "Read", ErrorNumber::PermissionDenied);
    EXPECT_EQ(GetWallpaperPath(module), "");
}

TEST_F(DesktopSettingsTest, TheChromeIsMenuBarAndCaption) {
    EXPECT_EQ(GetChromeHeight(module), 39 * 15);
    toolkit.screen.twipsPerPixelY = 7.5F;
    EXPECT_EQ(GetChromeHeight(module), 292);  // 292.5, halves to even
}

class IsGif89FileTest : public ProgramFixture {
  protected:
    bool Is(const std::string& path, const std::string& content) {
        platform.disks.PutFile(path, content);
        return IsGif89File(module, path);
    }
};

TEST_F(IsGif89FileTest, GoesByNameAndSignature) {
    EXPECT_TRUE(Is("C:\\a.gif", "GIF89a and more"));
    EXPECT_TRUE(Is("C:\\a.GIF", "GIF89a"));
    EXPECT_TRUE(Is("C:\\a.GiF", "gif89A"));
    EXPECT_FALSE(Is("C:\\.GIF", "GIF87a"));
    EXPECT_FALSE(Is("C:\\a.gif", "GIF89"));
    EXPECT_FALSE(Is("C:\\a.gif", ""));
    EXPECT_FALSE(Is("C:\\a.gif", " GIF89a"));
    EXPECT_FALSE(Is("C:\\a.bmp", "GIF89a"));
    EXPECT_FALSE(Is("C:\\agif", "GIF89a"));
}

TEST_F(IsGif89FileTest, IsNoneWithoutAnimation) {
    module.config.AnimateGIF89 = false;
    EXPECT_FALSE(Is("C:\\a.gif", "GIF89a"));
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
}

TEST_F(IsGif89FileTest, AFileThatCannotBeReadIsNone) {
    EXPECT_FALSE(IsGif89File(module, "C:\\none.gif"));
    EXPECT_FALSE(IsGif89File(module, "A:\\none.gif"));
    platform.disks.PutFolder("C:\\folder.gif");
    EXPECT_FALSE(IsGif89File(module, "C:\\folder.gif"));
    for (const char* operation : {"Open", "Read"}) {
        platform.faults.Clear();
        platform.faults.FailAlways(Service::Files, operation, ErrorNumber::DiskNotReady);
        EXPECT_FALSE(Is("C:\\a.gif", "GIF89a")) << operation;
    }
}

class FileServicesTest : public ProgramFixture {};

TEST_F(FileServicesTest, AWindowIsFoundByItsExactTitle) {
    platform.system.windows = {"Tavrix"};
    EXPECT_TRUE(WindowExists(module, "Tavrix"));
    EXPECT_FALSE(WindowExists(module, "tavrix"));
    EXPECT_FALSE(WindowExists(module, "Tav"));
    platform.faults.FailAlways(Service::System, "WindowExists", ErrorNumber::OutOfMemory);
    EXPECT_FALSE(WindowExists(module, "Tavrix"));
}

TEST_F(FileServicesTest, AShortcutGivesItsTarget) {
    platform.shell.links["C:\\a.lnk"] = "C:\\p\\a.bmp";
    EXPECT_EQ(ResolveLink(module, "C:\\a.lnk"), "C:\\p\\a.bmp");
    EXPECT_EQ(ResolveLink(module, "C:\\b.lnk"), "");
    platform.faults.FailAlways(Service::Shell, "ResolveLink", ErrorNumber::OutOfMemory);
    EXPECT_EQ(ResolveLink(module, "C:\\a.lnk"), "");
}

class HelpCommandsTest : public ProgramFixture {};

TEST_F(HelpCommandsTest, NameTheProgramsHelpFile) {
    InitHelp(module);
    EXPECT_EQ(module.HelpFile, "C:\\Tavrix\\TAVRIX.HLP");
    ShowHelpContents(module);
    CloseHelp(module);
    EXPECT_EQ(platform.help.calls, (std::vector<headless::RecordingHelp::Call>{
                                       {"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Contents, 0},
                                       {"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Quit, 0}}));
}

TEST_F(HelpCommandsTest, APageIsAskedForByItsNumber) {
    InitHelp(module);
    ShowHelpPage(module, 120);
    EXPECT_EQ(
        platform.help.calls,
        (std::vector<headless::RecordingHelp::Call>{{"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Context, 120}}));
}

TEST_F(HelpCommandsTest, AHelpWindowThatFailsIsNoFailure) {
    platform.faults.FailAlways(Service::Help, "Show", ErrorNumber::OutOfMemory);
    EXPECT_NO_THROW(ShowHelpContents(module));
    EXPECT_NO_THROW(ShowHelpPage(module, 120));
    EXPECT_NO_THROW(CloseHelp(module));
}

class UnsavedImageTest : public ProgramFixture {
  protected:
    void ExpectQuestion(forms::Answer reply) {
        Expect({.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply});
    }
};

TEST_F(UnsavedImageTest, IsTheWorkingFileInOneOfItsTwoFolders) {
    for (const auto& [path, unsaved] :
         {std::pair{"C:\\Temp\\Untitled.BMP", true}, std::pair{"C:\\Tavrix\\Untitled.BMP", true},
          std::pair{"C:\\Temp\\untitled.bmp", false}, std::pair{"c:\\Temp\\Untitled.BMP", false},
          std::pair{"C:\\p\\Untitled.BMP", false}, std::pair{"", false}}) {
        module.CurrentImage = path;
        EXPECT_EQ(IsUnsavedImage(module), unsaved) << path;
    }
}

TEST_F(UnsavedImageTest, ASavedImageMayGoUnasked) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    module.CurrentImage = "C:\\a.bmp";
    EXPECT_TRUE(ConfirmDiscard(module));
    EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::Hourglass);
}

TEST_F(UnsavedImageTest, AnUnsavedOneGoesOnYes) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    module.CurrentImage = "C:\\Temp\\Untitled.BMP";
    ExpectQuestion(forms::Answer::Yes);
    EXPECT_TRUE(ConfirmDiscard(module));
    EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::Hourglass);
}

TEST_F(UnsavedImageTest, OnNoItStaysAndThePointerIsFree) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    module.CurrentImage = "C:\\Tavrix\\Untitled.BMP";
    ExpectQuestion(forms::Answer::No);
    EXPECT_FALSE(ConfirmDiscard(module));
    EXPECT_EQ(module.CurrentImage, "C:\\Tavrix\\Untitled.BMP");
    EXPECT_FALSE(module.Busy());
}

}  // namespace
}  // namespace tavrix::test
