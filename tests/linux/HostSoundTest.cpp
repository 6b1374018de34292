#include "backends/linux/HostSound.h"

#include <gtest/gtest.h>

#include "TestFolder.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFiles.h"

namespace tavrix {
namespace {

class HostSoundTest : public testing::Test {
  protected:
    [[nodiscard]] HostSound Sound(const std::string& driver = {}) {
        return HostSound(files, drives, {folder.At("snd"), folder.At("run"), folder.At("sf2"), driver});
    }
    TestFolder folder;
    DriveMap drives{DriveMap::Sources{}};
    HostFiles files{drives, {}};
};

TEST_F(HostSoundTest, NothingThereIsNone) {
    EXPECT_EQ(Sound().WaveDevices(), 0);
    EXPECT_EQ(Sound().MidiDevices(), 0);
}

TEST_F(HostSoundTest, CountsPlaybackDevicesOnly) {
    folder.Put("snd/pcmC0D0p", "");
    folder.Put("snd/pcmC0D0c", "");
    folder.Put("snd/pcmC1D3p", "");
    folder.Put("snd/controlC0", "");
    folder.Put("snd/seq", "");
    EXPECT_EQ(Sound().WaveDevices(), 2);
    EXPECT_EQ(Sound().MidiDevices(), 0);
    folder.Put("snd/midiC0D0", "");
    EXPECT_EQ(Sound().MidiDevices(), 1);
}

TEST_F(HostSoundTest, ASoundServerIsADevice) {
    folder.Put("run/pulse/native", "");
    EXPECT_EQ(Sound().WaveDevices(), 1);
}

TEST_F(HostSoundTest, ADriverThatTheUserNamesIsADevice) {
    EXPECT_EQ(Sound("disk").WaveDevices(), 1);
    folder.Put("snd/pcmC0D0p", "");
    folder.Put("snd/pcmC0D1p", "");
    EXPECT_EQ(Sound("disk").WaveDevices(), 2);
}

TEST_F(HostSoundTest, ASynthesizerNeedsAFontAndADevice) {
    folder.Put("sf2/small.sf2", "");
    EXPECT_EQ(Sound().MidiDevices(), 0);
    folder.Put("snd/pcmC0D0p", "");
    EXPECT_EQ(Sound().MidiDevices(), 1);
}

}  // namespace
}  // namespace tavrix
