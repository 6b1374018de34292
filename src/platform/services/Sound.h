#pragma once

namespace tavrix {

class Sound {
  public:
    virtual ~Sound() = default;
    /// Numbers of output devices. Asking opens no device.
    [[nodiscard]] virtual int WaveDevices() = 0;
    [[nodiscard]] virtual int MidiDevices() = 0;
};

}  // namespace tavrix
