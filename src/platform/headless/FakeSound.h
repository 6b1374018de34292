#pragma once

#include "platform/headless/FaultPlan.h"
#include "platform/services/Sound.h"

namespace tavrix::headless {

class FakeSound final : public Sound {
  public:
    explicit FakeSound(FaultPlan& faults) : faults_(faults) {}

    int WaveDevices() override {
        return faults_.EnterQuietly(Service::Sound, "WaveDevices") ? waveDevices : 0;
    }
    int MidiDevices() override {
        return faults_.EnterQuietly(Service::Sound, "MidiDevices") ? midiDevices : 0;
    }

    int waveDevices = 1;
    int midiDevices = 1;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
