#include "shows/stage/MediaControl.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/Files.h"
#include "platform/services/Sound.h"

namespace tavrix {
namespace {

void TellUnexpected(const MainModule& module) {
    module.app.MessageBox({.text =
                               "Unexpected error while detecting and or initializing sound hardware, will "
                               "attempt to continue anyway...",
                           .icon = forms::BoxIcon::Exclamation});
}

}  // namespace

SoundFileKind KindOfSoundFile(const std::string& file) {
    const std::string ending = UpperCase(Right(file, 4));
    if (ending == ".WAV") return SoundFileKind::Wave;
    if (ending == ".MID") return SoundFileKind::Midi;
    return SoundFileKind::None;
}

bool CdDriveAnswers(const MainModule& module) {
    Files& files = module.platform.files;
    if (module.config.CdRomDriveLetter.empty()) return false;  // that would be any drive
    try {
        const std::string formerDrive = Left(files.CurrentFolder(), 2);
        files.ChangeDrive(module.config.CdRomDriveLetter);
        files.ChangeDrive(formerDrive);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void PlayWaveFile(const MainModule& module, const std::string& file, unsigned flags) {
    try {
        module.platform.sound.PlayWave(file, flags);
    } catch (const RuntimeError&) {
        TellUnexpected(module);
    }
}

void StopWaveFile(const MainModule& module) {
    SkipFailure([&] { module.platform.sound.PlayWave("", WaveFlags::Once); });
}

bool StartByCommand(const MainModule& module, const std::string& command) {
    try {
        return module.platform.sound.Mci(command) != 0;
    } catch (const RuntimeError&) {
        TellUnexpected(module);
        return false;
    }
}

bool StopByCommand(const MainModule& module, const std::string& command) {
    bool stopped = false;
    SkipFailure([&] { stopped = module.platform.sound.Mci(command) > 0; });
    return stopped;
}

}  // namespace tavrix
