#include "shows/stage/SoundEngine.h"

#include "platform/services/Sound.h"
#include "shows/stage/MediaCommands.h"

namespace tavrix {
namespace {

constexpr int SoundFromFile = 1;
constexpr int SoundFromCd = 2;

}  // namespace

void SoundEngine::Start() {
    NoCdInDrive = false;
    mode_ = module_.config.SoundMode;
    kind_ = KindOfSoundFile(module_.config.SoundFile);
    if (mode_ == 0) return;
    SoundFailed = false;
    if (mode_ == SoundFromFile) StartFile();
    if (mode_ == SoundFromCd && module_.CdDevicePresent) StartCd();
}

void SoundEngine::StartFile() {
    const std::string& file = module_.config.SoundFile;
    if (kind_ == SoundFileKind::Wave) {
        PlayWaveFile(module_, file, module_.config.SoundLoop ? WaveFlags::Repeated : WaveFlags::Once);
    } else if (kind_ == SoundFileKind::Midi && module_.MidiDevicePresent) {
        SoundFailed = !StartByCommand(module_, MediaCommands::OpenMidi(file));
        if (SoundFailed) return;
        module_.DoEvents();
        (void)StartByCommand(module_, MediaCommands::PlayMidi);  // nothing depends on it
    }
}

void SoundEngine::StartCd() {
    NoCdInDrive = !CdDriveAnswers(module_);
    if (NoCdInDrive) return;
    SoundFailed = !StartByCommand(module_, MediaCommands::OpenCd);
    if (SoundFailed) return;
    module_.DoEvents();
    // With the loop on, neither result counts. That is all that the loop does here.
    const bool mayFail = module_.config.SoundLoop;
    for (const std::string& command :
         {std::string(MediaCommands::SetCdFormat), MediaCommands::SeekCd(module_.config.CDTrack)}) {
        SoundFailed = !StartByCommand(module_, command) && !mayFail;
        if (SoundFailed) return;
    }
    (void)StartByCommand(module_, MediaCommands::PlayCd);
}

void SoundEngine::Stop() {
    if (mode_ == 0 || NoCdInDrive) return;
    if (mode_ == SoundFromFile) StopFile();
    if (mode_ == SoundFromCd) StopCd();
}

void SoundEngine::StopFile() {
    if (kind_ == SoundFileKind::Wave) {
        StopWaveFile(module_);
    } else if (kind_ == SoundFileKind::Midi && module_.MidiDevicePresent && !SoundFailed) {
        StopAndClose(MediaCommands::StopMidi, MediaCommands::CloseMidi);
    }
}

void SoundEngine::StopCd() {
    if (SoundFailed) {
        StopByCommand(module_, MediaCommands::CloseCd);
    } else if (module_.CdDevicePresent) {
        StopAndClose(MediaCommands::StopCd, MediaCommands::CloseCd);
    }
}

void SoundEngine::StopAndClose(const char* stop, const char* close) {
    const bool stopped = StopByCommand(module_, stop);
    module_.DoEvents();
    if (stopped) StopByCommand(module_, close);
}

}  // namespace tavrix
