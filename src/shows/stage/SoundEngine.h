#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

enum class SoundFileKind { None, Wave, Midi };

/// What a sound file's ending says, in any case of letters: ".WAV" or ".MID".
[[nodiscard]] SoundFileKind KindOfSoundFile(const std::string& file);

/// Whether the drive with the letter `CdRomDriveLetter` can be made the current one, as it can with a disc in it. The
/// current drive is the same afterwards.
[[nodiscard]] bool CdDriveAnswers(const MainModule& module);

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
    void PlayWave(const std::string& file, unsigned flags);
    /// Runs a command; a failure of the platform is told and counts as one of the command.
    [[nodiscard]] bool Succeeds(const std::string& command);
    /// Stops and releases what plays under an alias.
    void StopAndClose(const char* stop, const char* close);
    void TellUnexpected();

    MainModule& module_;
    int mode_ = 0;  ///< SoundMode at the start
    SoundFileKind kind_ = SoundFileKind::None;
};

}  // namespace tavrix
