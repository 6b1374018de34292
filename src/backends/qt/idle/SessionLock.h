#pragma once

#include <string>

#include "backends/linux/HostFile.h"
#include "backends/linux/HostPaths.h"

namespace tavrix::idle {

/// Held by the one tavrix-idle of a session, which is known by its display, until the process ends.
class SessionLock {
  public:
    explicit SessionLock(const HostPaths& paths);

    /// False when another process has it. Where no lock can be had, the process counts as the one.
    [[nodiscard]] bool Held() const { return held_; }

  private:
    FileDescriptor file_;
    bool held_ = true;
};

}  // namespace tavrix::idle
