#include "backends/linux/EndSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>

namespace tavrix {

EndSignals::EndSignals() {
    ::sigemptyset(&signals_);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action {};
        const bool ignored = ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
        if (!ignored) ::sigaddset(&signals_, signal);
    }
    file_ = FileDescriptor(::signalfd(-1, &signals_, SFD_CLOEXEC | SFD_NONBLOCK));
    // Without a descriptor they do what they always did.
    if (file_) ::pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
}

void EndSignals::LetThrough() const {
    signalfd_siginfo first{};
    [[maybe_unused]] const ssize_t ignored = ::read(file_.Number(), &first, sizeof first);
    ::pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);
}

}  // namespace tavrix
