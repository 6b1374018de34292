#include "core/StartupChecks.h"

#include "core/Settings.h"
#include "core/WaitFrm.h"
#include "support/ProgramFixture.h"

namespace tavrix::test {
namespace {

using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;
using headless::Service;

/// Notes the help file that a box's Help button asks for.
class ChecksFixture : public ProgramFixture {
  protected:
    ChecksFixture() {
        app.OnHelp = [this](const forms::BoxRequest& request) {
            helpFile = request.helpFile;
            helpContext = request.helpContext;
        };
    }
    std::string helpFile = "none";
    unsigned helpContext = 0;
};

class CheckDisplayTest : public ChecksFixture {
  protected:
    void ExpectColourQuestion(Answer reply) {
        Expect(
            {.text =
                 "This computer appears to be running in 256 color mode.\r\n"
                 "( Press \"Cancel\" to stop showing this message in the future. )\r\n\r\n"
                 "NOTE: Tavrix performs best with more than 256 colors, you may need to adjust your current "
                 "display settings to get photo-realistic image quality...\r\n\r\n"
                 "Show the \"Display Properties\" dialog after the program starts, so you can make changes?",
             .buttons = BoxButtons::YesNoCancel,
             .reply = reply,
             .help = true,
             .helpContext = 1320,
             .pressHelp = true});
    }
};

TEST_F(CheckDisplayTest, AboveEightBitsNothingIsAsked) {
    for (const int bits : {15, 16, 24, 32}) {
        toolkit.screen.bitsPerPixel = bits;
        CheckDisplay(module);
        EXPECT_FALSE(module.ShowDisplayDialog);
    }
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(CheckDisplayTest, BelowEightBitsTheProgramEnds) {
    toolkit.screen.bitsPerPixel = 4;
    app.Load<WaitFrm>().Show();
    Expect({.text = "Tavrix requires at least 256 colors, unable to start program...",
            .help = true,
            .systemModal = true,
            .helpContext = 1320,
            .whileOpen = [this] { EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr); },
            .pressHelp = true});
    EXPECT_TRUE(Ends([this] { CheckDisplay(module); }));
    EXPECT_EQ(helpFile, "C:\\Tavrix\\TAVRIX.HLP");
    EXPECT_TRUE(platform.profile.Journal().empty());
}

TEST_F(CheckDisplayTest, WithEightBitsYesAsksForTheDisplaySettings) {
    toolkit.screen.bitsPerPixel = 8;
    ExpectColourQuestion(Answer::Yes);
    CheckDisplay(module);
    EXPECT_TRUE(module.ShowDisplayDialog);
    EXPECT_EQ(helpFile, "C:\\Tavrix\\TAVRIX.HLP");
    EXPECT_EQ(helpContext, 1320U);
    EXPECT_TRUE(platform.profile.Journal().empty());
}

TEST_F(CheckDisplayTest, WithEightBitsNoDoesNothing) {
    toolkit.screen.bitsPerPixel = 8;
    module.ShowDisplayDialog = true;
    ExpectColourQuestion(Answer::No);
    CheckDisplay(module);
    EXPECT_FALSE(module.ShowDisplayDialog);
    EXPECT_TRUE(platform.profile.Journal().empty());
}

TEST_F(CheckDisplayTest, WithEightBitsCancelStopsTheQuestionFromTheNextStartOn) {
    toolkit.screen.bitsPerPixel = 8;
    module.ShowDisplayDialog = true;
    ExpectColourQuestion(Answer::Cancel);
    CheckDisplay(module);
    EXPECT_FALSE(module.ShowDisplayDialog);
    EXPECT_TRUE(module.config.Color256Msg);
    EXPECT_EQ(Saved("Color256Msg"), "False");
    LoadSettings(module);
    CheckDisplay(module);
    EXPECT_EQ(toolkit.BoxesShown(), 1);
}

TEST_F(CheckDisplayTest, ASettingsFileThatCannotBeWrittenDoesNotKeepTheBordersFromBeingMeasured) {
    toolkit.screen.bitsPerPixel = 8;
    platform.faults.FailAlways(Service::Profile, "Write", ErrorNumber::PermissionDenied);
    ExpectColourQuestion(Answer::Cancel);
    EXPECT_NO_THROW(CheckDisplay(module));
    EXPECT_EQ(module.FrameWidth, 120);
}

TEST_F(CheckDisplayTest, BothSizingBordersAreMeasuredInTwips) {
    toolkit.metrics[forms::SystemMetric::SizingBorderWidth] = 5;
    toolkit.metrics[forms::SystemMetric::SizingBorderHeight] = 3;
    CheckDisplay(module);
    EXPECT_EQ(module.FrameWidth, 150);
    EXPECT_EQ(module.FrameHeight, 90);
    toolkit.screen.twipsPerPixelX = 7.25F;
    toolkit.screen.twipsPerPixelY = 12;
    CheckDisplay(module);
    EXPECT_EQ(module.FrameWidth, 72);  // 72.5, halves to even
    EXPECT_EQ(module.FrameHeight, 72);
}

class ProbeMultimediaTest : public ProgramFixture {};

TEST_F(ProbeMultimediaTest, FindsTheDevices) {
    module.config.SoundMode = 1;
    ProbeMultimedia(module);
    EXPECT_TRUE(module.WaveDevicePresent);
    EXPECT_TRUE(module.MidiDevicePresent);
    EXPECT_FALSE(module.CdDevicePresent);
    EXPECT_EQ(module.config.SoundMode, 1);
    EXPECT_EQ(module.config.CdRomDriveLetter, "");
}

TEST_F(ProbeMultimediaTest, WithoutAWaveDeviceThereIsNoSound) {
    Setting("SoundMode", "1");
    LoadSettings(module);
    platform.sound.waveDevices = 0;
    platform.sound.midiDevices = 0;
    ProbeMultimedia(module);
    EXPECT_FALSE(module.WaveDevicePresent);
    EXPECT_FALSE(module.MidiDevicePresent);
    EXPECT_EQ(module.config.SoundMode, 0);
    EXPECT_EQ(Saved("SoundMode"), "1");
    SaveSlideSettings(module);
    EXPECT_EQ(Saved("SoundMode"), "0");
}

TEST_F(ProbeMultimediaTest, TheCdDriveIsTakenWhereTheSettingsNameNone) {
    platform.disks.AddDrive('F', DriveType::CdRom);
    ProbeMultimedia(module);
    EXPECT_TRUE(module.CdDevicePresent);
    EXPECT_EQ(module.config.CdRomDriveLetter, "F:\\");
    module.config.CdRomDriveLetter = "E:";
    ProbeMultimedia(module);
    EXPECT_EQ(module.config.CdRomDriveLetter, "E:");
}

class CheckInstallPathTest : public ChecksFixture {
  protected:
    void ExpectMoved(Answer reply) {
        Expect(
            {.text =
                 "The path to this program is not the same as the path found in the system registry, Tavrix "
                 "may have been re-installed and/or moved.\r\n\r\nC:\\Tavrix\\TAVRIX.EXE\r\n\r\n"
                 "Do you want to make this your default one?",
             .icon = BoxIcon::Question,
             .buttons = BoxButtons::YesNoCancel,
             .reply = reply,
             .help = true,
             .helpContext = 410,
             .pressHelp = true});
    }
};

TEST_F(CheckInstallPathTest, TheSameFolderBringsNoMessage) {
    for (const char* path : {"C:\\Tavrix\\", "C:\\Tavrix", "c:\\TAVRIX", "c:\\tavrix\\"}) {
        platform.store.values["EXEPath"] = path;
        CheckInstallPath(module);
        EXPECT_EQ(platform.store.values["EXEPath"], path);
    }
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(CheckInstallPathTest, AnotherSpellingOfTheSameFolderBringsNoMessage) {
    module.AppPath = "C:\\Program Files\\Tavrix\\";
    platform.disks.PutFolder("C:\\Program Files\\Tavrix");
    platform.store.values["EXEPath"] = "C:\\Program Files\\.\\Tavrix";  // as long names and short ones differ
    CheckInstallPath(module);
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(CheckInstallPathTest, AMovedProgramMayBecomeTheDefault) {
    platform.store.values["EXEPath"] = "C:\\Elsewhere\\";
    ExpectMoved(Answer::Yes);
    CheckInstallPath(module);
    EXPECT_EQ(platform.store.values["EXEPath"], "C:\\Tavrix\\");
    EXPECT_EQ(helpFile, "");  // the application's own
    EXPECT_EQ(helpContext, 410U);
}

TEST_F(CheckInstallPathTest, OnNoTheStartGoesOnAndNothingChanges) {
    platform.store.values = {{"EXEPath", "C:\\Elsewhere"}};
    ExpectMoved(Answer::No);
    CheckInstallPath(module);
    EXPECT_EQ(platform.store.values["EXEPath"], "C:\\Elsewhere");
    EXPECT_TRUE(module.FirstRun);
}

TEST_F(CheckInstallPathTest, OnCancelTheProcessEnds) {
    platform.store.values = {{"EXEPath", "C:\\Elsewhere"}};
    ExpectMoved(Answer::Cancel);
    EXPECT_TRUE(Ends([this] { CheckInstallPath(module); }));
    EXPECT_FALSE(platform.store.values.contains("ProgramRun"));
}

TEST_F(CheckInstallPathTest, AnUnknownPathIsRecordedWithANote) {
    platform.store.values.clear();
    Expect({.text =
                "The path to this program was not found in the system registry, Tavrix features may not have "
                "worked properly as a result.\r\n\r\nRegistry entries have been updated...",
            .icon = BoxIcon::Exclamation,
            .help = true,
            .helpContext = 410});
    CheckInstallPath(module);
    EXPECT_EQ(platform.store.values["EXEPath"], "C:\\Tavrix\\");
    EXPECT_EQ(platform.store.values["ProgramRun"], "1");
    EXPECT_TRUE(module.FirstRun);
}

TEST_F(CheckInstallPathTest, OnlyTheFirstStartIsTheFirst) {
    for (const char* before : {"0", "", "2", "true"}) {
        platform.store.values["ProgramRun"] = before;
        CheckInstallPath(module);
        EXPECT_TRUE(module.FirstRun) << before;
        EXPECT_EQ(platform.store.values["ProgramRun"], "1");
        CheckInstallPath(module);
        EXPECT_FALSE(module.FirstRun);
    }
}

class ReadOsVersionTest : public ProgramFixture {};

TEST_F(ReadOsVersionTest, KeepsThePlatformId) {
    platform.system.platformId = 1;
    ReadOsVersion(module);
    EXPECT_EQ(module.OsPlatformId, 1);
}

class ReadSaverPasswordFlagTest : public ProgramFixture {
  protected:
    bool FlagOf(const RegistryValue& value) {
        platform.registry.Put("Control Panel\\desktop", "ScreenSaveUsePassword", value);
        ReadSaverPasswordFlag(module);
        return module.UsePassword;
    }
};

TEST_F(ReadSaverPasswordFlagTest, AMissingValueAsksForThePassword) {
    ReadSaverPasswordFlag(module);
    EXPECT_TRUE(module.UsePassword);
}

TEST_F(ReadSaverPasswordFlagTest, OnlyTheTextZeroDoesNot) {
    EXPECT_FALSE(FlagOf({1, "0"}));
    EXPECT_FALSE(FlagOf({1, std::string("0\0junk", 6)}));
    EXPECT_TRUE(FlagOf({1, "1"}));
    EXPECT_TRUE(FlagOf({1, ""}));
    EXPECT_TRUE(FlagOf({1, " 0"}));
    EXPECT_TRUE(FlagOf({1, std::string("\0"
                                       "0",
                                       2)}));
    EXPECT_TRUE(FlagOf({4, "0"}));  // no text
}

TEST_F(ReadSaverPasswordFlagTest, ARegistryThatFailsAsksForThePassword) {
    platform.registry.Put("Control Panel\\desktop", "ScreenSaveUsePassword", {1, "0"});
    platform.faults.FailAlways(Service::Registry, "Read", ErrorNumber::PermissionDenied);
    ReadSaverPasswordFlag(module);
    EXPECT_TRUE(module.UsePassword);
}

}  // namespace
}  // namespace tavrix::test
