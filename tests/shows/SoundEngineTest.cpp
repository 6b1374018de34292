#include "shows/stage/SoundEngine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shows/stage/MediaCommands.h"
#include "support/ProgramFixture.h"

namespace tavrix {
namespace {

using headless::Service;

constexpr const char* UnexpectedText =
    "Unexpected error while detecting and or initializing sound hardware, will attempt to continue anyway...";

class SoundEngineTest : public test::ProgramFixture {
  protected:
    using Calls = std::vector<std::string>;

    SoundEngineTest() {
        module.WaveDevicePresent = true;
        module.MidiDevicePresent = true;
        module.CdDevicePresent = true;
        module.config.CdRomDriveLetter = "D:\\";
        platform.disks.AddDrive('D', DriveType::CdRom);
        platform.disks.InsertDisk('D');
        platform.files.ChangeDrive("C");
        for (int n = 1; n <= 20; ++n)
            toolkit.AtYield(n, [this] { platform.sound.calls.emplace_back("yield"); });
    }

    void File(const std::string& file, bool loop = false) {
        module.config.SoundMode = 1;
        module.config.SoundFile = file;
        module.config.SoundLoop = loop;
    }
    void Cd(int track, bool loop = false) {
        module.config.SoundMode = 2;
        module.config.CDTrack = static_cast<std::int16_t>(track);
        module.config.SoundLoop = loop;
    }
    Calls Starting() {
        platform.sound.calls.clear();
        engine.Start();
        return platform.sound.calls;
    }
    Calls Stopping() {
        platform.sound.calls.clear();
        engine.Stop();
        return platform.sound.calls;
    }
    /// Makes a command fail, whatever is asked before.
    void Refuse(const std::string& command) { platform.sound.results[command] = 0; }

    SoundEngine engine{module};
};

TEST_F(SoundEngineTest, WithoutASoundNothingIsSentAndTheFlagOfTheDeviceStays) {
    module.config.SoundFile = "C:\\a.wav";
    engine.SoundFailed = true;
    engine.NoCdInDrive = true;
    EXPECT_EQ(Starting(), Calls{});
    EXPECT_TRUE(engine.SoundFailed);
    EXPECT_FALSE(engine.NoCdInDrive);
    EXPECT_EQ(Stopping(), Calls{});
}

TEST_F(SoundEngineTest, AWavePlaysOnceOrUntilTheEnd) {
    File("C:\\Music\\a.wav");
    EXPECT_EQ(Starting(), (Calls{"PlayWave (C:\\Music\\a.wav, 3)"}));
    EXPECT_EQ(Stopping(), (Calls{"PlayWave (, 3)"}));
    File("C:\\Music\\a.WaV", true);
    EXPECT_EQ(Starting(), (Calls{"PlayWave (C:\\Music\\a.WaV, 11)"}));
    EXPECT_EQ(Stopping(), (Calls{"PlayWave (, 3)"}));
}

TEST_F(SoundEngineTest, AWaveIsPlayedWithoutALookAtTheDevice) {
    module.WaveDevicePresent = false;
    File("song.wav");
    EXPECT_EQ(Starting(), (Calls{"PlayWave (song.wav, 3)"}));
}

TEST_F(SoundEngineTest, AMidiFileIsOpenedAndPlayedOnce) {
    for (const bool loop : {false, true}) {
        File("C:\\My Music\\a.mid", loop);
        EXPECT_EQ(Starting(), (Calls{"Mci open \"C:\\My Music\\a.mid\" type sequencer alias MIDIFile",
                                     "yield", "Mci play MIDIFile"}));
        EXPECT_FALSE(engine.SoundFailed);
        EXPECT_EQ(Stopping(), (Calls{"Mci stop MIDIFile", "yield", "Mci close MIDIFile"}));
    }
}

TEST_F(SoundEngineTest, TheEndingOfAMidiFileMayBeInAnyCase) {
    for (const char* file : {"a.MID", "a.Mid", ".mid"}) {
        File(file);
        EXPECT_EQ(Starting().size(), 3U) << file;
    }
}

TEST_F(SoundEngineTest, OtherEndingsPlayNothing) {
    for (const char* file : {"", "a.mp3", "a.midi", "a.wave", "wav", "a.wav ", "C:\\x.wav\\", "a.rmi"}) {
        File(file);
        EXPECT_EQ(Starting(), Calls{}) << file;
        EXPECT_FALSE(engine.SoundFailed);
        EXPECT_EQ(Stopping(), Calls{}) << file;
    }
}

TEST_F(SoundEngineTest, WithoutAMidiDeviceAMidiFileIsSilent) {
    module.MidiDevicePresent = false;
    File("a.mid");
    EXPECT_EQ(Starting(), Calls{});
    EXPECT_EQ(Stopping(), Calls{});
}

TEST_F(SoundEngineTest, AMidiFileThatDoesNotOpenIsLeftAlone) {
    File("a.mid");
    Refuse(MediaCommands::OpenMidi("a.mid"));
    EXPECT_EQ(Starting(), (Calls{"Mci open \"a.mid\" type sequencer alias MIDIFile"}));
    EXPECT_TRUE(engine.SoundFailed);
    EXPECT_EQ(Stopping(), Calls{});
    platform.sound.results.clear();
    EXPECT_EQ(Starting().size(), 3U);
    EXPECT_FALSE(engine.SoundFailed);
}

TEST_F(SoundEngineTest, AMidiFileThatDoesNotPlayIsStoppedAllTheSame) {
    File("a.mid");
    Refuse("play MIDIFile");
    EXPECT_EQ(Starting().size(), 3U);
    EXPECT_FALSE(engine.SoundFailed);
    EXPECT_EQ(Stopping(), (Calls{"Mci stop MIDIFile", "yield", "Mci close MIDIFile"}));
}

TEST_F(SoundEngineTest, OnlyWhatWasStoppedIsClosed) {
    File("a.mid");
    for (const int result : {0, -1}) {
        platform.sound.results["stop MIDIFile"] = result;
        engine.Start();
        EXPECT_EQ(Stopping(), (Calls{"Mci stop MIDIFile", "yield"}));
    }
    Cd(0);
    for (const int result : {0, -1}) {
        platform.sound.results["stop CDTrack"] = result;
        engine.Start();
        EXPECT_EQ(Stopping(), (Calls{"Mci stop CDTrack", "yield"}));
    }
}

TEST_F(SoundEngineTest, ACdPlaysFromTheStartOrFromATrack) {
    for (const bool loop : {false, true}) {
        Cd(0, loop);
        EXPECT_EQ(Starting(),
                  (Calls{"Mci open cdaudio alias CDTrack", "yield", "Mci set CDTrack time format tmsf",
                         "Mci seek CDTrack to start", "Mci play CDTrack"}));
        Cd(17, loop);
        EXPECT_EQ(Starting(),
                  (Calls{"Mci open cdaudio alias CDTrack", "yield", "Mci set CDTrack time format tmsf",
                         "Mci seek CDTrack to 17", "Mci play CDTrack"}));
        EXPECT_FALSE(engine.SoundFailed);
        EXPECT_EQ(Stopping(), (Calls{"Mci stop CDTrack", "yield", "Mci close CDTrack"}));
    }
}

TEST_F(SoundEngineTest, WithoutADiscNothingIsSentAtAll) {
    platform.disks.PullDisk('D');
    Cd(3);
    EXPECT_EQ(Starting(), Calls{});
    EXPECT_TRUE(engine.NoCdInDrive);
    EXPECT_FALSE(engine.SoundFailed);
    EXPECT_EQ(Stopping(), Calls{});
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\");
    platform.disks.InsertDisk('D');
    EXPECT_EQ(Starting().size(), 5U);
    EXPECT_FALSE(engine.NoCdInDrive);
}

TEST_F(SoundEngineTest, TheTestOfTheDriveLeavesTheCurrentFolder) {
    platform.disks.PutFolder("C:\\Shows\\One");
    platform.files.ChangeFolder("C:\\Shows\\One");
    Cd(0);
    EXPECT_EQ(Starting().size(), 5U);
    EXPECT_EQ(platform.files.CurrentFolder(), "C:\\Shows\\One");
}

TEST_F(SoundEngineTest, WithoutACdDriveNothingIsSent) {
    module.CdDevicePresent = false;
    Cd(1);
    EXPECT_EQ(Starting(), Calls{});
    EXPECT_FALSE(engine.NoCdInDrive);
    EXPECT_EQ(Stopping(), Calls{});
}

TEST_F(SoundEngineTest, WithoutALetterThereIsNoDiscInTheDrive) {
    module.config.CdRomDriveLetter.clear();
    Cd(1);
    EXPECT_EQ(Starting(), Calls{});
    EXPECT_TRUE(engine.NoCdInDrive);
}

TEST_F(SoundEngineTest, ACdThatDoesNotOpenIsClosedAtTheEnd) {
    for (const bool loop : {false, true}) {
        Cd(1, loop);
        Refuse("open cdaudio alias CDTrack");
        EXPECT_EQ(Starting(), (Calls{"Mci open cdaudio alias CDTrack"}));
        EXPECT_TRUE(engine.SoundFailed);
        EXPECT_EQ(Stopping(), (Calls{"Mci close CDTrack"}));
    }
}

TEST_F(SoundEngineTest, WithoutTheLoopAFailedFormatOrSeekEndsTheStart) {
    Cd(2);
    Refuse("set CDTrack time format tmsf");
    EXPECT_EQ(Starting(),
              (Calls{"Mci open cdaudio alias CDTrack", "yield", "Mci set CDTrack time format tmsf"}));
    EXPECT_TRUE(engine.SoundFailed);
    EXPECT_EQ(Stopping(), (Calls{"Mci close CDTrack"}));

    platform.sound.results.clear();
    Refuse("seek CDTrack to 2");
    EXPECT_EQ(Starting(), (Calls{"Mci open cdaudio alias CDTrack", "yield",
                                 "Mci set CDTrack time format tmsf", "Mci seek CDTrack to 2"}));
    EXPECT_TRUE(engine.SoundFailed);
    EXPECT_EQ(Stopping(), (Calls{"Mci close CDTrack"}));
}

TEST_F(SoundEngineTest, WithTheLoopFormatAndSeekMayFail) {
    Cd(0, true);
    Refuse("set CDTrack time format tmsf");
    Refuse("seek CDTrack to start");
    Refuse("play CDTrack");
    EXPECT_EQ(Starting().size(), 5U);
    EXPECT_FALSE(engine.SoundFailed);
    EXPECT_EQ(Stopping(), (Calls{"Mci stop CDTrack", "yield", "Mci close CDTrack"}));
}

TEST_F(SoundEngineTest, AFailedPlayOfACdIsNoFailureOfTheStart) {
    Cd(0);
    Refuse("play CDTrack");
    EXPECT_EQ(Starting().size(), 5U);
    EXPECT_FALSE(engine.SoundFailed);
}

TEST_F(SoundEngineTest, AnUnexpectedFailureOfAWaveIsTold) {
    File("a.wav");
    platform.faults.FailAlways(Service::Sound, "PlayWave", ErrorNumber::DeviceUnavailable);
    Expect({.text = UnexpectedText, .icon = forms::BoxIcon::Exclamation});
    EXPECT_EQ(Starting(), (Calls{"PlayWave (a.wav, 3)"}));
    EXPECT_EQ(Stopping(), (Calls{"PlayWave (, 3)"}));
}

/// Each command in turn fails without a result: it is told once in the start, never in the stop, and nothing crosses.
class SoundFaultTest : public SoundEngineTest {
  protected:
    void FailEachCall(int callsOfStart, int callsOfStop) {
        for (int nth = 1; nth <= callsOfStart; ++nth) {
            platform.faults.Clear();
            platform.faults.FailNth(Service::Sound, nth, ErrorNumber::DeviceUnavailable);
            Expect({.text = UnexpectedText, .icon = forms::BoxIcon::Exclamation});
            const int before = toolkit.BoxesShown();
            EXPECT_NO_THROW(engine.Start());
            EXPECT_EQ(toolkit.BoxesShown(), before + 1) << nth;
            EXPECT_NO_THROW(engine.Stop());
        }
        for (int nth = 1; nth <= callsOfStop; ++nth) {
            platform.faults.Clear();
            engine.Start();
            platform.faults.FailNth(Service::Sound, nth, ErrorNumber::DeviceUnavailable);
            EXPECT_NO_THROW(engine.Stop());
            EXPECT_TRUE(platform.faults.Fired()) << nth;
        }
    }
};

TEST_F(SoundFaultTest, OfAMidiFile) {
    File("a.mid");
    FailEachCall(2, 2);
    platform.faults.Clear();
    platform.faults.FailNth(Service::Sound, 1, ErrorNumber::DeviceUnavailable);
    Expect({.text = UnexpectedText, .icon = forms::BoxIcon::Exclamation});
    EXPECT_EQ(Starting().size(), 1U);
    EXPECT_TRUE(engine.SoundFailed);
}

TEST_F(SoundFaultTest, OfACd) {
    Cd(0);
    FailEachCall(4, 2);
    Cd(4, true);
    FailEachCall(4, 2);
}

TEST_F(SoundFaultTest, OfTheStopOfACdThatFailed) {
    Cd(0);
    Refuse("open cdaudio alias CDTrack");
    FailEachCall(0, 1);
}

TEST_F(SoundFaultTest, OfTheTestOfTheDriveIsADriveWithoutADisc) {
    Cd(0);
    for (int nth = 1; nth <= 3; ++nth) {
        platform.faults.Clear();
        platform.faults.FailNth(Service::Files, nth, ErrorNumber::DeviceUnavailable);
        EXPECT_EQ(Starting(), Calls{}) << nth;
        EXPECT_TRUE(engine.NoCdInDrive);
        EXPECT_EQ(Stopping(), Calls{});
    }
}

TEST(MediaCommands, AreTheseTexts) {
    EXPECT_EQ(MediaCommands::OpenMidi("C:\\a b.mid"), "open \"C:\\a b.mid\" type sequencer alias MIDIFile");
    EXPECT_EQ(MediaCommands::SeekCd(0), "seek CDTrack to start");
    EXPECT_EQ(MediaCommands::SeekCd(100), "seek CDTrack to 100");
    EXPECT_STREQ(MediaCommands::OpenCdDoor, "set CDTrack door open");
    EXPECT_STREQ(MediaCommands::CloseCdDoor, "set CDTrack door closed");
}

}  // namespace
}  // namespace tavrix
