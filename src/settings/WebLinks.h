#pragma once

#include <string>

#include "core/MainModule.h"

namespace tavrix {

/// Shows an address in the user's browser. Where there can be nothing at it, or no browser was started, `failure` is told with
/// the address.
void OpenWebPage(const MainModule& module, const std::string& address, const std::string& failure);

void mnuWebSite_Click(const MainModule& module);
void mnuMainWebSite_Click(const MainModule& module);
/// Asks first.
void mnuCheckForUpgrade_Click(const MainModule& module);

}  // namespace tavrix
