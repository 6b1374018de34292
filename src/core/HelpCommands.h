#pragma once

#include "core/MainModule.h"

namespace tavrix {

/// The application's help file is known from here on.
void InitHelp(MainModule& module);
/// Tells the help window to go.
void CloseHelp(const MainModule& module);
void ShowHelpContents(const MainModule& module);

}  // namespace tavrix
