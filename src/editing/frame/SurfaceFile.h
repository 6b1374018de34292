#pragma once

#include <string>

#include "core/MainModule.h"
#include "platform/forms/PictureBox.h"

namespace tavrix {

/// Writes what a surface shows as a Windows bitmap, replacing what is there. Failures are those of the file service,
/// and 380 without any pixels.
void WriteSurface(const MainModule& module, const forms::PictureBox& surface, const std::string& path);

}  // namespace tavrix
