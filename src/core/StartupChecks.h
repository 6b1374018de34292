#pragma once

#include "core/MainModule.h"

namespace tavrix {

// The checks that the start runs. What they find out is kept in the module. Their failures go to the start's handler.

/// The display: ends the process below 256 colours, asks about 256, and measures the sizing borders.
void CheckDisplay(MainModule& module);
/// Sound devices and the CD drive; nothing is opened.
void ProbeMultimedia(MainModule& module);
/// Whether the program runs from where it was installed; Cancel ends the process.
void CheckInstallPath(MainModule& module);
void ReadOsVersion(MainModule& module);
/// Whether the screen saver asks for a password: unless the desktop says "0".
void ReadSaverPasswordFlag(MainModule& module);

}  // namespace tavrix
