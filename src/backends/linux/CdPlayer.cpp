#include "backends/linux/CdPlayer.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace tavrix {
namespace {

constexpr int SamplesASecond = 44100;
constexpr int BufferedFrames = 4096;  ///< closing waits for two buffers

}  // namespace

bool CdPlayer::ReadTracks() {
    if (imageOut_) return false;
    if (disc_) return !tracks_.empty();
    if (!Usable()) return false;
    disc_ = Disc(cdio_.Open(device_.c_str(), DRIVER_UNKNOWN), cdio_.Destroy);
    tracks_.clear();
    if (!disc_) return false;
    const track_t first = cdio_.FirstTrack(disc_.get());
    const track_t last = cdio_.LastTrack(disc_.get());
    if (first == CDIO_INVALID_TRACK || last == CDIO_INVALID_TRACK) return false;
    for (int number = first; number <= last; ++number) {
        const auto track = static_cast<track_t>(number);
        if (cdio_.TrackFormat(disc_.get(), track) != TRACK_FORMAT_AUDIO) continue;
        const lsn_t start = cdio_.TrackStart(disc_.get(), track);
        const lsn_t end = cdio_.TrackEnd(disc_.get(), track);
        if (start != CDIO_INVALID_LSN && end != CDIO_INVALID_LSN && start >= 0 && start <= end) {
            tracks_.push_back({number, start, end});
        }
    }
    return !tracks_.empty();
}

bool CdPlayer::Seek(int track) {
    Stop();
    disc_.reset();  // it may have been changed
    if (!ReadTracks()) return false;
    const auto found = track == 0
                           ? tracks_.begin()
                           : std::ranges::find(tracks_, track, [](const Track& t) { return t.number; });
    if (found == tracks_.end()) return false;
    start_ = static_cast<std::size_t>(found - tracks_.begin());
    return true;
}

CdPlayer::Outcome CdPlayer::Play() {
    Stop();
    if (!ReadTracks()) return Outcome::NoDisc;
    track_ = start_;
    next_ = tracks_[track_].first;
    taken_ = sector_.size();
    running_ = sdl_.Init();
    if (!running_) return Outcome::NoDevice;
    SDL_AudioSpec wanted{};
    wanted.freq = SamplesASecond;
    wanted.format = AUDIO_S16LSB;
    wanted.channels = 2;
    wanted.samples = BufferedFrames;
    wanted.callback = &Fill;
    wanted.userdata = this;
    output_ = sdl_.OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (output_ == 0) {
        Stop();
        return Outcome::NoDevice;
    }
    sdl_.PauseAudioDevice(output_, 0);
    return Outcome::Done;
}

void CdPlayer::Stop() {
    if (output_ != 0) sdl_.CloseAudioDevice(output_);  // waits for the playing thread
    output_ = 0;
    if (running_) sdl_.Quit();
    running_ = false;
}

bool CdPlayer::MoveDoor(bool open) {
    Stop();
    disc_.reset();
    start_ = 0;
    std::error_code error;
    if (std::filesystem::is_regular_file(device_, error)) {
        imageOut_ = open;
        return true;
    }
    if (!Usable()) return false;
    driver_id_t driver = DRIVER_UNKNOWN;
    return (open ? cdio_.Eject(device_.c_str()) : cdio_.CloseTray(device_.c_str(), &driver)) ==
           DRIVER_OP_SUCCESS;
}

bool CdPlayer::NextSector() {
    if (next_ > tracks_[track_].last) {
        if (track_ + 1 == tracks_.size()) return false;
        next_ = tracks_[++track_].first;
    }
    // What cannot be read, as where the disc is scratched, is silence of the same length.
    if (cdio_.ReadAudio(disc_.get(), sector_.data(), next_, 1) != DRIVER_OP_SUCCESS) sector_.fill(0);
    ++next_;
    taken_ = 0;
    return true;
}

void CdPlayer::Fill(void* self, std::uint8_t* into, int bytes) {
    auto& player = *static_cast<CdPlayer*>(self);
    for (auto left = static_cast<std::size_t>(bytes); left > 0;) {
        if (player.taken_ == player.sector_.size() && !player.NextSector()) {
            std::memset(into, 0, left);
            return;
        }
        const std::size_t count = std::min(left, player.sector_.size() - player.taken_);
        std::memcpy(into, player.sector_.data() + player.taken_, count);
        player.taken_ += count;
        into += count;
        left -= count;
    }
}

}  // namespace tavrix
