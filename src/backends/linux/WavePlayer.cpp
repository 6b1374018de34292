#include "backends/linux/WavePlayer.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace tavrix {

bool WavePlayer::Play(const std::string& hostPath, bool loop) {
    Stop();
    loop_ = loop;
    running_ = sdl_.Init();
    if (running_ && Read(hostPath) && OpenDevice()) {
        sdl_.PauseAudioDevice(device_, 0);
        return true;
    }
    Stop();
    return false;
}

void WavePlayer::Stop() {
    if (device_ != 0) sdl_.CloseAudioDevice(device_);  // waits for the playing thread
    device_ = 0;
    if (samples_ != nullptr) sdl_.FreeWav(samples_);
    samples_ = nullptr;
    if (running_) sdl_.Quit();
    running_ = false;
}

bool WavePlayer::Read(const std::string& hostPath) {
    std::error_code error;
    const auto size = std::filesystem::file_size(hostPath, error);
    if (error || size > static_cast<std::uintmax_t>(LargestFile)) return false;
    SDL_RWops* file = sdl_.RWFromFile(hostPath.c_str(), "rb");
    std::uint32_t bytes = 0;
    if (file == nullptr || sdl_.LoadWav(file, 1, &spec_, &samples_, &bytes) == nullptr) {
        samples_ = nullptr;
        return false;
    }
    const std::size_t frame = std::size_t{spec_.channels} * SDL_AUDIO_BITSIZE(spec_.format) / 8;
    length_ = frame == 0 ? 0 : bytes / frame * frame;
    position_ = 0;
    return length_ > 0;
}

bool WavePlayer::OpenDevice() {
    SDL_AudioSpec wanted = spec_;
    // Closing a device waits for two buffers, so one holds at most a fortieth of a second.
    wanted.samples = static_cast<std::uint16_t>(
        std::bit_floor(static_cast<unsigned>(std::clamp(spec_.freq / 40, 64, 4096))));
    wanted.callback = &Fill;
    wanted.userdata = this;
    device_ = sdl_.OpenAudioDevice(nullptr, 0, &wanted, &spec_, 0);
    return device_ != 0;
}

void WavePlayer::Fill(void* self, std::uint8_t* into, int bytes) {
    auto& player = *static_cast<WavePlayer*>(self);
    for (auto left = static_cast<std::size_t>(bytes); left > 0;) {
        if (player.position_ == player.length_ && player.loop_) player.position_ = 0;
        const std::size_t count = std::min(left, player.length_ - player.position_);
        if (count == 0) {
            std::memset(into, player.spec_.silence, left);
            return;
        }
        std::memcpy(into, player.samples_ + player.position_, count);
        player.position_ += count;
        into += count;
        left -= count;
    }
}

}  // namespace tavrix
