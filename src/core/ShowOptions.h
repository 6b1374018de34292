#pragma once

#include <cstdint>
#include <string>

namespace tavrix {

/// How a show is played, as its file stores it.
struct ShowOptions {
    std::int16_t SoundMode = 0;  ///< 0 no sound, 1 sound file, 2 CD audio
    std::string SoundFile;
    std::int16_t CDTrack = 0;  ///< 0 to 100; 0 means all
    bool SoundLoop = false;
    std::int16_t SlideInterval = 5;  ///< seconds, 0 to 60
    bool RandomSlides = false;
    bool ShowFilenames = false;
    bool ShowDescription = false;
    bool LoopSlideShow = true;
    bool AnimateGIF89 = true;

    friend bool operator==(const ShowOptions&, const ShowOptions&) = default;
};

}  // namespace tavrix
