#pragma once

#include <cstdint>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/PictureBox.h"

namespace tavrix {

/// Loads a file into the import library and shows it on a surface, which takes its size. Throws RuntimeError where the
/// surface cannot show it, and is as it was then: what the file service tells of a file that cannot be opened, 481 for
/// one that is no picture (the library has no image then), 6 for a picture with a side that the library cannot tell
/// (NViewLib::GetWidth), 7 for one that does not fit the memory.
void LoadThroughNViewLib(const MainModule& module, forms::PictureBox& Surface, const std::string& Path,
                         std::int16_t Flag);

/// Writes the image on show as a JPEG, by the import library: from its file, which is drawn on the surface again, or,
/// where the library cannot read that, from what the surface shows. `Quality` is 0 to 10, in tens of a percent. Whether
/// it was written; a failure is not told, and the target is then as it was.
[[nodiscard]] bool SaveAsJpeg(const MainModule& module, forms::PictureBox& Surface, int Quality,
                              const std::string& Path);

}  // namespace tavrix
