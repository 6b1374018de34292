#pragma once

#include "platform/services/SaverPassword.h"

namespace tavrix {

/// For desktops that guard their own saver. There is no password here, so nobody is kept out for want of one.
class NoSaverPassword final : public SaverPassword {
  public:
    bool Verify() override { return true; }
    void Change() override {}
    bool SetRunning(bool) override { return true; }
};

}  // namespace tavrix
