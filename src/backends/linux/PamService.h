#pragma once

#include <string>
#include <vector>

namespace tavrix {

/// Whether the rules of a service of PAM, or where it has none those of "other", can let anybody in by a password. Rules that
/// refuse everybody, and rules that cannot be read, cannot. `folders` hold the rules, the first that has them counts.
[[nodiscard]] bool PamChecksPasswords(const std::string& service, const std::vector<std::string>& folders = {
                                                                      "/etc/pam.d", "/usr/lib/pam.d",
                                                                      "/usr/share/pam.d", "/usr/etc/pam.d"});

}  // namespace tavrix
