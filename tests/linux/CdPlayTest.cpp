#include <filesystem>

#include "SoundPlayTest.h"

namespace tavrix {
namespace {

constexpr const char* OpenCd = "open cdaudio alias CDTrack";

/// A disc image of three tracks, the second of data, as the drive D:.
class CdPlayTest : public SoundPlayTest {
  protected:
    static constexpr int SectorBytes = 2352;

    CdPlayTest() {
        for (const std::string* track : {&first, &data, &last})
            disc += *track;
        folder.Put("album.bin", disc);
        folder.Put("album.cue",
                   "FILE \"album.bin\" BINARY\r\n"
                   "  TRACK 01 AUDIO\r\n    INDEX 01 00:00:00\r\n"
                   "  TRACK 02 MODE1/2352\r\n    INDEX 01 00:00:20\r\n"
                   "  TRACK 03 AUDIO\r\n    INDEX 01 00:00:25\r\n");
        files.ChangeDrive("C");
        cdSound.OnFailure = [this](const std::string& text) { told.push_back(text); };
    }
    [[nodiscard]] DriveMap::Sources WithDisc(const std::string& entry) const {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.Path() + ";D=" + entry;
        return sources;
    }

    std::string first = Samples(20 * SectorBytes / 2);
    std::string data = std::string(5 * SectorBytes, 'x');
    std::string last = Samples(30 * SectorBytes / 2, 30'000);
    std::string disc;
    DriveMap withDisc{WithDisc(folder.At("album.cue") + ",cdrom")};
    HostSound cdSound{files, withDisc, places};
};

TEST_F(CdPlayTest, PlaysTheAudioTracksFromTheFirstOnOnce) {
    EXPECT_EQ(cdSound.Mci(OpenCd), 1);
    EXPECT_EQ(cdSound.Mci("set CDTrack time format tmsf"), 1);
    EXPECT_EQ(cdSound.Mci("seek CDTrack to start"), 1);
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 1);
    const std::string audio = first + last;
    ASSERT_TRUE(ComesToPlay(audio.size() + 100'000));
    EXPECT_EQ(cdSound.Mci("stop CDTrack"), 1);
    const std::string played = Played();
    EXPECT_TRUE(played.starts_with(audio));
    EXPECT_EQ(played.find_first_not_of('\0', audio.size()), std::string::npos);
    EXPECT_EQ(cdSound.Mci("close CDTrack"), 1);
    EXPECT_EQ(Played(), played);
    EXPECT_EQ(told, std::vector<std::string>{});
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 0);
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(CdPlayTest, ATrackIsSoughtByItsNumberOnTheDisc) {
    EXPECT_EQ(cdSound.Mci("OPEN cdaudio ALIAS cdtrack"), 1);
    EXPECT_EQ(cdSound.Mci("seek CDTrack to 3"), 1);
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 1);
    ASSERT_TRUE(ComesToPlay(last.size()));
    EXPECT_EQ(cdSound.Mci("seek CDTrack to 1"), 1);  // ends what plays
    EXPECT_TRUE(Played().starts_with(last));
    std::filesystem::remove(folder.At("played"));
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 1);
    ASSERT_TRUE(ComesToPlay(first.size()));
    EXPECT_EQ(cdSound.Mci("close CDTrack"), 1);
    EXPECT_TRUE(Played().starts_with(first));
}

TEST_F(CdPlayTest, WhatTheDiscDoesNotHaveIsTold) {
    struct Case {
        const char* command;
        const char* why;
    };
    const char* noTrack = "The disc has no such audio track, or there is no disc";
    const char* unknown = "The command is not known";
    const char* closed = "The device is not open";
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 0);
    ASSERT_EQ(cdSound.Mci(OpenCd), 1);
    for (const Case& c : {Case{"seek CDTrack to 2", noTrack},
                          {"seek CDTrack to 4", noTrack},
                          {"seek CDTrack to 0", noTrack},
                          {"seek CDTrack to -1", noTrack},
                          {"seek CDTrack to 1x", noTrack},
                          {"seek CDTrack to 99999999999", noTrack},
                          {"seek CDTrack", unknown},
                          {"seek CDTrack to", unknown},
                          {"set CDTrack time format bytes", unknown},
                          {"set CDTrack", unknown},
                          {"rewind CDTrack", unknown},
                          {"play Other", closed}}) {
        told.clear();
        EXPECT_EQ(cdSound.Mci(c.command), 0) << c.command;
        EXPECT_EQ(told, (std::vector<std::string>{"Unable to carry out:\r\n\r\n" + std::string(c.command) +
                                                  "\r\n\r\n" + c.why + "..."}));
    }
    EXPECT_FALSE(folder.Has("played"));
}

TEST_F(CdPlayTest, AnImageIsNoDiscWhileItsDoorIsOpen) {
    HostFiles discFiles(withDisc, {});
    discFiles.ChangeDrive("C");
    const auto answers = [&] {
        try {
            discFiles.ChangeDrive("D");
            discFiles.ChangeDrive("C");
            return true;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::DeviceUnavailable);
            return false;
        }
    };
    EXPECT_TRUE(answers());
    ASSERT_EQ(cdSound.Mci(OpenCd), 1);
    ASSERT_EQ(cdSound.Mci("play CDTrack"), 1);
    EXPECT_EQ(cdSound.Mci("set CDTrack door open"), 1);
    EXPECT_FALSE(answers());
    EXPECT_EQ(cdSound.Mci("seek CDTrack to start"), 0);
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 0);
    EXPECT_EQ(cdSound.Mci("close CDTrack"), 1);
    // It stays open when the device has been closed and opened again.
    told.clear();
    ASSERT_EQ(cdSound.Mci(OpenCd), 1);
    EXPECT_FALSE(answers());
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 0);
    EXPECT_EQ(told, (std::vector<std::string>{"Unable to carry out:\r\n\r\nplay CDTrack\r\n\r\nThere is no "
                                              "audio disc in the drive..."}));
    std::filesystem::remove(folder.At("played"));
    EXPECT_EQ(cdSound.Mci("set CDTrack door closed"), 1);
    EXPECT_TRUE(answers());
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 1);
    ASSERT_TRUE(ComesToPlay(first.size()));
    EXPECT_EQ(cdSound.Mci("close CDTrack"), 1);
    EXPECT_TRUE(Played().starts_with(first));
}

TEST_F(CdPlayTest, AnImageThatIsNoneOrIsCutDoesNoHarm) {
    const auto plays = [&](HostSound& player) {
        return player.Mci(OpenCd) == 1 && player.Mci("seek CDTrack to start") == 1;
    };
    folder.Put("text.cue", "no disc at all");
    folder.Put("empty.cue", "");
    folder.Put("alone.cue", "FILE \"none.bin\" BINARY\r\n  TRACK 01 AUDIO\r\n    INDEX 01 00:00:00\r\n");
    for (const char* name : {"text.cue", "empty.cue", "alone.cue"}) {
        DriveMap map(WithDisc(folder.At(name) + ",cdrom"));
        HostSound none(files, map, places);
        EXPECT_FALSE(plays(none)) << name;
        none.OnFailure = cdSound.OnFailure;
        told.clear();
        EXPECT_EQ(none.Mci("play CDTrack"), 0) << name;
        EXPECT_EQ(told,
                  (std::vector<std::string>{"Unable to carry out:\r\n\r\nplay CDTrack\r\n\r\nThere is no "
                                            "audio disc in the drive..."}));
        EXPECT_EQ(none.Mci("close CDTrack"), 1) << name;
    }
    const std::string whole = folder.Content("album.cue");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.Put("album.cue", whole.substr(0, length));
        EXPECT_NO_THROW((void)plays(cdSound)) << length;
    }
    folder.Put("album.cue", whole);
    folder.Put("album.bin", disc.substr(0, 1000));
    EXPECT_NO_THROW((void)plays(cdSound));
}

TEST_F(CdPlayTest, WithoutASoundDeviceNothingPlays) {
    const ScopedVariable unusable("SDL_AUDIODRIVER", "none such");
    ASSERT_EQ(cdSound.Mci(OpenCd), 1);
    EXPECT_EQ(cdSound.Mci("seek CDTrack to start"), 1);
    EXPECT_EQ(cdSound.Mci("play CDTrack"), 0);
    EXPECT_EQ(cdSound.Mci("stop CDTrack"), 1);
    EXPECT_EQ(told, std::vector<std::string>{});
}

}  // namespace
}  // namespace tavrix
