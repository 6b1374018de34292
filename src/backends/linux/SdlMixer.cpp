#include "backends/linux/SdlMixer.h"

#include "backends/linux/LateLibraryNames.h"

namespace tavrix {

SdlMixer::SdlMixer() {
    const LateLibrary library(SdlMixerLibrary);
    loaded = library.Find("Mix_OpenAudio", OpenAudio) && library.Find("Mix_CloseAudio", CloseAudio) &&
             library.Find("Mix_SetSoundFonts", SetSoundFonts) &&
             library.Find("Mix_LoadMUSType_RW", LoadMusic) && library.Find("Mix_FreeMusic", FreeMusic) &&
             library.Find("Mix_PlayMusic", PlayMusic) && library.Find("Mix_HaltMusic", HaltMusic);
}

}  // namespace tavrix
