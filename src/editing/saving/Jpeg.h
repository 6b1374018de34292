#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/PictureBox.h"

namespace tavrix {

/// Loads a file into the import library and shows it on a surface, which takes its size. False when the surface does
/// not show it and is as it was: the library cannot read the file, and has no image then, or the picture has a side
/// that the library cannot tell (NViewLib::GetWidth) or does not fit the memory.
bool LoadThroughNViewLib(const MainModule& module, forms::PictureBox& Surface, const std::string& Path,
                         std::int16_t Flag);

/// Writes the image on show as a JPEG, by the import library: from its file, which is drawn on the surface again, or,
/// where the library cannot read that, from what the surface shows. `Quality` is 0 to 10, in tens of a percent. A
/// failure is not reported; the target is then as it was.
void SaveAsJpeg(const MainModule& module, forms::PictureBox& Surface, int Quality, const std::string& Path);

}  // namespace tavrix
