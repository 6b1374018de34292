#include <filesystem>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "backends/linux/HostDrives.h"
#include "core/MainModule.h"
#include "linux/SoundPlayTest.h"
#include "platform/forms/Application.h"
#include "shows/options/BrowseWavFrm.h"
#include "shows/options/SlideOptionsFrm.h"

namespace tavrix {
namespace {

/// The options of a show on the sounds of this system: what is played goes to a file. C: is a folder of ours, D: a disc
/// image of two tracks.
class OptionsSoundTest : public SoundPlayTest {
  protected:
    OptionsSoundTest() {
        folder.Put("album.bin", first + second);
        folder.Put("album.cue",
                   "FILE \"album.bin\" BINARY\r\n"
                   "  TRACK 01 AUDIO\r\n    INDEX 01 00:00:00\r\n"
                   "  TRACK 02 AUDIO\r\n    INDEX 01 00:00:20\r\n");
        hostFiles.ChangeDrive("C");
        module.AppPath = "C:\\";
        module.WaveDevicePresent = module.CdDevicePresent = true;
        module.MidiDevicePresent = hostSound.MidiDevices() > 0;
        module.config.CdRomDriveLetter = "D:\\";
        hostSound.OnFailure = [this](const std::string& text) { told.push_back(text); };
    }
    ~OptionsSoundTest() override {
        for (const std::string& failure : toolkit.Failures())
            ADD_FAILURE() << failure;
        EXPECT_EQ(told, std::vector<std::string>{});
    }

    SlideOptionsFrm& Options(std::int16_t mode) {
        module.config.SoundMode = mode;
        auto& dialog = app.Load<SlideOptionsFrm>(module, ShowFolder("C:\\"));
        dialog.Show();
        return dialog;
    }
    BrowseWavFrm& Browse() {
        auto& dialog = app.Load<BrowseWavFrm>(module, Options(1));
        dialog.Show();
        return dialog;
    }
    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Select(BrowseWavFrm& dialog, const std::string& name) {
        const int row = dialog.Chooser.File1.IndexOf(name);
        ASSERT_GE(row, 0);
        dialog.Chooser.File1.Deliver(forms::RowEvent{row});
    }
    /// Nothing is added to what was played.
    void ExpectSilence() const {
        std::filesystem::remove(folder.At("played"));
        const timespec moment{0, 50'000'000};
        ::nanosleep(&moment, nullptr);
        EXPECT_FALSE(folder.Has("played")) << "a device that is open writes on";
        EXPECT_EQ(OpenSounds(), 0);
    }
    /// How many files of what is played this process has open.
    [[nodiscard]] int OpenSounds() const {
        int open = 0;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
            const std::string target = std::filesystem::read_symlink(entry.path(), error).string();
            if (!error && target.starts_with(folder.At("played"))) ++open;
        }
        return open;
    }

    static constexpr int SectorBytes = 2352;
    std::string first = Samples(20 * SectorBytes / 2);
    std::string second = Samples(200 * SectorBytes / 2, 12'000);
    DriveMap map{[this] {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.Path() + ";D=" + folder.At("album.cue") + ",cdrom";
        return sources;
    }()};
    HostFiles hostFiles{map, {}};
    HostDrives hostDrives{map};
    HostSound hostSound{hostFiles, map, places};
    headless::HeadlessServices platform;
    Services services{hostFiles,        hostDrives,           platform.profile,  platform.registry,
                      platform.store,   platform.shell,       platform.pictures, platform.clipboard,
                      hostSound,        platform.help,        platform.system,   platform.process,
                      platform.viewLib, platform.wakefulness, platform.desktop,  platform.saverPassword};
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, services};
};

TEST_F(OptionsSoundTest, AWaveIsHeardUntilItIsStopped) {
    const std::string samples = Samples(30'000);
    PutWave("tune.wav", samples);
    BrowseWavFrm& dialog = Browse();
    Select(dialog, "tune.wav");
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(10'000));
    Press(dialog.CmdPlay);
    const std::string played = Played();
    EXPECT_TRUE(samples.starts_with(played.substr(0, 10'000)));
    ExpectSilence();
}

TEST_F(OptionsSoundTest, AWaveStopsWithItsDialog) {
    PutWave("tune.wav", Samples(30'000));
    BrowseWavFrm& dialog = Browse();
    Select(dialog, "tune.wav");
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(10'000));
    EXPECT_EQ(OpenSounds(), 1);
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
    ExpectSilence();
}

TEST_F(OptionsSoundTest, AMidiFileIsHeardUntilItIsStopped) {
    if (!module.MidiDevicePresent) GTEST_SKIP() << "no sound font in " << SystemFonts;
    PutMidi("tune.mid");
    BrowseWavFrm& dialog = Browse();
    Select(dialog, "tune.mid");
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(10'000));
    Press(dialog.CmdPlay);
    ExpectSilence();
}

TEST_F(OptionsSoundTest, ATrackOfADiscIsHeardUntilTheDialogCloses) {
    SlideOptionsFrm& dialog = Options(2);
    dialog.ComboCD.ListIndex = 2;
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(20'000));
    EXPECT_TRUE(second.starts_with(Played().substr(0, 20'000)));
    Press(dialog.CmdStop);
    ExpectSilence();
    dialog.ComboCD.ListIndex = 0;
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(20'000));
    EXPECT_TRUE(first.starts_with(Played().substr(0, 20'000)));
    Press(dialog.CmdCancel);
    EXPECT_EQ(app.Loaded<BrowseWavFrm>(), nullptr);
    ExpectSilence();
}

TEST_F(OptionsSoundTest, EjectOpensTheDoorUntilClose) {
    SlideOptionsFrm& dialog = Options(2);
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(10'000));
    Press(dialog.CmdOpenCD);
    ExpectSilence();
    toolkit.Expect({.text = "The CD-ROM drive is not ready, insert an audio disc and then try again...",
                    .icon = forms::BoxIcon::Exclamation});
    Press(dialog.CmdPlay);
    EXPECT_FALSE(folder.Has("played"));
    Press(dialog.CmdCloseCD);
    toolkit.Expect({.text = "The CD-ROM door appears to be closed already..."});
    Press(dialog.CmdCloseCD);
    Press(dialog.CmdPlay);
    ASSERT_TRUE(ComesToPlay(10'000));
    EXPECT_TRUE(first.starts_with(Played().substr(0, 10'000)));
    Press(dialog.CmdStop);
    ExpectSilence();
}

}  // namespace
}  // namespace tavrix
