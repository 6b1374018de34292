#include "backends/linux/SizeLimit.h"

#include <csignal>

namespace tavrix {

void SurviveSizeLimit() {
    struct sigaction action {};
    // A handler, since programs that are started inherit what is ignored.
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &action, nullptr);
}

}  // namespace tavrix
