#include "backends/linux/SdlAudio.h"

#include "backends/linux/LateLibraryNames.h"

namespace tavrix {

SdlAudio::SdlAudio() {
    const LateLibrary library(SdlLibrary);
    loaded = library.Find("SDL_SetHint", SetHint) && library.Find("SDL_InitSubSystem", InitSubSystem) &&
             library.Find("SDL_QuitSubSystem", QuitSubSystem) && library.Find("SDL_RWFromFile", RWFromFile) &&
             library.Find("SDL_LoadWAV_RW", LoadWav) && library.Find("SDL_FreeWAV", FreeWav) &&
             library.Find("SDL_OpenAudioDevice", OpenAudioDevice) &&
             library.Find("SDL_PauseAudioDevice", PauseAudioDevice) &&
             library.Find("SDL_CloseAudioDevice", CloseAudioDevice);
}

bool SdlAudio::Init() const {
    if (!loaded) return false;
    // Otherwise SDL catches the signals that end a process and waits for someone to ask for its events.
    SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SetHint(SDL_HINT_APP_NAME, "Tavrix");
    return InitSubSystem(SDL_INIT_AUDIO) == 0;
}

}  // namespace tavrix
