#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/services/Sound.h"

namespace tavrix {

class CdPlayer;
class DriveMap;
class HostFiles;
class MidiPlayer;
class WavePlayer;

inline constexpr const char* UsualSoundFonts = "/usr/share/sounds/sf2";

/// The host path of the instruments in a folder; the system's choice before all others, empty when there are none.
[[nodiscard]] std::string SoundFontIn(const std::string& folder);

/// Wave files by SDL, MIDI files by its mixer's synthesizer, CD audio by libcdio from the first optical drive. None of
/// these libraries is loaded before there is something to play, since they cost more time than the rest of a start.
///
/// Devices are counted by looking at the names in the system's folders; no device is opened for that.
class HostSound final : public Sound {
  public:
    struct Places {
        std::string devices = "/dev/snd";          ///< of the kernel's sound devices
        std::string runtime;                       ///< XDG_RUNTIME_DIR, with the sound server's socket
        std::string soundFonts = UsualSoundFonts;  ///< what a software synthesizer needs; TAVRIX_SOUND_FONTS
        std::string driver;  ///< SDL_AUDIODRIVER: a driver that the user names counts as a device
    };

    HostSound(HostFiles& files, DriveMap& drives);
    HostSound(HostFiles& files, DriveMap& drives, Places places);
    HostSound(const HostSound&) = delete;
    HostSound& operator=(const HostSound&) = delete;
    ~HostSound() override;

    /// The kernel's playback devices, or one where only a sound server is reachable.
    int WaveDevices() override;
    /// The kernel's MIDI ports, and one more where a software synthesizer has a sound font and something to play on.
    int MidiDevices() override;
    void PlayWave(const std::string& path, unsigned flags) override;
    int Mci(const std::string& command) override;

    /// Tells the user of a command that failed.
    std::function<void(const std::string& text)> OnFailure = [](const std::string&) {};

  private:
    // These throw why the command failed.
    void Run(const std::string& command);
    void Open(const std::string& command, const std::string& alias);
    void OpenMidi(const std::string& path);
    void OpenCd();
    /// A command for what is open: `words` are its words in upper case.
    void RunMidi(const std::vector<std::string>& words);
    void RunCd(const std::vector<std::string>& words);
    void Seek(const std::string& place);

    HostFiles& files_;
    DriveMap& drives_;
    Places places_;
    std::unique_ptr<WavePlayer> wave_;  ///< from the first sound on
    std::unique_ptr<MidiPlayer> midi_;
    std::string midiAlias_;  ///< in upper case; empty when no file is open
    std::unique_ptr<CdPlayer> cd_;
    std::string cdAlias_;  ///< in upper case; empty when no drive is open
};

}  // namespace tavrix
