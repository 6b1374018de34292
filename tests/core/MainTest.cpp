#include "core/Main.h"

#include "StartFixture.h"

namespace tavrix::test {
namespace {

using headless::Service;

constexpr const char* Stage = "Screen Saver Main Form";
constexpr const char* SaverSettings = "Tavrix - [Screen Saver Settings]";

class MainTest : public StartFixture {
  protected:
    void ExpectDiskPrompt(const std::string& file, const std::string& drive, forms::Answer reply) {
        Expect({.text = "Please be sure the disk that contains the file:\r\n\r\n" + file +
                        "\r\n\r\n...is in Floppy Drive " + drive +
                        "\r\n\r\nPress the \"OK\" button to continue.",
                .buttons = forms::BoxButtons::OkCancel,
                .reply = reply,
                .systemModal = true});
    }
};

TEST_F(MainTest, AnEmptyCommandLineLeadsToTheMainViewWithTheWaitWindowStillUp) {
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_EQ(led, Led{"main view"});
    EXPECT_TRUE(waitWindowStood);
    EXPECT_EQ(module.AppPath, "C:\\Tavrix\\");
    EXPECT_EQ(module.CommandText, "");
    EXPECT_FALSE(module.ScreenSaverMode);
    EXPECT_FALSE(module.StartedAsShow);
    EXPECT_FALSE(module.SlideShowActive);
    EXPECT_EQ(module.Screen().MousePointer.Get(), forms::MousePointer::Hourglass);
}

TEST_F(MainTest, TheProgramsFolderGetsOneBackslash) {
    platform.process.path = "C:\\Tavrix\\";
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_EQ(module.AppPath, "C:\\Tavrix\\");
}

TEST_F(MainTest, TheWaitWindowIsShownBeforeAnythingIsRead) {
    bool seen = false;
    toolkit.AtYield(2, [&] {
        seen = true;
        EXPECT_EQ(toolkit.ScreenPointer(), forms::MousePointer::Hourglass);
        const headless::HeadlessWindowPeer* window = toolkit.VisibleWindow("WaitFrm");
        ASSERT_NE(window, nullptr);
        EXPECT_FALSE(window->modal);
        EXPECT_EQ(window->title, "Tavrix - [Please Wait...]");
        EXPECT_EQ(app.Loaded<WaitFrm>()->lblMsg.Caption.Get(), "Loading Tavrix, please wait...");
        EXPECT_EQ(app.Loaded<WaitFrm>()->lblWait.Caption.Get(), "Please wait...");
        EXPECT_EQ(platform.faults.Calls(Service::Profile), 0);
    });
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_TRUE(seen);
}

TEST_F(MainTest, TheStepsFollowTheirOrder) {
    EXPECT_FALSE(EndsStartedWith(""));
    std::vector<std::string> steps;
    for (const std::string& call : platform.faults.Log()) {
        for (const char* marker :
             {"Process.", "Profile.Read", "Sound.", "Drives.Roots", "Help.", "UserStore.Get", "System."}) {
            if (call.starts_with(marker)) steps.push_back(call);
        }
    }
    EXPECT_EQ(steps, (std::vector<std::string>{
                         "Process.CommandLine", "Process.Path", "Profile.Read C:\\Tavrix\\tavrix.ini Viewer",
                         "Sound.WaveDevices", "Sound.MidiDevices", "Drives.Roots",
                         "Help.Show C:\\Tavrix\\TAVRIX.HLP", "UserStore.Get EXEPath",
                         "UserStore.Get ProgramRun", "System.PlatformId", "Process.CommandLine"}));
    EXPECT_EQ(platform.help.calls,
              (std::vector<headless::RecordingHelp::Call>{{"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Quit, 0}}));
}

TEST_F(MainTest, MessagesRunBetweenTheSteps) {
    EXPECT_FALSE(EndsStartedWith(""));
    // The pointer, the wait window, settings, display, devices, help twice, installation.
    EXPECT_EQ(toolkit.Yields(), 8);
}

TEST_F(MainTest, WhatIsNoCommandOfTheStartIsLeftToTheMainView) {
    for (const char* text :
         {"C:\\p\\x.jpg", "\"C:\\x.tvs\"", "S", "P", "SHOW", "CC", "scrnsave", "scrnsave C", "x.tvs ", "-c",
          "x.tvss", "SCRNSAV", " SCRNSAVE C:\\shows\\x.txt"}) {
        led.clear();
        EXPECT_FALSE(EndsStartedWith(text)) << text;
        EXPECT_EQ(led, Led{"main view"}) << text;
        EXPECT_EQ(module.CommandText, text);
        EXPECT_FALSE(module.ScreenSaverMode) << text;
        UnloadWaitWindow(app);
    }
}

TEST_F(MainTest, OneLeadingSlashIsTakenOff) {
    EXPECT_FALSE(EndsStartedWith("/HELP"));
    EXPECT_EQ(module.CommandText, "HELP");
    EXPECT_FALSE(EndsStartedWith("//c"));
    EXPECT_EQ(module.CommandText, "/c");
    EXPECT_FALSE(EndsStartedWith(" /c"));
    EXPECT_EQ(module.CommandText, " /c");
    EXPECT_FALSE(EndsStartedWith("/"));
    EXPECT_EQ(module.CommandText, "");
    EXPECT_EQ(led, (Led{"main view", "main view", "main view", "main view"}));
}

TEST_F(MainTest, TheLetterCLeadsToTheSaverSettingsAndThenToTheEnd) {
    for (const char* text :
         {"C", "c", "/C", "/c", " c ", "/ C", "SCRNSAVE C", "SCRNSAVE c ", "SCRNSAVEc", "/SCRNSAVE C"}) {
        led.clear();
        platform.process.ended = false;
        EXPECT_TRUE(EndsStartedWith(text)) << text;
        EXPECT_EQ(led, Led{"saver setup"}) << text;
        EXPECT_TRUE(module.ScreenSaverMode) << text;
        EXPECT_FALSE(waitWindowStood) << text;
    }
}

TEST_F(MainTest, TheSaverSettingsAreNotShownTwiceNorBesideASaver) {
    for (const char* title : {Stage, SaverSettings}) {
        platform.system.windows = {title};
        EXPECT_TRUE(EndsStartedWith("/C"));
        EXPECT_TRUE(led.empty());
        EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr);
    }
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(MainTest, AShowIsPlayedWithoutAMainView) {
    for (const char* text : {"C:\\shows\\x.tvs", "C:\\shows\\x.TVS", "/C:\\shows\\x.Tvs"}) {
        led.clear();
        module.StartedAsShow = false;
        platform.files.ChangeFolder("C:\\");
        EXPECT_FALSE(EndsStartedWith(text)) << text;
        EXPECT_EQ(led, (Led{"load show", "stage"})) << text;
        EXPECT_FALSE(waitWindowStood);
        EXPECT_TRUE(EqualIgnoringCase(loadedShow, "C:\\shows\\x.tvs"));
        EXPECT_TRUE(module.StartedAsShow);
        EXPECT_TRUE(module.SlideShowActive);
        EXPECT_FALSE(module.ScreenSaverMode);
        EXPECT_EQ(platform.files.CurrentFolder(), "C:\\shows");
    }
}

TEST_F(MainTest, TheFlagsOfAShowAreSetOnlyForTheStage) {
    lives.LoadShowFile = [this](const std::string&) {
        EXPECT_FALSE(module.StartedAsShow);
        EXPECT_FALSE(module.SlideShowActive);
        EXPECT_NE(app.Loaded<WaitFrm>(), nullptr);
        return true;
    };
    EXPECT_FALSE(EndsStartedWith("C:\\shows\\x.tvs"));
    EXPECT_EQ(led, Led{"stage"});
}

TEST_F(MainTest, TheFlagsOfAnEarlierStartAreReset) {
    module.StartedAsShow = true;
    module.ScreenSaverMode = true;
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_FALSE(module.StartedAsShow);
    EXPECT_FALSE(module.ScreenSaverMode);
}

TEST_F(MainTest, ASaverPlaysItsShowWithoutAWaitWindow) {
    toolkit.AtYield(2, [&] { EXPECT_EQ(toolkit.VisibleWindow("WaitFrm"), nullptr); });
    lives.LoadShowFile = [this](const std::string& path) {
        loadedShow = path;
        Note("load show");
        EXPECT_FALSE(waitWindowStood);
        return true;
    };
    EXPECT_FALSE(EndsStartedWith("SCRNSAVE  C:\\shows\\x.tvs "));
    EXPECT_EQ(led, (Led{"load show", "stage"}));
    EXPECT_EQ(loadedShow, "C:\\shows\\x.tvs");
    EXPECT_EQ(module.CommandText, "C:\\shows\\x.tvs");
    EXPECT_TRUE(module.ScreenSaverMode);
    EXPECT_TRUE(module.StartedAsShow);
    EXPECT_TRUE(module.UsePassword);
}

TEST_F(MainTest, OnlyASaverReadsThePasswordFlag) {
    platform.registry.Put("Control Panel\\desktop", "ScreenSaveUsePassword", {1, "0"});
    module.UsePassword = true;
    EXPECT_FALSE(EndsStartedWith("C:\\shows\\x.tvs"));
    EXPECT_TRUE(module.UsePassword);
    EXPECT_EQ(platform.faults.Calls(Service::Registry), 0);
    EXPECT_FALSE(EndsStartedWith("SCRNSAVE C:\\shows\\x.tvs"));
    EXPECT_FALSE(module.UsePassword);
}

TEST_F(MainTest, ASecondSaverEndsBeforeItDoesAnything) {
    platform.system.windows = {Stage};
    EXPECT_TRUE(EndsStartedWith("SCRNSAVE C:\\shows\\x.tvs"));
    EXPECT_TRUE(led.empty());
    EXPECT_EQ(platform.faults.Calls(Service::Profile), 0);
    EXPECT_EQ(app.FormCount(), 0);
}

TEST_F(MainTest, SaverSettingsDoNotKeepASaverFromStarting) {
    platform.system.windows = {SaverSettings};
    EXPECT_FALSE(EndsStartedWith("SCRNSAVE C:\\shows\\x.tvs"));
    EXPECT_EQ(led, (Led{"load show", "stage"}));
}

TEST_F(MainTest, ARunningMainViewOrShowIsNoObstacle) {
    platform.system.windows = {"Tavrix", Stage, SaverSettings};
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_FALSE(EndsStartedWith("C:\\shows\\x.tvs"));
    EXPECT_EQ(led, (Led{"main view", "load show", "stage"}));
}

TEST_F(MainTest, ASaverWithAnythingElseEndsSilently) {
    for (const char* text : {"SCRNSAVE", "SCRNSAVE /C", "SCRNSAVE C:\\a.bmp", "SCRNSAVE S", "/SCRNSAVE",
                             "SCRNSAVE CC", "SCRNSAVER"}) {
        EXPECT_TRUE(EndsStartedWith(text)) << text;
        EXPECT_TRUE(led.empty()) << text;
        EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr) << text;
    }
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(MainTest, SaverWordInLowerCaseIsAPlainShowBecauseOfTheEnding) {
    ExpectStartError("Device unavailable");       // "sc" is no drive
    ExpectStartError("Bad file name or number");  // and there is no folder
    EXPECT_FALSE(EndsStartedWith("scrnsave x.tvs"));
    EXPECT_EQ(led, (Led{"load show", "stage"}));
    EXPECT_EQ(loadedShow, "scrnsave x.tvs");
    EXPECT_FALSE(module.ScreenSaverMode);
}

TEST_F(MainTest, AShowWithoutSlidesEndsTheProcess) {
    showHasSlides = false;
    Expect({.text = "There are no pictures in this slide show to view..."});
    EXPECT_TRUE(EndsStartedWith("C:\\shows\\x.tvs"));
    EXPECT_EQ(led, Led{"load show"});
    EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr);
    EXPECT_FALSE(module.StartedAsShow);
    EXPECT_TRUE(platform.profile.Journal().empty());
}

TEST_F(MainTest, ASaverWithoutSlidesSaysSoAboveAllWindows) {
    showHasSlides = false;
    Expect({.text = "There are no pictures in this screen saver to view...", .systemModal = true});
    EXPECT_TRUE(EndsStartedWith("SCRNSAVE C:\\shows\\x.tvs"));
    EXPECT_EQ(led, Led{"load show"});
}

TEST_F(MainTest, AFloppyPathOfSevenCharactersIsNoFile) {
    for (const char* path : {"A:\\.tvs", "b:\\.TVS"}) {
        Expect({.text = std::string(path) + " is not a valid filename...", .systemModal = true});
        EXPECT_TRUE(EndsStartedWith(path));
        EXPECT_TRUE(led.empty());
        EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr);
    }
}

TEST_F(MainTest, AFloppyPathOfEightCharactersIsTakenWhenTheDiskIsThere) {
    platform.disks.InsertDisk('A');
    platform.disks.PutFile("A:\\other.txt", "");
    EXPECT_FALSE(EndsStartedWith("A:\\x.tvs"));
    EXPECT_EQ(led, (Led{"load show", "stage"}));
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(MainTest, WithoutADiskTheUserIsAskedForItAndMayCancel) {
    ExpectDiskPrompt("Shows\\Mine.tvs", "A:\\", forms::Answer::Cancel);
    EXPECT_TRUE(EndsStartedWith("a:\\Shows\\Mine.tvs"));
    EXPECT_TRUE(led.empty());
    EXPECT_EQ(app.Loaded<WaitFrm>(), nullptr);
}

TEST_F(MainTest, AfterOkThereIsNoSecondLook) {
    ExpectDiskPrompt("x.tvs", "B:\\", forms::Answer::Ok);
    ExpectStartError("Device unavailable");
    ExpectStartError("Device unavailable");
    EXPECT_FALSE(EndsStartedWith("b:\\x.tvs"));
    EXPECT_EQ(led, (Led{"load show", "stage"}));
    EXPECT_EQ(loadedShow, "b:\\x.tvs");
}

TEST_F(MainTest, AnEmptyDiskCountsAsNone) {
    platform.disks.InsertDisk('A');
    ExpectDiskPrompt("x.tvs", "A:\\", forms::Answer::Cancel);
    EXPECT_TRUE(EndsStartedWith("A:\\x.tvs"));
}

TEST_F(MainTest, TheDiskPromptHoldsForASaverToo) {
    ExpectDiskPrompt("x.tvs", "A:\\", forms::Answer::Cancel);
    EXPECT_TRUE(EndsStartedWith("SCRNSAVE A:\\x.tvs"));
    EXPECT_TRUE(led.empty());
}

// Failures of the steps.

TEST_F(MainTest, AStepThatFailsIsReportedAndTheNextOneFollows) {
    platform.faults.FailAlways(Service::Process, "Path", ErrorNumber::PathNotFound);
    ExpectStartError("Path not found");
    Expect(
        {.text =
             "The path to this program is not the same as the path found in the system registry, Tavrix may "
             "have been re-installed and/or moved.\r\n\r\nTAVRIX.EXE\r\n\r\n"
             "Do you want to make this your default one?",
         .icon = forms::BoxIcon::Question,
         .buttons = forms::BoxButtons::YesNoCancel,
         .reply = forms::Answer::No,
         .help = true});
    EXPECT_FALSE(EndsStartedWith("/HELP"));
    EXPECT_EQ(led, Led{"main view"});
    EXPECT_EQ(module.CommandText, "HELP");
}

TEST_F(MainTest, AFailureInTheStoreLeavesTheRestOfThatCheckUndone) {
    platform.store.values.clear();
    platform.faults.FailAlways(Service::UserStore, "Set", ErrorNumber::PermissionDenied);
    Expect({.text =
                "The path to this program was not found in the system registry, Tavrix features may not have "
                "worked properly as a result.\r\n\r\nRegistry entries have been updated...",
            .icon = forms::BoxIcon::Exclamation,
            .help = true,
            .helpContext = 410});
    ExpectStartError("Permission denied");
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_EQ(module.OsPlatformId, 2);
    EXPECT_EQ(led, Led{"main view"});
}

TEST_F(MainTest, TheVersionsFailureIsReported) {
    platform.faults.FailAlways(Service::System, "PlatformId", ErrorNumber::OutOfMemory);
    ExpectStartError("Out of memory");
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_EQ(module.OsPlatformId, 0);
    EXPECT_EQ(led, Led{"main view"});
}

TEST_F(MainTest, ACommandLineThatCannotBeReadAgainIsEmpty) {
    platform.faults.FailNth(Service::Process, 3, ErrorNumber::OutOfMemory);
    ExpectStartError("Out of memory");
    EXPECT_FALSE(EndsStartedWith("C"));
    EXPECT_EQ(led, Led{"main view"});
}

TEST_F(MainTest, MessagesRunAfterAFailedStepToo) {
    platform.faults.FailAlways(Service::UserStore, "Set", ErrorNumber::PermissionDenied);
    platform.store.values["ProgramRun"] = "0";
    ExpectStartError("Permission denied");
    EXPECT_FALSE(EndsStartedWith(""));
    EXPECT_EQ(toolkit.Yields(), 8);
}

TEST_F(MainTest, AShowThatCannotBeReadCountsAsEmpty) {
    lives.LoadShowFile = [](const std::string&) -> bool { throw RuntimeError(ErrorNumber::InputPastEnd); };
    ExpectStartError("Input past end of file");
    Expect({.text = "There are no pictures in this slide show to view..."});
    EXPECT_TRUE(EndsStartedWith("C:\\shows\\x.tvs"));
    EXPECT_TRUE(led.empty());
}

TEST_F(MainTest, AFailedChangeOfTheFolderKeepsNoShowFromPlaying) {
    platform.faults.FailAlways(Service::Files, "ChangeDrive", ErrorNumber::DeviceUnavailable);
    ExpectStartError("Device unavailable");
    EXPECT_FALSE(EndsStartedWith("C:\\shows\\x.tvs"));
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\shows");
    ExpectStartError("Path not found");
    platform.faults.Clear();
    EXPECT_FALSE(EndsStartedWith("C:\\none\\x.tvs"));
    EXPECT_EQ(led, (Led{"load show", "stage", "load show", "stage"}));
}

TEST_F(MainTest, FailingSaverSettingsEndTheProcessToo) {
    lives.ShowSaverSetup = [] { throw RuntimeError(ErrorNumber::OutOfMemory); };
    ExpectStartError("Out of memory");
    EXPECT_TRUE(EndsStartedWith("C"));
}

TEST_F(MainTest, AMainViewThatFailsIsReported) {
    lives.ShowMainView = [] { throw RuntimeError(ErrorNumber::OutOfMemory); };
    ExpectStartError("Out of memory");
    EXPECT_FALSE(EndsStartedWith(""));
}

/// Each call of one service fails in turn; the start leads to its life all the same.
class FailingStart : public MainTest, public ::testing::WithParamInterface<Service> {};

TEST_P(FailingStart, LeadsToTheMainView) {
    bool fired = true;
    for (int nth = 1; fired; ++nth) {
        SCOPED_TRACE(nth);
        led.clear();
        platform.faults.Clear();
        platform.store.values = {{"EXEPath", "C:\\Tavrix\\"}, {"ProgramRun", "0"}};
        platform.disks.Remove("C:\\Tavrix\\SLIDES");
        platform.faults.FailNth(GetParam(), nth, ErrorNumber::PermissionDenied);
        const bool isStore = GetParam() == Service::UserStore;
        if (isStore && nth == 1) {  // the installation reads as missing
            Expect(
                {.text =
                     "The path to this program was not found in the system registry, Tavrix features may not "
                     "have worked properly as a result.\r\n\r\nRegistry entries have been updated...",
                 .icon = forms::BoxIcon::Exclamation,
                 .help = true});
        }
        if ((isStore && nth == 3) || (GetParam() == Service::System && nth == 1)) {
            ExpectStartError("Permission denied");
        }
        EXPECT_FALSE(EndsStartedWith("x"));
        fired = platform.faults.Fired();
        EXPECT_EQ(led, Led{"main view"});
        EXPECT_EQ(module.CommandText, "x");
        UnloadWaitWindow(app);
    }
}

INSTANTIATE_TEST_SUITE_P(OfEachService, FailingStart,
                         ::testing::Values(Service::Files, Service::Drives, Service::Profile, Service::Sound,
                                           Service::Help, Service::UserStore, Service::System));

}  // namespace
}  // namespace tavrix::test
