#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "backends/linux/CdioLibrary.h"
#include "backends/linux/SdlAudio.h"

namespace tavrix {

/// Plays the audio of a disc, from a drive or from an image. Sectors are read when the sound device asks for samples,
/// in a thread of SDL's; the sound device is open from Play to Stop. All fails in silence.
class CdPlayer {
  public:
    enum class Outcome { Done, NoDisc, NoDevice };

    /// `device` is the host path of an optical drive, which may be empty, or of a disc image. The door of an image is
    /// open or closed as it was left.
    CdPlayer(std::string device, bool doorOpen) : device_(std::move(device)), imageOut_(doorOpen) {}
    CdPlayer(const CdPlayer&) = delete;
    CdPlayer& operator=(const CdPlayer&) = delete;
    ~CdPlayer() { Stop(); }

    /// Whether what is needed to play a disc is installed.
    [[nodiscard]] bool Usable() const { return cdio_.loaded && sdl_.loaded; }

    /// Where the next Play begins: an audio track by its number on the disc, from 1; 0 is the first audio track. Ends
    /// what plays. False when the disc has no such track, or when there is no disc.
    [[nodiscard]] bool Seek(int track);
    /// Plays on to the end of the disc, leaving out what is no audio.
    [[nodiscard]] Outcome Play();
    void Stop();
    /// Opens or closes the tray. An image is no disc while its door is open. False where the drive refuses it.
    [[nodiscard]] bool MoveDoor(bool open);

  private:
    struct Track {
        int number = 0;
        lsn_t first = 0;
        lsn_t last = 0;
    };
    using Disc = std::unique_ptr<CdIo_t, decltype(&cdio_destroy)>;

    /// Reads the table of contents, unless that was done; whether there is audio.
    bool ReadTracks();
    bool NextSector();
    static void Fill(void* self, std::uint8_t* into, int bytes);

    std::string device_;
    bool imageOut_;  ///< it is an image, and its door is open
    CdioLibrary cdio_;
    SdlAudio sdl_;
    Disc disc_{nullptr, nullptr};
    std::vector<Track> tracks_;  ///< of audio, in order
    std::size_t start_ = 0;      ///< the track that Play begins with

    bool running_ = false;  ///< SDL's audio was started
    SDL_AudioDeviceID output_ = 0;

    // The playing thread's while the sound device is open.
    std::array<std::uint8_t, CDIO_CD_FRAMESIZE_RAW> sector_{};
    std::size_t taken_ = sector_.size();  ///< bytes of the sector that were played
    std::size_t track_ = 0;
    lsn_t next_ = 0;
};

}  // namespace tavrix
