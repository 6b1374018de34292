#pragma once

#include "platform/services/Services.h"

namespace tavrix::test {

/// The services with others for files.
[[nodiscard]] inline Services WithFiles(const Services& s, Files& files) {
    return {files,   s.drives, s.profile, s.registry, s.store,   s.shell,       s.pictures, s.clipboard,
            s.sound, s.help,   s.system,  s.process,  s.viewLib, s.wakefulness, s.desktop,  s.saverPassword};
}

}  // namespace tavrix::test
