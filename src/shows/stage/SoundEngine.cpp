#include "shows/stage/SoundEngine.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/Files.h"
#include "platform/services/Sound.h"
#include "shows/stage/MediaCommands.h"

namespace tavrix {
namespace {

constexpr int SoundFromFile = 1;
constexpr int SoundFromCd = 2;

}  // namespace

SoundFileKind KindOfSoundFile(const std::string& file) {
    const std::string ending = UpperCase(Right(file, 4));
    if (ending == ".WAV") return SoundFileKind::Wave;
    if (ending == ".MID") return SoundFileKind::Midi;
    return SoundFileKind::None;
}

bool CdDriveAnswers(const MainModule& module) {
    Files& files = module.platform.files;
    try {
        const std::string formerDrive = Left(files.CurrentFolder(), 2);
        files.ChangeDrive(module.config.CdRomDriveLetter);
        files.ChangeDrive(formerDrive);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

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
        PlayWave(file, module_.config.SoundLoop ? WaveFlags::Repeated : WaveFlags::Once);
    } else if (kind_ == SoundFileKind::Midi && module_.MidiDevicePresent) {
        SoundFailed = !Succeeds(MediaCommands::OpenMidi(file));
        if (SoundFailed) return;
        module_.DoEvents();
        (void)Succeeds(MediaCommands::PlayMidi);  // nothing depends on it
    }
}

void SoundEngine::StartCd() {
    NoCdInDrive = !CdDriveAnswers(module_);
    if (NoCdInDrive) return;
    SoundFailed = !Succeeds(MediaCommands::OpenCd);
    if (SoundFailed) return;
    module_.DoEvents();
    // With the loop on, neither result counts. That is all that the loop does here.
    const bool mayFail = module_.config.SoundLoop;
    for (const std::string& command :
         {std::string(MediaCommands::SetCdFormat), MediaCommands::SeekCd(module_.config.CDTrack)}) {
        SoundFailed = !Succeeds(command) && !mayFail;
        if (SoundFailed) return;
    }
    (void)Succeeds(MediaCommands::PlayCd);
}

void SoundEngine::Stop() {
    if (mode_ == 0 || NoCdInDrive) return;
    if (mode_ == SoundFromFile) StopFile();
    if (mode_ == SoundFromCd) StopCd();
}

void SoundEngine::StopFile() {
    if (kind_ == SoundFileKind::Wave) {
        SkipFailure([&] { module_.platform.sound.PlayWave("", WaveFlags::Once); });
    } else if (kind_ == SoundFileKind::Midi && module_.MidiDevicePresent && !SoundFailed) {
        StopAndClose(MediaCommands::StopMidi, MediaCommands::CloseMidi);
    }
}

void SoundEngine::StopCd() {
    if (SoundFailed) {
        SkipFailure([&] { (void)module_.platform.sound.Mci(MediaCommands::CloseCd); });
    } else if (module_.CdDevicePresent) {
        StopAndClose(MediaCommands::StopCd, MediaCommands::CloseCd);
    }
}

void SoundEngine::PlayWave(const std::string& file, unsigned flags) {
    try {
        module_.platform.sound.PlayWave(file, flags);
    } catch (const RuntimeError&) {
        TellUnexpected();
    }
}

bool SoundEngine::Succeeds(const std::string& command) {
    try {
        return module_.platform.sound.Mci(command) != 0;
    } catch (const RuntimeError&) {
        TellUnexpected();
        return false;
    }
}

void SoundEngine::StopAndClose(const char* stop, const char* close) {
    int stopped = 0;
    SkipFailure([&] { stopped = module_.platform.sound.Mci(stop); });
    module_.DoEvents();
    if (stopped <= 0) return;
    SkipFailure([&] { (void)module_.platform.sound.Mci(close); });
}

void SoundEngine::TellUnexpected() {
    module_.app.MessageBox({.text =
                                "Unexpected error while detecting and or initializing sound hardware, will "
                                "attempt to continue anyway...",
                            .icon = forms::BoxIcon::Exclamation});
}

}  // namespace tavrix
