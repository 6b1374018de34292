#pragma once

#include "core/MainModule.h"
#include "shows/stage/MediaControl.h"

namespace tavrix {

/// The sound behind a show, as the settings `SoundMode`, `SoundFile`, `CDTrack` and `SoundLoop` say when it starts; what
/// has started is what Stop stops, whatever the settings say by then. It plays by itself between Start and Stop. Start
/// and Stop run pending events.
class SoundEngine {
  public:
    explicit SoundEngine(MainModule& module) : module_(module) {}

    /// For the stage's load. A failure of the platform is told in a box, and the show goes on without a sound.
    void Start();
    /// For the stage's unload. Nothing without a Start.
    void Stop();

    bool SoundFailed = false;  ///< a device could not be opened or set
    bool NoCdInDrive = false;  ///< the CD drive could not be reached

  private:
    void StartFile();
    void StartCd();
    void StopFile();
    void StopCd();
    /// Stops and releases what plays under an alias.
    void StopAndClose(const char* stop, const char* close);

    MainModule& module_;
    int mode_ = 0;  ///< SoundMode at the start
    SoundFileKind kind_ = SoundFileKind::None;
};

}  // namespace tavrix
