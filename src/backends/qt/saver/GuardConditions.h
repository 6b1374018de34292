#pragma once

#include <string>

namespace tavrix::qt {

/// The programs that guard a saver, as host paths.
struct GuardPrograms {
    std::string guard;    ///< keeps the screen covered should the saver end otherwise than by the password
    std::string checker;  ///< checks a password

    /// Those that came with an executable.
    [[nodiscard]] static GuardPrograms Of(const std::string& executable);
    [[nodiscard]] bool Exist() const;
};

/// Whether a saver of ours can guard this screen, and is to: the screen is an X server's own, no desktop and no other program
/// locks it, and the password of the account can be checked. Whatever cannot be told counts against it. Takes some tenths of
/// a second.
[[nodiscard]] bool SaverMayGuard(const GuardPrograms& programs);

}  // namespace tavrix::qt
