#include "backends/linux/MidiPlayer.h"

namespace tavrix {
namespace {

constexpr int SamplesASecond = 44100;
constexpr int Stereo = 2;
constexpr int BufferedFrames = 1024;  ///< closing waits for two buffers

}  // namespace

MidiPlayer::Outcome MidiPlayer::Open(const std::string& hostPath, const std::string& soundFont) {
    Close();
    if (!OpenDevice()) {
        Close();
        return Outcome::NoDevice;
    }
    mixer_.SetSoundFonts(soundFont.c_str());
    SDL_RWops* file = sdl_.RWFromFile(hostPath.c_str(), "rb");
    if (file != nullptr) music_ = mixer_.LoadMusic(file, MUS_MID, 1);
    if (music_ != nullptr) return Outcome::Done;
    Close();
    return Outcome::BadFile;
}

bool MidiPlayer::OpenDevice() {
    running_ = mixer_.loaded && sdl_.Init();
    deviceOpen_ = running_ && mixer_.OpenAudio(SamplesASecond, AUDIO_S16SYS, Stereo, BufferedFrames) == 0;
    return deviceOpen_;
}

bool MidiPlayer::Play() {
    return music_ != nullptr && mixer_.PlayMusic(music_, 1) == 0;
}

void MidiPlayer::Stop() {
    if (music_ != nullptr) mixer_.HaltMusic();
}

void MidiPlayer::Close() {
    Stop();
    if (music_ != nullptr) mixer_.FreeMusic(music_);
    music_ = nullptr;
    if (deviceOpen_) mixer_.CloseAudio();
    deviceOpen_ = false;
    if (running_) sdl_.Quit();
    running_ = false;
}

}  // namespace tavrix
