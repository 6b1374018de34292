#pragma once

#include <string>

#include "backends/linux/HostPaths.h"
#include "platform/services/Process.h"
#include "platform/services/UserStore.h"

namespace tavrix {

/// The folder of the files that all users share, for an executable in `folder`: where an installation puts them.
[[nodiscard]] std::string SharedFolderFor(const std::string& folder);

/// The folder of what the program starts and nobody else does, for an executable in `folder`.
[[nodiscard]] std::string HelperFolderFor(const std::string& folder);

/// Whether an executable in `folder` was installed for all who start it there, so that nothing of a user's belongs beside
/// it: the folder is the system's, or the help file is among the shared files. A built program has it beside itself.
[[nodiscard]] bool IsInstalled(const std::string& folder);

/// Notes the program's folder on this account, as an installer does; whether it is noted then. Throws RuntimeError where
/// the folder cannot be made.
bool NoteInstallation(Process& process, UserStore& store);

/// The same for an installed program that starts on this account for the first time: a package reaches no accounts. What
/// is noted stays, and what cannot be noted is left to the start's own check.
void NoteFirstStart(const HostPaths& paths, Process& process, UserStore& store);

}  // namespace tavrix
