#pragma once

#include "core/MainModule.h"
#include "filing/SelectedFiles.h"
#include "filing/floppies/FloppyDisk.h"
#include "platform/forms/Form.h"

namespace tavrix {

/// The Read Another Disk button: lists the disk that is in the drive now; a failure is told.
void CmdNewDisk_Click(const forms::Form& form, const MainModule& module, const FloppyDisk& disk,
                      SelectedFiles& files);

/// For the activation of a dialog that copies from the floppy: without a disk that can be read it says so and closes.
void CloseWithoutDisk(forms::Form& form, const MainModule& module, const FloppyDisk& disk,
                      SelectedFiles& files);

}  // namespace tavrix
