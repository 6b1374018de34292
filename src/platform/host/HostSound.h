#pragma once

#include <string>
#include <utility>

#include "platform/services/Sound.h"

namespace tavrix {

/// Counts sound devices by looking at the names in the system's folders; no device is opened.
class HostSound final : public Sound {
  public:
    struct Places {
        std::string devices = "/dev/snd";  ///< of the kernel's sound devices
        std::string runtime;               ///< XDG_RUNTIME_DIR, with the sound server's socket
        std::string soundFonts = "/usr/share/sounds/sf2";  ///< what a software synthesizer needs
    };

    HostSound();
    explicit HostSound(Places places) : places_(std::move(places)) {}

    /// The kernel's playback devices, or one where only a sound server is reachable.
    int WaveDevices() override;
    /// The kernel's MIDI ports, and one more where a software synthesizer has a sound font and something to play on.
    int MidiDevices() override;
    void PlayWave(const std::string& path, unsigned flags) override;
    int Mci(const std::string& command) override;

  private:
    Places places_;
};

}  // namespace tavrix
