#pragma once

#include <map>
#include <string>
#include <vector>

#include "backends/headless/FaultPlan.h"
#include "platform/services/Sound.h"

namespace tavrix::headless {

/// Notes what is to be played, and answers commands as the test says.
class FakeSound final : public Sound {
  public:
    explicit FakeSound(FaultPlan& faults) : faults_(faults) {}

    int WaveDevices() override {
        return faults_.EnterQuietly(Service::Sound, "WaveDevices") ? waveDevices : 0;
    }
    int MidiDevices() override {
        return faults_.EnterQuietly(Service::Sound, "MidiDevices") ? midiDevices : 0;
    }
    void PlayWave(const std::string& path, unsigned flags) override {
        const std::string call = "(" + path + ", " + std::to_string(flags) + ")";
        calls.push_back("PlayWave " + call);
        faults_.Enter(Service::Sound, "PlayWave", call);
    }
    int Mci(const std::string& command) override {
        calls.push_back("Mci " + command);
        faults_.Enter(Service::Sound, "Mci", command);
        const auto found = results.find(command);
        return found == results.end() ? 1 : found->second;
    }

    int waveDevices = 1;
    int midiDevices = 1;
    std::map<std::string, int> results;  ///< what Mci gives, by the whole command; 1 for those not named
    /// "PlayWave (C:\a.wav, 3)" and "Mci play CDTrack", in order, those that fail included.
    std::vector<std::string> calls;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
