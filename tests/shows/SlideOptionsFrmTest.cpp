#include "shows/options/SlideOptionsFrm.h"

#include <array>
#include <set>

#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "platform/forms/Application.h"
#include "shows/ShowsTest.h"
#include "shows/options/BrowseWavFrm.h"

namespace tavrix::test {
namespace {

using Calls = std::vector<std::string>;

constexpr const char* NotReady = "The CD-ROM drive is not ready, insert an audio disc and then try again...";

/// The options on a machine with C:, a disc in D:, and all devices. The current folder is C:\here.
class SlideOptionsFrmTest : public ShowsTest {
  protected:
    SlideOptionsFrmTest() {
        module.WaveDevicePresent = module.MidiDevicePresent = module.CdDevicePresent = true;
        module.config.CdRomDriveLetter = "D:\\";
        platform.disks.AddDrive('D', DriveType::CdRom);
        platform.disks.InsertDisk('D');
        platform.disks.PutFolder("C:\\here");
        platform.disks.PutFolder("C:\\show");
        platform.files.ChangeDrive("C");
        platform.files.ChangeFolder("C:\\here");
    }

    SlideOptionsFrm& Open(const std::string& folder = "C:\\show") {
        auto& dialog = app.Load<SlideOptionsFrm>(module, ShowFolder(folder));
        dialog.Show();
        platform.sound.calls.clear();
        return dialog;
    }
    /// The options with the CD chosen, and a disc that plays.
    SlideOptionsFrm& Playing() {
        module.config.SoundMode = 2;
        SlideOptionsFrm& dialog = Open();
        Press(dialog.CmdPlay);
        platform.sound.calls.clear();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Choose(forms::OptionButton& option) { option.Deliver(forms::CheckEvent{true}); }
    static void Tick(forms::CheckBox& box, bool ticked) { box.Deliver(forms::CheckEvent{ticked}); }
    Calls Sent() { return std::exchange(platform.sound.calls, {}); }
    void Refuse(const std::string& command) { platform.sound.results[command] = 0; }
    void ExpectTold(const std::string& text) { Expect({.text = text}); }
    void ExpectNotReady() { Expect({.text = NotReady, .icon = forms::BoxIcon::Exclamation}); }

    /// Which controls of the sound can be used: the buttons of the CD, the file's two, its tracks, the loop, the pictures.
    static std::string SoundState(const SlideOptionsFrm& dialog) {
        const auto all = [](std::initializer_list<const forms::Control*> controls) {
            std::set<bool> states;
            for (const forms::Control* control : controls)
                states.insert(control->Visible.Get());
            if (states.size() == 2) return std::string("mixed");
            return std::string(*states.begin() ? "shown" : "hidden");
        };
        const auto usable = [](const forms::Control& control) { return control.Enabled ? " on" : " off"; };
        return "CD " + all({&dialog.CmdPlay, &dialog.CmdStop, &dialog.CmdOpenCD, &dialog.CmdCloseCD}) +
               ", file " + all({&dialog.txtWavFile, &dialog.CmdBrowse}) + ", tracks" +
               usable(dialog.ComboCD) + ", loop" + usable(dialog.CheckLoopSound) + ", speaker " +
               all({&dialog.ImageSpeaker}) + ", disc " + all({&dialog.ImageCDROM});
    }
    static constexpr const char* Silent =
        "CD hidden, file hidden, tracks off, loop off, speaker hidden, disc hidden";
    static constexpr const char* OfFile =
        "CD hidden, file shown, tracks off, loop on, speaker shown, disc hidden";
    static constexpr const char* OfCd =
        "CD shown, file hidden, tracks on, loop on, speaker hidden, disc shown";
};

TEST_F(SlideOptionsFrmTest, TextsAreAsTold) {
    SlideOptionsFrm& dialog = Open();
    EXPECT_EQ(dialog.Caption.Get(), "Slide Show Options");
    EXPECT_EQ(dialog.HelpContext, HelpContext::SlideOptions);
    EXPECT_EQ(dialog.lblInterval.Caption.Get(), "&Interval:");
    const std::vector<std::string> boxes{dialog.CheckRandom.Caption,        dialog.CheckLoopShow.Caption,
                                         dialog.CheckShowFilenames.Caption, dialog.CheckDescriptions.Caption,
                                         dialog.CheckLoopSound.Caption,     dialog.CheckCopy.Caption,
                                         dialog.CheckToolbar.Caption,       dialog.CheckAnimateGIF.Caption};
    EXPECT_EQ(boxes, (std::vector<std::string>{"Choose &random image order.", "S&how images once, then exit.",
                                               "Show &filenames.", "Show image &descriptions.",
                                               "Loop so&und.", "Sa&ve images in slide show directory.",
                                               "Show navigation &toolbar.", "Animate all &GIF89a files."}));
    const std::vector<std::string> options{dialog.Option1.Caption, dialog.Option2.Caption,
                                           dialog.Option3.Caption};
    EXPECT_EQ(options, (std::vector<std::string>{"&No sound.", "Play a &MIDI (.mid) or a Wave (.wav) file.",
                                                 "Play a CD &Audio track."}));
    const std::vector<std::string> buttons{
        dialog.CmdBrowse.Caption,  dialog.CmdPlay.Caption, dialog.CmdStop.Caption,   dialog.CmdOpenCD.Caption,
        dialog.CmdCloseCD.Caption, dialog.CmdOK.Caption,   dialog.CmdCancel.Caption, dialog.CmdHelp.Caption};
    EXPECT_EQ(buttons, (std::vector<std::string>{"&Browse...", "&Play", "&Stop", "&Eject", "C&lose", "&OK",
                                                 "&Cancel", "Help"}));
    EXPECT_TRUE(dialog.CmdOK.Default);
    EXPECT_TRUE(dialog.CmdCancel.Cancel);
    ExpectOwnLetters(dialog, 19);
}

TEST_F(SlideOptionsFrmTest, TheRowsAreSecondsAndTracks) {
    SlideOptionsFrm& dialog = Open();
    ASSERT_EQ(dialog.ComboInterval.ListCount(), 61);
    EXPECT_EQ(dialog.ComboInterval.List(0), "No Timer");
    EXPECT_EQ(dialog.ComboInterval.List(1), "1 second");
    EXPECT_EQ(dialog.ComboInterval.List(2), "2 seconds");
    EXPECT_EQ(dialog.ComboInterval.List(60), "60 seconds");
    ASSERT_EQ(dialog.ComboCD.ListCount(), 100);
    EXPECT_EQ(dialog.ComboCD.List(0), "All Tracks");
    EXPECT_EQ(dialog.ComboCD.List(1), "Track 1");
    EXPECT_EQ(dialog.ComboCD.List(99), "Track 99");
}

TEST_F(SlideOptionsFrmTest, ShowsTheOptionsOfTheShow) {
    // One option after the other, so that none is shown in the place of another.
    struct Case {
        bool AppConfig::*option;
        forms::CheckBox SlideOptionsFrm::*box;
        bool inverse = false;
    };
    const std::vector<Case> cases{{&AppConfig::RandomSlides, &SlideOptionsFrm::CheckRandom},
                                  {&AppConfig::ShowFilenames, &SlideOptionsFrm::CheckShowFilenames},
                                  {&AppConfig::ShowDescription, &SlideOptionsFrm::CheckDescriptions},
                                  {&AppConfig::LoopSlideShow, &SlideOptionsFrm::CheckLoopShow, true},
                                  {&AppConfig::SoundLoop, &SlideOptionsFrm::CheckLoopSound},
                                  {&AppConfig::SaveSlides, &SlideOptionsFrm::CheckCopy},
                                  {&AppConfig::ShowToolbar, &SlideOptionsFrm::CheckToolbar},
                                  {&AppConfig::AnimateGIF89, &SlideOptionsFrm::CheckAnimateGIF}};
    for (const Case& tried : cases) {
        for (const Case& c : cases)
            module.config.*c.option = c.inverse;
        module.config.*tried.option = !tried.inverse;
        SlideOptionsFrm& dialog = Open();
        for (const Case& c : cases)
            EXPECT_EQ((dialog.*c.box).Value.Get(), &c == &tried) << (dialog.*c.box).Name();
        // And back, from the boxes alone.
        for (const Case& c : cases)
            module.config.*c.option = !c.inverse;
        Press(dialog.CmdOK);
        for (const Case& c : cases)
            EXPECT_EQ(module.config.*c.option, (&c == &tried) != c.inverse) << &c - cases.data();
    }
}

TEST_F(SlideOptionsFrmTest, NumbersOutsideTheRowsShowTheNearest) {
    struct Case {
        std::int16_t interval, track;
        int intervalRow, trackRow;
    };
    for (const Case& c : {Case{0, 0, 0, 0}, Case{60, 99, 60, 99}, Case{61, 100, 60, 99}, Case{-1, -1, 0, 0},
                          Case{32767, 32767, 60, 99}, Case{-32768, -32768, 0, 0}, Case{7, 12, 7, 12}}) {
        module.config.SlideInterval = c.interval;
        module.config.CDTrack = c.track;
        SlideOptionsFrm& dialog = Open();
        EXPECT_EQ(dialog.ComboInterval.ListIndex.Get(), c.intervalRow);
        EXPECT_EQ(dialog.ComboCD.ListIndex.Get(), c.trackRow);
        Press(dialog.CmdOK);
        EXPECT_EQ(module.config.SlideInterval, c.intervalRow);
        EXPECT_EQ(module.config.CDTrack, c.trackRow);
    }
}

TEST_F(SlideOptionsFrmTest, EachKindOfSoundShowsItsOwnControls) {
    struct Case {
        std::int16_t mode;
        const char* state;
        std::int16_t kept;
    };
    for (const Case& c : {Case{0, Silent, 0}, Case{1, OfFile, 1}, Case{2, OfCd, 2}, Case{3, Silent, 0},
                          Case{-1, Silent, 0}}) {
        module.config.SoundMode = c.mode;
        SlideOptionsFrm& dialog = Open();
        EXPECT_EQ(SoundState(dialog), c.state) << c.mode;
        Press(dialog.CmdOK);
        EXPECT_EQ(module.config.SoundMode, c.kept);
    }
    SlideOptionsFrm& dialog = Open();
    for (const auto& [option, state] :
         {std::pair(&dialog.Option3, OfCd), std::pair(&dialog.Option2, OfFile),
          std::pair(&dialog.Option1, Silent), std::pair(&dialog.Option2, OfFile),
          std::pair(&dialog.Option3, OfCd)}) {
        Choose(*option);
        EXPECT_EQ(SoundState(dialog), state);
    }
    EXPECT_EQ(Sent(), Calls{});
}

TEST_F(SlideOptionsFrmTest, WithoutASoundDeviceTheKindCannotBeChosen) {
    module.WaveDevicePresent = false;
    module.config.SoundMode = 1;
    module.config.SoundFile = "C:\\m\\a.wav";
    SlideOptionsFrm& dialog = Open();
    EXPECT_EQ(dialog.SoundFrame.Caption.Get(), "Sound: (disabled)");
    for (const forms::OptionButton* option : {&dialog.Option1, &dialog.Option2, &dialog.Option3})
        EXPECT_FALSE(option->Enabled) << option->Name();
    Press(dialog.CmdOK);
    EXPECT_EQ(module.config.SoundMode, 1) << "another computer has one";
    EXPECT_EQ(module.config.SoundFile, "C:\\m\\a.wav");
    module.WaveDevicePresent = true;
    EXPECT_EQ(Open().SoundFrame.Caption.Get(), "Sound");
}

TEST_F(SlideOptionsFrmTest, AShowThatPlaysOnceHasNoRandomOrder) {
    module.config.RandomSlides = true;
    SlideOptionsFrm& dialog = Open();
    EXPECT_TRUE(dialog.CheckRandom.Value);
    EXPECT_TRUE(dialog.CheckRandom.Enabled);
    Tick(dialog.CheckLoopShow, true);
    EXPECT_FALSE(dialog.CheckRandom.Value);
    EXPECT_FALSE(dialog.CheckRandom.Enabled);
    Tick(dialog.CheckLoopShow, false);
    EXPECT_FALSE(dialog.CheckRandom.Value);
    EXPECT_TRUE(dialog.CheckRandom.Enabled);
    dialog.CheckRandom.Enabled = false;
    dialog.CheckLoopShow.OnKeyUp(forms::KeyCode::Space, 0);
    EXPECT_TRUE(dialog.CheckRandom.Enabled);
}

TEST_F(SlideOptionsFrmTest, AShowThatPlaysOnceOpensThatWay) {
    module.config.LoopSlideShow = false;
    module.config.RandomSlides = true;
    SlideOptionsFrm& dialog = Open();
    EXPECT_TRUE(dialog.CheckLoopShow.Value);
    EXPECT_FALSE(dialog.CheckRandom.Value);
    EXPECT_FALSE(dialog.CheckRandom.Enabled);
    Press(dialog.CmdOK);
    EXPECT_FALSE(module.config.RandomSlides);
}

TEST_F(SlideOptionsFrmTest, ASoundFileIsShownByItsFullPath) {
    platform.disks.PutFile("C:\\show\\beside.wav", "");
    const auto shown = [&](const std::string& file, const std::string& folder) {
        module.config.SoundFile = file;
        SlideOptionsFrm& dialog = Open(folder);
        const std::string text = dialog.txtWavFile.Text;
        app.Unload(dialog);
        return text;
    };
    EXPECT_EQ(shown("C:\\m\\a.wav", "C:\\show"), "C:\\m\\a.wav");
    EXPECT_EQ(shown("", "C:\\show"), "");
    EXPECT_EQ(shown("beside.wav", "C:\\show"), "C:\\show\\beside.wav");
    EXPECT_EQ(shown("other.wav", "C:\\show"), "C:\\here\\other.wav");
    EXPECT_EQ(shown("beside.wav", ""), "C:\\here\\beside.wav");
    platform.files.ChangeFolder("C:\\");
    EXPECT_EQ(shown("other.wav", ""), "C:\\other.wav");
}

TEST_F(SlideOptionsFrmTest, AnEmptyFileFieldIsAccepted) {
    SlideOptionsFrm& dialog = Open();
    Choose(dialog.Option2);
    Press(dialog.CmdOK);
    EXPECT_EQ(module.config.SoundMode, 1);
    EXPECT_EQ(module.config.SoundFile, "");
    EXPECT_EQ(app.Loaded<SlideOptionsFrm>(), nullptr);
}

TEST_F(SlideOptionsFrmTest, QuotationMarksNeverReachTheShowsFile) {
    module.config.SoundMode = 1;
    SlideOptionsFrm& dialog = Open();
    dialog.txtWavFile.Deliver(forms::TextEvent{"\"C:\\m\\a.wav\""});
    Press(dialog.CmdOK);
    EXPECT_EQ(module.config.SoundFile, "C:\\m\\a.wav");
}

TEST_F(SlideOptionsFrmTest, OkSavesTheSettings) {
    SlideOptionsFrm& dialog = Open();
    dialog.ComboInterval.Deliver(forms::RowEvent{17});
    Tick(dialog.CheckToolbar, true);
    Press(dialog.CmdOK);
    EXPECT_EQ(Saved("SlideInterval"), "17");
    EXPECT_EQ(Saved("ShowToolbar"), "True");
}

TEST_F(SlideOptionsFrmTest, OkChangesAShowThatHasSlides) {
    module.show.SlideCount = 0;
    Press(Open().CmdOK);
    EXPECT_FALSE(module.show.ShowChanged);
    module.show.SlideCount = 1;
    Press(Open().CmdOK);
    EXPECT_TRUE(module.show.ShowChanged);
}

TEST_F(SlideOptionsFrmTest, CancelCopiesNothing) {
    module.show.SlideCount = 3;
    const AppConfig before = module.config;
    SlideOptionsFrm& dialog = Open();
    Choose(dialog.Option2);
    dialog.txtWavFile.Text = "C:\\x.wav";
    Tick(dialog.CheckCopy, true);
    dialog.ComboInterval.ListIndex = 3;
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<SlideOptionsFrm>(), nullptr);
    EXPECT_TRUE(SameOptions(before, module.config));
    EXPECT_EQ(module.config.SaveSlides, before.SaveSlides);
    EXPECT_FALSE(module.show.ShowChanged);
    EXPECT_EQ(Saved("SlideInterval"), "");
}

TEST_F(SlideOptionsFrmTest, AFileThatIsDroppedIsTaken) {
    module.config.SoundMode = 1;
    platform.shell.links["C:\\x\\a.LNK"] = "C:\\y\\b.MiD";
    SlideOptionsFrm& dialog = Open();
    const auto drop = [&](std::vector<std::string> files) {
        dialog.txtWavFile.Deliver(forms::DropEvent{std::move(files)});
        return dialog.txtWavFile.Text.Get();
    };
    EXPECT_EQ(drop({"C:\\x\\a.wAv", "C:\\x\\b.wav"}), "C:\\x\\a.wAv");
    EXPECT_EQ(drop({"C:\\x\\a.LNK"}), "C:\\y\\b.MiD");
    const std::string none = "The file that was dropped into the text box is not a valid sound file.";
    for (const char* file : {"C:\\x\\a.bmp", "C:\\x\\gone.lnk", "C:\\x\\wav"}) {
        ExpectTold(none);
        EXPECT_EQ(drop({file}), "C:\\y\\b.MiD");
    }
    ExpectTold(none);
    drop({});
}

TEST_F(SlideOptionsFrmTest, ADiscIsPlayedFromTheChosenTrack) {
    module.config.SoundMode = 2;
    SlideOptionsFrm& dialog = Open();
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"Mci open cdaudio alias CDTrack", "Mci set CDTrack time format tmsf",
                             "Mci seek CDTrack to start", "Mci play CDTrack"}));
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\here");
    dialog.ComboCD.ListIndex = 7;
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(),
              (Calls{"Mci stop CDTrack", "Mci close CDTrack", "Mci open cdaudio alias CDTrack",
                     "Mci set CDTrack time format tmsf", "Mci seek CDTrack to 7", "Mci play CDTrack"}));
    Press(dialog.CmdStop);
    EXPECT_EQ(Sent(), (Calls{"Mci stop CDTrack", "Mci close CDTrack"}));
    ExpectTold("A CD-ROM is not playing, nothing to stop...");
    Press(dialog.CmdStop);
    EXPECT_EQ(Sent(), Calls{});
}

TEST_F(SlideOptionsFrmTest, WhatTheDriveRefusesIsReleased) {
    module.config.SoundMode = 2;
    SlideOptionsFrm& dialog = Open();
    const std::string open = "open cdaudio alias CDTrack";
    const std::string format = "set CDTrack time format tmsf";
    const std::string seek = "seek CDTrack to start";
    for (const auto& [command, sent] :
         {std::pair(open, Calls{"Mci " + open}),
          std::pair(format, Calls{"Mci " + open, "Mci " + format, "Mci close CDTrack"}),
          std::pair(seek, Calls{"Mci " + open, "Mci " + format, "Mci " + seek, "Mci close CDTrack"})}) {
        Refuse(command);
        Press(dialog.CmdPlay);
        EXPECT_EQ(Sent(), sent);
        ExpectTold("A CD-ROM is not playing, nothing to stop...");
        Press(dialog.CmdStop);
        platform.sound.results.clear();
    }
    Refuse("play CDTrack");
    Press(dialog.CmdPlay);
    Sent();
    app.Unload(dialog);
    EXPECT_EQ(Sent(), (Calls{"Mci stop CDTrack", "Mci close CDTrack"}));
}

TEST_F(SlideOptionsFrmTest, AFailureOfThePlatformIsTold) {
    module.config.SoundMode = 2;
    SlideOptionsFrm& dialog = Open();
    platform.faults.FailAlways(headless::Service::Sound, "Mci", ErrorNumber::OutOfMemory);
    Expect({.text = "Unexpected error while detecting and or initializing sound hardware, will attempt to "
                    "continue anyway...",
            .icon = forms::BoxIcon::Exclamation});
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), (Calls{"Mci open cdaudio alias CDTrack"}));
}

TEST_F(SlideOptionsFrmTest, WithoutADiscNothingIsSent) {
    module.config.SoundMode = 2;
    SlideOptionsFrm& dialog = Open();
    auto disc = platform.disks.PullDisk('D');
    ExpectNotReady();
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), Calls{});
    platform.disks.InsertDisk('D', disc);
    module.CdDevicePresent = false;
    ExpectNotReady();
    Press(dialog.CmdPlay);
    EXPECT_EQ(Sent(), Calls{});
}

TEST_F(SlideOptionsFrmTest, ADiscThatWasTakenOutIsToldAndItsDeviceReleased) {
    SlideOptionsFrm& dialog = Playing();
    platform.disks.PullDisk('D');
    ExpectNotReady();
    Press(dialog.CmdStop);
    EXPECT_EQ(Sent(), (Calls{"Mci stop CDTrack", "Mci close CDTrack"}));
    ExpectTold("A CD-ROM is not playing, nothing to stop...");
    Press(dialog.CmdStop);
}

TEST_F(SlideOptionsFrmTest, TheDoorIsOpenedAndClosed) {
    SlideOptionsFrm& dialog = Playing();
    Press(dialog.CmdOpenCD);
    EXPECT_EQ(Sent(), (Calls{"Mci stop CDTrack", "Mci close CDTrack", "Mci open cdaudio alias CDTrack",
                             "Mci set CDTrack door open", "Mci close CDTrack"}));
    ExpectTold("The CD-ROM door appears to be closed already...");
    Press(dialog.CmdCloseCD);
    EXPECT_EQ(Sent(), Calls{});
    platform.disks.PullDisk('D');
    Press(dialog.CmdCloseCD);
    EXPECT_EQ(Sent(),
              (Calls{"Mci open cdaudio alias CDTrack", "Mci set CDTrack door closed", "Mci close CDTrack"}));
    Refuse("open cdaudio alias CDTrack");
    Press(dialog.CmdOpenCD);
    EXPECT_EQ(Sent(), (Calls{"Mci open cdaudio alias CDTrack"}));
    platform.sound.results.clear();
    Refuse("set CDTrack door open");
    Press(dialog.CmdOpenCD);
    EXPECT_EQ(Sent(),
              (Calls{"Mci open cdaudio alias CDTrack", "Mci set CDTrack door open", "Mci close CDTrack"}));
}

TEST_F(SlideOptionsFrmTest, ADiscStopsWithTheChoiceAndWithTheDialog) {
    const Calls stopped{"Mci stop CDTrack", "Mci close CDTrack"};
    for (int way = 0; way < 5; ++way) {
        SlideOptionsFrm& dialog = Playing();
        if (way == 0) Choose(dialog.Option1);
        if (way == 1) Choose(dialog.Option2);
        if (way == 2) Press(dialog.CmdOK);
        if (way == 3) Press(dialog.CmdCancel);
        if (way == 4) dialog.Deliver(forms::CloseEvent{});
        EXPECT_EQ(Sent(), stopped) << way;
        if (way < 2) app.Unload(dialog);
        EXPECT_EQ(Sent(), Calls{}) << way;
    }
}

TEST_F(SlideOptionsFrmTest, BrowseIsNotOpenedByABusyProgram) {
    module.config.SoundMode = 1;
    SlideOptionsFrm& dialog = Open();
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    Press(dialog.CmdBrowse);
    EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
    module.Screen().MousePointer = forms::MousePointer::Default;
    int shown = 0;
    toolkit.OnModal("BrowseWavFrm", [&, this] {
        ++shown;
        app.Unload(*app.Loaded<BrowseWavFrm>());
    });
    Press(dialog.CmdBrowse);
    EXPECT_EQ(shown, 1);
}

TEST_F(SlideOptionsFrmTest, HelpOpensThePage) {
    SlideOptionsFrm& dialog = Open();
    Press(dialog.CmdHelp);
    ASSERT_EQ(platform.help.calls.size(), 1U);
    EXPECT_EQ(platform.help.calls[0].data, HelpContext::SlideOptions);
}

}  // namespace
}  // namespace tavrix::test
