#include <gtest/gtest.h>

#include <set>

#include "core/Settings.h"
#include "shows/StageTest.h"
#include "support/FaultSweep.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
using headless::Service;

constexpr const char* SettingsFile = "C:\\Tavrix\\tavrix.ini";
constexpr const char* SettingsBefore = "[Viewer]\r\nBackgroundColor=4\r\nSoundFile=C:\\before.wav\r\n";

/// A process whose user plays a show, on a machine that outlives it. Boxes are closed as they come.
struct Player {
    explicit Player(headless::HeadlessServices& machine) : module{app, machine.services} {
        module.AppPath = "C:\\Tavrix\\";
        module.MidiDevicePresent = true;
        module.config.SlideInterval = 5;
        module.config.LoopSlideShow = true;
        module.config.AnimateGIF89 = true;
        module.config.ShowToolbar = module.config.ShowFilenames = module.config.ShowDescription = true;
        module.config.SoundMode = 1;
        module.config.SoundFile = "C:\\s\\a.mid";
        const char* slides[] = {"C:\\s\\1.bmp", "D:\\away\\2.bmp", "C:\\s\\3.gif", "C:\\s\\4.bmp",
                                "C:\\s\\1.bmp"};
        for (int i = 0; i < 5; ++i) {
            module.show.SlideFiles.Set(i, slides[i]);
            module.show.SlideDescriptions.Set(i, std::string("about ") + slides[i]);
        }
    }

    FullViewFrm* Stage() { return app.Loaded<FullViewFrm>(); }
    void Press(int keyCode) {
        if (Stage() != nullptr) Stage()->Deliver(forms::KeyEvent{true, keyCode, 0, nullptr});
    }
    void Advance(int seconds) { toolkit.Advance(forms::Milliseconds(seconds * 1000)); }
    void RemoveSlide() {
        if (Stage() == nullptr) return;
        toolkit.Expect({.text = "Remove the picture:\r\n\r\n" + Stage()->CurrentPath() +
                                "\r\n\r\n...from the slide show?\r\n(Note: Image file will NOT be deleted.)",
                        .icon = forms::BoxIcon::Question,
                        .buttons = forms::BoxButtons::YesNo,
                        .reply = forms::Answer::Yes});
        Press(KeyCode::Delete);
    }

    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module;
};

void SetUpMachine(headless::HeadlessServices& machine) {
    for (const char* path : {"C:\\s\\1.bmp", "C:\\s\\2.bmp", "C:\\s\\4.bmp"})
        machine.pictures.SetPicture(path, PlainPicture(100, 80));
    machine.disks.PutFile("C:\\s\\3.gif", AnimatedGif());
    machine.disks.PutFile("C:\\s\\a.mid", "MThd");
    machine.disks.PutFile(SettingsFile, SettingsBefore);
    machine.files.ChangeFolder("C:\\s");
    machine.faults.Clear();
}

class StageFault : public ::testing::TestWithParam<Service> {};

/// Steps by the timer, by keys, and by the removal of slides; then the end.
void UserPlays(Player& player, FakeEditor& editor) {
    player.app.Load<FullViewFrm>(player.module).Show();
    player.Advance(12);
    player.Press(KeyCode::Right);
    player.RemoveSlide();
    player.Advance(5);
    player.Press(KeyCode::Home);
    player.RemoveSlide();
    player.Press(KeyCode::End);
    if (auto* toolbar = player.app.Loaded<frmToolbar>()) {
        toolbar->lblDescription.Deliver(forms::ClickEvent{});
        EXPECT_EQ(editor.edits, 1);
    }
    player.Press(KeyCode::Escape);
}

bool PlayWithFault(Service service, int call) {
    headless::HeadlessServices machine;
    SetUpMachine(machine);
    const auto before = machine.disks.AllFiles();
    Player player(machine);
    player.module.SlideShowActive = true;
    auto& editor = player.app.Load<FakeEditor>(player.module);
    machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);

    EXPECT_NO_THROW(UserPlays(player, editor));
    const bool fired = machine.faults.Fired();
    machine.faults.Clear();

    EXPECT_EQ(player.Stage(), nullptr);
    EXPECT_EQ(player.app.FormCount(), 1);  // the editor
    EXPECT_FALSE(player.module.Busy());
    EXPECT_EQ(player.toolkit.ScreenPointer(), forms::MousePointer::Default);
    EXPECT_FALSE(service != Service::Wakefulness && machine.wakefulness.inhibited);
    EXPECT_EQ(machine.disks.AllFiles(), before);
    // What opened the sound has closed it, unless that is what failed.
    const auto& calls = machine.sound.calls;
    const bool opened = std::ranges::find(calls, "Mci play MIDIFile") != calls.end();
    EXPECT_EQ(opened, std::ranges::find(calls, "Mci stop MIDIFile") != calls.end());
    // Each row has its own description, and the record is what the editor shows.
    const SlideShow& show = player.module.show;
    EXPECT_EQ(static_cast<std::size_t>(show.Count()), editor.rows.size());
    for (int i = 0; i < std::min(show.Count(), static_cast<int>(editor.rows.size())); ++i) {
        EXPECT_EQ(show.SlideFiles[i], editor.rows[static_cast<std::size_t>(i)]);
        EXPECT_EQ(show.SlideDescriptions[i], "about " + show.SlideFiles[i]);
    }
    EXPECT_EQ(show.ShowChanged, show.Count() < 5);

    // The next show plays.
    player.app.Load<FullViewFrm>(player.module).Show();
    EXPECT_NE(player.Stage(), nullptr);
    player.Press(KeyCode::Right);
    player.Press(KeyCode::Escape);
    EXPECT_EQ(player.Stage(), nullptr);
    return fired;
}

TEST_P(StageFault, AShowIsPlayedAndItsSlidesRemovedWithAnyCallFailing) {
    const int faults = SweepFaults([](int call) { return PlayWithFault(GetParam(), call); });
    EXPECT_GT(faults, 0);
}

INSTANTIATE_TEST_SUITE_P(Services, StageFault,
                         ::testing::Values(Service::Files, Service::Pictures, Service::Sound,
                                           Service::Wakefulness));

/// Whether a fault came while a saver stepped, which remembers its slide.
bool SaveScreenWithFault(Service service, int call) {
    headless::HeadlessServices machine;
    SetUpMachine(machine);
    Player player(machine);
    player.module.SlideShowActive = player.module.ScreenSaverMode = true;
    player.module.config.ResumeLastDisplayed = true;
    machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
    bool ended = false;
    try {
        player.app.Load<FullViewFrm>(player.module).Show();
        player.Advance(16);
        player.Press(KeyCode::Escape);
    } catch (const headless::ProcessEnded&) {
        ended = true;
    }
    EXPECT_TRUE(ended);
    const bool fired = machine.faults.Fired();
    machine.faults.Clear();
    const ProfileSection saved = machine.profile.Read("Viewer", SettingsFile);
    EXPECT_EQ(saved.Read("BackgroundColor", 10), "4");
    const std::set<std::string> slides{"", "0", "1", "2", "3", "4"};
    EXPECT_TRUE(slides.contains(saved.Read("ImageLastDisplayed", 10)));
    return fired;
}

TEST(SaverFault, ASaverStepsAndEndsWithAnyCallFailing) {
    for (const Service service : {Service::Files, Service::Pictures, Service::Sound, Service::Profile}) {
        const int faults = SweepFaults([&](int call) { return SaveScreenWithFault(service, call); });
        EXPECT_GT(faults, 0);
    }
}

/// Whether a fault came while the options of shows were saved.
bool SaveOptionsWithFault(Service service, int call) {
    headless::HeadlessServices machine;
    SetUpMachine(machine);
    Player player(machine);
    machine.faults.FailNth(service, call, ErrorNumber::DiskNotReady);
    EXPECT_NO_THROW(SaveSlideSettings(player.module));
    const bool fired = machine.faults.Fired();
    machine.faults.Clear();
    EXPECT_EQ(machine.disks.Content(SettingsFile) == SettingsBefore, fired);
    SaveSlideSettings(player.module);
    const ProfileSection saved = machine.profile.Read("Viewer", SettingsFile);
    EXPECT_EQ(saved.Read("BackgroundColor", 10), "4");
    EXPECT_EQ(saved.Read("SoundFile", 100), "C:\\s\\a.mid");
    EXPECT_EQ(saved.Read("SlideInterval", 10), "5");
    return fired;
}

TEST(SlideSettingsFault, TheSettingsAreAllSavedOrStayAsTheyWere) {
    EXPECT_GT(SweepFaults([](int call) { return SaveOptionsWithFault(Service::Profile, call); }), 0);
    EXPECT_EQ(SweepFaults([](int call) { return SaveOptionsWithFault(Service::Files, call); }), 0);
}

}  // namespace
}  // namespace tavrix::test
