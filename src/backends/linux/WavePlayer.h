#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "backends/linux/SdlAudio.h"

namespace tavrix {

/// Plays one wave file at a time, in a thread of SDL's. The device is open from Play to Stop.
class WavePlayer {
  public:
    /// Larger files are not played, since a file is held in memory while it plays.
    static constexpr std::int64_t LargestFile = 512LL << 20U;

    WavePlayer() = default;
    WavePlayer(const WavePlayer&) = delete;
    WavePlayer& operator=(const WavePlayer&) = delete;
    ~WavePlayer() { Stop(); }

    /// Plays a file in the place of the former one. Whether it plays now.
    bool Play(const std::string& hostPath, bool loop);
    void Stop();

  private:
    bool Read(const std::string& hostPath);
    bool OpenDevice();
    static void Fill(void* self, std::uint8_t* into, int bytes);

    SdlAudio sdl_;
    SDL_AudioSpec spec_{};
    SDL_AudioDeviceID device_ = 0;
    std::uint8_t* samples_ = nullptr;  ///< SDL's own memory
    std::size_t length_ = 0;           ///< bytes of whole frames
    std::size_t position_ = 0;         ///< the playing thread's while the device is open
    bool loop_ = false;
    bool running_ = false;  ///< SDL's audio was started
};

}  // namespace tavrix
