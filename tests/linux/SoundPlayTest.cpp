#include "SoundPlayTest.h"

#include <csignal>
#include <filesystem>

namespace tavrix {
namespace {

constexpr const char* OpenMidi = "open \"C:\\a.mid\" type sequencer alias MIDIFile";

TEST_F(SoundPlayTest, AWaveIsPlayedOnceAndThenThereIsSilence) {
    const std::string samples = Samples(10'000);
    PutWave("a.wav", samples);
    sound.PlayWave("C:\\A.WAV", WaveFlags::Once);
    ASSERT_TRUE(ComesToPlay(samples.size() * 3));
    sound.PlayWave("", WaveFlags::Once);
    const std::string played = Played();
    EXPECT_TRUE(played.starts_with(samples));
    EXPECT_EQ(played.find_first_not_of('\0', samples.size()), std::string::npos);
}

TEST_F(SoundPlayTest, ALoopGoesOnWithoutAGapUntilItIsStopped) {
    const std::string samples = Samples(9'998);
    PutWave("a.wav", samples);
    sound.PlayWave("C:\\a.wav", WaveFlags::Repeated);
    ASSERT_TRUE(ComesToPlay(samples.size() * 7));
    sound.PlayWave("", WaveFlags::Once);
    const std::string played = Played();
    EXPECT_EQ(played, Repeated(samples, played.size()));
    sound.PlayWave("", WaveFlags::Once);
    EXPECT_EQ(Played().size(), played.size());
}

TEST_F(SoundPlayTest, TheNextWaveTakesThePlaceOfTheFormer) {
    PutWave("a.wav", Samples(5'000));
    const std::string second = Samples(5'000, 12'345);
    PutWave("b.wav", second);
    sound.PlayWave("C:\\a.wav", WaveFlags::Repeated);
    ASSERT_TRUE(ComesToPlay(1));
    sound.PlayWave("C:\\b.wav", WaveFlags::Repeated);
    ASSERT_TRUE(ComesToPlay(second.size() * 4));
    sound.PlayWave("", WaveFlags::Once);
    const std::string played = Played();
    EXPECT_EQ(played, Repeated(second, played.size()));
}

TEST_F(SoundPlayTest, APathMayStartInTheCurrentFolder) {
    const std::string samples = Samples(5'000);
    PutWave("Shows/Music/a.wav", samples);
    files.ChangeFolder("C:\\Shows");
    sound.PlayWave("music\\A.wav", WaveFlags::Once);
    ASSERT_TRUE(ComesToPlay(samples.size()));
    sound.PlayWave("", WaveFlags::Once);
    EXPECT_TRUE(Played().starts_with(samples));
}

TEST_F(SoundPlayTest, OtherKindsOfSamplesArePlayed) {
    const std::string eightBits = Repeated("\x90\x80\xA0\xFF\x10", 20'000);
    folder.Put(
        "8.wav",
        WaveBytes{.channels = 1, .samplesASecond = 11025, .bits = 8, .blockAlign = 1, .samples = eightBits}
            .Bytes());
    sound.PlayWave("C:\\8.wav", WaveFlags::Once);
    ASSERT_TRUE(ComesToPlay(eightBits.size() * 2, '\x80'));
    sound.PlayWave("", WaveFlags::Once);
    EXPECT_TRUE(Played('\x80').starts_with(eightBits));
    EXPECT_EQ(Played('\x80').find_first_not_of('\x80', eightBits.size()), std::string::npos);

    // Blocks that start at 1000 and never move.
    const std::string block = WaveBytes::Number(1000, 2) + std::string(510, '\0');
    folder.Put("ima.wav", WaveBytes{.format = 17,
                                    .channels = 1,
                                    .samplesASecond = 22050,
                                    .bits = 4,
                                    .blockAlign = 512,
                                    .extra = WaveBytes::Number(1017, 2),
                                    .samples = Repeated(block, 512 * 20)}
                              .Bytes());
    sound.PlayWave("C:\\ima.wav", WaveFlags::Repeated);
    ASSERT_TRUE(ComesToPlay(100'000));
    sound.PlayWave("", WaveFlags::Once);
    EXPECT_EQ(Played(), Repeated(WaveBytes::Number(1000, 2), Played().size()));
}

TEST_F(SoundPlayTest, WhatIsNoWaveIsSilenceAndEndsTheFormer) {
    PutWave("a.wav", Samples(5'000));
    folder.Put("text.wav", "no sound at all");
    folder.Put("empty.wav", "");
    folder.PutFolder("folder.wav");
    PutWave("none.wav", "");
    PutMidi("midi.wav");
    for (const char* path :
         {"C:\\text.wav", "C:\\empty.wav", "C:\\folder.wav", "C:\\none.wav", "C:\\midi.wav",
          "C:\\missing.wav", "Q:\\a.wav", "nonsense|", "C:\\Shows\\a.wav"}) {
        std::filesystem::remove(folder.At("played"));
        sound.PlayWave("C:\\a.wav", WaveFlags::Repeated);
        ASSERT_TRUE(ComesToPlay(1));
        EXPECT_NO_THROW(sound.PlayWave(path, WaveFlags::Repeated));
        const auto size = std::filesystem::file_size(folder.At("played"));
        std::filesystem::remove(folder.At("played"));
        EXPECT_GT(size, 0U);
        EXPECT_NO_THROW(sound.PlayWave("", WaveFlags::Once));
        EXPECT_FALSE(folder.Has("played")) << path;
    }
    EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(SoundPlayTest, AWaveThatIsCutAnywhereDoesNoHarm) {
    const std::string whole = WaveBytes{.samples = Samples(20)}.Bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.Put("cut.wav", whole.substr(0, length));
        EXPECT_NO_THROW(sound.PlayWave("C:\\cut.wav", WaveFlags::Repeated)) << length;
    }
    sound.PlayWave("", WaveFlags::Once);
}

TEST_F(SoundPlayTest, WithoutADeviceThereIsSilence) {
    PutWave("a.wav", Samples(5'000));
    PutMidi("a.mid");
    HostSound none(files, drives, {folder.At("snd"), "", SystemFonts, ""});
    none.OnFailure = sound.OnFailure;
    none.PlayWave("C:\\a.wav", WaveFlags::Once);
    EXPECT_EQ(none.Mci(OpenMidi), 0);
    EXPECT_FALSE(folder.Has("played"));

    const ScopedVariable unusable("SDL_AUDIODRIVER", "none such");
    sound.PlayWave("C:\\a.wav", WaveFlags::Once);
    EXPECT_EQ(sound.Mci(OpenMidi), 0);
    EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(SoundPlayTest, PlayingLeavesTheSignalsThatEndTheProcess) {
    PutWave("a.wav", Samples(5'000));
    sound.PlayWave("C:\\a.wav", WaveFlags::Once);
    ASSERT_TRUE(ComesToPlay(1));
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        ASSERT_EQ(::sigaction(signal, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << signal;
    }
}

TEST_F(SoundPlayTest, AMidiFilePlaysOnceFromOpenToClose) {
    if (sound.MidiDevices() == 0) GTEST_SKIP() << "no sound font in " << SystemFonts;
    PutMidi("a.mid");
    EXPECT_EQ(sound.Mci(OpenMidi), 1);
    EXPECT_EQ(sound.Mci("play MIDIFile"), 1);
    EXPECT_TRUE(ComesToPlay(1));
    EXPECT_EQ(sound.Mci("stop MIDIFile"), 1);
    EXPECT_EQ(sound.Mci("close MIDIFile"), 1);
    const std::size_t size = Played().size();
    EXPECT_EQ(sound.Mci("play MIDIFile"), 0);
    EXPECT_EQ(sound.Mci("stop MIDIFile"), 0);
    EXPECT_EQ(sound.Mci("close MIDIFile"), 0);
    EXPECT_EQ(told.size(), 3U);
    told.clear();
    EXPECT_EQ(Played().size(), size);

    EXPECT_EQ(sound.Mci("OPEN \"c:\\A.MID\" TYPE SEQUENCER ALIAS midifile"), 1);
    EXPECT_EQ(sound.Mci("PLAY midifile"), 1);
    EXPECT_TRUE(ComesToPlay(1));
    // Twelve seconds of sound, in far less: behind the note and its echo there is nothing.
    constexpr std::size_t BytesASecond = 44100 * 4;
    ASSERT_TRUE(ComesToPlay(12 * BytesASecond));
    EXPECT_EQ(sound.Mci("CLOSE midifile"), 1);
    EXPECT_EQ(Played().find_first_not_of('\0', 10 * BytesASecond), std::string::npos);
    EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(SoundPlayTest, AMidiFileThatCannotBeOpenedIsTold) {
    PutMidi("a.mid");
    folder.Put("text.mid", "no sound at all");
    PutWave("wave.mid", Samples(5));
    EXPECT_EQ(sound.Mci("open \"C:\\none.mid\" type sequencer alias MIDIFile"), 0);
    EXPECT_EQ(sound.Mci("open \"C:\\text.mid\" type sequencer alias MIDIFile"), 0);
    EXPECT_EQ(sound.Mci("open \"C:\\wave.mid\" type sequencer alias MIDIFile"), 0);
    EXPECT_EQ(told, (std::vector<std::string>{
                        "Unable to play:\r\n\r\nC:\\none.mid\r\n\r\nFile not found...",
                        "Unable to play:\r\n\r\nC:\\text.mid\r\n\r\nThe file holds no MIDI sound...",
                        "Unable to play:\r\n\r\nC:\\wave.mid\r\n\r\nThe file holds no MIDI sound..."}));
    EXPECT_EQ(sound.Mci("play MIDIFile"), 0);
}

TEST_F(SoundPlayTest, WithoutAFontMidiIsSilence) {
    PutMidi("a.mid");
    HostSound none(files, drives, {folder.At("snd"), "", folder.At("fonts"), "disk"});
    none.OnFailure = sound.OnFailure;
    EXPECT_EQ(none.MidiDevices(), 0);
    EXPECT_EQ(none.Mci(OpenMidi), 0);
    EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(SoundPlayTest, WithoutACdDriveTheOpenAndAllCommandsBehindItAreTold) {
    EXPECT_EQ(sound.Mci("open cdaudio alias CDTrack"), 0);
    EXPECT_EQ(told,
              (std::vector<std::string>{"Unable to play:\r\n\r\nCD audio\r\n\r\nDevice unavailable..."}));
    for (const char* command : {"set CDTrack time format tmsf", "seek CDTrack to start", "play CDTrack",
                                "stop CDTrack", "close CDTrack", "set CDTrack door open"}) {
        EXPECT_EQ(sound.Mci(command), 0) << command;
        EXPECT_EQ(told.back(), "Unable to carry out:\r\n\r\n" + std::string(command) +
                                   "\r\n\r\nThe device is not open...");
    }
    for (const char* command : {"", "play", "nonsense", "open", "open cdaudio"}) {
        EXPECT_EQ(sound.Mci(command), 0) << command;
        EXPECT_EQ(told.back(), "Unable to carry out:\r\n\r\n" + std::string(command) +
                                   "\r\n\r\nThe command is not known...");
    }
    EXPECT_EQ(told.size(), 12U);
}

}  // namespace
}  // namespace tavrix
