#pragma once

#include <csignal>

#include "backends/linux/HostFile.h"

namespace tavrix {

/// The signals by which somebody asks the process to end: SIGTERM, SIGHUP and SIGINT, but for those that whoever started
/// it had ignored. They are kept back from here on and told by a descriptor, so that the program's own loop takes them.
class EndSignals {
  public:
    /// Before any thread is started: threads take over what is kept back.
    EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    /// Becomes readable with the first signal; -1 where the system gives none.
    [[nodiscard]] int Descriptor() const { return file_.Number(); }
    /// Lets further signals through in this thread: a second one ends the process on the spot.
    void LetThrough() const;

  private:
    sigset_t signals_{};
    FileDescriptor file_;
};

}  // namespace tavrix
