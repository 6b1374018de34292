#include "shows/saver/SaverSetup.h"

#include <tuple>

#include "LibraryTest.h"
#include "backends/headless/MemoryIdleStart.h"
#include "editing/Accelerators.h"
#include "settings/frmAbout.h"
#include "shows/library/LoadRecentFile.h"
#include "shows/library/LoadSlideFile.h"
#include "shows/stage/StageBackground.h"
#include "support/MainViewFixture.h"
#include "viewer/MainViewFrm.h"

namespace tavrix::test {
namespace {

constexpr const char* NoSave = "Unable to save Screen Saver.\r\n\r\nPath/File access error...";

/// What the options of a show in a file are.
struct FileOptions {
    int soundMode = 0;
    std::string soundFile = {};
    int track = 0;
    int interval = 7;
    bool random = false;
};

class SaverSetupTest : public LibraryTest {
  protected:
    using IdleSets = std::vector<std::optional<int>>;

    SaverSetupTest() {
        module.ScreenSaverMode = true;
        module.WaveDevicePresent = true;
        module.OsPlatformId = 1;
    }

    static std::string ShowWith(const FileOptions& o) {
        return Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), std::to_string(o.soundMode),
                      Quoted(o.soundFile), std::to_string(o.track), "0", std::to_string(o.interval),
                      o.random ? "-1" : "0", "-1", "0", "0", "-1"}) +
               Slides({"C:\\p\\a.bmp", "A"});
    }
    void Use(const std::string& content) {
        PutShow(content);
        platform.store.Set("CurrentSaver", ShowPath);
    }
    void Use(const FileOptions& options) { Use(ShowWith(options)); }
    SaverSetup& Open() {
        auto& dialog = app.Load<SaverSetup>(module, SaverSurroundings{[this] { ++abouts; }, &idleStart});
        dialog.Show();
        return dialog;
    }
    SaverSetup& OpenWith(const FileOptions& options) {
        Use(options);
        return Open();
    }
    static void Choose(forms::OptionButton& option) { option.Deliver(forms::CheckEvent{true}); }
    static void Tick(forms::CheckBox& box, bool ticked) { box.Deliver(forms::CheckEvent{ticked}); }
    template <class Clicked>
    static void Click(Clicked& control) {
        control.Deliver(forms::ClickEvent{});
    }
    /// OK, which closes the window.
    void Save(SaverSetup& dialog) {
        Press(dialog.CmdOK);
        EXPECT_EQ(app.Loaded<SaverSetup>(), nullptr);
        EXPECT_FALSE(module.Busy());
    }
    static std::string SoundOf(const SaverSetup& dialog) {
        return dialog.SoundFrame.Caption.Get() + "|" + (dialog.OptionNoSound.Value ? "no" : "") +
               (dialog.OptionYesSound.Value ? "yes" : "") + "|" + (dialog.OptionNoSound.Enabled ? "n" : "") +
               (dialog.OptionYesSound.Enabled ? "y" : "") + "|" + dialog.lblSoundFile.Caption.Get();
    }
    headless::MemoryIdleStart idleStart;
    int abouts = 0;

    [[nodiscard]] std::string Current() { return platform.store.Get("CurrentSaver", "none"); }
};

TEST_F(SaverSetupTest, WithoutASaverAllIsAtItsDefaultAndOkRefuses) {
    module.Screen().MousePointer = forms::MousePointer::Hourglass;  // of the start
    SaverSetup& dialog = Open();
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(dialog.Caption.Get(), "Tavrix - [Screen Saver Settings]");
    EXPECT_EQ(dialog.HelpContext, HelpContext::SaverSettings);
    EXPECT_EQ(dialog.lblVersion.Caption.Get(), "Version 1.0.0");
    EXPECT_EQ(dialog.lblCurrentFile.Caption.Get(), "");
    EXPECT_EQ(dialog.lblCurrentFile.ToolTip.Get(), "Click here to view full name of screen saver file.");
    EXPECT_EQ(SoundOf(dialog), "Sound:|no|ny|");
    EXPECT_EQ(dialog.ComboInterval.ListIndex.Get(), 4);
    EXPECT_FALSE(dialog.CheckRandom.Value);
    EXPECT_FALSE(dialog.CheckStartLast.Value);
    EXPECT_TRUE(dialog.Option1.Value);
    EXPECT_EQ(dialog.ComboPassDelay.ListIndex.Get(), 0);
    EXPECT_TRUE(dialog.CmdOK.Default);
    EXPECT_TRUE(dialog.CmdCancel.Cancel);
    EXPECT_EQ(module.HelpFile, "C:\\Tavrix\\TAVRIX.HLP");
    ExpectTold("A screen saver file has not been selected yet, unable to save changes...",
               [this] { EXPECT_TRUE(module.Busy()); });
    Press(dialog.CmdOK);
    EXPECT_TRUE(dialog.Visible());
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(Current(), "none");
    EXPECT_EQ(Saved("PasswordDelay"), "");
}

TEST_F(SaverSetupTest, TheRowsAreSecondsAndGracePeriods) {
    SaverSetup& dialog = Open();
    ASSERT_EQ(dialog.ComboInterval.ListCount(), 60);
    EXPECT_EQ(dialog.ComboInterval.List(0), "1 second");
    EXPECT_EQ(dialog.ComboInterval.List(1), "2 seconds");
    EXPECT_EQ(dialog.ComboInterval.List(59), "60 seconds");
    Texts delays;
    for (int i = 0; i < dialog.ComboPassDelay.ListCount(); ++i)
        delays.push_back(dialog.ComboPassDelay.List(i));
    EXPECT_EQ(delays, (Texts{"None", "5 Sec.", "10 Sec.", "30 Sec.", "1 Min."}));
}

TEST_F(SaverSetupTest, ShowsTheShowOfTheSaver) {
    PutShow(ShowWith({.interval = 60, .random = true}));
    platform.store.Set("CurrentSaver", "c:\\Shows\\s.tvs");
    module.config.ResumeLastDisplayed = true;
    module.config.PasswordDelay = 3;
    module.config.BackgroundColor = 4;
    SaverSetup& dialog = Open();
    EXPECT_EQ(dialog.lblCurrentFile.Caption.Get(), "C:\\Shows\\s.tvs");
    EXPECT_EQ(dialog.ComboInterval.ListIndex.Get(), 59);
    EXPECT_TRUE(dialog.CheckRandom.Value);
    EXPECT_TRUE(dialog.CheckStartLast.Value);
    EXPECT_EQ(dialog.ComboPassDelay.ListIndex.Get(), 3);
    EXPECT_TRUE(dialog.Option5.Value);
    EXPECT_EQ(dialog.lblColor.BackColor.Get(), StageBackground(4));
    EXPECT_EQ(dialog.lblPassMsg.Caption.Get(), "The password of your account is asked for.");
    EXPECT_TRUE(dialog.ComboPassDelay.Enabled);
    EXPECT_TRUE(dialog.CmdPassChange.Enabled);
}

TEST_F(SaverSetupTest, AnIntervalOfNoneIsFiveSecondsAndIsWrittenSo) {
    SaverSetup& dialog = OpenWith({.interval = 0});
    EXPECT_EQ(dialog.ComboInterval.ListIndex.Get(), 4);
    Save(dialog);
    EXPECT_EQ(Content(ShowPath), ShowWith({.interval = 5}));
}

TEST_F(SaverSetupTest, AnIntervalOutsideTheRowsShowsTheNearest) {
    for (const auto& [interval, row] : {std::pair{61, 59}, {32767, 59}, {-1, 0}}) {
        SaverSetup& dialog = OpenWith({.interval = interval});
        EXPECT_EQ(dialog.ComboInterval.ListIndex.Get(), row) << interval;
        app.Unload(dialog);
    }
}

TEST_F(SaverSetupTest, TheSoundOfTheShow) {
    struct Case {
        FileOptions options;
        std::string heard;
        std::string unheard;  ///< on a machine without a device
        int savedMode;
        int savedModeUnheard;
    };
    const std::vector<Case> cases{
        {{.soundMode = 1, .soundFile = "C:\\a.wav"},
         "Sound:|yes|ny|C:\\a.wav",
         "Sound: (disabled)|no||C:\\a.wav",
         1,
         1},
        {{.soundMode = 0, .soundFile = "C:\\a.wav"},
         "Sound:|no|ny|C:\\a.wav",
         "Sound: (disabled)|no||C:\\a.wav",
         0,
         0},
        {{.soundMode = 1}, "Sound: (no file specified)|no||", "Sound: (no file specified)|no||", 0, 0},
        {{.soundMode = 0}, "Sound: (no file specified)|no||", "Sound: (no file specified)|no||", 0, 0},
        {{.soundMode = 2, .track = 12},
         "Sound:|yes|ny|Play CD Track 12",
         "Sound: (disabled)|no||Play CD Track 12",
         2,
         2},
        {{.soundMode = 2, .soundFile = "C:\\a.wav"},
         "Sound:|yes|ny|Play All CD Tracks",
         "Sound: (disabled)|no||Play All CD Tracks",
         2,
         2},
    };
    for (const Case& c : cases) {
        for (const bool device : {true, false}) {
            module.WaveDevicePresent = device;
            SaverSetup& dialog = OpenWith(c.options);
            EXPECT_EQ(SoundOf(dialog), device ? c.heard : c.unheard);
            Save(dialog);
            FileOptions saved = c.options;
            saved.soundMode = device ? c.savedMode : c.savedModeUnheard;
            EXPECT_EQ(Content(ShowPath), ShowWith(saved)) << c.heard;
        }
    }
}

TEST_F(SaverSetupTest, NoSoundIsForGoodAndLeavesTheNameOfTheFile) {
    SaverSetup& dialog = OpenWith({.soundMode = 1, .soundFile = "C:\\a.wav"});
    Choose(dialog.OptionNoSound);
    Save(dialog);
    EXPECT_EQ(Content(ShowPath), ShowWith({.soundMode = 0, .soundFile = "C:\\a.wav"}));
}

TEST_F(SaverSetupTest, EnabledSoundStaysAsItWasRead) {
    SaverSetup& dialog = OpenWith({.soundMode = 0, .soundFile = "C:\\a.wav"});
    Choose(dialog.OptionYesSound);
    Save(dialog);
    EXPECT_EQ(Content(ShowPath), ShowWith({.soundMode = 0, .soundFile = "C:\\a.wav"}));
}

TEST_F(SaverSetupTest, TheColorsAreTheStages) {
    SaverSetup& dialog = Open();
    forms::OptionButton* const options[] = {&dialog.Option1, &dialog.Option2, &dialog.Option3,
                                            &dialog.Option4, &dialog.Option5, &dialog.Option6};
    const Texts captions{"&Black", "&White", "S&ystem", "Dark B&lue", "Dark R&ed", "Dark Bro&wn"};
    for (int i = 5; i >= 0; --i) {
        Choose(*options[i]);
        EXPECT_EQ(options[i]->Caption.Get(), captions[static_cast<std::size_t>(i)]);
        EXPECT_EQ(dialog.lblColor.BackColor.Get(), StageBackground(i));
    }
    for (int i = 1; i <= 12; ++i) {
        Click(dialog.lblColor);
        EXPECT_TRUE(options[i % 6]->Value) << i;
        EXPECT_EQ(dialog.lblColor.BackColor.Get(), StageBackground(i % 6));
    }
}

TEST_F(SaverSetupTest, OkSavesInThreePlaces) {
    for (int i = 1; i <= 20; ++i)
        module.config.RecentShows[static_cast<std::size_t>(i - 1)] = "C:\\r" + std::to_string(i) + ".tvs";
    SaverSetup& dialog = OpenWith({.soundMode = 1, .soundFile = "C:\\a.wav"});
    Tick(dialog.CheckStartLast, true);
    Tick(dialog.CheckRandom, true);
    Choose(dialog.Option6);
    dialog.ComboPassDelay.ListIndex = 4;
    dialog.ComboInterval.ListIndex = 0;
    Save(dialog);
    EXPECT_EQ(Current(), ShowPath);
    EXPECT_EQ(Saved("LastSlideShow"), ShowPath);
    EXPECT_EQ(Saved("RecentShow1"), ShowPath);
    EXPECT_EQ(Saved("RecentShow2"), "C:\\r1.tvs");
    EXPECT_EQ(Saved("RecentShow20"), "C:\\r19.tvs");
    EXPECT_EQ(Saved("BackgroundColor"), "5");
    EXPECT_EQ(Saved("ResumeLastDisplayed"), "True");
    EXPECT_EQ(Saved("PasswordDelay"), "4");
    EXPECT_EQ(Saved("SoundMode"), "") << "the show's options are not the program's";
    EXPECT_EQ(Content(ShowPath),
              ShowWith({.soundMode = 1, .soundFile = "C:\\a.wav", .interval = 1, .random = true}));
    EXPECT_TRUE(platform.shell.recent.empty());
    EXPECT_TRUE(platform.shell.trash.empty());
}

TEST_F(SaverSetupTest, AListedShowStaysWhereItIs) {
    module.config.RecentShows = {"C:\\x.tvs", "c:\\SHOWS\\S.TVS"};
    Save(OpenWith({}));
    EXPECT_EQ(Saved("RecentShow1"), "C:\\x.tvs");
    EXPECT_EQ(Saved("RecentShow2"), "c:\\SHOWS\\S.TVS");
    EXPECT_EQ(Saved("RecentShow3"), "");
}

TEST_F(SaverSetupTest, WithoutAListOfRecentShowsNoneIsWritten) {
    module.config.KeepRecent = false;
    Save(OpenWith({}));
    EXPECT_EQ(Saved("RecentShow1"), "");
    EXPECT_EQ(Saved("LastSlideShow"), ShowPath);
}

TEST_F(SaverSetupTest, CancelSavesNothing) {
    const FileOptions options{.soundMode = 1, .soundFile = "C:\\a.wav"};
    SaverSetup& dialog = OpenWith(options);
    Choose(dialog.OptionNoSound);
    Tick(dialog.CheckStartLast, true);
    dialog.ComboInterval.ListIndex = 0;
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<SaverSetup>(), nullptr);
    EXPECT_EQ(Content(ShowPath), ShowWith(options));
    EXPECT_EQ(Saved("ResumeLastDisplayed"), "");
    EXPECT_EQ(platform.help.calls.back().command, HelpCommand::Quit);
}

TEST_F(SaverSetupTest, AFileThatIsRefusedChangesNoControlAndIsNotWritten) {
    module.show.InsertSlides(0, Texts{"former.bmp"});
    const std::string damaged = "\"Tavrix Slide Show\"\r\n\"Version 2\"\r\n";
    Use(damaged);
    ExpectExclamation(
        "The selected Screen Saver file was created with a different release (Version 2) of "
        "Tavrix.\r\n\r\nYou are currently running:\tVersion: 1.0.0\r\n\r\nUnable to open this Screen "
        "Saver...");
    SaverSetup& dialog = Open();
    EXPECT_EQ(dialog.lblCurrentFile.Caption.Get(), ShowPath);
    EXPECT_EQ(SoundOf(dialog), "Sound:|no|ny|");
    dialog.ComboPassDelay.ListIndex = 1;
    ExpectStop(NoSave);
    Save(dialog);
    EXPECT_EQ(Content(ShowPath), damaged);
    EXPECT_TRUE(platform.shell.trash.empty());
    EXPECT_EQ(Current(), ShowPath);
    EXPECT_EQ(Saved("PasswordDelay"), "1");
}

TEST_F(SaverSetupTest, AFileThatWasNotReadToItsEndIsNotWritten) {
    struct Case {
        std::string content;
        std::string text;
        forms::BoxIcon icon;
    };
    std::string tooMany = ShowWith({});
    for (int i = 0; i <= 30'000; ++i)
        tooMany += "\"a\"\r\n\"\"\r\n";
    const std::vector<Case> cases{
        {ShowWith({}) + "\"cut.bmp\"\r\n",
         "An error occurred while reading the Screen Saver data.\r\n\r\nInput past end of file...",
         forms::BoxIcon::Stop},
        {"\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n1\r\n",
         "An error occurred while reading the Screen Saver file header.\r\n\r\nInput past end of file...",
         forms::BoxIcon::Stop},
        {tooMany,
         "The maximum of 30,000 slides has been loaded. Any remaining images in the Screen Saver file will "
         "be ignored...",
         forms::BoxIcon::Exclamation}};
    for (const Case& c : cases) {
        Use(c.content);
        Expect({.text = c.text, .icon = c.icon, .systemModal = true});
        SaverSetup& dialog = Open();
        ExpectStop(NoSave);
        Save(dialog);
        EXPECT_EQ(Content(ShowPath), c.content);
        EXPECT_TRUE(platform.shell.trash.empty());
    }
}

TEST_F(SaverSetupTest, AShowThatHasGoneIsNotMade) {
    platform.store.Set("CurrentSaver", ShowPath);
    ExpectStop("Unable to open the current Screen Saver data file.\r\n\r\nFile not found...", true);
    SaverSetup& dialog = Open();
    ExpectStop(NoSave);
    Save(dialog);
    EXPECT_FALSE(platform.disks.Exists(ShowPath));
}

TEST_F(SaverSetupTest, WhatStandsBehindAnEmptyPathGoesToTheTrash) {
    const std::string hole = Header() + Slides({"a.bmp", "A", "", "", "b.bmp", "B"});
    Use(hole);
    Save(Open());
    EXPECT_TRUE(Content(ShowPath).ends_with(Slides({"a.bmp", "A"})));
    ASSERT_EQ(platform.shell.trash.size(), 1U);
    EXPECT_EQ(platform.shell.trash[0].content, hole);
}

TEST_F(SaverSetupTest, AnotherShowIsReadToItsEndBeforeItIsWritten) {
    Use("no show");
    ExpectExclamation(
        "The selected file is not a valid Tavrix Screen Saver file...\r\n\r\nFilenames with .TVS in the last "
        "4 positions are normally associated with Tavrix files.");
    SaverSetup& dialog = Open();
    Setting("ImageLastDisplayed", "2");
    module.config.ImageLastDisplayed = 2;
    module.config.LastSlideShow = B;
    toolkit.OnModal("LoadSlideFile", [this] { Press(app.Loaded<LoadSlideFile>()->CmdOK); });
    Press(dialog.CmdSelectFile);
    EXPECT_EQ(dialog.lblCurrentFile.Caption.Get(), B);
    EXPECT_EQ(dialog.ComboInterval.ListIndex.Get(), 6);
    EXPECT_TRUE(dialog.CheckRandom.Value);
    EXPECT_EQ(SoundOf(dialog), "Sound:|yes|ny|C:\\m\\a.wav");
    EXPECT_EQ(Saved("ImageLastDisplayed"), "0");
    EXPECT_EQ(module.config.ImageLastDisplayed, 0);
    EXPECT_EQ(module.config.RecentShows[0], "");
    EXPECT_EQ(SlideFiles(), (Texts{"C:\\p\\b.bmp"}));
    EXPECT_EQ(Current(), ShowPath) << "before OK";
    dialog.ComboInterval.ListIndex = 1;
    Save(dialog);
    EXPECT_EQ(Current(), B);
    EXPECT_NE(Content(B).find("\r\n2\r\n"), std::string::npos);
    EXPECT_TRUE(Content(B).ends_with(Slides({"C:\\p\\b.bmp", "b"})));
    EXPECT_EQ(Content(ShowPath), "no show");
}

TEST_F(SaverSetupTest, AShowThatIsRefusedAfterAGoodOneIsNotWrittenOver) {
    SaverSetup& dialog = OpenWith({});
    PutShow("no show", B);
    module.config.LastSlideShow = B;
    toolkit.OnModal("LoadSlideFile", [this] { Press(app.Loaded<LoadSlideFile>()->CmdOK); });
    ExpectExclamation(
        "The selected file is not a valid Tavrix Screen Saver file...\r\n\r\nFilenames with .TVS in the last "
        "4 positions are normally associated with Tavrix files.");
    Press(dialog.CmdSelectFile);
    EXPECT_EQ(dialog.lblCurrentFile.Caption.Get(), B);
    ExpectStop(NoSave);
    Save(dialog);
    EXPECT_EQ(Content(B), "no show");
    EXPECT_EQ(Content(ShowPath), ShowWith({}));
}

TEST_F(SaverSetupTest, TheRecentShowsAreOneStepAway) {
    module.config.RecentShows[0] = A;
    SaverSetup& dialog = Open();
    toolkit.OnModal("LoadSlideFile", [this] { Press(app.Loaded<LoadSlideFile>()->CmdRecent); });
    toolkit.OnModal("LoadRecentFile", [this] { Press(app.Loaded<LoadRecentFile>()->CmdOK); });
    Press(dialog.CmdSelectFile);
    EXPECT_EQ(dialog.lblCurrentFile.Caption.Get(), A);
}

TEST_F(SaverSetupTest, TheLabelsTellTheWholeNames) {
    SaverSetup& dialog = Open();
    ExpectTold("A screen saver file has not been selected yet, unable to view name of file...");
    Click(dialog.lblCurrentFile);
    ExpectTold("A screen saver file has not been selected yet, unable to view name of sound file...");
    Click(dialog.lblSoundFile);
    app.Unload(dialog);

    SaverSetup& silent = OpenWith({});
    ExpectTold(std::string("Current screen saver file:\r\n\r\n") + ShowPath);
    Click(silent.lblCurrentFile);
    ExpectTold("The selected screen saver did not come with a sound file...");
    Click(silent.lblSoundFile);
    app.Unload(silent);

    SaverSetup& loud = OpenWith({.soundMode = 2, .track = 3});
    ExpectTold("Current sound file:\r\n\r\nPlay CD Track 3");
    Click(loud.lblSoundFile);
}

TEST_F(SaverSetupTest, TheHeadingLeadsToTheAboutBox) {
    SaverSetup& dialog = Open();
    Click(dialog.Image1);
    Click(dialog.Label5);
    Click(dialog.lblFrame);
    Click(dialog.lblVersion);
    EXPECT_EQ(abouts, 4);
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Click(dialog.lblVersion);
    EXPECT_EQ(abouts, 4) << "while something else runs";
}

TEST_F(SaverSetupTest, WhereTavrixStartsItItselfIsOneBoxAndItsMinutes) {
    idleStart.minutes = 25;
    SaverSetup& dialog = OpenWith({});
    EXPECT_TRUE(dialog.CheckIdle.Value);
    EXPECT_TRUE(dialog.CheckIdle.Enabled);
    EXPECT_TRUE(dialog.ComboIdle.Enabled);
    ASSERT_EQ(dialog.ComboIdle.ListCount(), 60);
    EXPECT_EQ(dialog.ComboIdle.List(0), "1 minute");
    EXPECT_EQ(dialog.ComboIdle.List(dialog.ComboIdle.ListIndex), "25 minutes");
    dialog.ComboIdle.ListIndex = 0;
    EXPECT_TRUE(idleStart.sets.empty()) << "before OK";
    Save(dialog);
    EXPECT_EQ(idleStart.sets, (IdleSets{1}));
}

TEST_F(SaverSetupTest, AnIdleStartIsSwitchedOffAndOn) {
    idleStart.minutes = 25;
    SaverSetup& on = OpenWith({});
    Tick(on.CheckIdle, false);
    EXPECT_FALSE(on.ComboIdle.Enabled);
    Save(on);
    EXPECT_EQ(idleStart.sets, (IdleSets{std::nullopt}));
    SaverSetup& off = Open();
    EXPECT_FALSE(off.CheckIdle.Value);
    EXPECT_FALSE(off.ComboIdle.Enabled);
    EXPECT_EQ(off.ComboIdle.List(off.ComboIdle.ListIndex), "10 minutes");
    Tick(off.CheckIdle, true);
    EXPECT_TRUE(off.ComboIdle.Enabled);
    Save(off);
    EXPECT_EQ(idleStart.sets, (IdleSets{std::nullopt, 10}));
}

TEST_F(SaverSetupTest, AnIdleStartThatIsNotTouchedIsNotSet) {
    for (const std::optional<int> minutes : {std::optional<int>(), {7}, {90}}) {
        idleStart.minutes = minutes;
        Save(OpenWith({}));
        EXPECT_TRUE(idleStart.sets.empty());
    }
}

TEST_F(SaverSetupTest, CancelLeavesTheIdleStart) {
    SaverSetup& dialog = OpenWith({});
    Tick(dialog.CheckIdle, true);
    Press(dialog.CmdCancel);
    EXPECT_TRUE(idleStart.sets.empty());
}

TEST_F(SaverSetupTest, AnIdleStartThatCannotBeSetIsToldOfAfterAllElseIsSaved) {
    SaverSetup& dialog = OpenWith({});
    Tick(dialog.CheckIdle, true);
    Tick(dialog.CheckStartLast, true);
    dialog.ComboInterval.ListIndex = 10;
    idleStart.failure = ErrorNumber::DiskFull;
    Expect({.text = "Unable to change when the screen saver starts.\r\n\r\nDisk full...",
            .icon = forms::BoxIcon::Stop,
            .whileOpen = [this] { EXPECT_EQ(Content(ShowPath), ShowWith({.interval = 11})); }});
    Save(dialog);
    EXPECT_EQ(Saved("ResumeLastDisplayed"), "True");
}

TEST_F(SaverSetupTest, WithoutAnIdleStartItsBoxIsDisabled) {
    idleStart.failure = ErrorNumber::PathFileAccessError;
    SaverSetup& unknown = OpenWith({});
    EXPECT_FALSE(unknown.CheckIdle.Enabled);
    Save(unknown);
    auto& none = app.Load<SaverSetup>(module);
    none.Show();
    EXPECT_FALSE(none.CheckIdle.Enabled);
    EXPECT_FALSE(none.ComboIdle.Enabled);
    Click(none.lblVersion);
    Save(none);
}

TEST_F(SaverSetupTest, WhereTheDesktopGuardsItsSaverThereIsNoPasswordAndTheDelayStays) {
    module.OsPlatformId = 2;
    module.config.PasswordDelay = 3;
    SaverSetup& dialog = OpenWith({});
    EXPECT_EQ(dialog.lblPassMsg.Caption.Get(),
              "Feature disabled: locking the screen is left to the desktop.");
    EXPECT_FALSE(dialog.lblPassDelay.Enabled) << "its letter leads nowhere";
    EXPECT_FALSE(dialog.ComboPassDelay.Enabled);
    EXPECT_FALSE(dialog.CmdPassChange.Enabled);
    EXPECT_EQ(dialog.ComboPassDelay.ListIndex.Get(), 3);
    Save(dialog);
    EXPECT_EQ(Saved("PasswordDelay"), "3");
}

TEST_F(SaverSetupTest, ChangeIsTheDesktops) {
    SaverSetup& dialog = Open();
    Press(dialog.CmdPassChange);
    EXPECT_EQ(platform.saverPassword.changes, 1);
    platform.faults.FailAlways(headless::Service::SaverPassword, "Change", ErrorNumber::DeviceUnavailable);
    Press(dialog.CmdPassChange);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SaverSetupTest, WhereTheSaverIsGuardedItTellsWhetherThePasswordIsAskedFor) {
    const auto turn = [this](const char* flag) {
        platform.registry.Put("Control Panel\\desktop", "ScreenSaveUsePassword", {1, flag});
    };
    turn("0");
    SaverSetup& dialog = Open();
    EXPECT_EQ(dialog.lblPassMsg.Caption.Get(), "No password is asked for: see Change.");
    turn("1");
    Press(dialog.CmdPassChange);
    EXPECT_EQ(dialog.lblPassMsg.Caption.Get(), "The password of your account is asked for.");
}

TEST_F(SaverSetupTest, AStoreThatTakesNothingIsToldOfAndTheWindowStays) {
    SaverSetup& dialog = OpenWith({});
    platform.faults.FailAlways(headless::Service::UserStore, "Set", ErrorNumber::DiskFull);
    ExpectStop("Unable to save Screen Saver.\r\n\r\nDisk full...");
    Press(dialog.CmdOK);
    EXPECT_TRUE(dialog.Visible());
    EXPECT_FALSE(module.Busy());
    EXPECT_EQ(Saved("LastSlideShow"), "");
    platform.faults.Clear();
    Save(dialog);
    EXPECT_EQ(Saved("LastSlideShow"), ShowPath);
}

TEST_F(SaverSetupTest, SettingsThatCannotBeWrittenDoNotKeepTheShowFromBeingSaved) {
    SaverSetup& dialog = OpenWith({});
    dialog.ComboInterval.ListIndex = 10;
    platform.faults.FailAlways(headless::Service::Profile, "Write", ErrorNumber::DiskFull);
    Save(dialog);
    EXPECT_EQ(Content(ShowPath), ShowWith({.interval = 11}));
}

TEST_F(SaverSetupTest, OkIsHeardOnce) {
    SaverSetup& dialog = OpenWith({});
    toolkit.AtYield(1, [&dialog] {
        Press(dialog.CmdOK);
        Press(dialog.CmdSelectFile);
        Press(dialog.CmdPassChange);
    });
    Save(dialog);
    EXPECT_EQ(platform.saverPassword.changes, 0);
}

TEST_F(SaverSetupTest, HelpOpensItsPage) {
    SaverSetup& dialog = Open();
    Press(dialog.CmdHelp);
    ASSERT_FALSE(platform.help.calls.empty());
    EXPECT_EQ(platform.help.calls.back().data, HelpContext::SaverSettings);
}

/// The commands of the menu, and the life that the settings are.
class SaverCommandsTest : public MainViewFixture {};

TEST_F(SaverCommandsTest, PropertiesAreTheDesktops) {
    Start();
    Choose(View().menu.mnuSetScreenSaver);
    EXPECT_EQ(platform.shell.commands,
              (std::vector<std::string>{"rundll32.exe shell32.dll,Control_RunDLL desk.cpl,@0,1"}));
    platform.shell.canRun = false;
    Expect({.text = "An error occurred while trying to open the screen saver properties dialog..."});
    Choose(View().menu.mnuSetScreenSaver);
}

TEST_F(SaverCommandsTest, AViewOnTopDoesNotCoverTheMessageOfAFailure) {
    Start();
    module.config.TopMostWindow = true;
    View().SetTopmost(true);
    platform.shell.canRun = false;
    headless::ExpectedBox box{
        .text = "An error occurred while trying to open the screen saver properties dialog..."};
    box.whileOpen = [this] { EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost); };
    Expect(box);
    Choose(View().menu.mnuSetScreenSaver);
    EXPECT_TRUE(toolkit.VisibleWindow("MainViewFrm")->topmost);
}

TEST_F(SaverCommandsTest, SettingsAreAProcessOfTheirOwnAndStandAboveTheView) {
    Start();
    View().SetTopmost(true);
    Choose(View().menu.mnuSSaverSettings);
    EXPECT_EQ(platform.shell.commands, (std::vector<std::string>{"C:\\Tavrix\\TAVRIX.EXE /C"}));
    EXPECT_TRUE(toolkit.VisibleWindow("MainViewFrm")->topmost);
    module.config.TopMostWindow = true;
    Choose(View().menu.mnuSSaverSettings);
    EXPECT_FALSE(toolkit.VisibleWindow("MainViewFrm")->topmost);
}

TEST_F(SaverCommandsTest, NeitherRunsWhileSomethingElseDoes) {
    Start();
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Choose(View().menu.mnuSetScreenSaver);
    Choose(View().menu.mnuSSaverSettings);
    EXPECT_TRUE(platform.shell.commands.empty());
}

TEST_F(SaverCommandsTest, TheSettingsLeadToTheAboutBox) {
    int shown = 0;
    toolkit.OnModal("frmAbout", [this, &shown] {
        ++shown;
        app.Loaded<frmAbout>()->cmdOK.Deliver(forms::ClickEvent{});
    });
    toolkit.OnModal("SaverSetup", [this] {
        auto& dialog = *app.Loaded<SaverSetup>();
        dialog.lblVersion.Deliver(forms::ClickEvent{});
        EXPECT_FALSE(module.Busy());
        dialog.CmdCancel.Deliver(forms::ClickEvent{});
    });
    EXPECT_FALSE(Start("/c"));
    EXPECT_EQ(shown, 1);
}

TEST_F(SaverCommandsTest, TheLetterCIsTheSettingsAndThenTheEnd) {
    int shown = 0;
    toolkit.OnModal("SaverSetup", [this, &shown] {
        ++shown;
        EXPECT_FALSE(module.Busy());
        EXPECT_EQ(app.Loaded<MainViewFrm>(), nullptr);
        app.Loaded<SaverSetup>()->CmdCancel.Deliver(forms::ClickEvent{});
    });
    EXPECT_FALSE(Start("/c"));
    EXPECT_EQ(shown, 1);
}

}  // namespace
}  // namespace tavrix::test
