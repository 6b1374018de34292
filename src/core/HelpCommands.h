#pragma once

#include "core/MainModule.h"

namespace tavrix {

/// The application's help file is known from here on.
void InitHelp(MainModule& module);
/// Tells the help window to go.
void CloseHelp(const MainModule& module);
void ShowHelpContents(const MainModule& module);
/// Opens a page of the help file by its number in HelpContext.
void ShowHelpPage(const MainModule& module, unsigned context);

}  // namespace tavrix
