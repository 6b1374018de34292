#pragma once

#include <string>

#include "backends/linux/SdlAudio.h"
#include "backends/linux/SdlMixer.h"

namespace tavrix {

/// Plays one MIDI file at a time through a software synthesizer. The device is open from Open to Close.
class MidiPlayer {
  public:
    enum class Outcome { Done, NoDevice, BadFile };

    MidiPlayer() = default;
    MidiPlayer(const MidiPlayer&) = delete;
    MidiPlayer& operator=(const MidiPlayer&) = delete;
    ~MidiPlayer() { Close(); }

    /// Opens a file in the place of the former one. `soundFont` is the host path of the synthesizer's instruments.
    [[nodiscard]] Outcome Open(const std::string& hostPath, const std::string& soundFont);
    /// Plays what is open once, from the start.
    [[nodiscard]] bool Play();
    void Stop();
    void Close();

  private:
    [[nodiscard]] bool OpenDevice();

    SdlAudio sdl_;
    SdlMixer mixer_;
    Mix_Music* music_ = nullptr;
    bool running_ = false;  ///< SDL's audio was started
    bool deviceOpen_ = false;
};

}  // namespace tavrix
